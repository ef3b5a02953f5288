// A colour table as a grid of 16 by 16 boxes (`picPalette`): entries in use, then those past them crossed out. The
// selected index, the transparent one and a second one carry marks that are seen on any colour.
//
// The grid only tells what was clicked, past the entries too; who uses it decides what becomes selected. The arrow keys,
// Home and End stand for a left click on the box that they lead to; with Shift for a right click, where a second index
// is chosen. The Menu key is a right click on the selected box.
#pragma once

#include <QWidget>

#include "formats/clsGIF.h"

namespace ruvo {

class PaletteGrid : public QWidget {
  Q_OBJECT

 public:
  explicit PaletteGrid(QWidget* parent = nullptr);

  void setPalette(const GifTable& table, int entries, int transparentIndex = -1);
  void clear();
  int entries() const { return entries_; }
  void setSelectedIndex(int index);  // -1 for none
  int selectedIndex() const { return selected_; }
  void setSecondIndex(int index);  // the replacement while an entry is chosen to be deleted; -1 for none
  void setChoosesSecond(bool chooses) { choosesSecond_ = chooses; }

  // Tells what the index under the mouse is, with its hex digits or without.
  QString hoverText(int index, bool hexDigits) const;

  QSize sizeHint() const override;

 Q_SIGNALS:
  void hovered(int index);  // -1 when the mouse left
  void clicked(int index, Qt::MouseButton button);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  int indexAt(const QPoint& place) const;
  QRect boxOf(int index) const;
  int stepFrom(int index, int key) const;

  GifTable table_{};
  int entries_ = 0;
  int transparent_ = -1;
  int selected_ = -1;
  int second_ = -1;
  bool choosesSecond_ = false;
};

}  // namespace ruvo
