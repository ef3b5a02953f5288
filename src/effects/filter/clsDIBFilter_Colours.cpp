// Operations in which the channels of a pixel act on each other.
#include <cmath>
#include <vector>

#include "effects/filter/clsDIBFilter.h"
#include "effects/filter/pixel_walk.h"

namespace ruvo {

using namespace filter;

namespace {

constexpr int kChannelsTogether = 3 * 255;

std::uint32_t sumOf(std::uint32_t p) {
  return blueIn(p) + greenIn(p) + redIn(p);
}
bool isGrey(std::uint32_t p) {
  return blueIn(p) == greenIn(p) && greenIn(p) == redIn(p);
}

// For each sum of a pixel's channels, the word that it becomes.
template <typename Value>
std::vector<std::uint32_t> tableBySum(const Value& value) {
  std::vector<std::uint32_t> table(kChannelsTogether + 1);
  for (int sum = 0; sum <= kChannelsTogether; ++sum) table[static_cast<std::size_t>(sum)] = value(sum);
  return table;
}

std::uint32_t wordOf(const clsDIBFilter::Channels& channels) {
  return filter::wordOf(roundToByte(channels.b), roundToByte(channels.g), roundToByte(channels.r));
}

// Hues outside a turn, in sixths of one, come into it.
double withinTurn(double hue) {
  const double within = std::fmod(hue, 6.0);
  return within < 0 ? within + 6 : within;
}

}  // namespace

bool clsDIBFilter::Colorize(clsDIB& Target, Colour color) {
  if (!workable(Target)) return true;
  const auto table = tableBySum([&](int sum) {
    const double brightness = static_cast<double>(sum) / kChannelsTogether;
    return wordOf({redOf(color) * brightness, greenOf(color) * brightness, blueOf(color) * brightness});
  });
  const Exclusion none(kExcludeNone);
  return forRows(Target.DIBHeight(), [&](int y) {
    recolourRow(words(Target.surface(), y), 0, Target.DIBWidth(), none,
                [&](std::uint32_t p) { return table[sumOf(p)]; });
  });
}

bool clsDIBFilter::SwapElements(clsDIB& Target, Order NewOrder) {
  if (!workable(Target)) return true;
  const auto walk = [&](const auto& recolour) {
    return forRows(Target.DIBHeight(), [&](int y) {
      recolourRow(words(Target.surface(), y), 0, Target.DIBWidth(), Exclusion(kExcludeNone), recolour);
    });
  };
  switch (NewOrder) {
    case Order::RBG:
      return walk([](std::uint32_t p) { return filter::wordOf(greenIn(p), blueIn(p), redIn(p)); });
    case Order::GRB:
      return walk([](std::uint32_t p) { return filter::wordOf(blueIn(p), redIn(p), greenIn(p)); });
    case Order::GBR:
      return walk([](std::uint32_t p) { return filter::wordOf(redIn(p), blueIn(p), greenIn(p)); });
    case Order::BRG:
      return walk([](std::uint32_t p) { return filter::wordOf(greenIn(p), redIn(p), blueIn(p)); });
    case Order::BGR:
      return walk([](std::uint32_t p) { return filter::wordOf(redIn(p), greenIn(p), blueIn(p)); });
  }
  return true;
}

bool clsDIBFilter::ColorTheme_RGB(clsDIB& Target, const RGBTheme& Theme) {
  if (!workable(Target)) return true;
  const auto table = tableBySum([&](int sum) {
    const double mean = sum / 3.0;
    return wordOf({mean + Theme.Red, mean + Theme.Green, mean + Theme.Blue});
  });
  return forRows(Target.DIBHeight(), [&](int y) {
    recolourRow(words(Target.surface(), y), 0, Target.DIBWidth(), Exclusion(kExcludeNone),
                [&](std::uint32_t p) { return Theme.SkipGreys && isGrey(p) ? p : table[sumOf(p)]; });
  });
}

bool clsDIBFilter::ColorTheme_HLS(clsDIB& Target, const HLSTheme& Theme) {
  if (!workable(Target)) return true;
  const auto themed = [&](std::uint32_t p) {
    HLS hls = RGBToHLS(static_cast<int>(redIn(p)), static_cast<int>(greenIn(p)), static_cast<int>(blueIn(p)));
    if (Theme.Hue >= 0) hls.h = Theme.Hue / 60;
    if (Theme.Lumination >= 0) hls.l = std::min(1.0, Theme.Lumination / 240);
    if (Theme.Saturation >= 0) hls.s = std::min(1.0, Theme.Saturation / 240);
    return wordOf(HLSToRGB(hls.h, hls.l, hls.s));
  };
  // Neighbours are often equal, and a conversion costs as much as many comparisons.
  std::uint32_t before = 0, after = themed(before);
  return forRows(Target.DIBHeight(), [&](int y) {
    recolourRow(words(Target.surface(), y), 0, Target.DIBWidth(), Exclusion(kExcludeNone), [&](std::uint32_t p) {
      if (Theme.SkipGreys && isGrey(p)) return p;
      if ((p & kColourBytes) != before) {
        before = p & kColourBytes;
        after = themed(before);
      }
      return after;
    });
  });
}

clsDIBFilter::HLS clsDIBFilter::RGBToHLS(int r, int g, int b) {
  const double red = r / 255.0, green = g / 255.0, blue = b / 255.0;
  const double most = std::max({red, green, blue}), least = std::min({red, green, blue});
  HLS hls{0, (most + least) / 2, 0};
  const double delta = most - least;
  if (delta == 0) return hls;
  hls.s = hls.l <= 0.5 ? delta / (most + least) : delta / (2 - most - least);
  if (red == most) {
    hls.h = (green - blue) / delta;
  } else if (green == most) {
    hls.h = 2 + (blue - red) / delta;
  } else {
    hls.h = 4 + (red - green) / delta;
  }
  if (hls.h < 0) hls.h += 6;
  return hls;
}

clsDIBFilter::Channels clsDIBFilter::HLSToRGB(double h, double l, double s) {
  if (s == 0) return {l * 255, l * 255, l * 255};
  const double q = l < 0.5 ? l * (1 + s) : l + s - l * s;
  const double p = 2 * l - q;
  const auto channel = [p, q](double hue) {
    hue = hue < 0 ? hue + 6 : hue >= 6 ? hue - 6 : hue;
    const double part = hue < 1 ? p + (q - p) * hue : hue < 3 ? q : hue < 4 ? p + (q - p) * (4 - hue) : p;
    return part * 255;
  };
  h = withinTurn(h);
  return {channel(h + 2), channel(h), channel(h - 2)};
}

}  // namespace ruvo
