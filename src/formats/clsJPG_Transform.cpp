#include "formats/clsJPG_Transform.h"

#include <array>
#include <cstring>

namespace ruvo::jpg {
namespace {

// Four columns that take the same steps; compilers of the GNU family turn this into one register.
using Lanes = std::int32_t __attribute__((vector_size(16)));

// x / 2^bits, towards zero.
template <int bits>
Lanes quotient(Lanes x) {
  return (x + ((x >> 31) & ((1 << bits) - 1))) >> bits;
}

// One axis of the transform, on rows x[0], x[stride], ... Each rotation is three lifting steps whose factors are sums
// of powers of two.
void lift(Lanes* x, std::ptrdiff_t stride) {
  const auto in = [&](int i) { return x[i * stride]; };
  const auto out = [&](int i) -> Lanes& { return x[i * stride]; };
  const Lanes a = in(0) + in(7), b = in(1) + in(6), c = in(2) + in(5), d = in(3) + in(4);
  const Lanes e = in(0) - in(7), f = in(1) - in(6), g = in(2) - in(5), h = in(3) - in(4);

  const Lanes sum = a + b + c + d;
  const Lanes ad = a - d;
  const Lanes t = quotient<3>(ad) + quotient<5>(ad) + quotient<2>(ad) + (c - b);
  const Lanes u = ad - quotient<4>(t) - quotient<5>(t) - quotient<2>(t);
  out(0) = sum;
  out(4) = quotient<1>(sum) - (b + c);
  out(6) = t;
  out(2) = u;

  const Lanes s = e - quotient<5>(h) - quotient<6>(h) - quotient<2>(h);
  const Lanes v = quotient<1>(s) + h + quotient<4>(s);
  const Lanes w = s - quotient<5>(v) - quotient<6>(v) - quotient<2>(v);
  const Lanes p = f - quotient<5>(g) - quotient<4>(g);
  const Lanes q = quotient<4>(p) + quotient<3>(p) + g;
  const Lanes r = p - quotient<4>(q) - quotient<5>(q);
  const Lanes first = q + (v + r) + w;
  out(1) = first;
  out(3) = w - q;
  out(5) = v - r;
  out(7) = quotient<1>(first) - (v + r);
}

// Rows of a quarter of the block become columns.
void transposeQuarter(const Lanes* from, Lanes* to) {
  const Lanes low01 = __builtin_shufflevector(from[0], from[2], 0, 4, 1, 5);
  const Lanes high01 = __builtin_shufflevector(from[0], from[2], 2, 6, 3, 7);
  const Lanes low23 = __builtin_shufflevector(from[4], from[6], 0, 4, 1, 5);
  const Lanes high23 = __builtin_shufflevector(from[4], from[6], 2, 6, 3, 7);
  to[0] = __builtin_shufflevector(low01, low23, 0, 1, 4, 5);
  to[2] = __builtin_shufflevector(low01, low23, 2, 3, 6, 7);
  to[4] = __builtin_shufflevector(high01, high23, 0, 1, 4, 5);
  to[6] = __builtin_shufflevector(high01, high23, 2, 3, 6, 7);
}

// Weights of red, green and blue, and what centres the result; 65536 is one.
struct Weights {
  int red;
  int green;
  int blue;
  int offset;
};
constexpr Weights kWeights[] = {{19595, 38470, 7471, -8388608}, {-11059, -21709, 32768, 0}, {32768, -27439, -5329, 0}};

template <int channel>
void weigh(const Pixel32* pixels, std::ptrdiff_t stride, Block& block) {
  constexpr Weights w = kWeights[channel];
  for (int y = 0; y < kBlockSide; ++y) {
    std::uint32_t row[kBlockSide];
    std::memcpy(row, pixels + y * stride, sizeof row);
    for (int x = 0; x < kBlockSide; ++x) {
      const auto blue = static_cast<std::int32_t>(row[x] & 0xFF);
      const auto green = static_cast<std::int32_t>(row[x] >> 8 & 0xFF);
      const auto red = static_cast<std::int32_t>(row[x] >> 16 & 0xFF);
      block.at[y * kBlockSide + x] = red * w.red + green * w.green + blue * w.blue + w.offset;
    }
  }
}

using MaskOfByte = std::array<std::array<std::uint64_t, 256>, kBlockSide>;
// The zigzag bits of eight neighbouring places, by which of them are set.
constexpr MaskOfByte makeMasks() {
  std::array<std::uint8_t, kBlockSize> zigzag{};
  for (std::size_t k = 0; k < kBlockSize; ++k) zigzag[kPlaceOfZigzag[k]] = static_cast<std::uint8_t>(k);
  MaskOfByte masks{};
  for (std::size_t row = 0; row < kBlockSide; ++row) {
    for (std::size_t bits = 0; bits < 256; ++bits) {
      for (std::size_t i = 0; i < kBlockSide; ++i) {
        if (bits >> i & 1) masks[row][bits] |= std::uint64_t{1} << zigzag[row * kBlockSide + i];
      }
    }
  }
  return masks;
}
constexpr MaskOfByte kMasks = makeMasks();

}  // namespace

void samplesOf(Channel channel, const Pixel32* pixels, std::ptrdiff_t stride, Block& block) {
  switch (channel) {
    case Channel::Y:
      return weigh<0>(pixels, stride, block);
    case Channel::Cb:
      return weigh<1>(pixels, stride, block);
    case Channel::Cr:
      return weigh<2>(pixels, stride, block);
  }
}

void transform(Block& block) {
  Lanes rows[16], turned[16];
  std::memcpy(rows, block.at, sizeof rows);
  lift(rows, 2);
  lift(rows + 1, 2);
  transposeQuarter(rows, turned);
  transposeQuarter(rows + 1, turned + 8);
  transposeQuarter(rows + 8, turned + 1);
  transposeQuarter(rows + 9, turned + 9);
  lift(turned, 2);
  lift(turned + 1, 2);
  std::memcpy(block.at, turned, sizeof turned);
}

void quantise(const Block& block, const QuantTable& table, Levels& levels) {
  for (int i = 0; i < kBlockSize; ++i) {
    const std::int32_t coefficient = (block.at[i] + 16384) / 32768;
    levels.at[i] = static_cast<std::int16_t>((coefficient * table.divisors[i] + 131072) / 262144);
  }
}

std::uint64_t zigzagMask(const Levels& levels) {
  std::uint8_t set[kBlockSize];
  for (int i = 0; i < kBlockSize; ++i) set[i] = levels.at[i] != 0;
  std::uint64_t mask = 0;
  for (std::size_t row = 0; row < kBlockSide; ++row) {
    std::uint64_t eight = 0;
    for (int i = 0; i < kBlockSide; ++i) eight |= std::uint64_t{set[row * kBlockSide + i]} << 8 * i;
    // The product gathers the lowest bits of eight bytes in the highest byte.
    mask |= kMasks[row][eight * 0x0102040810204080 >> 56];
  }
  return mask;
}

}  // namespace ruvo::jpg
