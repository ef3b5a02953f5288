// An effect changes one picture by a few values. The command line, the effect windows and the menus all read the same
// description: its name, what it may be told, and the function that does it.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "base/colour.h"
#include "base/progress.h"
#include "base/rounding.h"
#include "image/clsDIB.h"

namespace ruvo {

enum class EffectValueKind {
  Whole,         // an integer from low to high
  Real,          // a number from low to high
  PlainColour,   // packed
  ColourOrNone,  // packed, or kNoColour
  Choice,        // an index of `choices`
  Switch,        // 0 or 1
  Picture,       // another picture, which has no standard
};

inline constexpr double kNoColour = -1;

struct EffectArgument {
  const char* name;   // one lower-case word with hyphens; names the value on the command line
  const char* label;  // in a window; "&" marks the mnemonic
  EffectValueKind kind;
  double low = 0;
  double high = 0;
  double standard = 0;
  const char* unit = "";  // shown behind the number: "%", "pixels", "degrees"
  std::span<const char* const> choices = {};
};

struct EffectValue {
  double number = 0;
  std::shared_ptr<const clsDIB> picture;  // of kind Picture
};

// What an effect is told in one run: a value for each of its arguments, in their order and within their ranges.
class EffectInput {
 public:
  explicit EffectInput(std::vector<EffectValue> values) : values_(std::move(values)) {}

  double real(std::size_t i) const { return values_.at(i).number; }
  int whole(std::size_t i) const { return roundToInt(real(i)); }
  Colour colour(std::size_t i) const { return static_cast<Colour>(real(i)); }
  // As the filters take it: below 0 means none.
  std::int64_t colourOrNone(std::size_t i) const { return static_cast<std::int64_t>(real(i)); }
  int choice(std::size_t i) const { return whole(i); }
  bool on(std::size_t i) const { return real(i) != 0; }
  const clsDIB& picture(std::size_t i) const { return *values_.at(i).picture; }
  // A distance given in pixels of the real picture, in pixels of the one that is worked on.
  double length(std::size_t i) const { return real(i) * scale; }
  // The same in whole pixels; only a distance of 0 becomes 0.
  int wholeLength(std::size_t i) const {
    const double scaled = length(i);
    if (scaled == 0) return 0;
    return scaled < 0 ? std::min(-1, roundToInt(scaled)) : std::max(1, roundToInt(scaled));
  }

  // Pixels of the picture that is worked on for each pixel of the real one: below 1 for a reduced sample. Other pictures
  // come as much reduced.
  double scale = 1;
  // The picture is what a region holds: an effect that would make it larger keeps its size.
  bool keepSize = false;

 private:
  std::vector<EffectValue> values_;
};

struct Effect {
  const char* name;   // on the command line: "pixelate"
  const char* title;  // of its window: "Pixelate"
  const char* help;   // one line, no full stop: what it does
  std::span<const EffectArgument> arguments;
  // Changes a picture of 32 bits, which may come out at another size within the limits. False when there is no memory or
  // `progress` was stopped; then what is left of the picture is of no use. Byte 3 of a pixel stays as it is where the
  // effect works in place.
  bool (*apply)(clsDIB& picture, const EffectInput& input, const Progress& progress);
  bool reachesOut = false;   // of a region: it falls on the picture around, too
  bool movesPixels = false;  // to other places, where nothing that belonged to the old ones fits
};

// A value for each argument: its standard.
std::vector<EffectValue> standardValues(const Effect& effect);

}  // namespace ruvo
