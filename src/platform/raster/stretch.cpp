#include "platform/raster/stretch.h"

#include <algorithm>
#include <cstring>

#include "platform/raster/halftone.h"
#include "platform/raster/pixel_rows.h"
#include "platform/raster/stretch_axis.h"

namespace ruvo::raster {
namespace {

// Picks the columns of a loose row. Runs of one source column (enlargements) are the common case and come out as plain
// repeated stores.
template <int Bytes>
void pickColumns(const std::uint8_t* from, std::uint8_t* to, const PickMap& columns) {
  for (const PickMap::Run& run : columns.runs) {
    std::memcpy(to, from + static_cast<std::ptrdiff_t>(run.picked) * Bytes, Bytes);
    to += Bytes;
  }
}
void pickColumns(const std::uint8_t* from, std::uint8_t* to, const PickMap& columns, int bytes) {
  if (bytes == 4) {
    pickColumns<4>(from, to, columns);
  } else if (bytes == 3) {
    pickColumns<3>(from, to, columns);
  } else {
    pickColumns<1>(from, to, columns);
  }
}

// Columns side by side in the source: the row can be taken as it is.
bool contiguous(const PickMap& columns) {
  for (int i = 1; i < columns.count(); ++i) {
    if (columns.runs[i].picked != columns.runs[0].picked + i) return false;
  }
  return true;
}

void stretchPicked(Surface& dst, const Surface& src, const PickMap& columns, const PickMap& rows, RasterOp op) {
  const int count = columns.count();
  RowConverter converter(src, dst);
  RowStore store(dst, rop2Of(op));
  const bool asIs = contiguous(columns);
  std::vector<std::uint8_t> whole(static_cast<std::size_t>(src.width()) * 4);
  std::vector<std::uint8_t> picked(static_cast<std::size_t>(count) * 4);
  std::vector<std::uint8_t> converted(static_cast<std::size_t>(count) * 4);
  const std::uint8_t* ready = nullptr;
  int readyRow = -1;
  for (int i = 0; i < rows.count(); ++i) {
    const int sourceRow = rows.runs[i].picked;
    if (sourceRow < 0) continue;
    if (sourceRow != readyRow) {
      readyRow = sourceRow;
      const std::uint8_t* from = looseRow(src, sourceRow, 0, src.width(), whole.data());
      if (asIs) {
        ready = from + static_cast<std::ptrdiff_t>(columns.runs[0].picked) * looseBytes(src.depth());
      } else {
        pickColumns(from, picked.data(), columns, looseBytes(src.depth()));
        ready = picked.data();
      }
      if (!converter.identity()) {
        converter.convert(ready, converted.data(), count);
        ready = converted.data();
      }
    }
    store.put(columns.first, rows.first + i, count, ready);
  }
}

// BlackOnWhite and WhiteOnBlack: all pixels of a run count, as colours.
void stretchCombined(Surface& dst, const Surface& src, const PickMap& columns, const PickMap& rows, bool both,
                     RasterOp op) {
  const int count = columns.count();
  RowConverter toColour(src.depth(), src.table(), 32, {});
  RowConverter toTarget(32, {}, dst.depth(), dst.table());
  RowStore store(dst, rop2Of(op));
  std::vector<std::uint8_t> whole(static_cast<std::size_t>(src.width()) * 4);
  std::vector<std::uint32_t> colours(static_cast<std::size_t>(src.width()));
  std::vector<std::uint32_t> result(static_cast<std::size_t>(count));
  std::vector<std::uint8_t> converted(static_cast<std::size_t>(count) * 4);
  for (int i = 0; i < rows.count(); ++i) {
    std::fill(result.begin(), result.end(), both ? 0xFFFFFFFFu : 0u);
    for (int row = rows.runs[i].begin; row < rows.runs[i].end; ++row) {
      const std::uint8_t* from = looseRow(src, row, 0, src.width(), whole.data());
      toColour.convert(from, reinterpret_cast<std::uint8_t*>(colours.data()), src.width());
      for (int x = 0; x < count; ++x) {
        std::uint32_t value = result[x];
        for (int k = columns.runs[x].begin; k < columns.runs[x].end; ++k) {
          value = both ? value & colours[k] : value | colours[k];
        }
        result[x] = value;
      }
    }
    toTarget.convert(reinterpret_cast<const std::uint8_t*>(result.data()), converted.data(), count);
    store.put(columns.first, rows.first + i, count, converted.data());
  }
}

}  // namespace

void stretchBlit(Surface& dst, const Extent& to, const Surface& src, const Extent& from, StretchMode mode, RasterOp op,
                 const std::optional<Rect>& clip) {
  const Rect target = clip ? clip->intersected(dst.bounds()) : dst.bounds();
  if (dst.empty() || src.empty() || target.empty()) return;
  if (to.width == 0 || to.height == 0 || from.width == 0 || from.height == 0) return;
  const StretchAxis x{to.x, to.width, from.x, from.width, src.width(), target.left, target.right};
  const StretchAxis y{to.y, to.height, from.y, from.height, src.height(), target.top, target.bottom};

  if (mode == StretchMode::Halftone) return stretchHalftone(dst, src, areaMap(x), areaMap(y), op);
  const PickMap columns = pickMap(x, true);
  const PickMap rows = pickMap(y, false);
  if (columns.runs.empty() || rows.runs.empty()) return;
  if (mode == StretchMode::ColorOnColor) {
    stretchPicked(dst, src, columns, rows, op);
  } else {
    stretchCombined(dst, src, columns, rows, mode == StretchMode::BlackOnWhite, op);
  }
}

}  // namespace ruvo::raster
