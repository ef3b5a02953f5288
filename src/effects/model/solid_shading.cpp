#include "effects/model/solid_shading.h"

namespace ruvo {
namespace {

constexpr float kMainLight = 1.0f;
// What a glossy surface mirrors from above and from the ground.
constexpr float kSky = 0.9f;
constexpr float kGround = 0.12f;

}  // namespace

SolidShading::SolidShading(const SolidLook& look, Vector3 up)
    : light_(ruvo::towardsLight(look.lightFrom, look.lightHeight)),
      up_(up),
      own_(lightOf(look.colour)),
      ambient_(static_cast<float>(look.ambient)),
      gloss_(static_cast<float>(look.gloss)),
      sharpness_(12 + 190 * gloss_ * gloss_),
      spotFrom_(std::pow(1 / 1024.0f, 1 / sharpness_)) {}

Light SolidShading::seen(Vector3 facing, Vector3 view, Vector3 light, float open) const {
  const float towards = std::max(0.0f, dot(facing, light));
  // From everywhere, but less from the ground than from above.
  const float around = ambient_ * (0.65f + 0.35f * dot(facing, up_)) * open;
  Light sum = own_ * (around + (1 - ambient_ * 0.5f) * kMainLight * towards);
  if (gloss_ > 0) {
    const float facingView = std::max(0.0f, dot(facing, view));
    const float grazing = 1 - facingView;
    const float grazing2 = grazing * grazing;
    const float mirrored = 0.03f + 0.6f * grazing2 * grazing2 * grazing;
    const float heightOfMirrored = 2 * facingView * dot(facing, up_) - dot(view, up_);
    const float sky = smoothStep(-0.25f, 0.65f, heightOfMirrored) * (kSky - kGround) + kGround;
    const Vector3 half = unit(light + view);
    const float near = dot(facing, half);
    const float spot = near > spotFrom_ ? std::pow(near, sharpness_) : 0.0f;
    const float white = gloss_ * (mirrored * sky * open + 0.75f * spot * std::min(1.0f, towards * 6));
    sum = sum + Light{white, white, white};
  }
  return sum;
}

void paintBackground(Pixel32* row, int width, const SolidLook& look, bool isAlpha) {
  if (look.background < 0) return;
  const Pixel32 back = Pixel32::opaque(static_cast<Colour>(look.background));
  for (int x = 0; x < width; ++x) row[x] = {back.blue, back.green, back.red, isAlpha ? back.alpha : row[x].alpha};
}

}  // namespace ruvo
