#include "shell/polygon_specimen.h"

#include <QPainter>
#include <QPolygonF>
#include <numbers>

#include "platform/theme/theme.h"

namespace ruvo::shell {

PolygonSpecimen::PolygonSpecimen(const QString& name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  setFixedSize(64, 64);
}

void PolygonSpecimen::setFigure(int vertices, double concave, int angle) {
  vertices_ = vertices;
  concave_ = concave;
  angle_ = angle;
  update();
}

void PolygonSpecimen::setColour(const QColor& colour) {
  colour_ = colour;
  update();
}

void PolygonSpecimen::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(theme::roles().line);
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);

  const bool drawnIn = concave_ < 1;
  const int corners = drawnIn ? vertices_ * 2 : vertices_;
  const QPointF centre = QRectF(rect()).center();
  constexpr double kRadius = 25;
  QPolygonF outline;
  for (int i = 0; i < corners; ++i) {
    const double turn = angle_ * std::numbers::pi / 180 + 2 * std::numbers::pi * i / corners - std::numbers::pi / 2;
    const double reach = drawnIn && i % 2 == 1 ? kRadius * concave_ : kRadius;
    outline << centre + QPointF(std::cos(turn), std::sin(turn)) * reach;
  }
  painter.setPen(QPen(colour_, 1.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolygon(outline);
}

}  // namespace ruvo::shell
