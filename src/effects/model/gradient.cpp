#include "effects/model/gradient.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "effects/model/colour_light.h"
#include "effects/model/pixel_cover.h"

namespace ruvo {
namespace {

constexpr int kSteps = 4096;
constexpr int kLast = kSteps - 1;
constexpr int kFullAlpha = 1 << 15;

// One step of the way: channels in 256ths of a byte, four lanes of 16 bits in the order of a pixel's bytes.
using Lanes = std::uint64_t;
constexpr Lanes kEachLane = 0x0001000100010001;

struct Ramp {
  std::array<Lanes, kSteps> colours;
  std::array<int, kSteps> alpha;  // 0 to kFullAlpha
  bool opaque = true;
};

using Triple = std::array<double, 3>;

// Björn Ottosson's Oklab from linear red, green and blue, and back.
Triple oklabOf(Colour colour) {
  const Light c = lightOf(colour);
  const double l = std::cbrt(0.4122214708 * c.red + 0.5363325363 * c.green + 0.0514459929 * c.blue);
  const double m = std::cbrt(0.2119034982 * c.red + 0.6806995451 * c.green + 0.1073969566 * c.blue);
  const double s = std::cbrt(0.0883024619 * c.red + 0.2817188376 * c.green + 0.6299787005 * c.blue);
  return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
          1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
          0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}
// As channels from 0 to 255, red first; may lie a little outside.
Triple channelsOfOklab(const Triple& lab) {
  const auto cube = [](double v) { return v * v * v; };
  const double l = cube(lab[0] + 0.3963377774 * lab[1] + 0.2158037573 * lab[2]);
  const double m = cube(lab[0] - 0.1055613458 * lab[1] - 0.0638541728 * lab[2]);
  const double s = cube(lab[0] - 0.0894841775 * lab[1] - 1.2914855480 * lab[2]);
  const auto channel = [](double light) { return channelOfLight(std::max(0.0, light)) * 255; };
  return {channel(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s),
          channel(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s),
          channel(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s)};
}

Triple channelsOf(Colour colour) {
  return {static_cast<double>(redOf(colour)), static_cast<double>(greenOf(colour)),
          static_cast<double>(blueOf(colour))};
}

Triple mixed(const Triple& a, const Triple& b, double share) {
  return {std::lerp(a[0], b[0], share), std::lerp(a[1], b[1], share), std::lerp(a[2], b[2], share)};
}

Lanes lanesOf(const Triple& channels) {
  const auto lane = [](double c) { return static_cast<Lanes>(std::clamp(c, 0.0, 255.0) * 256 + 0.5); };
  return lane(channels[2]) | lane(channels[1]) << 16 | lane(channels[0]) << 32 | Lanes{255 * 256} << 48;
}

Ramp rampOf(const Gradient& gradient) {
  Ramp ramp;
  // Towards "none" the other colour fades out.
  const auto first = static_cast<Colour>(gradient.first >= 0 ? gradient.first : gradient.second);
  const auto second = static_cast<Colour>(gradient.second >= 0 ? gradient.second : gradient.first);
  const double power = std::log(0.5) / std::log(std::clamp(gradient.midpoint, 0.001, 0.999));
  const Triple from = channelsOf(first), to = channelsOf(second);
  const Triple fromLab = oklabOf(first), toLab = oklabOf(second);
  for (int i = 0; i < kSteps; ++i) {
    const double share = std::pow(static_cast<double>(i) / kLast, power);
    // The ends do not go there and back: they are exact.
    const bool byEye = gradient.byEye && i > 0 && i < kLast;
    ramp.colours[i] = lanesOf(byEye ? channelsOfOklab(mixed(fromLab, toLab, share)) : mixed(from, to, share));
    const double shown = (gradient.first >= 0 ? 1 - share : 0) + (gradient.second >= 0 ? share : 0);
    ramp.alpha[i] = static_cast<int>(shown * gradient.strength * kFullAlpha + 0.5);
    ramp.opaque = ramp.opaque && ramp.alpha[i] == kFullAlpha;
  }
  return ramp;
}

std::uint16_t stepOf(float place) {
  return static_cast<std::uint16_t>(std::min(std::max(place, 0.0f), static_cast<float>(kLast)) + 0.5f);
}

// Angle of a direction as a share of a full turn from -0.5 to 0.5, zero along x; off by less than 1 / 100,000.
float turnOf(float x, float y) {
  const float ax = std::abs(x), ay = std::abs(y);
  const float high = std::max(ax, ay);
  if (high == 0) return 0;
  const float q = std::min(ax, ay) / high;
  const float s = q * q;
  float angle = q * (0.1591336f + s * (-0.0525688f + s * (0.0286703f + s * (-0.0135494f + s * 0.0033160f))));
  if (ay > ax) angle = 0.25f - angle;
  if (x < 0) angle = 0.5f - angle;
  return y < 0 ? -angle : angle;
}

// Which step of the ramp each pixel of a row takes.
class Way {
 public:
  Way(const Gradient& gradient, int width, int height) : kind_(gradient.kind), width_(width) {
    // Between the centres of the outermost pixels.
    const double right = width - 1, bottom = height - 1;
    const double radians = gradient.angle * std::numbers::pi / 180;
    const double dx = std::sin(radians), dy = -std::cos(radians);
    const double cx = gradient.centreX * right, cy = gradient.centreY * bottom;
    cx_ = static_cast<float>(cx);
    cy_ = static_cast<float>(cy);
    dx_ = static_cast<float>(dx);
    dy_ = static_cast<float>(dy);
    constexpr double kNothing = 1e-6;
    const double length = std::abs(right * dx) + std::abs(bottom * dy);
    perPixel_ = length > kNothing ? kLast / length : 0;
    const double farthest = std::hypot(std::max(cx, right - cx), std::max(cy, bottom - cy));
    perDistance_ = static_cast<float>(farthest > kNothing ? kLast / farthest : 0);
  }

  void steps(int y, std::uint16_t* to) const {
    switch (kind_) {
      case Gradient::Kind::Linear:
        return linear(y, to);
      case Gradient::Kind::Reflected:
        return reflected(y, to);
      case Gradient::Kind::Radial:
        return radial(y, to);
      case Gradient::Kind::Angular:
        return angular(y, to);
    }
  }

 private:
  // How far the pixel 0 of a row lies from the centre along the direction, in steps.
  float start(int y) const { return static_cast<float>(((y - cy_) * dy_ - cx_ * dx_) * perPixel_); }
  float across() const { return static_cast<float>(dx_ * perPixel_); }

  void linear(int y, std::uint16_t* to) const {
    const float from = start(y) + kLast * 0.5f, each = across();
    for (int x = 0; x < width_; ++x) to[x] = stepOf(from + each * static_cast<float>(x));
  }
  void reflected(int y, std::uint16_t* to) const {
    const float from = 2 * start(y), each = 2 * across();
    for (int x = 0; x < width_; ++x) to[x] = stepOf(std::abs(from + each * static_cast<float>(x)));
  }
  void radial(int y, std::uint16_t* to) const {
    const float down = static_cast<float>(y) - cy_;
    for (int x = 0; x < width_; ++x) {
      const float right = static_cast<float>(x) - cx_;
      to[x] = stepOf(std::sqrt(right * right + down * down) * perDistance_);
    }
  }
  void angular(int y, std::uint16_t* to) const {
    const float down = static_cast<float>(y) - cy_;
    for (int x = 0; x < width_; ++x) {
      const float right = static_cast<float>(x) - cx_;
      // Turned so that the direction lies along x.
      const float along = right * dx_ + down * dy_, aside = down * dx_ - right * dy_;
      float share = turnOf(along, aside);
      if (share < 0) share += 1;
      // Where the last colour meets the first the step is smoothed over a pixel.
      if (along > 0 && std::abs(aside) < 0.5f) share = 0.5f - aside;
      to[x] = stepOf(share * kLast);
    }
  }

  Gradient::Kind kind_;
  int width_;
  float cx_, cy_, dx_, dy_;
  double perPixel_;
  float perDistance_;
};

Pixel32 packed(Lanes lanes) {
  lanes = lanes >> 8 & 0x00FF00FF00FF00FF;
  return {static_cast<std::uint8_t>(lanes), static_cast<std::uint8_t>(lanes >> 16),
          static_cast<std::uint8_t>(lanes >> 32), static_cast<std::uint8_t>(lanes >> 48)};
}

struct RowPaint {
  const Ramp& ramp;
  const std::uint16_t* steps;
  const std::array<std::uint8_t, 8>& grain;
  int width;

  void solid(Pixel32* row, bool isAlpha) const {
    for (int x = 0; x < width; ++x) {
      const Pixel32 c = packed(ramp.colours[steps[x]] + grain[x & 7] * kEachLane);
      row[x] = {c.blue, c.green, c.red, isAlpha ? c.alpha : row[x].alpha};
    }
  }
  void blended(Pixel32* row) const {
    for (int x = 0; x < width; ++x) {
      const Lanes lanes = ramp.colours[steps[x]];
      const int alpha = ramp.alpha[steps[x]];
      const auto channel = [&](int under, int shift) {
        const int from = under << 8, to = static_cast<int>(lanes >> shift & 0xFFFF);
        return static_cast<std::uint8_t>((from + ((to - from) * alpha >> 15) + grain[x & 7]) >> 8);
      };
      row[x] = {channel(row[x].blue, 0), channel(row[x].green, 16), channel(row[x].red, 32), row[x].alpha};
    }
  }
  void blendedWithAlpha(Pixel32* row) const {
    for (int x = 0; x < width; ++x) {
      const Pixel32 c = packed(ramp.colours[steps[x]] + grain[x & 7] * kEachLane);
      row[x] = laidOver(row[x], c, ramp.alpha[steps[x]] * kFullCover / kFullAlpha, true);
    }
  }
};

}  // namespace

bool drawGradient(clsDIB& picture, const Gradient& gradient, const Progress& progress) {
  if (gradient.first < 0 && gradient.second < 0) return forEachRow(picture.DIBHeight(), progress, [](int) {});
  const Ramp ramp = rampOf(gradient);
  const Way way(gradient, picture.DIBWidth(), picture.DIBHeight());
  std::vector<std::uint16_t> steps(static_cast<std::size_t>(picture.DIBWidth()));
  return forEachRow(picture.DIBHeight(), progress, [&](int y) {
    way.steps(y, steps.data());
    const RowPaint paint{ramp, steps.data(), kGrain[static_cast<std::size_t>(y & 7)], picture.DIBWidth()};
    Pixel32* row = pixelRow(picture.surface(), y);
    if (ramp.opaque) {
      paint.solid(row, picture.DIBhasAlpha());
    } else if (picture.DIBhasAlpha()) {
      paint.blendedWithAlpha(row);
    } else {
      paint.blended(row);
    }
  });
}

}  // namespace ruvo
