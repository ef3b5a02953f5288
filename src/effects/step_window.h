// An effect window whose choices can be applied one after another before Proceed.
#pragma once

#include "effects/effect_window.h"
#include "effects/model/effect_steps.h"

namespace ruvo {

class StepWindow : public EffectWindow {
  Q_OBJECT

 public:
  using EffectWindow::EffectWindow;

 protected:
  virtual const EffectSteps& steps() const = 0;
  bool apply(clsDIB& picture, double scale, const Progress& progress) override {
    return steps().apply(picture, scale, subject().region, progress);
  }
  bool changesAnything() const override { return !steps().none(); }
};

}  // namespace ruvo
