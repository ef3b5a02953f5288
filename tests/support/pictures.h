// Small pictures as text, to build and to compare: picture({"#..", ".#."}) makes a 32-bit surface, white where '.',
// black where '#', and other characters by the map that a test gives. Both pictures are printed side by side when they
// differ.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "image/clsDIB.h"
#include "platform/raster/blit.h"

namespace ruvo::test {

using Rows = std::vector<std::string>;
using Ink = std::map<char, Colour>;

inline const Ink& blackAndWhite() {
  static const Ink ink = {{'.', kWhite}, {'#', kBlack}};
  return ink;
}

// The 32-bit pixel at a picture point, top line first.
inline Pixel32& pixelAt(raster::Surface& surface, int x, int y) {
  return reinterpret_cast<Pixel32*>(surface.pictureRow(y))[x];
}
inline const Pixel32& pixelAt(const raster::Surface& surface, int x, int y) {
  return reinterpret_cast<const Pixel32*>(surface.pictureRow(y))[x];
}
inline Pixel32& pixelAt(clsDIB& dib, int x, int y) {
  return pixelAt(dib.surface(), x, y);
}
inline const Pixel32& pixelAt(const clsDIB& dib, int x, int y) {
  return pixelAt(dib.surface(), x, y);
}

using PixelOf = std::function<Pixel32(int x, int y)>;

// A new 32-bit surface with a pixel for each picture point.
inline raster::Surface surfaceOf(int width, int height, const PixelOf& pixel,
                                 raster::RowOrder order = raster::RowOrder::BottomUp) {
  raster::Surface surface;
  surface.create(width, height, 32, order);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) pixelAt(surface, x, y) = pixel(x, y);
  }
  return surface;
}
// The same from text rows, byte 3 zero.
inline raster::Surface surfaceOf(const Rows& rows, const Ink& ink = blackAndWhite(),
                                 raster::RowOrder order = raster::RowOrder::BottomUp) {
  return surfaceOf(
      static_cast<int>(rows.front().size()), static_cast<int>(rows.size()),
      [&](int x, int y) { return Pixel32::plain(ink.at(rows[y][x])); }, order);
}

inline clsDIB dibOf(raster::Surface&& surface) {
  clsDIB dib;
  dib.adopt(std::move(surface), false);
  return dib;
}
inline clsDIB dibOf(int width, int height, const PixelOf& pixel) {
  return dibOf(surfaceOf(width, height, pixel));
}
inline clsDIB dibOf(const Rows& rows, const Ink& ink = blackAndWhite()) {
  return dibOf(surfaceOf(rows, ink));
}
// A blank picture in one colour (black at 8 bits or fewer).
inline clsDIB plainDib(int width, int height, Colour colour, int bpp = 32, bool bottomUp = false) {
  clsDIB dib;
  dib.CreateBlankDIB(width, height, bpp, colour, bottomUp);
  return dib;
}

// The same pixels at 32 bits.
inline raster::Surface deepOf(const raster::Surface& surface) {
  raster::Surface deep;
  deep.create(surface.width(), surface.height(), 32);
  raster::blit(deep, 0, 0, surface);
  return deep;
}

// The rows of a surface as text, top line first; colours that the ink does not name become '?'.
inline Rows rowsOf(const raster::Surface& surface, const Ink& ink = blackAndWhite()) {
  const raster::Surface deep = deepOf(surface);
  Rows rows;
  for (int y = 0; y < deep.height(); ++y) {
    rows.emplace_back();
    for (int x = 0; x < deep.width(); ++x) {
      const auto named = std::find_if(ink.begin(), ink.end(),
                                      [&](const auto& name) { return name.second == pixelAt(deep, x, y).colour(); });
      rows.back() += named == ink.end() ? '?' : named->first;
    }
  }
  return rows;
}
inline Rows rowsOf(const clsDIB& dib, const Ink& ink = blackAndWhite()) {
  return rowsOf(dib.surface(), ink);
}

// The largest difference of any byte between a picture and what was wanted; 999 when there is none.
inline int farthest(const raster::Surface* surface, const PixelOf& wanted) {
  int most = surface ? 0 : 999;
  for (int y = 0; surface && y < surface->height(); ++y) {
    for (int x = 0; x < surface->width(); ++x) {
      const Pixel32 got = pixelAt(*surface, x, y), want = wanted(x, y);
      for (const int d : {got.blue - want.blue, got.green - want.green, got.red - want.red, got.alpha - want.alpha}) {
        most = std::max(most, std::abs(d));
      }
    }
  }
  return most;
}

inline testing::AssertionResult samePicture(const Rows& actual, const Rows& expected) {
  if (actual == expected) return testing::AssertionSuccess();
  auto failure = testing::AssertionFailure() << "\nactual | expected\n";
  for (std::size_t y = 0; y < std::max(actual.size(), expected.size()); ++y) {
    failure << (y < actual.size() ? actual[y] : "") << " | " << (y < expected.size() ? expected[y] : "") << '\n';
  }
  return failure;
}

}  // namespace ruvo::test

#define EXPECT_PICTURE(actual, ...) EXPECT_TRUE(ruvo::test::samePicture(actual, ruvo::test::Rows __VA_ARGS__))
