#include <algorithm>
#include <cstring>
#include <vector>

#include "image/clsDIB.h"
#include "platform/raster/blit.h"
#include "platform/raster/pixel_rows.h"

namespace ruvo {
namespace {

void mirrorTopToBottom(raster::Surface& surface) {
  std::vector<std::uint8_t> kept(static_cast<std::size_t>(surface.stride()));
  for (int y = 0; y < surface.height() / 2; ++y) {
    std::uint8_t* upper = surface.memoryRow(y);
    std::uint8_t* lower = surface.memoryRow(surface.height() - 1 - y);
    std::memcpy(kept.data(), upper, kept.size());
    std::memcpy(upper, lower, kept.size());
    std::memcpy(lower, kept.data(), kept.size());
  }
}

template <typename Pixel>
void reverseRow(std::uint8_t* row, int width) {
  auto* pixels = reinterpret_cast<Pixel*>(row);
  std::reverse(pixels, pixels + width);
}

void mirrorLeftToRight(raster::Surface& surface) {
  struct Pixel24 {
    std::uint8_t bytes[3];
  };
  const int width = surface.width();
  const int bytes = raster::looseBytes(surface.depth());
  std::vector<std::uint8_t> loose(static_cast<std::size_t>(width));
  raster::RowStore store(surface, raster::Rop2::CopyPen);
  for (int y = 0; y < surface.height(); ++y) {
    std::uint8_t* row = surface.pictureRow(y);
    if (bytes == 4) {
      reverseRow<Pixel32>(row, width);
    } else if (bytes == 3) {
      reverseRow<Pixel24>(row, width);
    } else if (surface.depth() == 8) {
      reverseRow<std::uint8_t>(row, width);
    } else {
      raster::looseRow(surface, y, 0, width, loose.data());
      reverseRow<std::uint8_t>(loose.data(), width);
      store.put(0, y, width, loose.data());
    }
  }
}

// Memory (row y, column x) goes to (row x, column height - 1 - y) or, clockwise, to (row width - 1 - x, column y). Both
// sides are walked in squares small enough that the rows of the target stay in the cache.
void turn(const raster::View<const Pixel32>& from, const raster::View32& to, bool clockwise) {
  constexpr int kSquare = 32;
  for (int top = 0; top < from.height(); top += kSquare) {
    const int bottom = std::min(from.height(), top + kSquare);
    for (int left = 0; left < from.width(); left += kSquare) {
      const int right = std::min(from.width(), left + kSquare);
      for (int x = left; x < right; ++x) {
        Pixel32* out = to.row(clockwise ? from.width() - 1 - x : x);
        for (int y = top; y < bottom; ++y) out[clockwise ? y : from.height() - 1 - y] = from.row(y)[x];
      }
    }
  }
}

}  // namespace

void clsDIB::RotateDIB(clsDIB& Dib, int Mode) {
  if (Dib.empty() || Mode < 0 || Mode > 3) return;
  if (Mode == 0) return mirrorLeftToRight(Dib.surface_);
  if (Mode == 1) return mirrorTopToBottom(Dib.surface_);

  raster::Surface source;
  if (Dib.surface_.depth() == 32) {
    source = std::move(Dib.surface_);
  } else {
    if (!source.create(Dib.DIBWidth(), Dib.DIBHeight(), 32, Dib.surface_.order())) return;
    raster::blit(source, 0, 0, Dib.surface_);
  }
  clsDIB turned;
  if (!turned.CreateBlankDIB(source.height(), source.width(), 32, kBlack, Dib.bottomUp_)) {
    if (Dib.surface_.empty()) Dib.surface_ = std::move(source);
    return;
  }
  turned.backColour_ = Dib.backColour_;
  turned.hasAlpha_ = Dib.hasAlpha_;
  turn(static_cast<const raster::Surface&>(source).view32(), turned.surface_.view32(), Mode == 3);
  Dib = std::move(turned);
}

}  // namespace ruvo
