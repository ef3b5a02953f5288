// The navigator: a small window with the whole picture of a document, reduced, and a frame around the part that the
// document's view shows. Dragging the frame moves the view.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

namespace ruvo {

class NavigatorView;
class ucCanvas;

class frmRuvoPanoramic : public QWidget {
  Q_OBJECT

 public:
  // The canvas may go before this window does.
  frmRuvoPanoramic(ucCanvas& canvas, QWidget* parent);

  // Shows the picture and its visible part anew, after either changed. Scrolling is followed without being told.
  void refresh();

  // Told when the user has moved the window.
  std::function<void(const QPoint&)> moved;

  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  NavigatorView* view_;
};

}  // namespace ruvo
