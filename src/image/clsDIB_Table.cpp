#include <algorithm>
#include <cstring>

#include "image/clsDIB.h"

namespace ruvo {

static_assert(sizeof(raster::TableEntry) == 4);

void clsDIB::GetDIBPalette(std::span<std::uint8_t> Array) const {
  const auto table = surface_.table();
  const std::size_t bytes = std::min(Array.size(), table.size_bytes());
  if (bytes > 0) std::memcpy(Array.data(), table.data(), bytes);
}

void clsDIB::SetPaletteToDIB8BPP(std::span<const std::uint8_t> Array) {
  const auto table = surface_.table();
  const std::size_t entries = std::min(Array.size() / 4, table.size());
  for (std::size_t i = 0; i < entries; ++i) table[i] = {Array[4 * i], Array[4 * i + 1], Array[4 * i + 2], 0};
}

void clsDIB::GetPaletteFromDIB8BPP(std::vector<std::uint8_t>& Array) const {
  Array.assign(surface_.table().size_bytes(), 0);
  GetDIBPalette(Array);
}

int clsDIB::PaletteIndex_In_DIB_XY(const clsDIB& Dib, int X, int Y) {
  if (Dib.surface_.depth() != 8 || X < 0 || Y < 0 || X >= Dib.DIBWidth() || Y >= Dib.DIBHeight()) return 0;
  return Dib.surface_.view8().at(X, Y);
}

}  // namespace ruvo
