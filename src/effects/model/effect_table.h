// All effects, and the menu items through which a person reaches them.
#pragma once

#include <span>
#include <string_view>

#include "effects/model/effect.h"

namespace ruvo {

// The rows of each topic, in files of their own.
std::span<const Effect> toneEffects();     // brightness, contrast, colours
std::span<const Effect> textureEffects();  // neighbours, blocks, grain
std::span<const Effect> shapeEffects();    // bevel, perspective, slant, border, shadow
std::span<const Effect> drawnEffects();    // gradient, grid, cube, sphere
std::span<const Effect> layerEffects();    // a second picture

// What many of them take last: a colour whose pixels stay as they are.
inline constexpr EffectArgument kExclude = {"exclude", "E&xclude color", EffectValueKind::ColourOrNone,
                                            kNoColour, kWhite,           kNoColour};

// Every effect, in the order in which help lists them.
std::span<const Effect> effectTable();
// Null when there is none of that name.
const Effect* effectOf(std::string_view name);

// One item of the Effects menu, or of another to which an effect belongs.
struct EffectItem {
  const char* control;                   // "mnuEffectsSub"
  int index;                             // -1 for the parent of others
  const char* parent;                    // control of the row above
  const char* text;                      // as shown; "-" is a separator, a parent of others has no effect
  const char* window;                    // name of the window that asks for the values; null runs the effect at once
  std::span<const char* const> effects;  // what it comes to, by name; a window of its own may offer several
  double value = 0;                      // without a window: of the first argument
};
std::span<const EffectItem> effectMenu();
// Null when there is none.
const EffectItem* effectItemOf(std::string_view control, int index);

}  // namespace ruvo
