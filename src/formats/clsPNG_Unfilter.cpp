#include "formats/clsPNG_Unfilter.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace ruvo::png {
namespace {

// Copies a row, red and blue exchanged or not.
void copyRow(const std::uint8_t* from, std::uint8_t* to, std::size_t count, int pixelBytes, Order order) {
  if (order == Order::AsIs) {
    std::memcpy(to, from, count);
    return;
  }
  const auto step = static_cast<std::size_t>(pixelBytes);
  for (std::size_t i = 0; i + step <= count; i += step) {
    to[i] = from[i + 2];
    to[i + 1] = from[i + 1];
    to[i + 2] = from[i];
    if (step == 4) to[i + 3] = from[i + 3];
  }
}

int paeth(int a, int b, int c) {
  const int toA = std::abs(b - c), toB = std::abs(a - c), toC = std::abs(a + b - 2 * c);
  return toA <= toB && toA <= toC ? a : toB <= toC ? b : c;
}

template <int Bytes>
void undo(int type, std::uint8_t* row, const std::uint8_t* prior, std::size_t count) {
  const auto add = [](std::uint8_t& to, int value) { to = static_cast<std::uint8_t>(to + value); };
  const std::size_t first = std::min<std::size_t>(Bytes, count);
  switch (type) {
    case 1:
      for (std::size_t i = Bytes; i < count; ++i) add(row[i], row[i - Bytes]);
      break;
    case 2:
      for (std::size_t i = 0; i < count; ++i) add(row[i], prior[i]);
      break;
    case 3:
      for (std::size_t i = 0; i < first; ++i) add(row[i], prior[i] / 2);
      for (std::size_t i = Bytes; i < count; ++i) add(row[i], (row[i - Bytes] + prior[i]) / 2);
      break;
    case 4:
      for (std::size_t i = 0; i < first; ++i) add(row[i], prior[i]);
      for (std::size_t i = Bytes; i < count; ++i) add(row[i], paeth(row[i - Bytes], prior[i], prior[i - Bytes]));
      break;
    default:
      break;
  }
}

// Zeros in place of the row above the first one.
const std::uint8_t* orZeros(const std::uint8_t* prior, std::size_t count, std::vector<std::uint8_t>& zeros) {
  if (prior) return prior;
  zeros.assign(count, 0);
  return zeros.data();
}

}  // namespace

void unfilterPlainly(int type, const std::uint8_t* from, const std::uint8_t* prior, std::uint8_t* to, std::size_t count,
                     int pixelBytes, Order order) {
  std::vector<std::uint8_t> zeros;
  copyRow(from, to, count, pixelBytes, order);
  if (type < 1 || type > 4) return;
  prior = orZeros(prior, count, zeros);
  switch (pixelBytes) {
    case 1:
      return undo<1>(type, to, prior, count);
    case 2:
      return undo<2>(type, to, prior, count);
    case 3:
      return undo<3>(type, to, prior, count);
    case 4:
      return undo<4>(type, to, prior, count);
    case 6:
      return undo<6>(type, to, prior, count);
    default:
      return undo<8>(type, to, prior, count);
  }
}

#ifdef __SSE2__
namespace {

// A pixel of three or four bytes at a time. Three-byte pixels are handled as four, of which the fourth does not matter,
// but for the last one of a row.

template <int Bytes, bool Exchange>
std::uint32_t inOrder(std::uint32_t pixel) {
  if constexpr (!Exchange) return pixel;
  const std::uint32_t turned = __builtin_bswap32(pixel);
  return Bytes == 3 ? turned >> 8 : turned >> 8 | turned << 24;
}

template <int Bytes>
std::uint32_t load(const std::uint8_t* from) {
  std::uint32_t pixel = 0;
  std::memcpy(&pixel, from, Bytes);
  return pixel;
}

struct Sub {
  __m128i left = _mm_setzero_si128();
  __m128i operator()(__m128i raw, __m128i) { return left = _mm_add_epi8(raw, left); }
};

struct Average {
  __m128i left = _mm_setzero_si128();
  __m128i operator()(__m128i raw, __m128i above) {
    // The instruction rounds up.
    const __m128i odd = _mm_and_si128(_mm_xor_si128(left, above), _mm_set1_epi8(1));
    return left = _mm_add_epi8(raw, _mm_sub_epi8(_mm_avg_epu8(left, above), odd));
  }
};

// A pixel waits for the one on its left, so what counts is the length of the way from that one, a. With t = b - c, the
// rule of the standard comes down to where a lies among three bounds: for t >= 0
//   a >= b: a,   else a >= c - t/2: b,   else a > c - 2t: c,   else a
// and for t < 0 the same mirrored. Bounds and both sums are worked out before a is known, in 16-bit lanes.
struct Paeth {
  __m128i left = _mm_setzero_si128();
  __m128i corner = _mm_setzero_si128();
  __m128i operator()(__m128i raw, __m128i above) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i c = corner, b = _mm_unpacklo_epi8(above, zero);
    raw = _mm_unpacklo_epi8(raw, zero);
    const __m128i t = _mm_sub_epi16(b, c);
    const __m128i falling = _mm_srai_epi16(t, 15);  // -1 where t < 0: there "not above" takes the place of "at least"
    const __m128i one = _mm_andnot_si128(falling, _mm_set1_epi16(1));
    const __m128i half = _mm_srai_epi16(_mm_sub_epi16(t, falling), 1);
    const __m128i bound0 = _mm_sub_epi16(b, one);
    const __m128i bound1 = _mm_sub_epi16(_mm_sub_epi16(c, half), one);
    const __m128i bound2 = _mm_add_epi16(_mm_sub_epi16(_mm_sub_epi16(c, t), t), falling);
    const __m128i lower = _mm_add_epi8(raw, _mm_min_epi16(b, c));
    const __m128i change = _mm_xor_si128(lower, _mm_add_epi8(raw, _mm_max_epi16(b, c)));
    corner = b;
    // From here on a counts.
    const __m128i between = _mm_xor_si128(_mm_cmpgt_epi16(left, bound0), _mm_cmpgt_epi16(left, bound2));
    const __m128i bOrC = _mm_xor_si128(lower, _mm_and_si128(_mm_cmpgt_epi16(left, bound1), change));
    left = _mm_or_si128(_mm_and_si128(between, bOrC), _mm_andnot_si128(between, _mm_add_epi8(raw, left)));
    return _mm_packus_epi16(left, left);
  }
};

template <int Bytes, bool Exchange, typename Filter>
void walk(const std::uint8_t* from, const std::uint8_t* prior, std::uint8_t* to, std::size_t count) {
  Filter filter;
  const auto pixel = [&](std::uint32_t raw, std::uint32_t above) {
    const __m128i in = _mm_cvtsi32_si128(static_cast<int>(inOrder<Bytes, Exchange>(raw)));
    return _mm_cvtsi128_si32(filter(in, _mm_cvtsi32_si128(static_cast<int>(above))));
  };
  std::size_t i = 0;
  for (; i + 4 <= count; i += Bytes) {
    const std::int32_t out = pixel(load<4>(from + i), load<4>(prior + i));
    std::memcpy(to + i, &out, 4);
  }
  if (Bytes == 4 || i >= count) return;
  const std::int32_t out = pixel(load<3>(from + i), load<3>(prior + i));
  std::memcpy(to + i, &out, 3);
}

template <int Bytes, bool Exchange>
void unfilterPixels(int type, const std::uint8_t* from, const std::uint8_t* prior, std::uint8_t* to,
                    std::size_t count) {
  // Sub does not look at the row above; any bytes will do.
  if (type == 1) return walk<Bytes, Exchange, Sub>(from, from, to, count);
  if (type == 3) return walk<Bytes, Exchange, Average>(from, prior, to, count);
  walk<Bytes, Exchange, Paeth>(from, prior, to, count);
}

}  // namespace

void unfilter(int type, const std::uint8_t* from, const std::uint8_t* prior, std::uint8_t* to, std::size_t count,
              int pixelBytes, Order order) {
  // Below nothing Paeth always predicts the byte on the left.
  if (type == 4 && !prior) type = 1;
  const bool worthIt = (pixelBytes == 3 || pixelBytes == 4) && (type == 1 || (prior && (type == 3 || type == 4)));
  if (!worthIt) return unfilterPlainly(type, from, prior, to, count, pixelBytes, order);
  const bool exchange = order == Order::RedBlueExchanged;
  const auto walker = pixelBytes == 3 ? (exchange ? unfilterPixels<3, true> : unfilterPixels<3, false>)
                                      : (exchange ? unfilterPixels<4, true> : unfilterPixels<4, false>);
  walker(type, from, prior, to, count);
}
#else
void unfilter(int type, const std::uint8_t* from, const std::uint8_t* prior, std::uint8_t* to, std::size_t count,
              int pixelBytes, Order order) {
  unfilterPlainly(type, from, prior, to, count, pixelBytes, order);
}
#endif

}  // namespace ruvo::png
