#include "document/model/save_panel.h"

#include <algorithm>
#include <vector>

#include "base/save_texts.h"
#include "document/model/colour_reduction.h"
#include "formats/clsPNG.h"

namespace ruvo {
namespace {

// A byte for each pixel, top line first.
std::vector<std::uint8_t> opacityPlane(const clsDIB& picture, const PngChoices& choices) {
  const auto opacity = static_cast<std::uint8_t>(std::clamp(choices.opacity, 0, 255));
  std::vector<std::uint8_t> plane;
  plane.reserve(static_cast<std::size_t>(picture.DIBWidth()) * static_cast<std::size_t>(picture.DIBHeight()));
  for (int y = 0; y < picture.DIBHeight(); ++y) {
    const auto* row = reinterpret_cast<const Pixel32*>(picture.surface().pictureRow(y));
    for (int x = 0; x < picture.DIBWidth(); ++x) {
      plane.push_back(choices.seeThrough && row[x].colour() == *choices.seeThrough ? std::uint8_t{0} : opacity);
    }
  }
  return plane;
}

Colour colourAt(const clsDIB& picture, Point p) {
  const int x = std::clamp(p.x, 0, picture.DIBWidth() - 1);
  const int y = std::clamp(p.y, 0, picture.DIBHeight() - 1);
  return reinterpret_cast<const Pixel32*>(picture.surface().pictureRow(y))[x].colour();
}

}  // namespace

std::string savePngByChoices(const clsDIB& picture, const PngChoices& choices, const std::filesystem::path& file) {
  if (picture.empty()) return kSaveFailed;
  const bool alphaValues = choices.transparency == PngChoices::Transparency::AlphaValues;
  const int bits = alphaValues ? 32 : choices.bitsPerPixel;
  clsDIB flat;
  if (bits < 32 && picture.DIBhasAlpha() && !flattenedCopy(picture, flat)) return kSaveFailed;
  const clsDIB& source = flat.empty() ? picture : flat;

  clsPNG png;
  png.Interlacing = choices.interlaced ? 1 : 0;
  png.HasBKGDChunk = choices.background.has_value();
  png.BKGDColorToUse = choices.background.value_or(kBlack);
  png.HasTranspColor = choices.transparency == PngChoices::Transparency::SingleColour;
  if (png.HasTranspColor) {
    png.TranspColor = colourAt(source, choices.transparentPixel);
    png.TranspPixel = choices.transparentPixel;
  }
  if (alphaValues) png.SetAlphaBytes(opacityPlane(picture, choices));
  const int code = bits == 8 ? png.SavePNG_008(file, source.surface(), source.DIBWidth(), source.DIBHeight(), bits)
                             : png.SavePNG(file, source, bits);
  if (code == kPngNotWritten) return kSaveFailed;
  return clsPNG::FlagErrMsgSave(code);
}

}  // namespace ruvo
