#include "formats/clsJPG_Tables.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "formats/clsJPG.h"

namespace ruvo::jpg {
namespace {

using Values = std::array<std::uint8_t, kBlockSize>;

// Tables K.1 and K.2, in zigzag order.
constexpr Values kLuminance = {16, 11, 12,  14,  12,  10, 16, 14,  13,  14,  18,  17,  16, 19,  24,  40,
                               26, 24, 22,  22,  24,  49, 35, 37,  29,  40,  58,  51,  61, 60,  57,  51,
                               56, 55, 64,  72,  92,  78, 64, 68,  87,  69,  55,  56,  80, 109, 81,  87,
                               95, 98, 103, 104, 103, 62, 77, 113, 121, 112, 100, 120, 92, 101, 103, 99};
constexpr Values kChrominance = {17, 18, 18, 24, 21, 24, 47, 26, 26, 47, 99, 66, 56, 66, 99, 99, 99, 99, 99, 99, 99, 99,
                                 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99,
                                 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99};

// What the lifting network leaves to be made up for at each frequency of one axis.
constexpr double kGains[kBlockSide] = {0.353553, 0.353553, 0.541196, 0.5, 0.707107, 0.5, 0.461940, 0.707107};
constexpr int kGainBits = 17;

std::int32_t gainAt(std::size_t place) {
  const double gain = kGains[place / kBlockSide] * kGains[place % kBlockSide];
  return static_cast<std::int32_t>(std::lround(std::ldexp(gain, kGainBits)));
}

int largestValue(int precision) {
  if (precision == 8) return 255;
  if (precision == 12) return 65535;
  throw JpgError(kIllegalPrecision);
}

constexpr int kLongestCode = 16;

// Code lengths of the symbols, K.2 figure K.1. Symbol 256 has the count 1 and gets the longest code, which is then
// given to nobody: so no code is all ones.
std::array<int, 257> codeSizes(const SymbolCounts& counts) {
  std::array<std::uint64_t, 257> frequency{};
  std::copy(counts.begin(), counts.end(), frequency.begin());
  frequency[256] = 1;
  std::array<int, 257> sizes{};
  std::array<int, 257> next;
  next.fill(-1);
  // The least of those that are left; of equal ones the last.
  const auto least = [&](int except) {
    int found = -1;
    for (int i = 0; i < 257; ++i) {
      if (frequency[i] == 0 || i == except) continue;
      if (found < 0 || frequency[i] <= frequency[found]) found = i;
    }
    return found;
  };
  for (;;) {
    const int first = least(-1);
    const int second = least(first);
    if (second < 0) return sizes;
    frequency[first] += frequency[second];
    frequency[second] = 0;
    int tail = first;
    for (++sizes[tail]; next[tail] >= 0; ++sizes[tail]) tail = next[tail];
    next[tail] = second;
    for (tail = second;; tail = next[tail]) {
      ++sizes[tail];
      if (next[tail] < 0) break;
    }
  }
}

// Figure K.3: of two codes that are too long, one takes its parent's place and the other joins a shorter one.
void limitLengths(std::array<int, 258>& bits) {
  for (int length = 256; length > kLongestCode;) {
    if (bits[length] == 0) {
      --length;
      continue;
    }
    int shorter = length - 2;
    while (bits[shorter] == 0) --shorter;
    bits[length] -= 2;
    bits[length - 1] += 1;
    bits[shorter + 1] += 2;
    bits[shorter] -= 1;
  }
}

}  // namespace

void setDivisors(QuantTable& table, int precision) {
  const int largest = largestValue(precision);
  for (std::size_t k = 0; k < kBlockSize; ++k) {
    const std::int32_t value = table.values[k];
    if (value < 1 || value > largest) throw JpgError(kBadQuantizationTable);
    const std::size_t place = kPlaceOfZigzag[k];
    table.divisors[place] = (gainAt(place) + value / 2) / value;
  }
}

QuantTable quantTable(TableKind kind, int quality, int precision) {
  const Values& base = kind == TableKind::Luminance ? kLuminance : kChrominance;
  const int scale = quality < 50 ? 5000 / quality : (100 - quality) * 2;
  const int largest = largestValue(precision);
  QuantTable table;
  for (std::size_t k = 0; k < kBlockSize; ++k) {
    table.values[k] = static_cast<std::uint16_t>(std::clamp((base[k] * scale + 50) / 100, 1, largest));
  }
  setDivisors(table, precision);
  return table;
}

HuffmanTable huffmanTable(const SymbolCounts& counts) {
  const std::array<int, 257> sizes = codeSizes(counts);
  std::array<int, 258> bits{};
  for (const int size : sizes) {
    if (size > 0) ++bits[size];
  }
  limitLengths(bits);
  int longest = kLongestCode;
  while (longest > 0 && bits[longest] == 0) --longest;
  if (longest == 0) throw JpgError(kBadHuffmanTable);
  --bits[longest];  // the code that is given to nobody

  HuffmanTable table;
  for (int length = 1; length <= kLongestCode; ++length) {
    table.lengthCounts[length] = static_cast<std::uint8_t>(bits[length]);
  }
  // Figure K.4: by the lengths before the limit, which keep their order.
  std::vector<int> order(256);
  std::iota(order.begin(), order.end(), 0);
  std::erase_if(order, [&](int symbol) { return sizes[symbol] == 0; });
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return sizes[a] < sizes[b]; });
  table.symbols.assign(order.begin(), order.end());
  setCodes(table);
  return table;
}

void setCodes(HuffmanTable& table) {
  table.codes.fill(0);
  table.lengths.fill(0);
  std::size_t symbol = 0;
  std::uint32_t code = 0;
  for (int length = 1; length <= kLongestCode; ++length, code <<= 1) {
    for (int i = 0; i < table.lengthCounts[length]; ++i, ++code, ++symbol) {
      const bool fits = code + 1 < 1u << length && symbol < table.symbols.size() && symbol < table.lengths.size();
      if (!fits) throw JpgError(kBadHuffmanTable);
      table.codes[table.symbols[symbol]] = static_cast<std::uint16_t>(code);
      table.lengths[table.symbols[symbol]] = static_cast<std::uint8_t>(length);
    }
  }
  if (symbol == 0 || symbol != table.symbols.size()) throw JpgError(kBadHuffmanTable);
}

}  // namespace ruvo::jpg
