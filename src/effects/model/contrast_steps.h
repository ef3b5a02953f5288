// What the window for contrast, brightness and sharpness does to a picture: the steps applied so far, and the process
// that is live.
#pragma once

#include "effects/model/effect_steps.h"

namespace ruvo {

enum class ContrastProcess { Contrast, Gamma, Soften, Sharpen, Fade };

struct ContrastChoices {
  ContrastProcess process = ContrastProcess::Contrast;
  double contrast = 0;       // percent, -100 to 100; 0 leaves it as it is
  double brightness = 0;     // the same
  double gamma = 1;          // 0.1 to 10; 1 leaves it as it is
  double soften = 1;         // times, 1 to 20
  double sharpen = 1;        // the same
  double sharpenWeight = 1;  // 0 to 20
  double fade = 10;          // percent, 0 to 100
  double exclude = kNoColour;
};

inline constexpr double kMostTimes = 20;

class ContrastSteps {
 public:
  const ContrastChoices& choices() const { return choices_; }
  const EffectSteps& steps() const { return steps_; }
  // A value was entered, or a process chosen, which is live from now on. A contrast, brightness or gamma that was set
  // before becomes a step when another process is chosen, since nothing else applies it; a softening, sharpening or fading
  // that was not applied goes. Tone controls begin at "as it is" again.
  void choose(const ContrastChoices& now);
  // Colour that what is live leaves alone.
  void exclude(double colour);
  // One more step of the process; what is seen of it already becomes that step.
  void applyStep(ContrastProcess process);
  // Takes back what is live or else the last step. False when there is nothing.
  bool undo();
  bool canUndo() const { return !steps_.none(); }

 private:
  ContrastChoices choices_;
  EffectSteps steps_;
};

}  // namespace ruvo
