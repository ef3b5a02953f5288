// The colour chart: a field of hue and saturation, a lightness bar, the three channels with values, and the HTML form.
// Each change is passed on at once, so that the chart can stay open while one paints.
#pragma once

#include <QColor>
#include <QWidget>
#include <array>
#include <functional>

#include "base/colour.h"

class QLineEdit;
class QSlider;
class QSpinBox;

namespace ruvo {

class HueField;
class LightnessBar;

class frmRuvoColorChart : public QWidget {
 public:
  frmRuvoColorChart(QWidget* parent, std::function<void(Colour)> chosen);

  // Shows a colour without passing it on.
  void setColour(Colour colour);
  Colour colour() const;

  // Told when the user has moved the window.
  std::function<void(const QPoint&)> moved;

 protected:
  void moveEvent(QMoveEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void buildChannels();
  // From a control to all the others and to the receiver.
  void change(const QColor& colour);
  void showAll();

  QColor colour_ = Qt::black;
  std::function<void(Colour)> chosen_;
  bool showing_ = false;
  HueField* field_;
  LightnessBar* bar_;
  QWidget* specimen_;
  std::array<QSlider*, 3> sliders_{};
  std::array<QSpinBox*, 3> values_{};
  QLineEdit* html_;
};

}  // namespace ruvo
