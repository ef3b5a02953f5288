#include "image/clsPalDither.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "base/rounding.h"
#include "image/colour_list.h"
#include "image/row_reader.h"
#include "image/work_pixels.h"
#include "platform/raster/palette_match.h"

namespace ruvo {
namespace {

void packIndex(std::uint8_t* row, int x, int bits, int index) {
  if (bits == 8) {
    row[x] = static_cast<std::uint8_t>(index);
  } else if (bits == 4) {
    row[x / 2] |= static_cast<std::uint8_t>(index << (x % 2 == 0 ? 4 : 0));
  } else {
    row[x / 8] |= static_cast<std::uint8_t>(index << (7 - x % 8));
  }
}

// The standard table of a depth when it has all the colours, else the colours as they came.
void makeExactPalette(const ColourList& list, int bits, const clsDIB& dib, clsPal& pal) {
  const auto has = [&pal](Colour c) {
    const auto table = pal.entriesInUse();
    return std::any_of(table.begin(), table.end(), [c](const raster::TableEntry& e) { return e.colour() == c; });
  };
  if (bits == 1) pal.CreatePalette2();
  if (bits == 4) pal.CreatePalette16();
  const bool standard = bits < 8 && std::all_of(list.colours().begin(), list.colours().end(), has);
  if (!standard) pal.CreatePalette256(dib);
}

// Which entry stands for a colour, by cells of 17 levels a channel: 4096 searches in place of one a pixel. All colours
// of a cell get one entry, that of the cell's corner.
class CellMap {
 public:
  explicit CellMap(std::span<const raster::TableEntry> table) {
    for (int v = 0; v < 256; ++v) coordinate_[static_cast<std::size_t>(v)] = static_cast<std::uint8_t>((v + 8) / 17);
    for (int b = 0; b < 16; ++b) {
      for (int g = 0; g < 16; ++g) {
        for (int r = 0; r < 16; ++r) {
          index_[cell(b, g, r)] =
              static_cast<std::uint8_t>(raster::nearestPaletteIndex(table, rgb(r * 17, g * 17, b * 17)));
        }
      }
    }
  }
  int of(Pixel32 p) const { return index_[cell(coordinate_[p.blue], coordinate_[p.green], coordinate_[p.red])]; }

 private:
  static std::size_t cell(int b, int g, int r) { return static_cast<std::size_t>((b * 16 + g) * 16 + r); }
  std::array<std::uint8_t, 256> coordinate_{};
  std::array<std::uint8_t, 4096> index_{};
};

// The entries of a table by their colours; of equal entries the first.
class EntryMap {
 public:
  explicit EntryMap(std::span<const raster::TableEntry> table) {
    for (std::size_t i = 0; i < table.size(); ++i) {
      if (list_.append(table[i].colour())) entryOf_[list_.colours().size() - 1] = static_cast<std::uint8_t>(i);
    }
  }
  bool has(Colour colour) const { return list_.indexOf(colour) >= 0; }
  int of(Colour colour) const { return entryOf_[static_cast<std::size_t>(list_.indexOf(colour))]; }

 private:
  ColourList list_;
  std::array<std::uint8_t, 256> entryOf_{};
};

struct Error {
  int blue, green, red;
  int size() const { return std::abs(blue) + std::abs(green) + std::abs(red); }
};

// Adds sixteenths of an error to a pixel, each share cut towards zero and each channel kept within a byte.
void addShare(Pixel32& pixel, const Error& e, int sixteenths) {
  pixel.blue = clampToByte(pixel.blue + e.blue * sixteenths / 16);
  pixel.green = clampToByte(pixel.green + e.green * sixteenths / 16);
  pixel.red = clampToByte(pixel.red + e.red * sixteenths / 16);
}

}  // namespace

std::span<const std::uint8_t> clsPalDither::row(int memoryRow) const {
  const auto stride = static_cast<std::size_t>(stride_);
  return std::span(table_).subspan(stride * static_cast<std::size_t>(memoryRow), stride);
}

std::uint8_t* clsPalDither::CreateBlankPaletteTable(int Width, int Height, int Bits) {
  table_.clear();
  width_ = height_ = bits_ = stride_ = 0;
  if (Width < 1 || Height < 1 || (Bits != 1 && Bits != 4 && Bits != 8)) return nullptr;
  width_ = Width;
  height_ = Height;
  bits_ = Bits;
  stride_ = static_cast<int>(raster::strideFor(Width, Bits));
  table_.assign(static_cast<std::size_t>(stride_) * static_cast<std::size_t>(Height), 0);
  return table_.data();
}

bool clsPalDither::ExactRows(const clsDIB& Dib, clsPal& Pal, int Bits) {
  ColourList list;
  const bool depthKnown = Bits == 1 || Bits == 4 || Bits == 8;
  if (Dib.empty() || !depthKnown || !list.collect(Dib.surface(), 1 << Bits)) return false;
  makeExactPalette(list, Bits, Dib, Pal);
  const auto entries = Pal.entriesInUse();
  std::array<std::uint8_t, 256> entryOf{};  // by place in the list
  for (std::size_t i = 0; i < list.colours().size(); ++i) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const raster::TableEntry& e) { return e.colour() == list.colours()[i]; });
    entryOf[i] = static_cast<std::uint8_t>(found - entries.begin());
  }
  std::uint8_t* out = CreateBlankPaletteTable(Dib.DIBWidth(), Dib.DIBHeight(), Bits);
  RowReader reader(Dib.surface());
  Colour last = list.colours().front();
  int index = entryOf[0];
  for (int y = 0; y < height_; ++y, out += stride_) {
    const Pixel32* pixels = reader.pixels(y);
    for (int x = 0; x < width_; ++x) {
      if (pixels[x].colour() != last) {
        last = pixels[x].colour();
        index = entryOf[static_cast<std::size_t>(list.indexOf(last))];
      }
      packIndex(out, x, Bits, index);
    }
  }
  return true;
}

void clsPalDither::DitherToPalette16(clsDIB& Dib, const clsPal& Pal) {
  diffuseToPalette(Dib, Pal, 4);
}
void clsPalDither::DitherToPalette256(clsDIB& Dib, const clsPal& Pal) {
  diffuseToPalette(Dib, Pal, 8);
}

void clsPalDither::diffuseToPalette(clsDIB& Dib, const clsPal& Pal, int Bits) {
  auto searched = Pal.matchTable();
  searched = searched.first(std::min<std::size_t>(searched.size(), std::size_t{1} << Bits));
  std::uint8_t* out = CreateBlankPaletteTable(Dib.DIBWidth(), Dib.DIBHeight(), Bits);
  if (!out || searched.empty()) return;
  WorkPixels work(Dib);
  if (work.surface().empty()) return;
  const raster::TableEntry* entries = Pal.PalettePtr();
  if (placeExactly(work.surface(), {entries, searched.size()}, Bits)) return;
  const CellMap cells(searched);
  const raster::View32 view = work.surface().view32();
  for (int y = 0; y < height_; ++y, out += stride_) {
    Pixel32* here = view.row(y);
    Pixel32* below = y + 1 < height_ ? view.row(y + 1) : nullptr;
    for (int x = 0; x < width_; ++x) {
      const int index = cells.of(here[x]);
      packIndex(out, x, Bits, index);
      const raster::TableEntry& entry = entries[index];
      const Error e = {here[x].blue - entry.blue, here[x].green - entry.green, here[x].red - entry.red};
      here[x] = {entry.blue, entry.green, entry.red, entry.spare};
      if (e.size() <= 3) continue;
      if (x + 1 < width_) addShare(here[x + 1], e, 7);
      if (!below) continue;
      addShare(below[x], e, 5);
      if (x + 1 < width_) addShare(below[x + 1], e, 1);
      if (x > 0) addShare(below[x - 1], e, 3);
    }
    tell(static_cast<int>(100LL * (y + 1) / height_));
  }
  tellEnd();
}

// A picture that has no colour but the table's keeps each of them. (The cells below would give one entry to colours that
// lie close together.)
bool clsPalDither::placeExactly(raster::Surface& surface, std::span<const raster::TableEntry> entries, int Bits) {
  const EntryMap map(entries);
  bool all = true;
  forEachColourRun(surface, [&](Colour colour) { return all = map.has(colour); });
  if (!all) return false;
  const raster::View32 view = surface.view32();
  for (int y = 0; y < height_; ++y) {
    Pixel32* here = view.row(y);
    std::uint8_t* out = table_.data() + static_cast<std::size_t>(stride_) * static_cast<std::size_t>(y);
    for (int x = 0; x < width_; ++x) {
      const int index = map.of(here[x].colour());
      packIndex(out, x, Bits, index);
      here[x].alpha = entries[static_cast<std::size_t>(index)].spare;
    }
    tell(static_cast<int>(100LL * (y + 1) / height_));
  }
  tellEnd();
  return true;
}

void clsPalDither::DitherToTrueColor(const clsDIB& Dib) {
  for (int y = 0; y < Dib.DIBHeight(); ++y) tell(y);
  tellEnd();
}

}  // namespace ruvo
