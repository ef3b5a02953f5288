#include "shell/polygon_specimen.h"

#include <QPainter>
#include <QPolygonF>

#include "canvas/engine/shape_polygon.h"
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

  const QPointF centre = QRectF(rect()).center();
  constexpr double kRadius = 25;
  QPolygonF outline;
  for (const shape::PolygonCorner& corner : shape::polygonCorners({vertices_, kRadius, concave_, angle_}))
    outline << centre + QPointF(corner.x, corner.y);
  painter.setPen(QPen(colour_, 1.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolygon(outline);
}

}  // namespace ruvo::shell
