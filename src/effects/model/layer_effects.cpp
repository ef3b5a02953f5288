// The row of the layer operation.
#include "base/limits.h"
#include "effects/model/effect_table.h"
#include "effects/model/layer.h"

namespace ruvo {
namespace {

using enum EffectValueKind;

constexpr const char* kPlaces[] = {"Over", "Under"};
constexpr EffectArgument kLayerArguments[] = {
    {.name = "picture", .label = "Second picture", .kind = Picture},
    {.name = "place", .label = "Pl&ace", .kind = Choice, .high = 1, .choices = kPlaces},
    {.name = "left", .label = "L&eft", .kind = Whole, .low = -kMaxPictureSide, .high = kMaxPictureSide, .unit = "pixels"},
    {.name = "top", .label = "&Top", .kind = Whole, .low = -kMaxPictureSide, .high = kMaxPictureSide, .unit = "pixels"},
    {.name = "opacity", .label = "&Opacity", .kind = Whole, .low = 0, .high = 100, .standard = 100, .unit = "%"},
    {.name = "transparent", .label = "T&ransparent color", .kind = ColourOrNone, .low = kNoColour, .high = kWhite, .standard = kNoColour},
};

bool applyLayer(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  LayerChoices choices;
  choices.under = input.choice(1) == 1;
  choices.at = {roundToInt(input.length(2)), roundToInt(input.length(3))};
  choices.opacity = input.whole(4);
  choices.transparentColour = input.colourOrNone(5);
  return layPicture(picture, input.picture(0), choices, progress);
}

constexpr Effect kEffects[] = {
    {"layer", "Layer Operation", "Lay a second picture over or under, cut to the first one's size", kLayerArguments,
     applyLayer},
};

}  // namespace

std::span<const Effect> layerEffects() {
  return kEffects;
}

}  // namespace ruvo
