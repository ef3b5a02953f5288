#include "effects/model/contrast_steps.h"

#include <utility>

namespace ruvo {
namespace {

std::vector<EffectStep> toneSteps(const ContrastChoices& choices) {
  std::vector<EffectStep> steps;
  if (choices.contrast != 0) steps.push_back(effectStep("contrast", {1 + choices.contrast / 100, 0, choices.exclude}));
  if (choices.brightness > 0) steps.push_back(effectStep("brighten", {choices.brightness, choices.exclude}));
  if (choices.brightness < 0) steps.push_back(effectStep("darken", {-choices.brightness, choices.exclude}));
  return steps;
}

std::vector<EffectStep> liveOf(const ContrastChoices& choices) {
  const auto repeated = [](double times, const EffectStep& step) {
    return std::vector<EffectStep>(static_cast<std::size_t>(times), step);
  };
  switch (choices.process) {
    case ContrastProcess::Contrast:
      return toneSteps(choices);
    case ContrastProcess::Gamma:
      if (choices.gamma == 1) return {};
      return {effectStep("gamma", {choices.gamma, choices.exclude})};
    case ContrastProcess::Soften:
      return repeated(choices.soften, effectStep("soften", {choices.exclude}));
    case ContrastProcess::Sharpen:
      return repeated(choices.sharpen, effectStep("sharpen", {choices.sharpenWeight, choices.exclude}));
    case ContrastProcess::Fade:
      return {effectStep("fade", {choices.fade, choices.exclude})};
  }
  return {};
}

bool isTone(ContrastProcess process) {
  return process == ContrastProcess::Contrast || process == ContrastProcess::Gamma;
}

// Contrast, brightness and gamma as they are in a new window.
void forgetTones(ContrastChoices& choices) {
  const ContrastChoices fresh;
  choices.contrast = fresh.contrast;
  choices.brightness = fresh.brightness;
  choices.gamma = fresh.gamma;
}

}  // namespace

void ContrastSteps::choose(const ContrastChoices& now) {
  const ContrastProcess before = std::exchange(choices_, now).process;
  if (now.process != before && isTone(before)) {
    steps_.take();
    forgetTones(choices_);
    if (now.process == ContrastProcess::Gamma) choices_.gamma = now.gamma;
    if (now.process == ContrastProcess::Contrast) {
      choices_.contrast = now.contrast;
      choices_.brightness = now.brightness;
    }
  }
  steps_.setLive(liveOf(choices_));
}

void ContrastSteps::exclude(double colour) {
  choices_.exclude = colour;
  if (steps_.hasLive()) steps_.setLive(liveOf(choices_));
}

void ContrastSteps::applyStep(ContrastProcess process) {
  ContrastChoices now = choices_;
  now.process = process;
  if (process != choices_.process || !steps_.hasLive()) choose(now);
  steps_.take();
  forgetTones(choices_);
}

bool ContrastSteps::undo() {
  if (!steps_.hasLive()) return steps_.undo();
  steps_.setLive({});
  forgetTones(choices_);
  return true;
}

}  // namespace ruvo
