// Adds to red, green or blue, one element after another.
#pragma once

#include "effects/element_rows.h"
#include "effects/step_window.h"

namespace ruvo {

class OptionalColour;

class frmRuvoAdjEle : public StepWindow {
  Q_OBJECT

 public:
  frmRuvoAdjEle(const EffectSubject& subject, QWidget* parent);

 protected:
  const EffectSteps& steps() const override { return steps_; }
  QString refusal() override;

 private:
  EffectStep stepOf(int element) const;
  void makeLive();
  void applyStep(int element);
  void restore();

  EffectSteps steps_;
  ElementRows* amounts_;
  OptionalColour* exclude_;
};

}  // namespace ruvo
