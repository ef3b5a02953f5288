#include "effects/model/effect_table.h"

#include <algorithm>

namespace ruvo {
namespace {

using Topic = std::span<const Effect> (*)();
// In the order of help.
const std::vector<Topic> kTopics = {toneEffects, textureEffects, shapeEffects, drawnEffects, layerEffects};

// What the items come to, by name.
constexpr const char* kBrighten[] = {"brighten"};
constexpr const char* kDarken[] = {"darken"};
constexpr const char* kContrast[] = {"contrast", "brighten", "darken", "gamma", "soften", "sharpen", "fade"};
constexpr const char* kColorTheme[] = {"theme-hls", "theme-rgb"};
constexpr const char* kAdjust[] = {"adjust"};
constexpr const char* kSwap[] = {"swap"};
constexpr const char* kCast[] = {"cast", "emboss", "engrave"};
constexpr const char* kGrayscale[] = {"grayscale"};
constexpr const char* kNegative[] = {"negative"};
constexpr const char* kColorize[] = {"colorize"};
constexpr const char* kSoften[] = {"soften"};
constexpr const char* kSharpen[] = {"sharpen"};
constexpr const char* kAntialias[] = {"antialias"};
constexpr const char* kPixelate[] = {"pixelate"};
constexpr const char* kGrainize[] = {"grainize"};
constexpr const char* kTexturize[] = {"texturize"};
constexpr const char* kTile[] = {"tile"};
constexpr const char* kBevel[] = {"bevel"};
constexpr const char* kPerspective[] = {"perspective"};
constexpr const char* kSlant[] = {"slant"};
constexpr const char* kBorder[] = {"border"};
constexpr const char* kShadow[] = {"shadow"};
constexpr const char* kGradient[] = {"gradient"};
constexpr const char* kGrid[] = {"grid"};
constexpr const char* kCube[] = {"cube"};
constexpr const char* kSphere[] = {"sphere"};
constexpr const char* kLayer[] = {"layer"};

constexpr const char* kMenu = "mnuEffects";
constexpr const char* kSub = "mnuEffectsSub";

constexpr EffectItem line(const char* control, int index) {
  return {control, index, kMenu, "-", nullptr, {}};
}
constexpr EffectItem asking(int index, const char* text, const char* window, std::span<const char* const> effects) {
  return {kSub, index, kMenu, text, window, effects};
}
// Runs at once, with nothing excluded.
constexpr EffectItem atOnce(int index, const char* text, std::span<const char* const> effects) {
  return {kSub, index, kMenu, text, nullptr, effects, kNoColour};
}

const std::vector<EffectItem> kItems = {
    {"mnuEffectsBrighten", -1, kMenu, "&Brighten", nullptr, {}},
    {"mnuEffectsBrightenSub", 0, "mnuEffectsBrighten", "&10 %", nullptr, kBrighten, 10},
    {"mnuEffectsBrightenSub", 1, "mnuEffectsBrighten", "&20 %", nullptr, kBrighten, 20},
    {"mnuEffectsBrightenSub", 2, "mnuEffectsBrighten", "&30 %", nullptr, kBrighten, 30},
    {"mnuEffectsBrightenSub", 3, "mnuEffectsBrighten", "&40 %", nullptr, kBrighten, 40},
    {"mnuEffectsBrightenSub", 4, "mnuEffectsBrighten", "&50 %", nullptr, kBrighten, 50},
    {"mnuEffectsDarken", -1, kMenu, "&Darken", nullptr, {}},
    {"mnuEffectsDarkenSub", 0, "mnuEffectsDarken", "&10 %", nullptr, kDarken, 10},
    {"mnuEffectsDarkenSub", 1, "mnuEffectsDarken", "&20 %", nullptr, kDarken, 20},
    {"mnuEffectsDarkenSub", 2, "mnuEffectsDarken", "&30 %", nullptr, kDarken, 30},
    {"mnuEffectsDarkenSub", 3, "mnuEffectsDarken", "&40 %", nullptr, kDarken, 40},
    {"mnuEffectsDarkenSub", 4, "mnuEffectsDarken", "&50 %", nullptr, kDarken, 50},
    line("mnuEffectsLine", -1),
    asking(0, "&Contrast, Brightness, Sharpness ....", "frmRuvoContrast", kContrast),
    asking(1, "Color &Theme ....", "frmRuvoColorTheme", kColorTheme),
    asking(2, "&Adjust Color Element ....", "frmRuvoAdjEle", kAdjust),
    asking(3, "S&wap Color Elements ....", "frmRuvoSwapEle", kSwap),
    asking(4, "Cast, &Emboss, Engrave ....", "frmRuvoCast", kCast),
    line(kSub, 5),
    atOnce(6, "&Grayscale", kGrayscale),
    atOnce(7, "&Negative", kNegative),
    asking(8, "C&olorize ....", "frmRuvoColorize", kColorize),
    line(kSub, 9),
    atOnce(10, "&Soften", kSoften),
    asking(11, "S&harpen ....", "frmRuvoSharpen", kSharpen),
    asking(12, "Ant&ialias ....", "frmRuvoAntialias", kAntialias),
    asking(13, "&Pixelate ....", "frmRuvoPixelate", kPixelate),
    asking(14, "G&rainize ....", "frmRuvoGrainize", kGrainize),
    asking(15, "Te&xturize ....", "frmRuvoTexturize", kTexturize),
    line(kSub, 16),
    asking(17, "Ti&le ....", "frmRuvoTile", kTile),
    asking(18, "Be&vel ....", "frmRuvoBevel", kBevel),
    asking(19, "Perspecti&ve ....", "frmRuvoPerspective", kPerspective),
    asking(20, "S&lant ....", "frmRuvoSlant", kSlant),
    asking(21, "Create &Border ....", "frmRuvoRegionOp", kBorder),
    asking(22, "Add &Dropdown Shadow ....", "frmRuvoAddShadow", kShadow),
    line(kSub, 23),
    asking(24, "&Gradient ....", "frmRuvoGradient", kGradient),
    asking(25, "Gr&id ....", "frmRuvoGrid", kGrid),
    asking(26, "Add C&ube ....", "frmRuvoAddCube", kCube),
    asking(27, "Add Sp&here ....", "frmRuvoAddSphere", kSphere),
    {"mnuLayerSub", 0, "mnuLayer", "&Layer Operation ....", "frmRuvoLayerOp", kLayer},
};

}  // namespace

std::vector<EffectValue> standardValues(const Effect& effect) {
  std::vector<EffectValue> values;
  for (const EffectArgument& argument : effect.arguments) values.push_back({argument.standard, nullptr});
  return values;
}

std::span<const Effect> effectTable() {
  static const std::vector<Effect> kAll = [] {
    std::vector<Effect> all;
    for (const Topic topic : kTopics) {
      const std::span<const Effect> rows = topic();
      all.insert(all.end(), rows.begin(), rows.end());
    }
    return all;
  }();
  return kAll;
}

const Effect* effectOf(std::string_view name) {
  const std::span<const Effect> all = effectTable();
  const auto found = std::ranges::find(all, name, [](const Effect& effect) { return std::string_view(effect.name); });
  return found == all.end() ? nullptr : &*found;
}

std::span<const EffectItem> effectMenu() {
  return kItems;
}

const EffectItem* effectItemOf(std::string_view control, int index) {
  const auto found = std::ranges::find_if(
      kItems, [&](const EffectItem& item) { return item.index == index && control == item.control; });
  return found == kItems.end() ? nullptr : &*found;
}

}  // namespace ruvo
