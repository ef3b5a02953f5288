#include <algorithm>
#include <cmath>

#include "effects/model/solid_shading.h"
#include "effects/model/solids.h"

namespace ruvo {
namespace {

// The viewer looks down on the ground at this angle, from far away.
constexpr double kLookDown = 24;
// In radii: no shadow is farther from the sphere's middle.
constexpr float kShadowReach = 5;
// Of the light: how fast shadows soften with the distance.
constexpr float kSoftening = 0.28f;

// All lengths in radii, from the sphere's middle.
class SphereScene {
 public:
  explicit SphereScene(const SolidLook& look)
      : up_{0, static_cast<float>(std::cos(radiansOf(kLookDown))), static_cast<float>(std::sin(radiansOf(kLookDown)))},
        shading_(look, up_),
        cast_(0.85f * smoothStep(0, 0.25f, dot(shading_.towardsLight(), up_))),
        shadow_(static_cast<float>(look.shadow)) {}

  // Where the viewer looks at the sphere; a little outside counts as its rim.
  Light surface(float x, float y) const {
    const float beside = x * x + y * y;
    Vector3 facing = {x, y, std::sqrt(std::max(0.0f, 1 - beside))};
    if (beside > 1) facing = unit(facing);
    // Near the ground less light comes from around.
    const float height = 1 + dot(facing, up_);
    const float open = 1 - 0.45f * shadow_ * (1 - smoothStep(0, 0.9f, height));
    return shading_.seen(facing, {0, 0, 1}, shading_.towardsLight(), open);
  }

  // How dark the ground is there.
  float groundDarkness(float x, float y) const {
    const Vector3 place = {x, y, (-1 - y * up_.y) / up_.z};
    const float distance2 = dot(place, place);
    if (distance2 >= kShadowReach * kShadowReach) return 0;
    const Vector3 light = shading_.towardsLight();
    const float along = -dot(place, light);
    float cast = 0;
    if (along > 0 && cast_ > 0) {
      const float past = std::sqrt(std::max(0.0f, distance2 - along * along));
      const float soft = kSoftening * along;
      cast = past < 1 + soft ? cast_ * (1 - smoothStep(1 - soft, 1 + soft, past)) : 0;
    }
    const float fade = 1 - distance2 / (kShadowReach * kShadowReach);
    const float contact = 1 / (distance2 * std::sqrt(distance2));
    return shadow_ * (1 - (1 - cast * fade) * (1 - 0.7f * contact * fade * fade));
  }
  bool castsShadow() const { return shadow_ > 0; }

 private:
  Vector3 up_;
  SolidShading shading_;
  float cast_;  // darkness of the shadow that the light throws; a light from below throws none
  float shadow_;
};

}  // namespace

bool drawSphere(clsDIB& picture, const Sphere& sphere, const Progress& progress) {
  const SolidLook& look = sphere.look;
  const int width = picture.DIBWidth(), height = picture.DIBHeight();
  const SphereScene scene(look);
  const LightToPixel& toPixel = LightToPixel::instance();
  const auto radius = static_cast<float>(look.size * std::min(width, height) / 2);
  const auto centreX = static_cast<float>(look.centreX * width), centreY = static_cast<float>(look.centreY * height);
  const float perPixel = 1 / radius;
  const bool isAlpha = picture.DIBhasAlpha();
  return forEachRow(height, progress, [&](int pictureY) {
    Pixel32* row = pixelRow(picture.surface(), pictureY);
    const auto& grain = kGrain[static_cast<std::size_t>(pictureY & 7)];
    paintBackground(row, width, look, isAlpha);
    const float y = (centreY - static_cast<float>(pictureY) - 0.5f) * perPixel;
    for (int column = 0; column < width; ++column) {
      const float x = (static_cast<float>(column) + 0.5f - centreX) * perPixel;
      const float inside = (1 - std::sqrt(x * x + y * y)) * radius + 0.5f;  // in pixels, from where the rim begins
      const int thisGrain = grain[column & 7];
      if (inside < 1 && scene.castsShadow()) {
        const float darkness = scene.groundDarkness(x, y);
        if (darkness > 0) row[column] = shaded(row[column], darkness, thisGrain, isAlpha);
      }
      if (inside <= 0) continue;
      row[column] = laidOver(row[column], toPixel.pixel(scene.surface(x, y), thisGrain), coverOf(inside), isAlpha);
    }
  });
}

}  // namespace ruvo
