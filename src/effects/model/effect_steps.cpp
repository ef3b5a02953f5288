#include "effects/model/effect_steps.h"

#include <algorithm>

#include "effects/model/effect_table.h"

namespace ruvo {

EffectStep effectStep(std::string_view name, std::initializer_list<double> numbers) {
  const Effect* effect = effectOf(name);
  EffectStep step{effect, standardValues(*effect)};
  std::size_t i = 0;
  for (const double number : numbers) step.values.at(i++).number = number;
  return step;
}

void EffectSteps::take() {
  if (!live_.empty()) taken_.push_back(std::exchange(live_, {}));
}

bool EffectSteps::undo() {
  if (taken_.empty()) return false;
  taken_.pop_back();
  return true;
}

void EffectSteps::clear() {
  taken_.clear();
  live_.clear();
}

bool EffectSteps::apply(clsDIB& picture, double scale, bool keepSize, const Progress& progress) const {
  std::vector<const EffectStep*> all;
  const auto add = [&all](const std::vector<EffectStep>& steps) {
    for (const EffectStep& step : steps) all.push_back(&step);
  };
  std::ranges::for_each(taken_, add);
  add(live_);
  for (std::size_t i = 0; i < all.size(); ++i) {
    Progress part;
    part.step = [&, i](int percent) {
      progress.report(static_cast<int>((100 * i + static_cast<std::size_t>(percent)) / all.size()));
    };
    part.stop = progress.stop;
    EffectInput input(all[i]->values);
    input.scale = scale;
    input.keepSize = keepSize;
    if (!all[i]->effect->apply(picture, input, part)) return false;
  }
  progress.finish();
  return true;
}

}  // namespace ruvo
