#include "effects/model/bevel.h"

#include <cmath>

#include "effects/model/frame_edges.h"

namespace ruvo {

bool drawBevel(clsDIB& picture, const Bevel& bevel, const Progress& progress) {
  OfEachSide sides = sidesInLight(bevel.lightFrom);
  for (double& side : sides) side *= bevel.sunken ? -bevel.strength : bevel.strength;
  return forEachFramePixel(picture, bevel.width, progress, [&](Pixel32& pixel, int depth, FrameSide a, FrameSide b) {
    const double way = (depth + 0.5) / bevel.width;
    const double steepness = bevel.round ? (1 - way) * (1 - way) * (1 + 2 * way) : 1;
    pixel = lit(pixel, (sides[a] + sides[b]) / 2 * steepness);
  });
}

}  // namespace ruvo
