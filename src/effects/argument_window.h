// The window of an effect that needs none of its own: a control for each of its arguments.
#pragma once

#include "effects/effect_window.h"

namespace ruvo {

class EffectControls;

class ArgumentWindow : public EffectWindow {
  Q_OBJECT

 public:
  ArgumentWindow(const QString& name, const Effect& effect, const EffectSubject& subject, EffectHost& host,
                 QWidget* parent);
  // With arguments of the window's own, which are those of the effect in other ranges.
  ArgumentWindow(const QString& name, const Effect& effect, std::vector<EffectArgument> arguments,
                 const EffectSubject& subject, EffectHost& host, QWidget* parent);
  void accept() override;

 protected:
  EffectControls& entered() const { return *entered_; }
  bool apply(clsDIB& picture, double scale, const Progress& progress) override;
  QString refusal() override;

 private:
  // As entered; with `scale` below 1 a second picture is as much reduced as the sample.
  std::vector<EffectValue> valuesAt(double scale);

  const Effect& effect_;
  const std::vector<EffectArgument> arguments_;
  EffectHost& host_;
  EffectControls* entered_;
  // The last reduced one, so that a drag on the sample does not wait for it.
  struct {
    std::shared_ptr<const clsDIB> of, copy;
    double scale = 0;
  } reduced_;
};

}  // namespace ruvo
