// The way to the GIF encoder, which stands on a higher floor.
#include "platform/imaging/encoders.h"

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
  return gifEncoder && !surface.empty() && surface.depth() <= 8 && gifEncoder(surface, path);
}

}  // namespace ruvo::imaging
