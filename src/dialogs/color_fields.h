// The two areas of the colour chart in which a colour is picked by place.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>
#include <functional>

namespace ruvo {

// Hue from left to right, saturation from top (full) to bottom (none), drawn at half lightness.
class HueField : public QWidget {
 public:
  explicit HueField(QWidget* parent);
  void setValues(double hue, double saturation);  // 0 to 1 each
  std::function<void(double hue, double saturation)> picked;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void pick(const QPointF& place);
  QImage field_;
  double hue_ = 0;
  double saturation_ = 0;
};

// From white at the top over the colour to black.
class LightnessBar : public QWidget {
 public:
  explicit LightnessBar(QWidget* parent);
  void setValues(double hue, double saturation, double lightness);
  std::function<void(double lightness)> picked;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void pick(double y);
  double hue_ = 0;
  double saturation_ = 0;
  double lightness_ = 0;
};

}  // namespace ruvo
