#include "platform/raster/pixel_rows.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace ruvo::raster {
namespace {

static_assert(std::endian::native == std::endian::little, "pixels are handled as little-endian words");

std::uint32_t word(const std::uint8_t* p) {
  std::uint32_t w;
  std::memcpy(&w, p, 4);
  return w;
}
void putWord(std::uint8_t* p, std::uint32_t w) {
  std::memcpy(p, &w, 4);
}

void unpack1(const std::uint8_t* row, int x, int count, std::uint8_t* out) {
  for (int i = 0; i < count; ++i, ++x) out[i] = (row[x >> 3] >> (7 - (x & 7))) & 1;
}
void unpack4(const std::uint8_t* row, int x, int count, std::uint8_t* out) {
  for (int i = 0; i < count; ++i, ++x) out[i] = (row[x >> 1] >> ((x & 1) ? 0 : 4)) & 15;
}
// The low bits of eight bytes, the first one highest. Byte i meets the factor's bit 63 - 9i and lands on bit 63 - i; no
// other pair of bits comes as high, and no two meet below.
std::uint8_t eightBits(const std::uint8_t* in) {
  std::uint64_t w;
  std::memcpy(&w, in, 8);
  return static_cast<std::uint8_t>((w & 0x0101010101010101) * 0x8040201008040201 >> 56);
}
void pack1(std::uint8_t* row, int x, int count, const std::uint8_t* in) {
  for (int i = 0; i < count;) {
    if ((x & 7) == 0 && count - i >= 8) {
      row[x >> 3] = eightBits(in + i);
      x += 8;
      i += 8;
      continue;
    }
    const int shift = 7 - (x & 7);
    row[x >> 3] = static_cast<std::uint8_t>((row[x >> 3] & ~(1 << shift)) | (in[i] & 1) << shift);
    ++x;
    ++i;
  }
}
void pack4(std::uint8_t* row, int x, int count, const std::uint8_t* in) {
  for (int i = 0; i < count; ++i, ++x) {
    const int shift = (x & 1) ? 0 : 4;
    row[x >> 1] = static_cast<std::uint8_t>((row[x >> 1] & ~(15 << shift)) | (in[i] & 15) << shift);
  }
}

// Four pixels a step: three words of one side are four words of the other.
void expand24(const std::uint8_t* from, std::uint8_t* to, int count) {
  int i = 0;
  for (; i + 4 <= count; i += 4, from += 12, to += 16) {
    const std::uint32_t a = word(from), b = word(from + 4), c = word(from + 8);
    putWord(to, a & 0xFFFFFF);
    putWord(to + 4, (a >> 24 | b << 8) & 0xFFFFFF);
    putWord(to + 8, (b >> 16 | c << 16) & 0xFFFFFF);
    putWord(to + 12, c >> 8);
  }
  for (; i < count; ++i, from += 3, to += 4) {
    to[0] = from[0];
    to[1] = from[1];
    to[2] = from[2];
    to[3] = 0;
  }
}
// The colours of two pixels side by side, in 48 bits.
std::uint64_t twoColours(const std::uint8_t* from) {
  std::uint64_t w;
  std::memcpy(&w, from, 8);
  return (w & 0xFFFFFF) | (w >> 8 & 0xFFFFFF000000);
}
void putLongWord(std::uint8_t* p, std::uint64_t w) {
  std::memcpy(p, &w, 8);
}
// Eight pixels a step: four long words become three.
void shrink32(const std::uint8_t* from, std::uint8_t* to, int count) {
  int i = 0;
  for (; i + 8 <= count; i += 8, from += 32, to += 24) {
    const std::uint64_t a = twoColours(from), b = twoColours(from + 8);
    const std::uint64_t c = twoColours(from + 16), d = twoColours(from + 24);
    putLongWord(to, a | b << 48);
    putLongWord(to + 8, b >> 16 | c << 32);
    putLongWord(to + 16, c >> 32 | d << 16);
  }
  for (; i < count; ++i, from += 4, to += 3) std::memcpy(to, from, 3);
}

template <typename F>
void combineWith(std::uint8_t* d, const std::uint8_t* s, std::size_t n, F f) {
  for (std::size_t i = 0; i < n; ++i) d[i] = static_cast<std::uint8_t>(f(s[i], d[i]));
}

// One call a row, so that each loop is a plain run over bytes.
void combine(Rop2 op, std::uint8_t* d, const std::uint8_t* s, std::size_t n) {
  switch (op) {
    case Rop2::Black:
      std::memset(d, 0, n);
      break;
    case Rop2::NotMergePen:
      combineWith(d, s, n, [](int p, int q) { return ~(p | q); });
      break;
    case Rop2::MaskNotPen:
      combineWith(d, s, n, [](int p, int q) { return ~p & q; });
      break;
    case Rop2::NotCopyPen:
      combineWith(d, s, n, [](int p, int) { return ~p; });
      break;
    case Rop2::MaskPenNot:
      combineWith(d, s, n, [](int p, int q) { return p & ~q; });
      break;
    case Rop2::Not:
      combineWith(d, s, n, [](int, int q) { return ~q; });
      break;
    case Rop2::XorPen:
      combineWith(d, s, n, [](int p, int q) { return p ^ q; });
      break;
    case Rop2::NotMaskPen:
      combineWith(d, s, n, [](int p, int q) { return ~(p & q); });
      break;
    case Rop2::MaskPen:
      combineWith(d, s, n, [](int p, int q) { return p & q; });
      break;
    case Rop2::NotXorPen:
      combineWith(d, s, n, [](int p, int q) { return ~(p ^ q); });
      break;
    case Rop2::Nop:
      break;
    case Rop2::MergeNotPen:
      combineWith(d, s, n, [](int p, int q) { return ~p | q; });
      break;
    case Rop2::CopyPen:
      std::memcpy(d, s, n);
      break;
    case Rop2::MergePenNot:
      combineWith(d, s, n, [](int p, int q) { return p | ~q; });
      break;
    case Rop2::MergePen:
      combineWith(d, s, n, [](int p, int q) { return p | q; });
      break;
    case Rop2::White:
      std::memset(d, 0xFF, n);
      break;
  }
}

bool sameTables(std::span<const TableEntry> a, std::span<const TableEntry> b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const TableEntry& x, const TableEntry& y) { return x.colour() == y.colour(); });
}

}  // namespace

const std::uint8_t* looseRow(const Surface& surface, int pictureRow, int x, int count, std::uint8_t* buffer) {
  const std::uint8_t* row = surface.pictureRow(pictureRow);
  switch (surface.depth()) {
    case 1:
      unpack1(row, x, count, buffer);
      return buffer;
    case 4:
      unpack4(row, x, count, buffer);
      return buffer;
    default:
      return row + static_cast<std::ptrdiff_t>(x) * looseBytes(surface.depth());
  }
}

RowConverter::RowConverter(int fromDepth, std::span<const TableEntry> fromTable, int toDepth,
                           std::span<const TableEntry> toTable, MatchRule rule)
    : fromBytes_(looseBytes(fromDepth)), toBytes_(looseBytes(toDepth)) {
  const bool fromIndex = fromDepth <= 8;
  const bool toIndex = toDepth <= 8;
  if (!fromIndex && !toIndex) {
    kind_ = fromDepth == toDepth ? Kind::Identity : toDepth == 32 ? Kind::To32 : Kind::To24;
  } else if (fromIndex && toIndex) {
    if (sameTables(fromTable, toTable)) return;
    kind_ = Kind::IndexToIndex;
    for (std::size_t i = 0; i < fromTable.size(); ++i) {
      indexMap_[i] = static_cast<std::uint8_t>(nearestPaletteIndex(toTable, fromTable[i].colour()));
    }
  } else if (fromIndex) {
    kind_ = toDepth == 32 ? Kind::IndexTo32 : Kind::IndexTo24;
    for (std::size_t i = 0; i < fromTable.size(); ++i) {
      const TableEntry& e = fromTable[i];
      colourMap_[i] = static_cast<std::uint32_t>(e.blue | e.green << 8 | e.red << 16);
    }
  } else {
    kind_ = Kind::DeepToIndex;
    coarse_ = toDepth == 8 && rule == MatchRule::Blit;
    matcher_ = PaletteMatcher(toTable);
    if (coarse_) coarseIndex_.assign(std::size_t{1} << 15, -1);
  }
}

void RowConverter::convert(const std::uint8_t* from, std::uint8_t* to, int count) {
  switch (kind_) {
    case Kind::Identity:
      std::memcpy(to, from, static_cast<std::size_t>(count) * fromBytes_);
      break;
    case Kind::IndexToIndex:
      for (int i = 0; i < count; ++i) to[i] = indexMap_[from[i]];
      break;
    case Kind::IndexTo32:
      for (int i = 0; i < count; ++i) putWord(to + 4 * static_cast<std::ptrdiff_t>(i), colourMap_[from[i]]);
      break;
    case Kind::IndexTo24:
      for (int i = 0; i < count; ++i, to += 3) std::memcpy(to, &colourMap_[from[i]], 3);
      break;
    case Kind::To32:
      expand24(from, to, count);
      break;
    case Kind::To24:
      shrink32(from, to, count);
      break;
    case Kind::DeepToIndex:
      deepToIndex(from, to, count);
      break;
  }
}

void RowConverter::deepToIndex(const std::uint8_t* from, std::uint8_t* to, int count) {
  // Neighbours are often equal; asking once a run keeps flat areas cheap.
  int last = -1;
  std::uint8_t lastIndex = 0;
  for (int i = 0; i < count; ++i, from += fromBytes_) {
    const int colour = from[0] | from[1] << 8 | from[2] << 16;
    if (colour != last) {
      last = colour;
      lastIndex =
          coarse_ ? coarseIndexOf(from) : static_cast<std::uint8_t>(matcher_.indexOf(from[2], from[1], from[0]));
    }
    to[i] = lastIndex;
  }
}

std::uint8_t RowConverter::coarseIndexOf(const std::uint8_t* pixel) {
  const auto middle = [](int channel) { return (channel & 0xF8) | 4; };
  std::int16_t& index =
      coarseIndex_[static_cast<std::size_t>(pixel[0] >> 3 | pixel[1] >> 3 << 5 | pixel[2] >> 3 << 10)];
  if (index < 0) {
    index = static_cast<std::int16_t>(matcher_.indexOf(middle(pixel[2]), middle(pixel[1]), middle(pixel[0])));
  }
  return static_cast<std::uint8_t>(index);
}

void RowStore::put(int x, int y, int count, const std::uint8_t* loose) {
  RUVO_BOUNDS(x >= 0 && count >= 0 && x + count <= surface_.width());
  if (surface_.depth() < 8) return putPacked(x, y, count, loose);
  std::uint8_t* to = direct(x, y);
  if (opaqueAlpha_ && op_ == Rop2::CopyPen) {
    // One pass over the pixels; long fills are as fast as the memory.
    for (std::ptrdiff_t i = 0; i < 4 * static_cast<std::ptrdiff_t>(count); i += 4)
      putWord(to + i, word(loose + i) | 0xFF000000);
    return;
  }
  combine(op_, to, loose, static_cast<std::size_t>(count) * looseBytes(surface_.depth()));
  if (opaqueAlpha_) {
    for (int i = 0; i < count; ++i) to[4 * static_cast<std::ptrdiff_t>(i) + 3] = 255;
  }
}

void RowStore::putPacked(int x, int y, int count, const std::uint8_t* loose) {
  std::uint8_t* row = surface_.pictureRow(y);
  const std::uint8_t* result = loose;
  if (op_ != Rop2::CopyPen) {
    unpacked_.resize(std::max(unpacked_.size(), static_cast<std::size_t>(count)));
    looseRow(surface_, y, x, count, unpacked_.data());
    combine(op_, unpacked_.data(), loose, static_cast<std::size_t>(count));
    result = unpacked_.data();
  }
  if (surface_.depth() == 1) {
    pack1(row, x, count, result);
  } else {
    pack4(row, x, count, result);
  }
}

std::array<std::uint8_t, 4> loosePixel(const Surface& surface, Colour colour, std::uint8_t alpha) {
  if (surface.depth() <= 8) return {static_cast<std::uint8_t>(nearestPaletteIndex(surface.table(), colour)), 0, 0, 0};
  return {blueOf(colour), greenOf(colour), redOf(colour), alpha};
}

void fillLoose(std::uint8_t* to, int count, std::array<std::uint8_t, 4> pixel, int bytes) {
  if (bytes == 1) {
    std::memset(to, pixel[0], static_cast<std::size_t>(count));
  } else if (bytes == 4) {
    const std::uint32_t w = word(pixel.data());
    for (int i = 0; i < count; ++i) putWord(to + 4 * static_cast<std::ptrdiff_t>(i), w);
  } else {
    for (int i = 0; i < count; ++i, to += 3) std::memcpy(to, pixel.data(), 3);
  }
}

}  // namespace ruvo::raster
