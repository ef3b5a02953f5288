// The look-up tables of inflate: the canonical Huffman codes of RFC 1951, 3.2.2, and what each symbol stands for
// (3.2.5), folded into one word an entry.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace ruvo::inflate {

inline constexpr int kMaxCodeBits = 15;
inline constexpr int kLiteralSymbols = 288;
inline constexpr int kDistanceSymbols = 32;
inline constexpr int kPrecodeSymbols = 19;
inline constexpr int kEndOfBlock = 256;

// An entry:
//   bits 0-7    bits to drop: the code, and the extra bits that follow it
//   bits 8-11   bits of the code alone, or index bits of a second table
//   bit 15      neither literal nor base: a second table, the end of the block, or (with nothing else) no code at all
//   bits 16-30  literal, base value, or start of the second table
//   bit 31      literal
using Entry = std::uint32_t;
inline constexpr Entry kLiteral = 1u << 31;
inline constexpr Entry kSpecial = 1u << 15;
inline constexpr Entry kSecondTable = 1u << 14;
inline constexpr Entry kBlockEnd = 1u << 13;
inline constexpr Entry kNoCode = kSpecial;

constexpr int dropBits(Entry e) {
  return static_cast<int>(e & 0xFF);
}
constexpr int codeBits(Entry e) {
  return static_cast<int>(e >> 8 & 15);
}
constexpr std::uint32_t valueOf(Entry e) {
  return e >> 16 & 0x7FFF;
}

// What the symbols of a table stand for, code bits left out: entryOf() adds them.
enum class Meaning { LiteralOrLength, Distance, Plain };

// Fills `table`, of which the first 2^rootBits entries are looked up by the low bits of the stream and lead to further
// ones behind them where codes are longer. `lengths` holds the code bits of each symbol, 0 for none. False for lengths
// that promise more codes than there are; with fewer the spare codes are kNoCode.
bool build(std::span<Entry> table, int rootBits, std::span<const std::uint8_t> lengths, Meaning meaning);

// The room that build() can ever need: a second table may belong to a single code.
constexpr std::size_t roomFor(int rootBits, int symbols) {
  return (std::size_t{1} << rootBits) +
         static_cast<std::size_t>(symbols) * (std::size_t{1} << (kMaxCodeBits - rootBits));
}

inline constexpr int kLiteralRoot = 11;
inline constexpr int kDistanceRoot = 9;
inline constexpr int kPrecodeRoot = 7;

struct BlockTables {
  // The first table of `literals` with short literals two at a time: pairLiterals().
  std::array<Entry, std::size_t{1} << kLiteralRoot> pairs;
  std::array<Entry, roomFor(kLiteralRoot, kLiteralSymbols)> literals;
  std::array<Entry, roomFor(kDistanceRoot, kDistanceSymbols)> distances;
};

// An entry of `pairs` that is a literal:
//   bits 0-5    bits to drop
//   bit 6       there are two
//   bits 8-23   the literals, the first one lowest
//   bit 31      literal
inline constexpr Entry kTwoLiterals = 1u << 6;

void pairLiterals(BlockTables& tables);

// The tables of the fixed codes (3.2.6), made at the first call.
const BlockTables& fixedTables();

}  // namespace ruvo::inflate
