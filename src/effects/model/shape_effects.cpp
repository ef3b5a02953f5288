// The effects that change a picture's edges or its outline.
#include "effects/model/bevel.h"
#include "effects/model/border.h"
#include "effects/model/drop_shadow.h"
#include "effects/model/effect_table.h"
#include "effects/model/perspective.h"

namespace ruvo {
namespace {

using Kind = EffectValueKind;

double share(const EffectInput& input, std::size_t i) {
  return input.real(i) / 100;
}

// --- Bevel

enum BevelArgument { kBevelStyle, kBevelShape, kBevelWidth, kBevelLight, kBevelStrength };
constexpr const char* kBevelStyles[] = {"Raised", "Sunken"};
constexpr const char* kBevelShapes[] = {"Flat", "Round"};
constexpr EffectArgument kBevelArguments[] = {
    {"style", "&Style", Kind::Choice, 0, 1, 0, "", kBevelStyles},
    {"shape", "S&hape", Kind::Choice, 0, 1, 0, "", kBevelShapes},
    {"width", "&Width", Kind::Whole, 1, 500, 12, "pixels"},
    {"light-from", "&Light from (0 is above)", Kind::Whole, 0, 359, 315, "degrees"},
    {"strength", "S&trength", Kind::Whole, 0, 100, 50, "%"},
};

bool applyBevel(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  Bevel bevel;
  bevel.sunken = input.choice(kBevelStyle) == 1;
  bevel.round = input.choice(kBevelShape) == 1;
  bevel.width = input.wholeLength(kBevelWidth);
  bevel.lightFrom = input.real(kBevelLight);
  bevel.strength = share(input, kBevelStrength);
  return drawBevel(picture, bevel, progress);
}

// --- Perspective

enum PerspectiveArgument { kSide, kShrink, kLength, kPerspectiveFill, kPerspectiveSmooth };
constexpr const char* kSides[] = {"Top", "Bottom", "Left", "Right"};
constexpr EffectArgument kPerspectiveArguments[] = {
    {"side", "&Side that is farther", Kind::Choice, 0, 3, 0, "", kSides},
    {"shrink", "Sh&orter by", Kind::Whole, 0, 90, 40, "%"},
    {"length", "&Length kept", Kind::Whole, 10, 100, 100, "%"},
    {"fill", "F&ill color", Kind::PlainColour, 0, kWhite, kWhite},
    {"antialias", "&Antialias", Kind::Switch, 0, 1, 1},
};

bool applyPerspective(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  Perspective perspective;
  perspective.side = static_cast<Perspective::Side>(input.choice(kSide));
  perspective.shrink = share(input, kShrink);
  perspective.length = share(input, kLength);
  perspective.fill = input.colour(kPerspectiveFill);
  perspective.antialias = input.on(kPerspectiveSmooth);
  return drawPerspective(picture, perspective, progress);
}

// --- Slant

enum SlantArgument { kDirection, kSlantAngle, kSlantFill, kSlantSmooth };
constexpr const char* kDirections[] = {"Horizontally", "Vertically"};
constexpr EffectArgument kSlantArguments[] = {
    {"direction", "&Direction", Kind::Choice, 0, 1, 0, "", kDirections},
    {"angle", "An&gle", Kind::Real, -60, 60, 15, "degrees"},
    {"fill", "F&ill color", Kind::PlainColour, 0, kWhite, kWhite},
    {"antialias", "&Antialias", Kind::Switch, 0, 1, 1},
};

bool applySlant(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  Slant slant;
  slant.upright = input.choice(kDirection) == 1;
  slant.angle = input.real(kSlantAngle);
  slant.fill = input.colour(kSlantFill);
  slant.antialias = input.on(kSlantSmooth);
  slant.grow = !input.keepSize;
  return drawSlant(picture, slant, progress);
}

// --- Border

enum BorderArgument { kBorderStyle, kBorderWidth, kBorderColour, kBorderSecond, kBorderPlace };
constexpr const char* kBorderStyles[] = {"Plain", "Double", "Raised", "Sunken", "Ridge", "Groove"};
constexpr const char* kBorderPlaces[] = {"Around the picture", "Over its edges"};
constexpr EffectArgument kBorderArguments[] = {
    {"style", "&Style", Kind::Choice, 0, 5, 0, "", kBorderStyles},
    {"width", "&Width", Kind::Whole, 1, 500, 10, "pixels"},
    {"colour", "C&olor", Kind::PlainColour, 0, kWhite, rgb(96, 64, 32)},
    {"second", "Color &between", Kind::PlainColour, 0, kWhite, kWhite},
    {"place", "P&lace", Kind::Choice, 0, 1, 0, "", kBorderPlaces},
};

bool applyBorder(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  Border border;
  border.style = static_cast<Border::Style>(input.choice(kBorderStyle));
  border.width = input.wholeLength(kBorderWidth);
  border.colour = input.colour(kBorderColour);
  border.second = input.colour(kBorderSecond);
  border.outside = input.choice(kBorderPlace) == 0 && !input.keepSize;
  return drawBorder(picture, border, progress);
}

// --- Shadow

enum ShadowArgument { kOffsetX, kOffsetY, kSoftness, kShadowColour, kShadowStrength, kGround };
constexpr EffectArgument kShadowArguments[] = {
    {"offset-x", "To the &right", Kind::Whole, -300, 300, 8, "pixels"},
    {"offset-y", "&Down", Kind::Whole, -300, 300, 8, "pixels"},
    {"softness", "&Softness", Kind::Whole, 0, 300, 12, "pixels"},
    {"colour", "C&olor", Kind::PlainColour, 0, kWhite, kBlack},
    {"strength", "S&trength", Kind::Whole, 0, 100, 80, "%"},
    {"ground", "&Ground under a photograph", Kind::PlainColour, 0, kWhite, kWhite},
};

bool applyShadow(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  DropShadow shadow;
  shadow.offsetX = input.wholeLength(kOffsetX);
  shadow.offsetY = input.wholeLength(kOffsetY);
  shadow.softness = input.wholeLength(kSoftness);
  shadow.colour = input.colour(kShadowColour);
  shadow.strength = share(input, kShadowStrength);
  shadow.ground = input.colour(kGround);
  shadow.grow = !input.keepSize;
  return drawDropShadow(picture, shadow, progress);
}

constexpr Effect kEffects[] = {
    {"bevel", "Bevel", "Makes the edges look raised or sunken", kBevelArguments, applyBevel},
    {"perspective", "Perspective", "Shows the picture as if one side were farther away", kPerspectiveArguments,
     applyPerspective, false, true},
    {"slant", "Slant", "Leans the picture to one side", kSlantArguments, applySlant, false, true},
    {"border", "Create Border", "Puts a border around the picture or over its edges", kBorderArguments, applyBorder},
    {"shadow", "Add Dropdown Shadow", "Throws a soft shadow under what the picture shows", kShadowArguments,
     applyShadow, true},
};

}  // namespace

std::span<const Effect> shapeEffects() {
  return kEffects;
}

}  // namespace ruvo
