// Small pictures as text, to build and to compare: picture({"#..", ".#."}) makes a 32-bit surface, white where '.', black
// where '#', and other characters by the map that a test gives. Both pictures are printed side by side when they differ.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "image/clsDIB.h"

namespace ruvo::test {

using Rows = std::vector<std::string>;
using Ink = std::map<char, Colour>;

inline const Ink& blackAndWhite() {
  static const Ink ink = {{'.', kWhite}, {'#', kBlack}};
  return ink;
}

// Writes text rows (top line first) into a new 32-bit surface, byte 3 zero.
inline raster::Surface surfaceOf(const Rows& rows, const Ink& ink = blackAndWhite(),
                                 raster::RowOrder order = raster::RowOrder::BottomUp) {
  raster::Surface surface;
  surface.create(static_cast<int>(rows.front().size()), static_cast<int>(rows.size()), 32, order);
  for (int y = 0; y < surface.height(); ++y) {
    auto* row = reinterpret_cast<Pixel32*>(surface.pictureRow(y));
    for (int x = 0; x < surface.width(); ++x) row[x] = Pixel32::plain(ink.at(rows[y][x]));
  }
  return surface;
}

inline clsDIB dibOf(const Rows& rows, const Ink& ink = blackAndWhite()) {
  clsDIB dib;
  dib.adopt(surfaceOf(rows, ink), false);
  return dib;
}

// The rows of a 32-bit surface as text, top line first; colours that the ink does not name become '?'.
inline Rows rowsOf(const raster::Surface& surface, const Ink& ink = blackAndWhite()) {
  Rows rows;
  for (int y = 0; y < surface.height(); ++y) {
    const auto* row = reinterpret_cast<const Pixel32*>(surface.pictureRow(y));
    std::string text;
    for (int x = 0; x < surface.width(); ++x) {
      char name = '?';
      for (const auto& [character, colour] : ink) {
        if (row[x].colour() == colour) name = character;
      }
      text += name;
    }
    rows.push_back(text);
  }
  return rows;
}
inline Rows rowsOf(const clsDIB& dib, const Ink& ink = blackAndWhite()) { return rowsOf(dib.surface(), ink); }

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
