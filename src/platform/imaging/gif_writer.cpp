// The way to the GIF encoder, which stands on a higher floor.
#include "platform/imaging/encoders.h"
#include "platform/imaging/table_reduction.h"

namespace ruvo::imaging {
namespace {

GifEncoder gifEncoder = nullptr;

}  // namespace

void setGifEncoder(GifEncoder encoder) {
  gifEncoder = encoder;
}

bool hasGifEncoder() {
  return gifEncoder != nullptr;
}

bool saveGif(const raster::Surface& surface, const std::filesystem::path& path) {
  if (!gifEncoder || surface.empty()) return false;
  if (surface.depth() <= 8) return gifEncoder(surface, path);
  raster::Surface reduced;
  return reduceToTable(surface, 8, reduced) && gifEncoder(reduced, path);
}

}  // namespace ruvo::imaging
