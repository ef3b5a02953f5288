// The light viewer: shows its DIB at a whole magnification inside a scrolled view, as the painting control does, but
// without tools, regions or edges. The left button drags the picture by the hand. Display places are device pixels.
#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "base/colour.h"
#include "image/clsDIB.h"

namespace ruvo {

class ucCanvasA : public QWidget {
  Q_OBJECT

 public:
  explicit ucCanvasA(QWidget* parent = nullptr);
  ~ucCanvasA() override;

  // The picture at real size, 32 bits; an empty one means a blank control. After a change of its pixels call
  // CanvasPicPaint, after another size CanvasResize.
  clsDIB& DIB();
  const clsDIB& DIB() const;
  // Whole factor, at least 1. A write only stores; CanvasResize shows it.
  int Magnify() const;
  void setMagnify(int magnify);
  // Shows the whole picture, reduced where it is too large, instead of a part of it. A write only stores.
  void setFitInView(bool fit);
  void setCanvasBackColor(const QColor& color);

  // Which families of events are raised, and what follows the pointer.
  void setToNotifyCanvasMouseMove(bool on);
  void setToReportRightClickDataInScrollMode(bool on);
  void setToMonitorXYdata(bool on);
  void setToShowPixelRGB(bool on);  // the tool tip is the colour under the pointer
  void setToShowXYlines(bool on);   // a cross hair

  void CanvasResize();
  void CanvasPicPaint();
  void CanvasCleanse();  // back to blank, Magnify 1
  void GetScrollValues(int& x, int& y) const;
  void SetScrollValues(int x, int y, bool repaint = true, bool syncBars = true);  // out of range: the nearest possible
  void GetPicdispStartPos(int& left, int& top) const;
  void GetVisibleStartInfo(int& x, int& y) const;
  // The colour of a picture point; none outside.
  std::optional<Colour> DIB_XY_Color(int x, int y) const;

 Q_SIGNALS:
  void NotifyScroll();
  void NotifyClickData(int button, ruvo::Colour colour, int x, int y);  // button is always 2; image pixels
  void NotifyCanvasMouseMove();                                         // the pointer has left the picture
  void MonitorXYdata(int x, int y);                                     // image pixels

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct Private;
  class View;
  std::unique_ptr<Private> d_;
};

}  // namespace ruvo
