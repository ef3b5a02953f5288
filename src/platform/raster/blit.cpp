#include "platform/raster/blit.h"

#include <algorithm>
#include <cstring>

#include "platform/raster/pixel_rows.h"

namespace ruvo::raster {
namespace {

bool usesSource(RasterOp op) {
  return op != RasterOp::Blackness && op != RasterOp::Whiteness && op != RasterOp::DstInvert;
}

// Cuts [position, position + length) at [0, limit) and moves `partner` along.
void cut(std::int64_t& position, std::int64_t& length, std::int64_t& partner, std::int64_t limit) {
  if (position < 0) {
    length += position;
    partner -= position;
    position = 0;
  }
  length = std::min(length, limit - position);
}

struct Copy {
  Surface& dst;
  const Surface& src;
  int dx, dy, sx, sy, w, h;

  // The order of rows that reads each source row before it is overwritten.
  template <typename F>
  void eachRow(F f) const {
    if (&dst == &src && dy > sy) {
      for (int y = h - 1; y >= 0; --y) f(y);
    } else {
      for (int y = 0; y < h; ++y) f(y);
    }
  }
};

void copyBytes(const Copy& c) {
  const int bytes = looseBytes(c.dst.depth());
  const std::size_t length = static_cast<std::size_t>(c.w) * bytes;
  c.eachRow([&](int y) {
    std::memmove(c.dst.pictureRow(c.dy + y) + static_cast<std::ptrdiff_t>(c.dx) * bytes,
                 c.src.pictureRow(c.sy + y) + static_cast<std::ptrdiff_t>(c.sx) * bytes, length);
  });
}

}  // namespace

void blit(Surface& dst, int dx, int dy, int w, int h, const Surface& src, int sx, int sy, RasterOp op) {
  if (dst.empty()) return;
  if (!usesSource(op)) return patBlt(dst, Rect::fromSize(dx, dy, w, h), op);
  std::int64_t x = dx, y = dy, u = sx, v = sy, width = w, height = h;
  cut(x, width, u, dst.width());
  cut(u, width, x, src.width());
  cut(y, height, v, dst.height());
  cut(v, height, y, src.height());
  if (width < 1 || height < 1 || src.empty()) return;

  const Copy c{dst,
               src,
               static_cast<int>(x),
               static_cast<int>(y),
               static_cast<int>(u),
               static_cast<int>(v),
               static_cast<int>(width),
               static_cast<int>(height)};
  RowConverter converter(src, dst);
  RowStore store(dst, rop2Of(op));
  if (store.copies() && converter.identity() && src.depth() == dst.depth()) return copyBytes(c);

  std::vector<std::uint8_t> sourceRow(static_cast<std::size_t>(c.w) * 4);
  std::vector<std::uint8_t> converted(static_cast<std::size_t>(c.w) * 4);
  c.eachRow([&](int row) {
    const std::uint8_t* from = looseRow(src, c.sy + row, c.sx, c.w, sourceRow.data());
    if (&dst == &src) {
      std::memmove(sourceRow.data(), from, static_cast<std::size_t>(c.w) * looseBytes(src.depth()));
      from = sourceRow.data();
    }
    if (converter.identity()) {
      store.put(c.dx, c.dy + row, c.w, from);
    } else if (store.copies()) {
      converter.convert(from, store.direct(c.dx, c.dy + row), c.w);
    } else {
      converter.convert(from, converted.data(), c.w);
      store.put(c.dx, c.dy + row, c.w, converted.data());
    }
  });
}

void fillRect(Surface& dst, Rect area, Colour colour, std::uint8_t alpha) {
  area = area.intersected(dst.bounds());
  if (area.empty()) return;
  const int bytes = looseBytes(dst.depth());
  const auto pixel = loosePixel(dst, colour, alpha);
  RowStore store(dst, Rop2::CopyPen);
  if (store.copies()) {  // the first row serves the others where it stands
    const std::uint8_t* first = store.direct(area.left, area.top);
    fillLoose(store.direct(area.left, area.top), area.width(), pixel, bytes);
    for (int y = area.top + 1; y < area.bottom; ++y) store.put(area.left, y, area.width(), first);
    return;
  }
  std::vector<std::uint8_t> row(static_cast<std::size_t>(area.width()) * bytes);
  fillLoose(row.data(), area.width(), pixel, bytes);
  for (int y = area.top; y < area.bottom; ++y) store.put(area.left, y, area.width(), row.data());
}

void patBlt(Surface& dst, Rect area, RasterOp op) {
  area = area.intersected(dst.bounds());
  if (area.empty() || usesSource(op)) return;
  const std::vector<std::uint8_t> row(static_cast<std::size_t>(area.width()) * 4);
  RowStore store(dst, rop2Of(op));
  for (int y = area.top; y < area.bottom; ++y) store.put(area.left, y, area.width(), row.data());
}

Surface copyOf(const Surface& src) {
  Surface copy;
  if (!copy.create(src.width(), src.height(), src.depth(), src.order())) return copy;
  std::memcpy(copy.bits(), src.bits(), src.byteCount());
  std::copy(src.table().begin(), src.table().end(), copy.table().begin());
  return copy;
}

}  // namespace ruvo::raster
