#include "effects/model/color_theme.h"

#include "base/rounding.h"
#include "effects/filter/clsDIBFilter.h"

namespace ruvo {
namespace {

constexpr double kSextant = 60;  // degrees

double partOf(double value) {
  return value < 0 ? 0.5 : value / kMostTheme;
}

}  // namespace

Colour equivalentColour(const ColorTheme& theme) {
  const auto channels =
      clsDIBFilter::HLSToRGB(theme.hue / kSextant, partOf(theme.lumination), partOf(theme.saturation));
  const auto byte = [](double channel) { return static_cast<int>(clampToByte(roundToInt(channel))); };
  return rgb(byte(channels.r), byte(channels.g), byte(channels.b));
}

ColorTheme withColour(ColorTheme theme, Colour colour) {
  const auto hls = clsDIBFilter::RGBToHLS(redOf(colour), greenOf(colour), blueOf(colour));
  theme.hue = roundToInt(hls.h * kSextant);
  theme.saturation = roundToInt(hls.s * kMostTheme);
  if (theme.lumination >= 0) theme.lumination = roundToInt(hls.l * kMostTheme);
  return theme;
}

EffectStep effectStep(const ColorTheme& theme) {
  const double only = theme.onlyNonGrey;
  if (!theme.byRGB) return effectStep("theme-hls", {theme.hue, theme.lumination, theme.saturation, only});
  // The tint moves channels apart and leaves the mean, so that the picture keeps its brightness.
  const Colour colour = equivalentColour(theme);
  const double red = redOf(colour), green = greenOf(colour), blue = blueOf(colour);
  const double mean = (red + green + blue) / 3;
  const auto apart = [mean](double channel) { return static_cast<double>(roundToInt(channel - mean)); };
  return effectStep("theme-rgb", {apart(red), apart(green), apart(blue), only});
}

}  // namespace ruvo
