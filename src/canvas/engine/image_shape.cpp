#include "canvas/engine/image_shape.h"

namespace ruvo {

void ClearAreasOutsideImageShape(clsDIB& image, const clsDIB& mask, Colour colour, std::uint8_t alpha) {
  raster::Surface& surface = image.surface();
  const raster::Surface& shape = mask.surface();
  if (surface.size() != shape.size() || surface.depth() != 32 || shape.depth() != 32) return;
  Pixel32 outside = Pixel32::plain(colour);
  outside.alpha = alpha;
  const Pixel32 white = Pixel32::plain(kWhite);
  for (int y = 0; y < surface.height(); ++y) {
    auto* row = reinterpret_cast<Pixel32*>(surface.pictureRow(y));
    const auto* covers = reinterpret_cast<const Pixel32*>(shape.pictureRow(y));
    for (int x = 0; x < surface.width(); ++x) {
      if (covers[x].sameColour(white)) row[x] = outside;
    }
  }
}

}  // namespace ruvo
