#include "document/model/crop_rules.h"

#include "canvas/engine/brush_mix.h"
#include "canvas/engine/image_shape.h"
#include "canvas/engine/region_compose.h"
#include "platform/raster/blit.h"

namespace ruvo {
namespace {

constexpr int kSmallestCrop = 2;  // of either side

// The box of what the mask does not leave out; empty when it leaves out everything.
Rect maskedBounds(const clsDIB& mask) {
  Rect bounds;
  const Pixel32 white = Pixel32::plain(kWhite);
  for (int y = 0; y < mask.DIBHeight(); ++y) {
    const auto* row = reinterpret_cast<const Pixel32*>(mask.surface().pictureRow(y));
    const auto covers = [&](const Pixel32& pixel) { return !pixel.sameColour(white); };
    const auto* end = row + mask.DIBWidth();
    const auto* first = std::find_if(row, end, covers);
    if (first == end) continue;
    while (!covers(end[-1])) --end;
    bounds = bounds.united({static_cast<int>(first - row), y, static_cast<int>(end - row), y + 1});
  }
  return bounds;
}

}  // namespace

bool cropTooSmall(const Rect& box, Size picture) {
  const Rect part = box.intersected({0, 0, picture.width, picture.height});
  return part.width() < kSmallestCrop || part.height() < kSmallestCrop;
}

bool croppedCopy(const clsDIB& picture, const Rect& box, bool oval, clsDIB& cut) {
  clsDIB whole;
  if (!takeRegionPixels(picture, box, whole)) return false;
  if (oval) {
    clsDIB mask;
    if (!makeRegionMask(whole, true, std::nullopt, mask)) return false;
    ClearAreasOutsideImageShape(whole, mask, kWhite, brush::writtenAlpha(whole));
  }
  Rect part = box.intersected(picture.surface().bounds());
  part = Rect::fromSize(part.left - box.left, part.top - box.top, part.width(), part.height());
  return takeRegionPixels(whole, part, cut);
}

std::string cropPerImage(const FloatingPictures& floating, Size picture, clsDIB& cut) {
  const auto& [region, mask, snap, soft] = floating;
  if (snap.size() != picture) return "Snapshot size discrepant";
  if (!mask.empty() && mask.size() != region.size()) return "Mask size discrepant";
  const Rect bounds = mask.empty() ? region.surface().bounds() : maskedBounds(mask);
  if (bounds.empty()) return kCropTooSmall;
  clsDIB shape;
  if (!takeRegionPixels(region, bounds, cut) || mask.empty()) return {};
  if (!takeRegionPixels(mask, bounds, shape)) {
    cut.ClearUp();
  } else if (soft) {
    clsDIB sheet;
    softOnWhite(cut, shape, snap.DIBhasAlpha(), sheet);
    cut = std::move(sheet);
  } else {
    ClearAreasOutsideImageShape(cut, shape, kWhite, brush::writtenAlpha(cut));
  }
  return {};
}

bool whiteSheetWith(const clsDIB& kept, Point at, Size size, clsDIB& sheet) {
  if (!sheet.CreateBlankDIB(size.width, size.height, 32, kWhite)) return false;
  sheet.setDIBhasAlpha(kept.DIBhasAlpha());
  if (kept.empty()) return true;
  raster::fillRect(sheet.surface(), sheet.surface().bounds(), kWhite, brush::writtenAlpha(sheet));
  raster::blit(sheet.surface(), at.x, at.y, kept.surface());
  return true;
}

}  // namespace ruvo
