// The effects that draw something of their own into the picture.
#include "effects/model/effect_table.h"
#include "effects/model/gradient.h"
#include "effects/model/grid.h"
#include "effects/model/solids.h"

namespace ruvo {
namespace {

using Kind = EffectValueKind;

double share(const EffectInput& input, std::size_t i) {
  return input.real(i) / 100;
}

// --- Gradient

enum GradientArgument { kKind, kFirst, kSecond, kAngle, kAcross, kDown, kMidpoint, kMixing, kStrength };
constexpr const char* kGradientKinds[] = {"Linear", "Reflected", "Radial", "Angular"};
constexpr const char* kMixings[] = {"Straight", "As the eye sees"};
constexpr EffectArgument kGradientArguments[] = {
    {"kind", "&Kind", Kind::Choice, 0, 3, 0, "", kGradientKinds},
    {"first", "F&irst color", Kind::ColourOrNone, kNoColour, kWhite, rgb(66, 28, 122)},
    {"second", "&Second color", Kind::ColourOrNone, kNoColour, kWhite, rgb(255, 158, 96)},
    {"angle", "&Angle (0 is upwards)", Kind::Whole, 0, 359, 180, "degrees"},
    {"across", "Center a&cross", Kind::Whole, 0, 100, 50, "%"},
    {"down", "Center do&wn", Kind::Whole, 0, 100, 50, "%"},
    {"midpoint", "&Midpoint", Kind::Whole, 1, 99, 50, "%"},
    {"mixing", "Mi&xing", Kind::Choice, 0, 1, 0, "", kMixings},
    {"strength", "S&trength", Kind::Whole, 0, 100, 100, "%"},
};

bool applyGradient(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  Gradient gradient;
  gradient.kind = static_cast<Gradient::Kind>(input.choice(kKind));
  gradient.first = input.colourOrNone(kFirst);
  gradient.second = input.colourOrNone(kSecond);
  gradient.byEye = input.choice(kMixing) == 1;
  gradient.angle = input.real(kAngle);
  gradient.centreX = share(input, kAcross);
  gradient.centreY = share(input, kDown);
  gradient.midpoint = share(input, kMidpoint);
  gradient.strength = share(input, kStrength);
  // What floats in a region takes the colours and keeps its outline, letters above all.
  const bool outlined = input.keepSize && picture.DIBhasAlpha();
  if (outlined) picture.setDIBhasAlpha(false);
  const bool done = drawGradient(picture, gradient, progress);
  if (outlined) picture.setDIBhasAlpha(true);
  return done;
}

// --- Grid

enum GridArgument {
  kSpacingX,
  kSpacingY,
  kLineWidth,
  kStyle,
  kLineColour,
  kLineStrength,
  kOffsetX,
  kOffsetY,
};
constexpr const char* kGridStyles[] = {"Lines", "Dashes", "Dots"};
constexpr EffectArgument kGridArguments[] = {
    {"spacing-x", "Spacing a&cross", Kind::Whole, 2, 2000, 32, "pixels"},
    {"spacing-y", "Spacing do&wn", Kind::Whole, 2, 2000, 32, "pixels"},
    {"width", "&Line width", Kind::Whole, 1, 100, 1, "pixels"},
    {"style", "&Style", Kind::Choice, 0, 2, 0, "", kGridStyles},
    {"colour", "C&olor", Kind::PlainColour, 0, kWhite, rgb(0, 96, 192)},
    {"strength", "S&trength", Kind::Whole, 0, 100, 80, "%"},
    {"offset-x", "F&irst line from left", Kind::Whole, 0, 2000, 0, "pixels"},
    {"offset-y", "First li&ne from top", Kind::Whole, 0, 2000, 0, "pixels"},
};

bool applyGrid(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  Grid grid;
  grid.style = static_cast<Grid::Style>(input.choice(kStyle));
  grid.spacingX = input.whole(kSpacingX);
  grid.spacingY = input.whole(kSpacingY);
  grid.width = input.whole(kLineWidth);
  grid.offsetX = input.whole(kOffsetX);
  grid.offsetY = input.whole(kOffsetY);
  grid.colour = input.colour(kLineColour);
  grid.strength = share(input, kLineStrength);
  return drawGrid(picture, grid, input.scale, progress);
}

// --- Cube and sphere

// Both are told the same first and last.
enum SolidArgument { kSize, kSolidAcross, kSolidDown, kSolidColour, kOwnArguments };
enum SolidEndArgument { kLightFrom, kLightHeight, kAmbient, kGloss, kShadow, kBackground };
constexpr EffectArgument kSizeRow = {"size", "&Size", Kind::Whole, 1, 200, 70, "%"};
constexpr EffectArgument kAcrossRow = {"across", "Center a&cross", Kind::Whole, 0, 100, 50, "%"};
constexpr EffectArgument kDownRow = {"down", "Center do&wn", Kind::Whole, 0, 100, 50, "%"};
constexpr EffectArgument colourRow(Colour standard) {
  return {"colour", "C&olor", Kind::PlainColour, 0, kWhite, static_cast<double>(standard)};
}
constexpr EffectArgument kLightFromRow = {"light-from", "&Light from (0 is above)", Kind::Whole, 0, 359, 320,
                                          "degrees"};
constexpr EffectArgument kLightHeightRow = {"light-height", "Light &height", Kind::Whole, 0, 90, 42, "degrees"};
constexpr EffectArgument kAmbientRow = {"ambient", "&Ambient light", Kind::Whole, 0, 100, 25, "%"};
constexpr EffectArgument kGlossRow = {"gloss", "&Gloss", Kind::Whole, 0, 100, 50, "%"};
constexpr EffectArgument kShadowRow = {"shadow", "Sha&dow", Kind::Whole, 0, 100, 60, "%"};
constexpr EffectArgument kBackgroundRow = {"background", "&Background", Kind::ColourOrNone,
                                           kNoColour,    kWhite,        kNoColour};

SolidLook solidLook(const EffectInput& input, std::size_t end) {
  SolidLook look;
  look.size = share(input, kSize);
  look.centreX = share(input, kSolidAcross);
  look.centreY = share(input, kSolidDown);
  look.colour = input.colour(kSolidColour);
  look.lightFrom = input.real(end + kLightFrom);
  look.lightHeight = input.real(end + kLightHeight);
  look.ambient = share(input, end + kAmbient);
  look.gloss = share(input, end + kGloss);
  look.shadow = share(input, end + kShadow);
  look.background = input.colourOrNone(end + kBackground);
  return look;
}

constexpr EffectArgument kCubeArguments[] = {
    kSizeRow,
    kAcrossRow,
    kDownRow,
    colourRow(rgb(208, 52, 44)),
    {"turn", "&Turn", Kind::Whole, 0, 359, 35, "degrees"},
    {"tilt", "T&ilt", Kind::Whole, -90, 90, 25, "degrees"},
    {"rounding", "&Rounded edges", Kind::Whole, 0, 50, 12, "%"},
    kLightFromRow,
    kLightHeightRow,
    kAmbientRow,
    kGlossRow,
    kShadowRow,
    kBackgroundRow,
};

bool applyCube(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  enum { kTurn = kOwnArguments, kTilt, kRounding, kEnd };
  Cube cube;
  cube.look = solidLook(input, kEnd);
  cube.turn = input.real(kTurn);
  cube.tilt = input.real(kTilt);
  cube.rounding = share(input, kRounding);
  return drawCube(picture, cube, progress);
}

constexpr EffectArgument kSphereArguments[] = {
    kSizeRow,  kAcrossRow, kDownRow,       colourRow(rgb(40, 110, 220)), kLightFromRow, kLightHeightRow, kAmbientRow,
    kGlossRow, kShadowRow, kBackgroundRow,
};

bool applySphere(clsDIB& picture, const EffectInput& input, const Progress& progress) {
  return drawSphere(picture, {solidLook(input, kOwnArguments)}, progress);
}

constexpr Effect kEffects[] = {
    {"gradient", "Gradient", "Lays a ramp between two colours over the picture", kGradientArguments, applyGradient},
    {"grid", "Grid", "Draws lines at even distances", kGridArguments, applyGrid},
    {"cube", "Add Cube", "Draws a cube with light and shadow", kCubeArguments, applyCube},
    {"sphere", "Add Sphere", "Draws a sphere with light and shadow", kSphereArguments, applySphere},
};

}  // namespace

std::span<const Effect> drawnEffects() {
  return kEffects;
}

}  // namespace ruvo
