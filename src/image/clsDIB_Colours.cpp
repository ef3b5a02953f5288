#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <vector>

#include "image/clsDIB.h"
#include "image/colour_list.h"
#include "image/row_reader.h"

namespace ruvo {
namespace {

// All colours there are, a bit each, and the limit that the count has: a colour whose blue-red pair is new takes a row
// of a table of 32767 rows, and the first one that finds no room ends the count.
class ColourCounter {
 public:
  static constexpr int kPairsAtMost = 32767;

  // False when the count has to end.
  bool addRow(const Pixel32* pixels, int width) {
    std::array<std::uint32_t, 256> places;
    for (int x = 0; x < width; x += static_cast<int>(places.size())) {
      const int count = std::min(width - x, static_cast<int>(places.size()));
      for (int i = 0; i < count; ++i) places[static_cast<std::size_t>(i)] = placeOf(pixels[x + i]);
      for (int i = 0; i < count; ++i) {
        const std::uint32_t place = places[static_cast<std::size_t>(i)];
        if ((seen_[place / 64] >> place % 64 & 1) == 0 && !addNew(place, pixels[x + i])) return false;
      }
    }
    return true;
  }
  int count() const { return count_; }

 private:
  // Cubes of 8 x 8 x 8 colours share a cache line, since the pixels of a picture lie close together in colour too.
  // Written as shifts and masks on whole pixels, so that the compiler takes several at once.
  static std::uint32_t placeOf(Pixel32 p) {
    std::uint32_t c;
    std::memcpy(&c, &p, sizeof(c));
    const std::uint32_t within = (c & 7) | (c >> 5 & 0x38) | (c >> 10 & 0x1C0);
    const std::uint32_t cube = (c >> 3 & 0x1F) | (c >> 6 & 0x3E0) | (c >> 9 & 0x7C00);
    return cube << 9 | within;
  }
  bool addNew(std::uint32_t place, Pixel32 p) {
    seen_[place / 64] |= std::uint64_t{1} << place % 64;
    const std::uint32_t pair = static_cast<std::uint32_t>(p.blue) << 8 | p.red;
    std::uint64_t& word = pairs_[pair / 64];
    const std::uint64_t bit = std::uint64_t{1} << pair % 64;
    if ((word & bit) == 0 && ++pairCount_ > kPairsAtMost) return false;
    word |= bit;
    ++count_;
    return true;
  }

  std::vector<std::uint64_t> seen_ = std::vector<std::uint64_t>((1 << 24) / 64);
  std::vector<std::uint64_t> pairs_ = std::vector<std::uint64_t>((1 << 16) / 64);
  int pairCount_ = 0;
  int count_ = 0;
};

}  // namespace

int clsDIB::CountColorsDIB(const clsDIB& Dib) {
  if (Dib.empty()) return 0;
  ColourCounter counter;
  RowReader reader(Dib.surface_);
  for (int y = 0; y < Dib.DIBHeight() && counter.addRow(reader.pixels(y), Dib.DIBWidth()); ++y) {
  }
  return counter.count();
}

std::int64_t clsDIB::IsMultiColorDIB(const clsDIB& Dib) {
  if (Dib.empty()) return 0;
  std::int64_t single = -2;
  forEachColourRun(Dib.surface_, [&](Colour colour) {
    single = single == -2 ? static_cast<std::int64_t>(colour) : kMultiColor;
    return single != kMultiColor;
  });
  return single;
}

Colour clsDIB::GetTopPixelColor(const clsDIB& Dib, bool Flipped) {
  if (Dib.empty()) return 0;
  RowReader reader(Dib.surface_);
  return reader.pixels(Flipped ? Dib.DIBHeight() - 1 : 0)[0].colour();
}

int clsDIB::BPPperActualPic(const imaging::Picture& Picture) {
  return Picture.bitmap ? Picture.bitmap->depth() : 0;
}

const std::array<Colour, 16>& clsDIB::sixteenColours() {
  static constexpr std::array<Colour, 16> kColours = {0xFFFFFF, 0x808080, 0xFF00FF, 0x0000FF, 0x00FFFF, 0x00FF00,
                                                      0xFFFF00, 0xFF0000, 0xC0C0C0, 0x000000, 0x800080, 0x000080,
                                                      0x008080, 0x008000, 0x808000, 0x800000};
  return kColours;
}

int clsDIB::BPPperActualDIB(const clsDIB& Dib) {
  if (Dib.empty()) return 0;
  if (Dib.hasAlpha_) return 32;
  ColourList list;
  if (!list.collect(Dib.surface_, 256)) return 24;
  const auto& sixteen = sixteenColours();
  bool twoOnly = true;
  bool sixteenOnly = true;
  for (const Colour c : list.colours()) {
    twoOnly = twoOnly && (c == kBlack || c == kWhite);
    sixteenOnly = sixteenOnly && std::find(sixteen.begin(), sixteen.end(), c) != sixteen.end();
  }
  return twoOnly ? 1 : sixteenOnly ? 4 : 8;
}

bool clsDIB::DIBNetPaintedArea(const clsDIB& Dib, int& Left, int& Top, int& Right, int& Bottom, Colour colour,
                               bool Flip) {
  const int width = Dib.DIBWidth();
  int left = width, right = -1, top = -1, bottom = -1;
  if (!Dib.empty()) {
    RowReader reader(Dib.surface_);
    const Pixel32 back = Pixel32::plain(colour);
    for (int y = 0; y < Dib.DIBHeight(); ++y) {
      const Pixel32* row = reader.pixels(y);
      int first = 0;
      while (first < width && row[first].sameColour(back)) ++first;
      if (first == width) continue;
      int last = width - 1;
      while (row[last].sameColour(back)) --last;
      left = std::min(left, first);
      right = std::max(right, last);
      if (top < 0) top = y;
      bottom = y;
    }
  }
  if (right < 0) return false;
  Left = left;
  Right = right;
  Top = Flip ? Dib.DIBHeight() - bottom : top;
  Bottom = Flip ? Dib.DIBHeight() - top : bottom;
  return true;
}

}  // namespace ruvo
