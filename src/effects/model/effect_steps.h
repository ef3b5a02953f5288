// Effects that are applied one after another: the steps that were taken, and the one that is live and may still change.
#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "effects/model/effect.h"

namespace ruvo {

// An effect of the table with its values.
struct EffectStep {
  const Effect* effect;
  std::vector<EffectValue> values;
};
// `name` is one of the table. Values beyond the numbers are the standard ones.
EffectStep effectStep(std::string_view name, std::initializer_list<double> numbers);

class EffectSteps {
 public:
  // What is tried out now, in place of what was: one effect, several in turn, or none.
  void setLive(std::vector<EffectStep> live) { live_ = std::move(live); }
  bool hasLive() const { return !live_.empty(); }
  // The live one becomes a step.
  void take();
  // The same for this one, while the live one stays.
  void take(EffectStep step) { taken_.push_back({std::move(step)}); }
  // The last step goes; false when there is none.
  bool undo();
  void clear();
  std::size_t taken() const { return taken_.size(); }
  bool none() const { return taken_.empty() && live_.empty(); }

  // All steps and the live one, with scale and keepSize as in EffectInput. False as for an effect.
  bool apply(clsDIB& picture, double scale, bool keepSize, const Progress& progress) const;

 private:
  std::vector<std::vector<EffectStep>> taken_;
  std::vector<EffectStep> live_;
};

}  // namespace ruvo
