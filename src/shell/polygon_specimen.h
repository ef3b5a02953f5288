// The small drawing of what an automatic polygon will look like.
#pragma once

#include <QColor>
#include <QWidget>

namespace ruvo::shell {

class PolygonSpecimen : public QWidget {
 public:
  PolygonSpecimen(const QString& name, QWidget* parent);
  // vertices 3 to 8; concave 0.2 to 1, the share of the radius at which the sides are drawn in (1 draws them straight);
  // angle in degrees.
  void setFigure(int vertices, double concave, int angle);
  void setColour(const QColor& colour);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int vertices_ = 6;
  double concave_ = 1;
  int angle_ = 0;
  QColor colour_ = Qt::black;
};

}  // namespace ruvo::shell
