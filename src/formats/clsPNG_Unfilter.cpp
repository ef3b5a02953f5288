#include "formats/clsPNG_Unfilter.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

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

void unfilter(int type, const std::uint8_t* from, const std::uint8_t* prior, std::uint8_t* to, std::size_t count,
              int pixelBytes, Order order) {
  unfilterPlainly(type, from, prior, to, count, pixelBytes, order);
}

}  // namespace ruvo::png
