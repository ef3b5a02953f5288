// Effects in which pixels act on their neighbours, and those that lay something over the picture.
#include "effects/filter/clsDIBFilter.h"
#include "effects/model/effect_table.h"

namespace ruvo {
namespace {

using Kind = EffectValueKind;

constexpr EffectArgument kWeight = {"weight", "&Weight", Kind::Real, 0, 20, 1};
constexpr EffectArgument kRed = {"red", "&Red", Kind::Whole, -255, 255, 128};
constexpr EffectArgument kGreen = {"green", "&Green", Kind::Whole, -255, 255, 128};
constexpr EffectArgument kBlue = {"blue", "&Blue", Kind::Whole, -255, 255, 128};

constexpr EffectArgument kSoften[] = {kExclude};
constexpr EffectArgument kSharpen[] = {kWeight, kExclude};
constexpr EffectArgument kRelief[] = {kWeight, kRed, kGreen, kBlue};
constexpr EffectArgument kCast[] = {kRed, kGreen, kBlue};
constexpr EffectArgument kAntialias[] = {{"strength", "&Strength", Kind::Whole, 0, 100, 100, "%"}};
constexpr EffectArgument kPixelate[] = {{"block", "&Block", Kind::Whole, 1, 1000, 10, "pixels"}};
constexpr EffectArgument kGrainize[] = {{"strength", "&Strength", Kind::Whole, 0, 400, 50, "%"}, kExclude};
constexpr EffectArgument kTexturize[] = {{"relief", "&Relief", Kind::Picture}};
constexpr EffectArgument kTile[] = {{"tile", "&Tile", Kind::Picture}};

bool soften(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).Soften(picture, input.colourOrNone(0));
}
bool sharpen(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).Sharpen(picture, static_cast<float>(input.real(0)), input.colourOrNone(1));
}
bool emboss(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).Emboss(picture, static_cast<float>(input.real(0)), input.whole(3), input.whole(2),
                                       input.whole(1));
}
bool engrave(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).Engrave(picture, static_cast<float>(input.real(0)), input.whole(3), input.whole(2),
                                        input.whole(1));
}
bool cast(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).Cast(picture, input.whole(0), input.whole(1), input.whole(2));
}
bool antialias(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).doAntiAliasing(picture, input.whole(0));
}
bool pixelate(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return clsDIBFilter(progress).Pixelate(picture, input.wholeLength(0));
}
bool grainize(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  // Always the same grain: what a sample showed is what comes.
  RandomSource random;
  return clsDIBFilter(progress).Grainize(picture, static_cast<float>(input.real(0) / 100), random,
                                         input.colourOrNone(1));
}
// Hands on the second picture as it is seen: what is see-through is white, whatever colour nobody sees there.
template <typename Act>
bool withSeen(const clsDIB& second, const Act& act) {
  if (!second.DIBhasAlpha()) return act(second);
  clsDIB flat;
  if (!flat.CreateBlankDIB(second.DIBWidth(), second.DIBHeight(), 32, kWhite, second.BottomUp())) return false;
  clsDIB::Display_DIB_With_Alpha(second, flat.surface(), kWhite);
  return act(flat);
}
bool texturize(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return withSeen(input.picture(0),
                  [&](const clsDIB& relief) { return clsDIBFilter(progress).Texturize(picture, relief); });
}
bool tile(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return withSeen(input.picture(0), [&](const clsDIB& one) { return clsDIBFilter(progress).Tile(picture, one); });
}

constexpr Effect kEffects[] = {
    {"soften", "Soften", "Takes the mean of each pixel and its neighbours", kSoften, soften},
    {"sharpen", "Sharpen", "Strengthens the difference to the pixel at the left", kSharpen, sharpen},
    {"antialias", "Antialias", "Smooths the steps of sharp edges", kAntialias, antialias},
    {"emboss", "Emboss", "Turns the picture into a raised grey relief", kRelief, emboss},
    {"engrave", "Engrave", "Turns the picture into a sunken grey relief", kRelief, engrave},
    {"cast", "Cast", "Turns the picture into a coloured relief", kCast, cast},
    {"pixelate", "Pixelate", "Makes squares of one colour each", kPixelate, pixelate},
    {"grainize", "Grainize", "Adds bright grain", kGrainize, grainize},
    {"texturize", "Texturize", "Lays the relief of another picture over this one", kTexturize, texturize},
    {"tile", "Tile", "Repeats another picture over this one", kTile, tile},
};

}  // namespace

std::span<const Effect> textureEffects() {
  return kEffects;
}

}  // namespace ruvo
