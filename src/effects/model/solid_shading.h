// How the surface of a solid looks in the light, and how dark the ground beside it is.
#pragma once

#include <algorithm>

#include "effects/model/colour_light.h"
#include "effects/model/pixel_cover.h"
#include "effects/model/solids.h"
#include "effects/model/vector3.h"

namespace ruvo {

inline float smoothStep(float from, float to, float at) {
  const float t = std::min(1.0f, std::max(0.0f, (at - from) / (to - from)));
  return t * t * (3 - 2 * t);
}

// Directions are in the frame of the viewer: x right, y up, z to the viewer.
class SolidShading {
 public:
  // `up` points away from the ground.
  SolidShading(const SolidLook& look, Vector3 up);

  Vector3 towardsLight() const { return light_; }
  // The light that a point sends to the viewer. `facing` is the surface's direction, `view` the one to the viewer,
  // `light` the one to the light, all of length 1; `open` is the share of its surroundings that nothing hides.
  Light seen(Vector3 facing, Vector3 view, Vector3 light, float open) const;

 private:
  Vector3 light_;
  Vector3 up_;
  Light own_;
  float ambient_;
  float gloss_;
  float sharpness_;
  float spotFrom_;  // farther from its middle the bright spot is too dark to be seen
};

// Darkens what lies under a shadow. `darkness` is 0 to 1, `grain` a threshold of kGrain.
inline Pixel32 shaded(Pixel32 under, float darkness, int grain, bool isAlpha) {
  const int kept = static_cast<int>((1 - darkness) * 256 * 256 + 0.5f);
  const auto channel = [&](int c) { return static_cast<std::uint8_t>(((c * kept >> 8) + grain) >> 8); };
  if (isAlpha && under.alpha < 255) return laidOver(under, Pixel32::opaque(kBlack), coverOf(darkness), true);
  return {channel(under.blue), channel(under.green), channel(under.red), under.alpha};
}

// The picture behind the solid: a plain colour or what was there.
void paintBackground(Pixel32* row, int width, const SolidLook& look, bool isAlpha);

}  // namespace ruvo
