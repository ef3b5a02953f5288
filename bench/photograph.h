// A picture like a photograph, always the same: soft gradients, round shapes with sharp edges, and grain.
#pragma once

#include <algorithm>
#include <cmath>

#include "base/random_source.h"
#include "image/clsDIB.h"

namespace ruvo::bench {

inline clsDIB photograph(int width, int height) {
  clsDIB dib;
  dib.CreateBlankDIB(width, height, 32, kWhite);
  RandomSource random;
  const raster::View32 view = dib.surface().view32();
  for (int y = 0; y < height; ++y) {
    Pixel32* row = view.row(y);
    for (int x = 0; x < width; ++x) {
      const double u = 6.0 * x / width, v = 6.0 * y / height;
      const bool inside = std::fmod(u, 1.5) * std::fmod(u, 1.5) + std::fmod(v, 2.0) * std::fmod(v, 2.0) < 0.8;
      const double grain = 7 * random.next();
      const auto level = [&](double base) { return static_cast<std::uint8_t>(std::clamp(base + grain, 0.0, 255.0)); };
      row[x] = {level(110 + 60 * std::sin(u + v) + (inside ? 60 : 0)),
                level(120 + 70 * std::cos(v) - (inside ? 30 : 0)), level(110 + 90 * std::sin(u * v / 4)), 0};
    }
  }
  return dib;
}

}  // namespace ruvo::bench
