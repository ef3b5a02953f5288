#include "platform/imaging/table_reduction.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "platform/imaging/pixel_rows.h"
#include "platform/imaging/table_lookup.h"

namespace ruvo::imaging {
namespace {

using Table = std::vector<raster::TableEntry>;

// The sixteen colours of old displays; six levels a channel and greys between them.
Table fixedTable(int depth) {
  if (depth == 1) return {raster::TableEntry::of(kBlack), raster::TableEntry::of(kWhite)};
  Table table;
  if (depth == 4) {
    for (int i = 0; i < 8; ++i)
      table.push_back(raster::TableEntry::of(rgb((i & 1) * 128, (i >> 1 & 1) * 128, (i >> 2) * 128)));
    table.push_back(raster::TableEntry::of(rgb(192, 192, 192)));
    for (int i = 1; i < 8; ++i)
      table.push_back(raster::TableEntry::of(rgb((i & 1) * 255, (i >> 1 & 1) * 255, (i >> 2) * 255)));
    return table;
  }
  for (int i = 0; i < 216; ++i) table.push_back(raster::TableEntry::of(rgb(i / 36 * 51, i / 6 % 6 * 51, i % 6 * 51)));
  for (int i = 1; i <= 40; ++i) table.push_back(raster::TableEntry::of(rgb(i * 255 / 41, i * 255 / 41, i * 255 / 41)));
  return table;
}

// The picture's own colours in the order in which they come; nothing when there are more than `most`.
std::optional<Table> ownTable(const raster::Surface& surface, std::size_t most) {
  RowExpander rows(surface);
  std::unordered_map<Colour, bool> seen;
  Table table;
  Colour last = 0xFFFFFFFF;  // no colour
  for (int y = 0; y < surface.height(); ++y) {
    const Pixel32* row = rows.row(y);
    for (int x = 0; x < surface.width(); ++x) {
      const Colour colour = row[x].colour();
      if (colour == last) continue;
      last = colour;
      if (!seen.emplace(colour, true).second) continue;
      if (table.size() == most) return std::nullopt;
      table.push_back(raster::TableEntry::of(colour));
    }
  }
  return table;
}

bool onlyBlackAndWhite(const Table& table) {
  return std::all_of(table.begin(), table.end(),
                     [](const auto& e) { return e.colour() == kBlack || e.colour() == kWhite; });
}

void placeNearest(const raster::Surface& surface, raster::Surface& reduced) {
  RowExpander rows(surface);
  TableLookup lookup(reduced.table());
  for (int y = 0; y < surface.height(); ++y) {
    const Pixel32* row = rows.row(y);
    std::uint8_t* out = reduced.pictureRow(y);
    for (int x = 0; x < surface.width(); ++x) placeIndex(out, x, reduced.depth(), lookup.nearest(row[x]));
  }
}

void placeDiffused(const raster::Surface& surface, raster::Surface& reduced) {
  RowExpander rows(surface);
  TableLookup lookup(reduced.table());
  const int width = surface.width();
  // Errors in sixteenths, three channels a pixel, one pixel of margin at each end.
  std::vector<int> here(static_cast<std::size_t>(width + 2) * 3), below(here.size());
  for (int y = 0; y < surface.height(); ++y) {
    const Pixel32* row = rows.row(y);
    std::uint8_t* out = reduced.pictureRow(y);
    std::fill(below.begin(), below.end(), 0);
    for (int x = 0; x < width; ++x) {
      const std::size_t at = static_cast<std::size_t>(x + 1) * 3;
      const int wanted[3] = {std::clamp(row[x].blue + here[at] / 16, 0, 255),
                             std::clamp(row[x].green + here[at + 1] / 16, 0, 255),
                             std::clamp(row[x].red + here[at + 2] / 16, 0, 255)};
      const int index = lookup.nearest(Pixel32::plain(rgb(wanted[2], wanted[1], wanted[0])));
      placeIndex(out, x, reduced.depth(), index);
      const raster::TableEntry& got = reduced.table()[index];
      const int error[3] = {wanted[0] - got.blue, wanted[1] - got.green, wanted[2] - got.red};
      for (std::size_t c = 0; c < 3; ++c) {
        here[at + 3 + c] += 7 * error[c];
        below[at - 3 + c] += 3 * error[c];
        below[at + c] += 5 * error[c];
        below[at + 3 + c] += error[c];
      }
    }
    here.swap(below);
  }
}

}  // namespace

bool reduceToTable(const raster::Surface& surface, int depth, raster::Surface& reduced) {
  if (!reduced.create(surface.width(), surface.height(), depth)) return false;
  const auto own = ownTable(surface, std::size_t{1} << depth);
  const bool exact = own && (depth > 1 || onlyBlackAndWhite(*own));
  const Table table = exact && depth > 1 ? *own : fixedTable(depth);
  std::copy(table.begin(), table.end(), reduced.table().begin());
  if (exact) {
    placeNearest(surface, reduced);
  } else {
    placeDiffused(surface, reduced);
  }
  return true;
}

}  // namespace ruvo::imaging
