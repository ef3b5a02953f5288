#include "canvas/engine/region_compose.h"

#include <algorithm>
#include <cstring>

#include "base/rounding.h"
#include "canvas/engine/brush_mix.h"
#include "platform/raster/blit.h"
#include "platform/raster/draw.h"
#include "platform/raster/shape_rows.h"

namespace ruvo {
namespace {

Pixel32* pixelsOf(clsDIB& dib, int row) {
  return reinterpret_cast<Pixel32*>(dib.surface().pictureRow(row));
}
const Pixel32* pixelsOf(const clsDIB& dib, int row) {
  return reinterpret_cast<const Pixel32*>(dib.surface().pictureRow(row));
}

// All four bytes at once: the loops over whole rows then turn into wide instructions.
std::uint32_t word(const Pixel32& pixel) {
  std::uint32_t value;
  std::memcpy(&value, &pixel, sizeof value);
  return value;
}
bool covers(const Pixel32& mask) {
  return (word(mask) & kWhite) == 0;
}

Rect boxOf(const clsDIB& region, Point at) {
  return Rect::fromSize(at.x, at.y, region.DIBWidth(), region.DIBHeight());
}

// to[i] = mask[i] covers ? from[i] : below[i]
void chooseRow(Pixel32* to, const Pixel32* below, const Pixel32* from, const Pixel32* mask, int count) {
  for (int i = 0; i < count; ++i) {
    const std::uint32_t chosen = covers(mask[i]) ? word(from[i]) : word(below[i]);
    std::memcpy(static_cast<void*>(&to[i]), &chosen, sizeof chosen);
  }
}

// Mixes straight colours by what is seen of them.
void mixSeen(Pixel32& to, const Pixel32& from, double strength) {
  const double below = (1 - strength) * to.alpha, above = strength * from.alpha, all = below + above;
  if (all <= 0) {
    to.alpha = 0;
    return;
  }
  const auto mix = [&](std::uint8_t a, std::uint8_t b) {
    return clampToByte(roundToInt((below * a + above * b) / all));
  };
  to = {mix(to.blue, from.blue), mix(to.green, from.green), mix(to.red, from.red), clampToByte(roundToInt(all))};
}

void blendSeen(clsDIB& area, const clsDIB& region, const clsDIB& mask, int percent) {
  for (int y = 0; y < area.DIBHeight(); ++y) {
    Pixel32* to = pixelsOf(area, y);
    const Pixel32* from = pixelsOf(region, y);
    const Pixel32* cover = mask.empty() ? nullptr : pixelsOf(mask, y);
    for (int x = 0; x < area.DIBWidth(); ++x) {
      if (!cover || covers(cover[x])) mixSeen(to[x], from[x], percent / 100.0);
    }
  }
}

// --- Soft regions

// 65,535 stands for full cover. At 100 percent this is byte 3 times 257: nothing is lost.
constexpr std::uint32_t kFullCover = 65535;
using CoverTable = std::array<std::uint32_t, 256>;

CoverTable coversAt(int percent) {
  CoverTable covers{};
  for (std::uint32_t alpha = 0; alpha < covers.size(); ++alpha)
    covers[alpha] = (alpha * 257 * static_cast<std::uint32_t>(percent) + 50) / 100;
  return covers;
}

void layOver(Pixel32& to, const Pixel32& ink, std::uint32_t cover) {
  const auto mix = [cover](std::uint32_t below, std::uint32_t above) {
    return static_cast<std::uint8_t>((cover * above + (kFullCover - cover) * below + kFullCover / 2) / kFullCover);
  };
  to = {mix(to.blue, ink.blue), mix(to.green, ink.green), mix(to.red, ink.red), to.alpha};
}

void laySoftRow(Pixel32* to, const Pixel32* from, const Pixel32* mask, int count, const CoverTable& strength,
                bool hasAlpha) {
  for (int i = 0; i < count; ++i) {
    const std::uint32_t cover = strength[from[i].alpha];
    if (cover == 0 || (mask && !covers(mask[i]))) continue;
    if (!hasAlpha) {
      layOver(to[i], from[i], cover);
    } else {
      mixSeen(to[i], {from[i].blue, from[i].green, from[i].red, 255}, cover / static_cast<double>(kFullCover));
    }
  }
}

}  // namespace

void CutRegionOval(clsDIB& dib, Colour colour) {
  raster::DrawContext context(dib.surface());
  context.brush = raster::Brush::solid(colour);
  // A region call leaves the last row and column of its box out.
  raster::fillRegion(context, raster::Region::ellipse({0, 0, dib.DIBWidth() + 1, dib.DIBHeight() + 1}));
}

bool inRegionOval(Size box, Point at) {
  if (at.x < 0 || at.y < 0 || at.x >= box.width || at.y >= box.height) return false;
  const std::vector<int> rows = raster::wholeEllipseRows(box.width, box.height);
  if (rows.empty()) return false;
  const int left = rows[static_cast<std::size_t>(at.y)];
  return at.x >= left && at.x < box.width - left;
}

bool makeRegionMask(const clsDIB& region, bool oval, std::optional<Colour> key, clsDIB& mask) {
  mask.ClearUp();
  if (!oval && !key) return true;
  if (!mask.CreateBlankDIB(region.DIBWidth(), region.DIBHeight(), 32, oval ? kWhite : kBlack)) return false;
  if (oval) CutRegionOval(mask, kBlack);
  if (!key) return true;
  const Pixel32 out = Pixel32::plain(*key), white = Pixel32::plain(kWhite);
  for (int y = 0; y < region.DIBHeight(); ++y) {
    const Pixel32* from = pixelsOf(region, y);
    Pixel32* to = pixelsOf(mask, y);
    for (int x = 0; x < region.DIBWidth(); ++x) {
      if (from[x].sameColour(out)) to[x] = white;
    }
  }
  return true;
}

bool takeRegionPixels(const clsDIB& picture, const Rect& box, clsDIB& region) {
  if (!region.CreateBlankDIB(box.width(), box.height(), 32, kWhite)) return false;
  raster::blit(region.surface(), -box.left, -box.top, picture.surface());
  region.setDIBhasAlpha(picture.DIBhasAlpha());
  return true;
}

bool leaveOutSeeThrough(const clsDIB& region, clsDIB& mask) {
  if (mask.empty() && !mask.CreateBlankDIB(region.DIBWidth(), region.DIBHeight(), 32, kBlack)) return false;
  const Pixel32 white = Pixel32::plain(kWhite);
  for (int y = 0; y < region.DIBHeight(); ++y) {
    const Pixel32* from = pixelsOf(region, y);
    Pixel32* to = pixelsOf(mask, y);
    for (int x = 0; x < region.DIBWidth(); ++x) {
      if (from[x].alpha == 0) to[x] = white;
    }
  }
  return true;
}

void clearBeneath(clsDIB& picture, const clsDIB& mask, const Rect& box, Colour colour) {
  const std::uint8_t alpha = brush::writtenAlpha(picture);
  if (mask.empty()) return raster::fillRect(picture.surface(), box, colour, alpha);
  Pixel32 ground = Pixel32::plain(colour);
  ground.alpha = alpha;
  const Rect part = box.intersected(picture.surface().bounds());
  for (int y = part.top; y < part.bottom; ++y) {
    Pixel32* to = pixelsOf(picture, y);
    const Pixel32* cover = pixelsOf(mask, y - box.top) - box.left;
    for (int x = part.left; x < part.right; ++x) {
      if (covers(cover[x])) to[x] = ground;
    }
  }
}

void composeFlat(clsDIB& dib, const clsDIB& snap, const clsDIB& region, const clsDIB& mask, Point at) {
  if (mask.empty()) return raster::blit(dib.surface(), at.x, at.y, region.surface());
  const Rect part = boxOf(region, at).intersected(dib.surface().bounds());
  for (int y = part.top; y < part.bottom; ++y) {
    const int row = y - at.y, column = part.left - at.x;
    chooseRow(pixelsOf(dib, y) + part.left, pixelsOf(snap, y) + part.left, pixelsOf(region, row) + column,
              pixelsOf(mask, row) + column, part.width());
  }
}

bool composeBlended(clsDIB& dib, const clsDIB& snap, const clsDIB& region, const clsDIB& mask, Point at, int percent) {
  // The mix takes what lies beneath from the snapshot: the picture itself shows the region already.
  clsDIB DIBadhoc;
  if (!takeRegionPixels(snap, boxOf(region, at), DIBadhoc)) return false;
  if (dib.DIBhasAlpha()) {
    blendSeen(DIBadhoc, region, mask, percent);
  } else if (mask.empty()) {
    clsDIB::BlendIn(DIBadhoc, region, percent, -1);
  } else {
    clsDIB::BlendIn_Masked(DIBadhoc, region, mask, percent);
  }
  raster::blit(dib.surface(), at.x, at.y, DIBadhoc.surface());
  return true;
}

void composeSoft(clsDIB& dib, const clsDIB& snap, const clsDIB& region, const clsDIB& mask, Point at, int percent) {
  const Rect part = boxOf(region, at).intersected(dib.surface().bounds());
  const CoverTable strength = coversAt(percent);
  for (int y = part.top; y < part.bottom; ++y) {
    const int row = y - at.y, column = part.left - at.x;
    Pixel32* to = pixelsOf(dib, y) + part.left;
    std::memmove(static_cast<void*>(to), pixelsOf(snap, y) + part.left,
                 static_cast<std::size_t>(part.width()) * sizeof *to);
    laySoftRow(to, pixelsOf(region, row) + column, mask.empty() ? nullptr : pixelsOf(mask, row) + column, part.width(),
               strength, dib.DIBhasAlpha());
  }
}

bool softOnWhite(const clsDIB& region, const clsDIB& mask, bool hasAlpha, clsDIB& sheet) {
  if (!sheet.CreateBlankDIB(region.DIBWidth(), region.DIBHeight(), 32, kWhite)) return false;
  sheet.setDIBhasAlpha(hasAlpha);
  raster::fillRect(sheet.surface(), sheet.surface().bounds(), kWhite, brush::writtenAlpha(sheet));
  composeSoft(sheet, sheet, region, mask, {0, 0}, 100);
  return true;
}

std::array<Rect, 4> partsOutside(const Rect& box, const Rect& other) {
  const Rect shared = box.intersected(other);
  if (shared.empty()) return {box};
  return {{{box.left, box.top, box.right, shared.top},
           {box.left, shared.bottom, box.right, box.bottom},
           {box.left, shared.top, shared.left, shared.bottom},
           {shared.right, shared.top, box.right, shared.bottom}}};
}

RegionLimits regionLimits(Size region, Size picture) {
  return {1 - region.width, 1 - region.height, picture.width - 1, picture.height - 1};
}

Point heldWithin(const RegionLimits& limits, Point at) {
  return {std::clamp(at.x, limits.left, limits.right), std::clamp(at.y, limits.top, limits.bottom)};
}

}  // namespace ruvo
