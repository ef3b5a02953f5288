// A soft shadow under what stands out of a plain background.
#include <cmath>
#include <vector>

#include "effects/filter/clsDIBFilter.h"
#include "effects/filter/pixel_walk.h"

namespace ruvo {

using namespace filter;

namespace {

// An edge is softened by half the softness to either side. Where the shadow is full, this much is its own colour and
// the rest is the background's.
constexpr double kReachShare = 0.5, kShadowShare = 0.7, kBackgroundShare = 0.3;

// Three box averages in a row, whose radii sum up to `reach`: near enough to a bell curve. Values are 0..255 scaled by
// 256 between the passes.
class SoftRow {
 public:
  SoftRow(int length, int reach) : length_(length), reach_(reach) {
    values_.resize(static_cast<std::size_t>(length));
    averages_.resize(values_.size());
  }
  // The averages of a row; what lies outside counts as 0.
  const std::vector<std::uint16_t>& of(const std::uint8_t* row) {
    for (int x = 0; x < length_; ++x) values_[static_cast<std::size_t>(x)] = static_cast<std::uint16_t>(row[x] << 8);
    for (int pass = 0; pass < 3; ++pass) average((reach_ + pass) / 3);
    return values_;
  }

 private:
  void average(int radius) {
    if (radius == 0) return;
    // A 32-bit fraction stands for the division by the number of pixels.
    const std::uint64_t part = (std::uint64_t{1} << 32) / static_cast<std::uint64_t>(2 * radius + 1);
    std::uint32_t sum = 0;
    for (int x = 0; x < std::min(radius, length_); ++x) sum += values_[static_cast<std::size_t>(x)];
    for (int x = 0; x < length_; ++x) {
      if (x + radius < length_) sum += values_[static_cast<std::size_t>(x + radius)];
      averages_[static_cast<std::size_t>(x)] =
          static_cast<std::uint16_t>((sum * part + (std::uint64_t{1} << 31)) >> 32);
      if (x >= radius) sum -= values_[static_cast<std::size_t>(x - radius)];
    }
    values_.swap(averages_);
  }

  int length_;
  int reach_;
  std::vector<std::uint16_t> values_, averages_;
};

// Softens along the rows and leaves the result turned, rows as columns: twice makes both directions, the right way up.
// False when there is no memory or nobody wants it any more.
bool softenTurned(const raster::Surface& from, raster::Surface& to, int reach, const Progress& progress) {
  if (!to.create(from.height(), from.width(), 8)) return false;
  SoftRow soft(from.width(), reach);
  for (int y = 0; y < from.height(); ++y) {
    const std::vector<std::uint16_t>& row = soft.of(from.memoryRow(y));
    std::uint8_t* column = to.memoryRow(0) + y;
    for (int x = 0; x < from.width(); ++x, column += to.stride()) {
      *column = static_cast<std::uint8_t>(std::min(255, (row[static_cast<std::size_t>(x)] + 128) >> 8));
    }
    if (progress.stopped()) return false;
  }
  return true;
}

// 255 where the picture is not background, with a margin of `reach` all round, picture line by picture line.
bool imageMask(const raster::Surface& surface, const Exclusion& background, int reach, raster::Surface& mask) {
  if (!mask.create(surface.width() + 2 * reach, surface.height() + 2 * reach, 8)) return false;
  for (int y = 0; y < surface.height(); ++y) {
    const std::uint32_t* row = words(surface, surface.memoryRowOf(y));
    std::uint8_t* to = mask.memoryRow(y + reach) + reach;
    for (int x = 0; x < surface.width(); ++x) to[x] = background.covers(row[x]) ? 0 : 255;
  }
  return true;
}

// The background's colour under each strength of shadow.
std::array<std::uint32_t, 256> shadowTable(Colour background, Colour shadow) {
  std::array<std::uint32_t, 256> table{};
  for (std::size_t m = 0; m < table.size(); ++m) {
    const double full = static_cast<double>(m) / 255;
    const auto channel = [full](int under, int over) {
      return roundToByte(under * (1 - full) + full * (kBackgroundShare * under + kShadowShare * over));
    };
    table[m] = wordOf(channel(blueOf(background), blueOf(shadow)), channel(greenOf(background), greenOf(shadow)),
                      channel(redOf(background), redOf(shadow)));
  }
  return table;
}

}  // namespace

bool clsDIBFilter::AddShadow(clsDIB& Target, int OffsetX, int OffsetY, int Softness, Colour ShadowColor) {
  if (!workable(Target)) return true;
  const int width = Target.DIBWidth(), height = Target.DIBHeight();
  raster::Surface& surface = Target.surface();
  const Colour backColour = clsDIB::GetTopPixelColor(Target, surface.order() == raster::RowOrder::BottomUp);
  const Exclusion background(backColour);
  // Farther than the picture is long, nothing changes any more.
  const int reach = std::clamp(static_cast<int>(std::ceil(kReachShare * Softness)), 0, std::max(width, height));
  raster::Surface mask, turned;
  if (!imageMask(surface, background, reach, mask)) return false;
  if (reach > 0 && (!softenTurned(mask, turned, reach, progress_) || !softenTurned(turned, mask, reach, progress_))) {
    Filtertemp_ProgressEnd();
    return false;
  }
  const auto table = shadowTable(backColour, ShadowColor);
  // Places in the mask of the picture's first point; 64 bits, for offsets may be anything.
  const std::int64_t left = std::int64_t{reach} - OffsetX, top = std::int64_t{reach} - OffsetY;
  const int first = static_cast<int>(std::clamp<std::int64_t>(-left, 0, width));
  const int end = static_cast<int>(std::clamp<std::int64_t>(mask.width() - left, 0, width));
  return forRows(height, [&](int y) {
    if (y + top < 0 || y + top >= mask.height()) return;
    std::uint32_t* row = words(surface, surface.memoryRowOf(y));
    const std::uint8_t* strength = mask.memoryRow(static_cast<int>(y + top));
    for (int x = first; x < end; ++x) {
      if (background.covers(row[x])) row[x] = recoloured(row[x], table[strength[x + left]]);
    }
  });
}

}  // namespace ruvo
