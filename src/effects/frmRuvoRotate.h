// Turns the picture by any angle.
#pragma once

#include "effects/effect_window.h"
#include "effects/model/rotation.h"

class QCheckBox;

namespace ruvo {

class ColorButton;
class NumberCombo;
class OptionalColour;

class frmRuvoRotate : public EffectWindow {
  Q_OBJECT

 public:
  frmRuvoRotate(const EffectSubject& subject, QWidget* parent);

 protected:
  bool apply(clsDIB& picture, double scale, const Progress& progress) override;
  QString refusal() override;
  bool confirm() override;

 private:
  void addAngle();
  void addColours();
  void turnOn();
  bool mayGrow() const;

  Rotation choices_;
  NumberCombo* cboRotateAngle_ = nullptr;
};

}  // namespace ruvo
