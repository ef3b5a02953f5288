#include "formats/inflate_tables.h"

#include <algorithm>
#include <memory>

namespace ruvo::inflate {
namespace {

struct Base {
  std::uint16_t value;
  std::uint8_t extra;
};
constexpr Base kLengths[] = {{3, 0},   {4, 0},   {5, 0},   {6, 0},   {7, 0},  {8, 0},  {9, 0},  {10, 0},
                             {11, 1},  {13, 1},  {15, 1},  {17, 1},  {19, 2}, {23, 2}, {27, 2}, {31, 2},
                             {35, 3},  {43, 3},  {51, 3},  {59, 3},  {67, 4}, {83, 4}, {99, 4}, {115, 4},
                             {131, 5}, {163, 5}, {195, 5}, {227, 5}, {258, 0}};
constexpr Base kDistances[] = {{1, 0},     {2, 0},     {3, 0},     {4, 0},      {5, 1},      {7, 1},
                               {9, 2},     {13, 2},    {17, 3},    {25, 3},     {33, 4},     {49, 4},
                               {65, 5},    {97, 5},    {129, 6},   {193, 6},    {257, 7},    {385, 7},
                               {513, 8},   {769, 8},   {1025, 9},  {1537, 9},   {2049, 10},  {3073, 10},
                               {4097, 11}, {6145, 11}, {8193, 12}, {12289, 12}, {16385, 13}, {24577, 13}};

Entry baseEntry(std::span<const Base> bases, int index, int bits) {
  if (index >= static_cast<int>(bases.size())) return kNoCode;
  const Base base = bases[static_cast<std::size_t>(index)];
  return static_cast<Entry>(base.value) << 16 | static_cast<Entry>(bits) << 8 | static_cast<Entry>(bits + base.extra);
}

// The entry of a symbol whose code takes `bits` bits of this table.
Entry entryOf(Meaning meaning, int symbol, int bits) {
  const Entry plain = static_cast<Entry>(symbol) << 16 | static_cast<Entry>(bits);
  switch (meaning) {
    case Meaning::Plain:
      return plain;
    case Meaning::Distance:
      return baseEntry(kDistances, symbol, bits);
    case Meaning::LiteralOrLength:
      if (symbol < kEndOfBlock) return plain | kLiteral;
      if (symbol == kEndOfBlock) return kSpecial | kBlockEnd | static_cast<Entry>(bits);
      return baseEntry(kLengths, symbol - kEndOfBlock - 1, bits);
  }
  return kNoCode;
}

std::uint32_t reversed(std::uint32_t code, int bits) {
  std::uint32_t out = 0;
  for (int i = 0; i < bits; ++i) out |= (code >> i & 1) << (bits - 1 - i);
  return out;
}

struct Code {
  std::uint16_t symbol;
  std::uint16_t bits;
  std::uint32_t pattern;  // as the stream's low bits show it
};

struct CodeList {
  std::array<Code, kLiteralSymbols> codes;  // in canonical order: by bits, then by symbol
  int count = 0;
};

bool listCodes(std::span<const std::uint8_t> lengths, CodeList& list) {
  std::array<int, kMaxCodeBits + 1> number{};
  for (const std::uint8_t bits : lengths) ++number[bits];
  number[0] = 0;
  std::array<int, kMaxCodeBits + 2> place{};
  std::array<std::uint32_t, kMaxCodeBits + 2> next{};
  int left = 1;
  for (int bits = 1; bits <= kMaxCodeBits; ++bits) {
    left = 2 * left - number[bits];
    if (left < 0) return false;
    place[bits + 1] = place[bits] + number[bits];
    next[bits + 1] = (next[bits] + static_cast<std::uint32_t>(number[bits])) << 1;
  }
  list.count = place[kMaxCodeBits + 1];
  for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
    const int bits = lengths[symbol];
    if (bits == 0) continue;
    list.codes[place[bits]++] = {static_cast<std::uint16_t>(symbol), static_cast<std::uint16_t>(bits),
                                 reversed(next[bits]++, bits)};
  }
  return true;
}

// A second table for the codes [from, to), which share their first `rootBits` bits; the last one is the longest.
void addSecondTable(std::span<Entry> table, std::size_t& used, int rootBits, std::span<const Code> codes,
                    Meaning meaning) {
  const int bits = codes.back().bits - rootBits;
  const std::size_t size = std::size_t{1} << bits;
  const auto second = table.subspan(used, size);
  std::fill(second.begin(), second.end(), kNoCode);
  for (const Code& code : codes) {
    const int own = code.bits - rootBits;
    for (std::size_t at = code.pattern >> rootBits; at < size; at += std::size_t{1} << own) {
      second[at] = entryOf(meaning, code.symbol, own);
    }
  }
  table[codes.front().pattern & ((1u << rootBits) - 1)] = kSpecial | kSecondTable | static_cast<Entry>(used) << 16 |
                                                          static_cast<Entry>(bits) << 8 | static_cast<Entry>(rootBits);
  used += size;
}

}  // namespace

bool build(std::span<Entry> table, int rootBits, std::span<const std::uint8_t> lengths, Meaning meaning) {
  CodeList list;
  if (!listCodes(lengths, list)) return false;
  // A code of n bits decides the entries that agree in the low n bits: the table for n bits is that for n - 1 twice,
  // and the codes of n bits on top.
  int i = 0;
  std::size_t size = 1;
  table[0] = kNoCode;
  for (int bits = 1; bits <= rootBits; ++bits, size *= 2) {
    std::copy_n(table.begin(), size, table.begin() + static_cast<std::ptrdiff_t>(size));
    for (; i < list.count && list.codes[i].bits == bits; ++i) {
      table[list.codes[i].pattern] = entryOf(meaning, list.codes[i].symbol, bits);
    }
  }
  const std::uint32_t rootMask = (1u << rootBits) - 1;
  while (i < list.count) {
    int end = i + 1;
    while (end < list.count && ((list.codes[end].pattern ^ list.codes[i].pattern) & rootMask) == 0) ++end;
    addSecondTable(table, size, rootBits, std::span(list.codes).subspan(i, end - i), meaning);
    i = end;
  }
  return true;
}

void pairLiterals(BlockTables& tables) {
  for (std::size_t i = 0; i < tables.pairs.size(); ++i) {
    const Entry first = tables.literals[i];
    if ((first & kLiteral) == 0) {
      tables.pairs[i] = first;
      continue;
    }
    const int bits = dropBits(first);
    const Entry second = tables.literals[i >> bits];
    // The bits of the second code must all be among those of the index.
    const bool fits = (second & kLiteral) != 0 && bits + dropBits(second) <= kLiteralRoot;
    tables.pairs[i] = kLiteral | (valueOf(first) & 0xFF) << 8 | static_cast<Entry>(bits);
    if (fits) tables.pairs[i] += kTwoLiterals + ((valueOf(second) & 0xFF) << 16) + static_cast<Entry>(dropBits(second));
  }
}

const BlockTables& fixedTables() {
  static const std::unique_ptr<const BlockTables> tables = [] {
    auto made = std::make_unique<BlockTables>();
    std::array<std::uint8_t, kLiteralSymbols> lengths;
    for (int i = 0; i < kLiteralSymbols; ++i) {
      lengths[i] = static_cast<std::uint8_t>(i < 144 ? 8 : i < 256 ? 9 : i < 280 ? 7 : 8);
    }
    build(made->literals, kLiteralRoot, lengths, Meaning::LiteralOrLength);
    std::array<std::uint8_t, kDistanceSymbols> distances;
    distances.fill(5);
    build(made->distances, kDistanceRoot, distances, Meaning::Distance);
    pairLiterals(*made);
    return made;
  }();
  return *tables;
}

}  // namespace ruvo::inflate
