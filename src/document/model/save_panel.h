// What the save panel for GIF and PNG lets a person choose, and the writing of a PNG by those choices.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "base/colour.h"
#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo {

enum class SavePanelMode { Gif, PngTrueColour, PngPaletted };

struct GifChoices {
  bool transparent = false;
  bool interlaced = false;
  Point transparentPixel;  // whose colour, after the reduction, is the transparent one

  // In the sense of the Save As GIF items: 0 neither, 1 transparent, 2 both, 3 interlaced.
  int variant() const { return transparent ? (interlaced ? 2 : 1) : (interlaced ? 3 : 0); }
};

struct PngChoices {
  enum class Transparency { None, SingleColour, AlphaValues };

  int bitsPerPixel = 24;  // 8, 24 or 32
  bool interlaced = false;
  std::optional<Colour> background;  // of the background colour chunk
  Transparency transparency = Transparency::None;
  Point transparentPixel;            // SingleColour: whose colour is see-through (at 8 bits after the reduction)
  int opacity = 128;                 // AlphaValues: of every pixel, 0 to 255
  std::optional<Colour> seeThrough;  // AlphaValues: pixels of this colour get 0
};

inline constexpr int kUsualOpacity = 128;

// Writes the picture (32 bits) whole or not at all; never changes it. AlphaValues always makes 32 bits; without any
// transparency a 32-bit file keeps the picture's own alpha. Empty on success, else the words of the refusal.
std::string savePngByChoices(const clsDIB& picture, const PngChoices& choices, const std::filesystem::path& file);

}  // namespace ruvo
