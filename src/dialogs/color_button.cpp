#include "dialogs/color_button.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "platform/desktop/desktop.h"
#include "platform/theme/controls.h"

namespace ruvo {

ColorButton::ColorButton(const QString& name, Colour colour, QWidget* parent) : ColorSwatch(name, colour, parent) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setAccessibleName(tr("Color"));
}

void ColorButton::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) choose();
}

void ColorButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space) return choose();
  ColorSwatch::keyPressEvent(event);
}

void ColorButton::paintEvent(QPaintEvent* event) {
  ColorSwatch::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ColorButton::choose() {
  const auto picked = desktop::desktop().pickColor(window(), theme::toQColor(colour()));
  if (!picked) return;
  setColour(rgb(picked->red(), picked->green(), picked->blue()));
  Q_EMIT colourChosen(colour());
}

}  // namespace ruvo
