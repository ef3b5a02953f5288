// Operations in which each channel becomes a function of itself, and grey.
#include <cmath>

#include "effects/filter/clsDIBFilter.h"
#include "effects/filter/pixel_walk.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace ruvo {

using namespace filter;

// One table a channel, each entry in its place of the pixel's word.
class clsDIBFilter::ToneTables {
 public:
  ToneTables(const ByteTable& blue, const ByteTable& green, const ByteTable& red) {
    for (std::size_t c = 0; c < 256; ++c) {
      blue_[c] = blue[c];
      green_[c] = static_cast<std::uint32_t>(green[c]) << 8;
      red_[c] = static_cast<std::uint32_t>(red[c]) << 16;
    }
  }
  explicit ToneTables(const ByteTable& all) : ToneTables(all, all, all) {}
  void apply(std::uint32_t* row, int width, const Exclusion& exclusion) const {
    recolourRow(row, 0, width, exclusion,
                [this](std::uint32_t p) { return blue_[blueIn(p)] | green_[greenIn(p)] | red_[redIn(p)]; });
  }

 private:
  std::array<std::uint32_t, 256> blue_, green_, red_;
};

namespace {

constexpr double kRedShare = 0.3, kGreenShare = 0.59, kBlueShare = 0.11;

// So little work a pixel that memory sets the pace; it answers two streams sooner than one.
void invert(std::uint32_t* row, int width) {
  constexpr int kBlock = 16;
  const int blocks = width / 2 / kBlock;
  std::uint32_t* other = row + blocks * kBlock;
  for (int block = 0; block < blocks; ++block) {
    for (std::uint32_t* half : {row + block * kBlock, other + block * kBlock}) {
      for (int x = 0; x < kBlock; ++x) half[x] ^= kColourBytes;
    }
  }
  for (int x = 2 * blocks * kBlock; x < width; ++x) row[x] ^= kColourBytes;
}

// Grey by sums of fixed-point numbers. They are good enough to tell on which side of a half the sum in double lies, but
// for the one pixel in a hundred whose sum is a half: there the double decides.
class GreyTables {
 public:
  GreyTables() {
    for (std::size_t c = 0; c < 256; ++c) {
      const auto value = static_cast<double>(c);
      blue_[c] = static_cast<std::uint32_t>(kBlueShare * value * kOne + kOne / 2);  // the half rounds
      green_[c] = static_cast<std::uint32_t>(kGreenShare * value * kOne);
      red_[c] = static_cast<std::uint32_t>(kRedShare * value * kOne);
    }
  }
  std::uint32_t of(std::uint32_t p) const {
    // The parts were cut down by less than three together; those added here take the sum past a half it stands at.
    const std::uint32_t sum = blue_[blueIn(p)] + green_[greenIn(p)] + red_[redIn(p)] + 3;
    const std::uint32_t grey = (sum & (kOne - 1)) < 8 ? atHalf(p) : sum / kOne;
    return grey * 0x010101;
  }

 private:
  static constexpr std::uint32_t kOne = 1 << 22;
  static std::uint32_t atHalf(std::uint32_t p) {
    return static_cast<std::uint32_t>(
        quickRound(kRedShare * redIn(p) + kGreenShare * greenIn(p) + kBlueShare * blueIn(p)));
  }
  std::array<std::uint32_t, 256> blue_, green_, red_;
};

// Turns the first pixels of a row to grey, four at a time, and says how many. In hundredths, and with a half added, the
// sums are whole numbers of 16 bits: x 5243 / 2^19 is their division by 100, and one with no rest stood at a half.
int greyByFours([[maybe_unused]] std::uint32_t* row, [[maybe_unused]] int width,
                [[maybe_unused]] const GreyTables& tables) {
  int x = 0;
#ifdef __SSE2__
  const __m128i lowBytes = _mm_set1_epi32(0xFF), redAndBlue = _mm_set1_epi32(0x00FF00FF);
  const __m128i redAndBlueShares = _mm_set1_epi32(30 << 16 | 11), greenShare = _mm_set1_epi32(59);
  const __m128i half = _mm_set1_epi32(50), hundred = _mm_set1_epi32(100), hundredth = _mm_set1_epi32(5243);
  const __m128i byte3 = _mm_set1_epi32(static_cast<int>(~kColourBytes));
  for (; x + 4 <= width; x += 4) {
    auto* place = reinterpret_cast<__m128i*>(row + x);
    const __m128i p = _mm_loadu_si128(place);
    const __m128i green = _mm_and_si128(_mm_srli_epi32(p, 8), lowBytes);
    const __m128i sum = _mm_add_epi32(_mm_add_epi32(_mm_madd_epi16(_mm_and_si128(p, redAndBlue), redAndBlueShares),
                                                    _mm_madd_epi16(green, greenShare)),
                                      half);
    const __m128i grey = _mm_srli_epi32(_mm_mulhi_epu16(sum, hundredth), 3);
    if (_mm_movemask_epi8(_mm_cmpeq_epi32(_mm_mullo_epi16(grey, hundred), sum)) != 0) {
      for (std::uint32_t* one = row + x; one < row + x + 4; ++one) *one = recoloured(*one, tables.of(*one));
    } else {
      const __m128i greenAndRed = _mm_or_si128(_mm_slli_epi32(grey, 8), _mm_slli_epi32(grey, 16));
      _mm_storeu_si128(place, _mm_or_si128(_mm_or_si128(_mm_and_si128(p, byte3), grey), greenAndRed));
    }
  }
#endif
  return x;
}

}  // namespace

bool clsDIBFilter::tone(clsDIB& Target, const ToneTables& tables, std::int64_t ExcludeColor) {
  if (!workable(Target)) return true;
  const Exclusion exclusion(ExcludeColor);
  return forRows(Target.DIBHeight(),
                 [&](int y) { tables.apply(words(Target.surface(), y), Target.DIBWidth(), exclusion); });
}

bool clsDIBFilter::BrightenDarken(clsDIB& Target, float Amount, std::int64_t ExcludeColor) {
  if (Amount == 0) return true;
  const double multiplier = 1 + Amount;
  return tone(Target, ToneTables(byteTable([&](int c) { return roundToByte(c * multiplier); })), ExcludeColor);
}

bool clsDIBFilter::Contrast(clsDIB& Target, float Factor, int BrightnessOffset, std::int64_t ExcludeColor) {
  const auto channel = [&](int c) {
    double value = c;
    if (Factor != 1) value = std::nearbyint((c - 128) * static_cast<double>(Factor) + 128.0);
    return roundToByte(value + BrightnessOffset);
  };
  return tone(Target, ToneTables(byteTable(channel)), ExcludeColor);
}

bool clsDIBFilter::Gamma(clsDIB& Target, double Value, std::int64_t ExcludeColor) {
  if (!(Value > 0)) return true;
  const auto channel = [&](int c) { return roundToByte(255 * std::pow(c / 255.0, 1 / Value)); };
  return tone(Target, ToneTables(byteTable(channel)), ExcludeColor);
}

bool clsDIBFilter::Fade(clsDIB& Target, int Percent, std::int64_t ExcludeColor) {
  const double f = std::min(100.0, std::abs(static_cast<double>(Percent))) / 100;
  const int level = Percent < 0 ? 0 : roundToInt(f * 255);
  return tone(Target, ToneTables(byteTable([&](int c) { return roundToByte(c * (1 - f) + level); })), ExcludeColor);
}

bool clsDIBFilter::Negative(clsDIB& Target, std::int64_t ExcludeColor) {
  if (ExcludeColor < 0) {
    if (!workable(Target)) return true;
    return forRows(Target.DIBHeight(), [&](int y) { invert(words(Target.surface(), y), Target.DIBWidth()); });
  }
  return tone(Target, ToneTables(byteTable([](int c) { return static_cast<std::uint8_t>(255 - c); })), ExcludeColor);
}

bool clsDIBFilter::AdjustElement(clsDIB& Target, Element Which, int Amount, std::int64_t ExcludeColor) {
  const ByteTable same = byteTable([](int c) { return static_cast<std::uint8_t>(c); });
  const ByteTable moved = byteTable([&](int c) { return clampToByte(c + std::clamp(Amount, -255, 255)); });
  const auto of = [&](Element element) { return element == Which ? moved : same; };
  return tone(Target, ToneTables(of(Element::Blue), of(Element::Green), of(Element::Red)), ExcludeColor);
}

bool clsDIBFilter::Grayscale(clsDIB& Target, std::int64_t ExcludeColor) {
  if (!workable(Target)) return true;
  const GreyTables tables;
  const Exclusion exclusion(ExcludeColor);
  return forRows(Target.DIBHeight(), [&](int y) {
    std::uint32_t* row = words(Target.surface(), y);
    const int done = exclusion.none() ? greyByFours(row, Target.DIBWidth(), tables) : 0;
    recolourRow(row, done, Target.DIBWidth(), exclusion, [&](std::uint32_t p) { return tables.of(p); });
  });
}

}  // namespace ruvo
