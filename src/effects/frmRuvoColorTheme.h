// Gives all pixels a hue, or tints their greys.
#pragma once

#include "effects/effect_window.h"
#include "effects/model/color_theme.h"

class QCheckBox;
class QLabel;

namespace ruvo {

class ColorButton;
class NumberCombo;

class frmRuvoColorTheme : public EffectWindow {
  Q_OBJECT

 public:
  frmRuvoColorTheme(const EffectSubject& subject, QWidget* parent);

 protected:
  bool apply(clsDIB& picture, double scale, const Progress& progress) override;
  QString refusal() override;

 private:
  NumberCombo* addNumber(class QFormLayout& form, const QString& text, NumberCombo* number, double ColorTheme::*member);
  void addWays();
  void addColour();
  void showTheme();

  ColorTheme theme_;
  QPushButton* cmdUseHLS_;
  QPushButton* cmdUseRGB_;
  NumberCombo* hue_;
  NumberCombo* cboLumination_;
  NumberCombo* cboSaturation_;
  ColorButton* picColorTheme_;
  QLabel* lblRGB_;
};

}  // namespace ruvo
