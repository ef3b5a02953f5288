// The choices of a colour theme: a hue with lumination and saturation, and the colour that they come to.
#pragma once

#include "base/colour.h"
#include "effects/model/effect_steps.h"

namespace ruvo {

inline constexpr double kThemeKeeps = -1;
inline constexpr double kMostHue = 360;
inline constexpr double kMostTheme = 240;  // of lumination and saturation

struct ColorTheme {
  double hue = 30;                  // degrees, 0 to 360
  double lumination = kThemeKeeps;  // 0 to 240; kThemeKeeps leaves that of each pixel
  double saturation = 90;           // the same
  bool onlyNonGrey = false;         // pixels with equal channels stay as they are
  bool byRGB = false;               // tints the greys by the theme's colour instead
};

// The theme as one colour; what it leaves to the pixels counts as half.
Colour equivalentColour(const ColorTheme& theme);
// The theme with the hue and saturation of a colour, and its lumination unless the theme keeps that of the pixels.
ColorTheme withColour(ColorTheme theme, Colour colour);
EffectStep effectStep(const ColorTheme& theme);

}  // namespace ruvo
