#include "document/model/save_panel.h"

#include <algorithm>
#include <vector>

#include "base/save_texts.h"
#include "document/model/colour_reduction.h"
#include "formats/clsPNG.h"
#include "image/clsPal.h"
#include "image/clsPalDither.h"

namespace ruvo {
namespace {

Colour colourAt(const raster::Surface& surface, Point p) {
  const int x = std::clamp(p.x, 0, surface.width() - 1);
  const int y = std::clamp(p.y, 0, surface.height() - 1);
  if (surface.depth() == 8) return surface.table()[surface.pictureRow(y)[x]].colour();
  return reinterpret_cast<const Pixel32*>(surface.pictureRow(y))[x].colour();
}

// A byte for each pixel, top line first.
template <typename AlphaOf>
std::vector<std::uint8_t> alphaPlane(const raster::Surface& surface, AlphaOf alphaOf) {
  std::vector<std::uint8_t> plane;
  plane.reserve(static_cast<std::size_t>(surface.width()) * static_cast<std::size_t>(surface.height()));
  for (int y = 0; y < surface.height(); ++y) {
    const auto* row = reinterpret_cast<const Pixel32*>(surface.pictureRow(y));
    for (int x = 0; x < surface.width(); ++x) plane.push_back(alphaOf(row[x]));
  }
  return plane;
}

std::string saveWithTable(clsPNG& png, const clsDIB& picture, const PngChoices& choices,
                          const std::filesystem::path& file, const std::filesystem::path& tempFolder) {
  clsDIB flat, eight;
  clsPal pal;
  clsPalDither dither;
  if (!flattenedCopy(picture, flat) || !clsDIB::ConvertDIB_To_DIB8BPP(flat, eight, pal, dither, tempFolder)) {
    return kSaveFailed;
  }
  // The reduction may have moved the colour, so it is the picked pixel's that counts.
  png.HasTranspColor = choices.transparency == PngChoices::Transparency::SingleColour;
  if (png.HasTranspColor) png.TranspColor = colourAt(eight.surface(), choices.transparentPixel);
  const int code = png.SavePNG(file, eight.surface(), eight.DIBWidth(), eight.DIBHeight(), 8);
  return code == kPngSaved ? std::string() : clsPNG::FlagErrMsgSave(code);
}

}  // namespace

std::string savePngByChoices(const clsDIB& picture, const PngChoices& choices, const std::filesystem::path& file,
                             const std::filesystem::path& tempFolder) {
  if (picture.empty()) return kSaveFailed;
  clsPNG png;
  png.Interlacing = choices.interlaced ? 1 : 0;
  png.HasBKGDChunk = choices.background.has_value();
  png.BKGDColorToUse = choices.background.value_or(kBlack);
  if (choices.bitsPerPixel == 8) return saveWithTable(png, picture, choices, file, tempFolder);

  const bool alphaValues = choices.transparency == PngChoices::Transparency::AlphaValues;
  const bool single = choices.transparency == PngChoices::Transparency::SingleColour;
  const int bits = alphaValues ? 32 : choices.bitsPerPixel;
  if (alphaValues) {
    const auto opacity = static_cast<std::uint8_t>(std::clamp(choices.opacity, 0, 255));
    png.SetAlphaBytes(alphaPlane(picture.surface(), [&](const Pixel32& p) {
      return choices.seeThrough && p.colour() == *choices.seeThrough ? std::uint8_t{0} : opacity;
    }));
  } else if (bits == 32 && picture.DIBhasAlpha()) {
    png.SetAlphaBytes(alphaPlane(picture.surface(), [](const Pixel32& p) { return p.alpha; }));
  }
  png.HasTranspColor = single;
  if (single) png.TranspColor = colourAt(picture.surface(), choices.transparentPixel);
  clsDIB flat;
  if (bits == 24 && picture.DIBhasAlpha() && !flattenedCopy(picture, flat)) return kSaveFailed;
  const clsDIB& source = flat.empty() ? picture : flat;
  const int code = png.SavePNG(file, source.surface(), source.DIBWidth(), source.DIBHeight(), bits);
  return code == kPngSaved ? std::string() : clsPNG::FlagErrMsgSave(code);
}

}  // namespace ruvo
