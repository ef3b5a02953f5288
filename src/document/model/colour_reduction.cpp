#include "document/model/colour_reduction.h"

#include <array>

#include "platform/raster/blit.h"

namespace ruvo {
namespace {

constexpr int kTreeDepth = 8;

constexpr const char* kAskDepth = "\nProceed to change BPP?";
constexpr const char* kAskBlackWhite = "\nProceed to convert to B&W?";
constexpr const char* kAskWebsafe = "\nProceed to convert websafe?";

using enum Reduction;

constexpr std::array kItems = {
    ReductionItem{"mnuColorReductionSub", 0, To256, kAskDepth},
    ReductionItem{"mnuColorReductionSub", 1, To16, kAskDepth},
    ReductionItem{"mnuColorReductionBWSub", 0, BwStucki, kAskBlackWhite},
    ReductionItem{"mnuColorReductionBWSub", 1, BwFloydSteinberg, kAskBlackWhite},
    ReductionItem{"mnuColorReductionBWSub", 2, BwBurke, kAskBlackWhite},
    ReductionItem{"mnuColorReductionBWSub", 3, BwOrdered, kAskBlackWhite},
    ReductionItem{"mnuBPPSub", 2, Websafe, kAskWebsafe},
};

bool flatten(clsDIB& picture) {
  if (!picture.DIBhasAlpha()) return true;
  clsDIB flat;
  if (!flattenedCopy(picture, flat)) return false;
  picture = std::move(flat);
  return true;
}

bool isBlackWhite(Reduction reduction) {
  return reduction == BwStucki || reduction == BwFloydSteinberg || reduction == BwBurke || reduction == BwOrdered;
}

}  // namespace

const ReductionItem* reductionItemOf(std::string_view control, int index) {
  for (const ReductionItem& item : kItems) {
    if (item.control == control && item.index == index) return &item;
  }
  return nullptr;
}

void paletteRows(clsDIB& picture, int bits, clsPal& pal, clsPalDither& dither, const Progress& progress) {
  if (dither.ExactRows(picture, pal, bits)) return;
  pal.cPAL_Progress = progress.step;
  dither.cPalDither_Progress = progress.step;
  pal.CreateOptimal(picture, clsPal::kMostEntries, kTreeDepth);
  dither.DitherToPalette256(picture, pal);
}

bool reduceColours(clsDIB& picture, Reduction reduction, const Progress& progress) {
  if (!flatten(picture)) return false;
  clsPal pal;
  clsPalDither dither;
  dither.cPalDither_Progress = progress.step;
  switch (reduction) {
    case To256:
      paletteRows(picture, 8, pal, dither, progress);
      break;
    case To16:
      pal.CreatePalette16();
      dither.DitherToPalette16(picture, pal);
      break;
    case BwStucki:
      dither.DitherToBW_Stucki(picture);
      break;
    case BwFloydSteinberg:
      dither.DitherToBW_FloydSteinberg(picture);
      break;
    case BwBurke:
      dither.DitherToBW_Burke(picture);
      break;
    case BwOrdered:
      dither.DitherToBW_Ordered(picture);
      break;
    case Websafe:
      pal.CreateWebsafe();
      dither.DitherToPalette256(picture, pal);
      break;
  }
  return true;
}

bool reduceIconColours(clsDIB& image, const clsDIB& mask, Reduction reduction, const Progress& progress) {
  clsDIB before;
  clsDIB seeThrough;
  if (mask.size() != image.size() || !clsDIB::CloneDIB(image, before, kWhite, image.BottomUp()) ||
      !seeThrough.CreateBlankDIB(mask.DIBWidth(), mask.DIBHeight(), 32, kWhite))
    return false;
  clsDIB::PaintFromDIBtoDIB(mask, seeThrough);
  if (!reduceColours(image, isBlackWhite(reduction) ? BwStucki : reduction, progress)) return false;
  for (int y = 0; y < image.DIBHeight(); ++y) {
    const auto* masked = reinterpret_cast<const Pixel32*>(seeThrough.surface().pictureRow(y));
    const auto* old = reinterpret_cast<const Pixel32*>(before.surface().pictureRow(y));
    auto* now = reinterpret_cast<Pixel32*>(image.surface().pictureRow(y));
    for (int x = 0; x < image.DIBWidth(); ++x) {
      if (masked[x].colour() == kWhite) now[x] = old[x];
    }
  }
  return true;
}

bool flattenedCopy(const clsDIB& picture, clsDIB& copy) {
  if (!copy.CreateBlankDIB(picture.DIBWidth(), picture.DIBHeight(), 32, kWhite)) return false;
  clsDIB::Display_DIB_With_Alpha(picture, copy.surface(), kWhite);
  return true;
}

}  // namespace ruvo
