// Effects on brightness, contrast and colours.
#include "effects/filter/clsDIBFilter.h"
#include "effects/model/effect_table.h"

namespace ruvo {
namespace {

using Kind = EffectValueKind;
using Element = clsDIBFilter::Element;
using Order = clsDIBFilter::Order;

constexpr EffectArgument kSkipGreys = {"skip-greys", "Colorize &non-grayscaled parts", Kind::Switch, 0, 1, 0};

constexpr EffectArgument kBrighten[] = {{"percent", "&Brightness", Kind::Whole, 0, 400, 10, "%"}, kExclude};
constexpr EffectArgument kDarken[] = {{"percent", "&Darkness", Kind::Whole, 0, 100, 10, "%"}, kExclude};
constexpr EffectArgument kContrast[] = {
    {"factor", "&Contrast", Kind::Real, 0, 10, 1.2}, {"offset", "&Brightness", Kind::Whole, -255, 255, 0}, kExclude};
constexpr EffectArgument kGamma[] = {{"gamma", "&Gamma", Kind::Real, 0.1, 10, 1.5}, kExclude};
constexpr EffectArgument kFade[] = {{"percent", "&Fade", Kind::Whole, 0, 100, 20, "%"}, kExclude};
constexpr EffectArgument kExcludeOnly[] = {kExclude};
constexpr EffectArgument kThemeHLS[] = {{"hue", "&Hue (0 to 360)", Kind::Whole, -1, 360, 30, "(-1 keeps)"},
                                        {"lumination", "&Lumination % of 240", Kind::Whole, -1, 240, -1, "(-1 keeps)"},
                                        {"saturation", "&Saturation % of 240", Kind::Whole, -1, 240, 90, "(-1 keeps)"},
                                        kSkipGreys};
constexpr EffectArgument kThemeRGB[] = {{"red", "&Red", Kind::Whole, -255, 255, 40},
                                        {"green", "&Green", Kind::Whole, -255, 255, 0},
                                        {"blue", "&Blue", Kind::Whole, -255, 255, -40},
                                        kSkipGreys};
constexpr EffectArgument kColorize[] = {{"colour", "&Color", Kind::PlainColour, 0, kWhite, rgb(255, 204, 128)}};
constexpr const char* kElements[] = {"Red", "Green", "Blue"};
constexpr EffectArgument kAdjust[] = {{"element", "E&lement", Kind::Choice, 0, 2, 0, "", kElements},
                                      {"amount", "&Amount", Kind::Whole, -255, 255, 30},
                                      kExclude};
// In the order of clsDIBFilter::Order.
constexpr const char* kOrders[] = {"R.B.G.", "G.R.B.", "G.B.R.", "B.R.G.", "B.G.R."};
constexpr EffectArgument kSwap[] = {{"order", "S&wap \"R.G.B.\" (current) with:", Kind::Choice, 0, 4, 4, "", kOrders}};

bool brighten(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).BrightenDarken(picture, static_cast<float>(input.real(0) / 100), input.colourOrNone(1));
}
bool darken(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).BrightenDarken(picture, static_cast<float>(-input.real(0) / 100),
                                               input.colourOrNone(1));
}
bool contrast(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).Contrast(picture, static_cast<float>(input.real(0)), input.whole(1),
                                         input.colourOrNone(2));
}
bool gamma(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).Gamma(picture, input.real(0), input.colourOrNone(1));
}
bool fade(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).Fade(picture, input.whole(0), input.colourOrNone(1));
}
bool grayscale(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).Grayscale(picture, input.colourOrNone(0));
}
bool negative(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).Negative(picture, input.colourOrNone(0));
}
bool themeHLS(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).ColorTheme_HLS(picture, {input.real(0), input.real(1), input.real(2), input.on(3)});
}
bool themeRGB(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).ColorTheme_RGB(picture, {input.whole(0), input.whole(1), input.whole(2), input.on(3)});
}
bool colorize(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).Colorize(picture, input.colour(0));
}
bool adjust(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).AdjustElement(picture, static_cast<Element>(input.choice(0)), input.whole(1),
                                              input.colourOrNone(2));
}
bool swapElements(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).SwapElements(picture, static_cast<Order>(input.choice(0)));
}

constexpr Effect kEffects[] = {
    {"brighten", "Brighten", "Makes the picture brighter", kBrighten, brighten},
    {"darken", "Darken", "Makes the picture darker", kDarken, darken},
    {"contrast", "Contrast", "Spreads or narrows the channels around the middle and moves them", kContrast, contrast},
    {"gamma", "Gamma", "Brightens (above 1) or darkens the middle tones", kGamma, gamma},
    {"fade", "Fade", "Fades the picture towards white", kFade, fade},
    {"grayscale", "Grayscale", "Turns colours into greys", kExcludeOnly, grayscale},
    {"negative", "Negative", "Turns each channel into its opposite", kExcludeOnly, negative},
    {"theme-hls", "Use HLS", "Gives all pixels a hue, a lumination or a saturation", kThemeHLS, themeHLS},
    {"theme-rgb", "Use RGB", "Tints the picture's greys by red, green and blue", kThemeRGB, themeRGB},
    {"colorize", "Colorize", "Paints the picture in the shades of one colour", kColorize, colorize},
    {"adjust", "Adjust Color Element", "Adds to red, green or blue", kAdjust, adjust},
    {"swap", "Swap Color Elements", "Exchanges red, green and blue", kSwap, swapElements},
};

}  // namespace

std::span<const Effect> toneEffects() {
  return kEffects;
}

}  // namespace ruvo
