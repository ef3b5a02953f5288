// The tables of the JPEG writer: quantisation (ISO 10918-1, K.1), the zigzag order (figure A.6) and Huffman codes made
// from counts (K.2). Their errors are JpgErrors with the words at the top.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace ruvo::jpg {

inline constexpr const char* kBadQuantizationTable = "Bad Quantization Table";
inline constexpr const char* kBadHuffmanTable = "Bad Huffman Table";
inline constexpr const char* kInvalidSamplingValue = "Invalid Sampling Value";
inline constexpr const char* kIllegalCommentLength = "Illegal Comment Length";
inline constexpr const char* kIllegalPrecision = "Illegal precision in Quantization Table";

inline constexpr int kBlockSide = 8;
inline constexpr int kBlockSize = 64;
inline constexpr int kSamplePrecision = 8;

// Where the coefficient of a zigzag place lies in a block as the transform leaves it: row = horizontal frequency,
// column = vertical frequency.
constexpr std::array<std::uint8_t, kBlockSize> placesOfZigzag() {
  std::array<std::uint8_t, kBlockSize> places{};
  std::size_t k = 0;
  for (int sum = 0; sum < 2 * kBlockSide - 1; ++sum) {
    for (int i = 0; i <= sum; ++i) {
      // Even diagonals go up and to the right.
      const int horizontal = sum % 2 == 0 ? i : sum - i;
      const int vertical = sum - horizontal;
      if (horizontal >= kBlockSide || vertical >= kBlockSide) continue;
      places[k++] = static_cast<std::uint8_t>(horizontal * kBlockSide + vertical);
    }
  }
  return places;
}
inline constexpr std::array<std::uint8_t, kBlockSize> kPlaceOfZigzag = placesOfZigzag();

enum class TableKind { Luminance, Chrominance };

struct QuantTable {
  std::array<std::uint16_t, kBlockSize> values{};   // zigzag order
  std::array<std::int32_t, kBlockSize> divisors{};  // in the transform's order
};
// Quality 1 to 100. Precision is 8 or 12; any other throws.
QuantTable quantTable(TableKind kind, int quality, int precision = kSamplePrecision);
// The divisors of the values. Throws for a value below 1 or above what the precision allows.
void setDivisors(QuantTable& table, int precision);

// How often each symbol occurs.
using SymbolCounts = std::array<std::uint32_t, 256>;

struct HuffmanTable {
  std::array<std::uint8_t, 17> lengthCounts{};  // [1] to [16]: codes of that length
  std::vector<std::uint8_t> symbols;            // by growing code length
  std::array<std::uint16_t, 256> codes{};
  std::array<std::uint8_t, 256> lengths{};  // 0: no such symbol
};
// No code is longer than 16 bits or all ones. Throws when nothing is counted.
HuffmanTable huffmanTable(const SymbolCounts& counts);
// Fills codes and lengths (Annex C). Throws for more than 256 symbols, or lengths that leave no room for their codes.
void setCodes(HuffmanTable& table);

}  // namespace ruvo::jpg
