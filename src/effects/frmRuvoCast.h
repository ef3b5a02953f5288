// Casts, embosses or engraves, with a level for each of red, green and blue.
#pragma once

#include "effects/element_rows.h"
#include "effects/step_window.h"

class QComboBox;
class QSlider;

namespace ruvo {

class frmRuvoCast : public StepWindow {
  Q_OBJECT

 public:
  frmRuvoCast(const EffectSubject& subject, QWidget* parent);

 protected:
  const EffectSteps& steps() const override { return steps_; }
  QString refusal() override;

 private:
  void addLevels();
  void addButtons();
  void makeLive();

  EffectSteps steps_;
  QComboBox* cboOperation_;
  ElementRows* levels_ = nullptr;
  QSlider* hsbAllElements_ = nullptr;
};

}  // namespace ruvo
