#include "effects/model/colour_light.h"

#include <algorithm>
#include <cmath>

namespace ruvo {

double lightOfChannel(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double channelOfLight(double light) {
  return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

Light lightOf(Colour colour) {
  const auto channel = [](int byte) { return static_cast<float>(lightOfChannel(byte / 255.0)); };
  return {channel(redOf(colour)), channel(greenOf(colour)), channel(blueOf(colour))};
}

LightToPixel::LightToPixel() {
  for (int i = 0; i < kSteps; ++i) {
    const double root = static_cast<double>(i) / (kSteps - 1);
    table_[static_cast<std::size_t>(i)] =
        static_cast<std::uint16_t>(std::min(255 * 256.0, channelOfLight(root * root) * 255 * 256 + 0.5));
  }
}

const LightToPixel& LightToPixel::instance() {
  static const LightToPixel kTable;
  return kTable;
}

std::uint16_t LightToPixel::channel(float light) const {
  const float root = std::sqrt(std::clamp(light, 0.0f, 1.0f));
  return table_[static_cast<std::size_t>(root * (kSteps - 1) + 0.5f)];
}

}  // namespace ruvo
