// The scroll bars of a canvas and the corner between them, as a view's layout asks for them.
#pragma once

#include <QScrollBar>
#include <QWidget>
#include <functional>

#include "canvas/engine/view_geometry.h"

namespace ruvo {

// Names a child control, hidden until it is wanted.
template <typename Widget>
Widget* hiddenChild(Widget* widget, const QString& name) {
  widget->setObjectName(name);
  widget->hide();
  return widget;
}

class CanvasBars {
 public:
  // Makes the bars as children of the control. `scrolled` gets the bars' values when the user moves one.
  CanvasBars(QWidget& control, std::function<void(int x, int y)> scrolled);

  // Width of the vertical bar and height of the horizontal one: logical pixels, and device pixels rounded up.
  int thickness() const;
  Size deviceThickness() const;
  // Shows, places and sets the bars as the view has them, without telling `scrolled`.
  void arrange(const ViewGeometry& view);

 private:
  void arrangeBar(QScrollBar& bar, bool shown, const QRect& place, const ViewGeometry& view, bool horizontal);

  QWidget& control_;
  QScrollBar* HsbDisp;
  QScrollBar* VsbDisp;
  QWidget* picJunction;
};

}  // namespace ruvo
