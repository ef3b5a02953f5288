#include "formats/register_codecs.h"

#include <algorithm>
#include <new>

#include "formats/clsGIF.h"
#include "platform/imaging/encoders.h"
#include "platform/imaging/pixel_rows.h"

namespace ruvo {
namespace {

// The same indices, a byte each.
clsDIB widened(const raster::Surface& surface) {
  clsDIB dib;
  if (!dib.CreateBlankDIB(surface.width(), surface.height(), 8, kWhite)) return dib;
  for (int y = 0; y < surface.height(); ++y) {
    const std::uint8_t* from = surface.pictureRow(y);
    std::uint8_t* to = dib.surface().pictureRow(y);
    for (int x = 0; x < surface.width(); ++x) {
      to[x] = static_cast<std::uint8_t>(imaging::indexAt(from, x, surface.depth()));
    }
  }
  return dib;
}

bool saveGif(const raster::Surface& surface, const std::filesystem::path& path) {
  try {
    clsPal table;
    table.CreateBlankPalette(static_cast<int>(surface.table().size()));
    std::ranges::copy(surface.table(), table.PalettePtr());
    return clsGIF::SaveGIFFrom_BPP8_DIB(path, widened(surface), table, surface.depth());
  } catch (const std::bad_alloc&) {
    return false;
  }
}

}  // namespace

void registerFormatCodecs() {
  imaging::setGifEncoder(saveGif);
}

}  // namespace ruvo
