#include "formats/clsJPG_Scan.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

namespace ruvo::jpg {
namespace {

constexpr int kEndOfBlock = 0x00;
constexpr int kSixteenZeros = 0xF0;

// Calls visit(component, block) in the order of the scan; the block is null where there is none.
template <typename Visit>
void forEachBlock(const Picture& picture, Visit&& visit) {
  // A scan of one component has single blocks for MCUs, whatever its sampling factors.
  if (picture.components.size() == 1) {
    for (const CodedBlock& block : picture.components[0].blocks) visit(0, &block);
    return;
  }
  int mcusWide = 0, mcusHigh = 0;
  for (const Component& c : picture.components) {
    mcusWide = std::max(mcusWide, (c.blocksWide + c.h - 1) / c.h);
    mcusHigh = std::max(mcusHigh, (c.blocksHigh + c.v - 1) / c.v);
  }
  for (int my = 0; my < mcusHigh; ++my) {
    for (int mx = 0; mx < mcusWide; ++mx) {
      for (std::size_t i = 0; i < picture.components.size(); ++i) {
        const Component& c = picture.components[i];
        for (int y = my * c.v; y < (my + 1) * c.v; ++y) {
          for (int x = mx * c.h; x < (mx + 1) * c.h; ++x) {
            const bool exists = x < c.blocksWide && y < c.blocksHigh;
            visit(i, exists ? &c.blocks[static_cast<std::size_t>(y) * c.blocksWide + x] : nullptr);
          }
        }
      }
    }
  }
}

int sizeOf(int level) {
  return std::bit_width(static_cast<unsigned>(std::abs(level)));
}
// The bits that follow the symbol: those of the level, or of its complement below zero.
std::uint32_t extraBits(int level, int size) {
  return static_cast<std::uint32_t>(level + (level >> 31)) & ((1u << size) - 1);
}

// Calls put(symbol, level, size) for each AC symbol of a block.
template <typename Put>
void forEachAcSymbol(const CodedBlock& block, const std::int16_t* levels, Put&& put) {
  const std::int16_t* level = levels + block.first;
  int last = 0;
  for (std::uint64_t mask = block.mask; mask != 0; mask &= mask - 1) {
    const int k = std::countr_zero(mask);
    int run = k - last - 1;
    for (; run > 15; run -= 16) put(kSixteenZeros, 0, 0);
    const int size = sizeOf(*level);
    put(run << 4 | size, *level++, size);
    last = k;
  }
  if (last != kBlockSize - 1) put(kEndOfBlock, 0, 0);
}

// Puts bits into bytes, the highest first, and a zero byte behind each FF.
class BitWriter {
 public:
  explicit BitWriter(std::uint8_t* to) : to_(to) {}

  // At most 27 bits.
  void put(std::uint32_t bits, int count) {
    held_ = held_ << count | bits;
    count_ += count;
    if (count_ >= 32) writeWord();
  }
  // Fills the last byte with ones.
  std::uint8_t* finish() {
    put(0x7F, 7);
    for (; count_ >= 8; count_ -= 8) writeByte(static_cast<std::uint8_t>(held_ >> (count_ - 8)));
    return to_;
  }

 private:
  void writeWord() {
    count_ -= 32;
    const auto word = static_cast<std::uint32_t>(held_ >> count_);
    // Some byte of the word is FF when its complement has a zero byte.
    const bool stuffs = ((~word - 0x01010101u) & word & 0x80808080u) != 0;
    for (int shift = 24; shift >= 0; shift -= 8) {
      const auto byte = static_cast<std::uint8_t>(word >> shift);
      *to_++ = byte;
      if (stuffs && byte == 0xFF) *to_++ = 0;
    }
  }
  void writeByte(std::uint8_t byte) {
    *to_++ = byte;
    if (byte == 0xFF) *to_++ = 0;
  }

  std::uint8_t* to_;
  std::uint64_t held_ = 0;
  int count_ = 0;
};

}  // namespace

void Component::append(const Levels& block) {
  CodedBlock coded;
  coded.mask = zigzagMask(block) & ~std::uint64_t{1};
  coded.first = static_cast<std::uint32_t>(levels.size());
  coded.dc = block.at[0];
  std::int16_t found[kBlockSize];
  std::size_t count = 0;
  for (std::uint64_t mask = coded.mask; mask != 0; mask &= mask - 1) {
    found[count++] = block.at[kPlaceOfZigzag[static_cast<std::size_t>(std::countr_zero(mask))]];
  }
  levels.insert(levels.end(), found, found + count);
  blocks.push_back(coded);
}

std::array<CodeTables, 2> Scan::makeTables() {
  std::array<SymbolCounts, 2> dcCounts{}, acCounts{};
  std::array<int, 3> lastDc{};
  bits_ = 0;
  forEachBlock(picture_, [&](std::size_t i, const CodedBlock* block) {
    const Component& c = picture_.components[i];
    const int tables = c.tables;
    if (!block) {
      ++dcCounts[tables][0];
      ++acCounts[tables][kEndOfBlock];
      return;
    }
    const int size = sizeOf(block->dc - lastDc[i]);
    lastDc[i] = block->dc;
    ++dcCounts[tables][size];
    forEachAcSymbol(*block, c.levels.data(), [&](int symbol, int, int) { ++acCounts[tables][symbol]; });
  });

  std::array<CodeTables, 2> made;
  for (int i = 0; i < picture_.tableCount(); ++i) {
    made[i] = {huffmanTable(dcCounts[i]), huffmanTable(acCounts[i])};
    for (std::size_t symbol = 0; symbol < 256; ++symbol) {
      bits_ += std::uint64_t{dcCounts[i][symbol]} * (made[i].dc.lengths[symbol] + symbol);
      bits_ += std::uint64_t{acCounts[i][symbol]} * (made[i].ac.lengths[symbol] + (symbol & 15));
    }
  }
  return made;
}

std::size_t Scan::byteLimit() const {
  return static_cast<std::size_t>(bits_ / 8 + 1) * 2;
}

std::uint8_t* Scan::write(const std::array<CodeTables, 2>& tables, std::uint8_t* to) const {
  BitWriter out(to);
  std::array<int, 3> lastDc{};
  const auto put = [&](const HuffmanTable& table, int symbol, int level, int size) {
    out.put(static_cast<std::uint32_t>(table.codes[symbol]) << size | extraBits(level, size),
            table.lengths[symbol] + size);
  };
  forEachBlock(picture_, [&](std::size_t i, const CodedBlock* block) {
    const Component& c = picture_.components[i];
    const CodeTables& codes = tables[c.tables];
    const int difference = block ? block->dc - lastDc[i] : 0;
    lastDc[i] += difference;
    put(codes.dc, sizeOf(difference), difference, sizeOf(difference));
    if (!block) return put(codes.ac, kEndOfBlock, 0, 0);
    forEachAcSymbol(*block, c.levels.data(),
                    [&](int symbol, int level, int size) { put(codes.ac, symbol, level, size); });
  });
  return out.finish();
}

}  // namespace ruvo::jpg
