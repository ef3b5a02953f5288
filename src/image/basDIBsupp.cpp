#include "image/basDIBsupp.h"

#include <algorithm>

#include "base/limits.h"
#include "platform/raster/blit.h"

namespace ruvo {

imaging::Picture CreatePictureFromBits(std::span<const std::uint8_t> Bits, int Width, int Height, int Bpp,
                                       std::span<const std::uint8_t> Table) {
  raster::Surface surface;
  if (!pictureSizeAllowed(Width, Height) || !surface.create(Width, Height, Bpp) || Bits.size() < surface.byteCount()) {
    return {};
  }
  std::copy_n(Bits.begin(), surface.byteCount(), surface.bits());
  const auto table = surface.table();
  for (std::size_t i = 0; i < std::min(table.size(), Table.size() / 4); ++i) {
    table[i] = {Table[4 * i], Table[4 * i + 1], Table[4 * i + 2], 0};
  }
  return imaging::Picture::ofBitmap(std::move(surface));
}

std::vector<std::uint8_t> WidenToBytes(std::span<const std::uint8_t> Packed, int Width, int Height, int Bits) {
  const bool known = Bits == 1 || Bits == 2 || Bits == 4;
  if (!known || !pictureSizeAllowed(Width, Height)) return {};
  const auto width = static_cast<std::size_t>(Width);
  const auto height = static_cast<std::size_t>(Height);
  const std::size_t rowBytes = (width * static_cast<std::size_t>(Bits) + 7) / 8;
  if (Packed.size() < rowBytes * height) return {};
  const std::size_t perByte = 8 / static_cast<std::size_t>(Bits);
  const int most = (1 << Bits) - 1;
  std::vector<std::uint8_t> wide;
  wide.reserve(width * height);
  for (std::size_t y = 0; y < height; ++y) {
    const auto row = Packed.subspan(y * rowBytes, rowBytes);
    for (std::size_t x = 0; x < width; ++x) {
      const int shift = 8 - Bits * (static_cast<int>(x % perByte) + 1);
      wide.push_back(static_cast<std::uint8_t>(row[x / perByte] >> shift & most));
    }
  }
  return wide;
}

void DrawPictureTo(const imaging::Picture& Picture, raster::Surface& Target, int X, int Y, int W, int H) {
  if (!Picture.bitmap) return;
  raster::blit(Target, X, Y, W < 1 ? Picture.width : W, H < 1 ? Picture.height : H, *Picture.bitmap, 0, 0);
}

}  // namespace ruvo
