#include "dialogs/color_fields.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace ruvo {
namespace {

QColor hsl(double hue, double saturation, double lightness) {
  return QColor::fromHslF(static_cast<float>(std::clamp(hue, 0.0, 1.0)),
                          static_cast<float>(std::clamp(saturation, 0.0, 1.0)),
                          static_cast<float>(std::clamp(lightness, 0.0, 1.0)));
}

double share(double value, double length) {
  return std::clamp(length > 0 ? value / length : 0.0, 0.0, 1.0);
}

}  // namespace

HueField::HueField(QWidget* parent) : QWidget(parent) {
  setObjectName("picHueField");
  setFixedSize(216, 144);
  setCursor(Qt::CrossCursor);
  field_ = QImage(size(), QImage::Format_RGB32);
  for (int y = 0; y < field_.height(); ++y)
    for (int x = 0; x < field_.width(); ++x)
      field_.setPixelColor(
          x, y,
          hsl(x / static_cast<double>(field_.width() - 1), 1 - y / static_cast<double>(field_.height() - 1), 0.5));
}

void HueField::setValues(double hue, double saturation) {
  hue_ = hue;
  saturation_ = saturation;
  update();
}

void HueField::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(rect(), field_);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  const QPointF at(hue_ * (width() - 1), (1 - saturation_) * (height() - 1));
  painter.setPen(QPen(Qt::black, 3));
  painter.drawEllipse(at, 5, 5);
  painter.setPen(QPen(Qt::white, 1.5));
  painter.drawEllipse(at, 5, 5);
}

void HueField::pick(const QPointF& place) {
  setValues(share(place.x(), width() - 1), 1 - share(place.y(), height() - 1));
  picked(hue_, saturation_);
}

void HueField::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) pick(event->position());
}

void HueField::mouseMoveEvent(QMouseEvent* event) {
  if ((event->buttons() & Qt::LeftButton) != 0) pick(event->position());
}

LightnessBar::LightnessBar(QWidget* parent) : QWidget(parent) {
  setObjectName("picLightnessBar");
  setFixedSize(26, 144);
}

void LightnessBar::setValues(double hue, double saturation, double lightness) {
  hue_ = hue;
  saturation_ = saturation;
  lightness_ = lightness;
  update();
}

void LightnessBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRectF bar = QRectF(rect()).adjusted(0, 0, -8, 0);
  QLinearGradient shades(bar.topLeft(), bar.bottomLeft());
  shades.setColorAt(0, Qt::white);
  shades.setColorAt(0.5, hsl(hue_, saturation_, 0.5));
  shades.setColorAt(1, Qt::black);
  painter.fillRect(bar, shades);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(bar.adjusted(0.5, 0.5, -0.5, -0.5));
  const double y = (1 - lightness_) * (height() - 1);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::WindowText));
  painter.drawPolygon(QPolygonF{QPointF(bar.right() + 1, y), QPointF(width(), y - 4.5), QPointF(width(), y + 4.5)});
}

void LightnessBar::pick(double y) {
  lightness_ = 1 - share(y, height() - 1);
  update();
  picked(lightness_);
}

void LightnessBar::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) pick(event->position().y());
}

void LightnessBar::mouseMoveEvent(QMouseEvent* event) {
  if ((event->buttons() & Qt::LeftButton) != 0) pick(event->position().y());
}

}  // namespace ruvo
