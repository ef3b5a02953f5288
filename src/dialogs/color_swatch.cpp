#include "dialogs/color_swatch.h"

#include <QPainter>

namespace ruvo {
namespace {
constexpr int kWidth = 36;
constexpr int kHeight = 22;
}  // namespace

ColorSwatch::ColorSwatch(const QString& name, Colour colour, QWidget* parent) : QWidget(parent), colour_(colour) {
  setObjectName(name);
  setFixedSize(kWidth, kHeight);
}

void ColorSwatch::setColour(Colour colour) {
  colour_ = colour;
  update();
}

// A light ring within a dark one stands out from any colour. What does not apply now is shown empty.
void ColorSwatch::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(isEnabled() ? palette().color(QPalette::Base) : Qt::transparent);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  if (isEnabled())
    painter.fillRect(rect().adjusted(2, 2, -2, -2), QColor(redOf(colour_), greenOf(colour_), blueOf(colour_)));
}

}  // namespace ruvo
