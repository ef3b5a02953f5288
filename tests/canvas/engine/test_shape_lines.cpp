#include "canvas/engine/shape_lines.h"

#include <cmath>

#include "canvas/engine/shape_line_types.h"
#include "support/pictures.h"

namespace ruvo::shape {
namespace {

using namespace test;

constexpr int kSide = 61;
constexpr Point kMiddle{30, 30};

// How dark a pixel of a black drawing on white is, 0 to 255.
int darkness(const clsDIB& dib, int x, int y) {
  return 255 - pixelAt(dib, x, y).red;
}
template <typename Draw>
clsDIB drawn(Draw draw, int side = kSide) {
  clsDIB dib = plainDib(side, side, kWhite);
  draw(dib);
  return dib;
}
clsDIB softLine(Point from, Point to, int width) {
  return drawn([&](clsDIB& dib) { AAWideLine(dib, from, to, kBlack, width); });
}
// Points all round the middle, as far away as the radius.
std::vector<Point> allRound(int radius) {
  std::vector<Point> points;
  for (int degrees = 0; degrees < 360; degrees += 5) {
    const double a = degrees * 3.14159265 / 180;
    points.push_back({kMiddle.x + static_cast<int>(std::lround(radius * std::cos(a))),
                      kMiddle.y + static_cast<int>(std::lround(radius * std::sin(a)))});
  }
  return points;
}

TEST(ShapeLines, PensRunFromTheUpperEndAndLeaveOutTheLower) {
  const auto pen = [](Point a, Point b, int cap, bool ends) {
    return rowsOf(drawn([&](clsDIB& dib) { PenLine(dib, a, b, kBlack, 1, cap, ends); }, 4));
  };
  const Rows both = {"#...", ".#..", "..#.", "...#"};
  EXPECT_PICTURE(pen({3, 3}, {0, 0}, 0, false), {"#...", ".#..", "..#.", "...."});
  EXPECT_EQ(pen({3, 3}, {0, 0}, 0, true), both);
  EXPECT_EQ(pen({3, 3}, {0, 0}, 1, false), both);
}

TEST(ShapeLines, SoftOnesShareTheirWidthWithTheNeighbours) {
  const clsDIB dib = drawn([](clsDIB& d) { AALine(d, {2, 1}, {3, 5}, kBlack); }, 7);
  const std::vector<std::vector<int>> dark = {{22, 128, 0, 0},  {129, 255, 128, 0}, {65, 255, 192, 0},
                                              {0, 255, 255, 0}, {0, 193, 255, 64},  {0, 129, 255, 128},
                                              {0, 0, 128, 22}};
  for (int y = 0; y < 7; ++y) {
    for (int x = 0; x < 4; ++x) EXPECT_EQ(darkness(dib, x + 1, y), dark[y][x]) << x << ' ' << y;
  }
}

TEST(ShapeLines, SoftOnesHaveNoGapsAndLookTheSameFromBothEndsAndInTheMirror) {
  for (const int radius : {3, 4, 25}) {
    for (const Point& to : allRound(radius)) {
      SCOPED_TRACE(testing::Message() << to.x << ' ' << to.y);
      const clsDIB there = softLine(kMiddle, to, 2), back = softLine(to, kMiddle, 2);
      const clsDIB mirror = softLine(kMiddle, {2 * kMiddle.x - to.x, to.y}, 2);
      const bool upright = std::abs(to.y - kMiddle.y) >= std::abs(to.x - kMiddle.x);
      std::vector<int> sums(kSide);
      for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
          const int dark = darkness(there, x, y);
          sums[upright ? y : x] += dark;
          ASSERT_NEAR(dark, darkness(back, x, y), 1);
          ASSERT_NEAR(dark, darkness(mirror, kSide - 1 - x, y), 1);
        }
      }
      const auto [first, last] = std::minmax({30, upright ? to.y : to.x});
      for (int along = first; along <= last; ++along) ASSERT_NEAR(sums[along], 2 * 255, 2);
    }
  }
}

TEST(ShapeLines, WideSoftOnesAreSolidAtEveryAngle) {
  for (const int width : {3, 4, 7, 12, 21}) {
    for (const Point& to : allRound(28)) {
      const clsDIB dib = softLine(kMiddle, to, width);
      for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
          const double dx = to.x - kMiddle.x, dy = to.y - kMiddle.y, px = x - kMiddle.x, py = y - kMiddle.y;
          const double t = std::clamp((px * dx + py * dy) / (dx * dx + dy * dy), 0.0, 1.0);
          const double beyond = std::hypot(px - t * dx, py - t * dy) - width / 2.0;
          const int dark = darkness(dib, x, y);
          ASSERT_TRUE(beyond > -0.51 || dark == 255) << width << ": " << x << ' ' << y << " to " << to.x << ' ' << to.y;
          ASSERT_TRUE(beyond < 0.51 || dark == 0) << width << ": " << x << ' ' << y << " to " << to.x << ' ' << to.y;
        }
      }
    }
  }
}

// What is written, where it is written and what is told.
TEST(ShapeLines, StayInThePictureAndTellWhatTheyChanged) {
  const std::function<Rect(clsDIB&, Point)> shapes[] = {
      [](clsDIB& d, Point to) { return PenLine(d, kMiddle, to, kBlack, 1); },
      [](clsDIB& d, Point to) { return AAWideLine(d, kMiddle, to, kBlack, 2); },
      [](clsDIB& d, Point to) { return AAWideLine(d, kMiddle, to, kBlack, 9); },
      [](clsDIB& d, Point to) { return PatternLine(d, kMiddle, to, kBlack, 3, 4); },
      [](clsDIB& d, Point to) { return arrowHead(d, kMiddle, to, kBlack, 3); },
  };
  for (const auto& shape : shapes) {
    for (const Point to : {Point{90, 55}, Point{-30, 10}, Point{5, -70}}) {
      clsDIB dib = plainDib(kSide, kSide, rgb(0, 0, 255)), none;
      dib.setDIBhasAlpha(true);
      const Rect told = shape(dib, to);
      EXPECT_TRUE(!told.empty() && told == told.intersected(dib.surface().bounds()));
      const auto allowed = [&](int x, int y) {
        const Pixel32 pixel = pixelAt(dib, x, y);
        return pixel.alpha == 255 && told.contains(x, y) ? pixel : Pixel32::plain(rgb(0, 0, 255));
      };
      EXPECT_EQ(farthest(&dib.surface(), allowed), 0);
      EXPECT_TRUE(shape(none, to).empty());
    }
  }
}

Rows typed(Point from, Point to, int type, int width = 1, int side = 5, bool soft = true) {
  return rowsOf(drawn([&](clsDIB& d) { drawLine(d, from, to, kBlack, {type, width, soft}); }, side));
}

TEST(LineTypes, DashesAndDotsGrowWithTheWidth) {
  const auto row = [](int width, int type) { return typed({2, 30}, {40, 30}, type, width, kSide)[30].substr(0, 36); };
  EXPECT_EQ(row(1, 2), "..######...######...######...######.");
  EXPECT_EQ(row(1, 3), "..#..#..#..#..#..#..#..#..#..#..#..#");
  EXPECT_EQ(row(1, 4), "..######..#..######..#..######..#..#");
  EXPECT_EQ(row(1, 5), "..######..#..#..######..#..#..######");
  EXPECT_EQ(row(3, 3), ".###......###......###......###.....");
  EXPECT_EQ(row(2, 2), ".############......############.....");
}

TEST(LineTypes, EndsOfThinLines) {
  for (int type = kPenLine; type <= kSoftLine; ++type) {
    EXPECT_PICTURE(typed({2, 2}, {2, 2}, type), {".....", ".....", "..#..", ".....", "....."});
  }
  // On the last column or row the end is reached, but not by a line that runs along it.
  EXPECT_PICTURE(typed({1, 4}, {1, 2}, 0), {".....", ".....", ".#...", ".#...", ".#..."});
  EXPECT_PICTURE(typed({0, 0}, {4, 4}, 0), {"#....", ".#...", "..#..", "...#.", "....#"});
  EXPECT_PICTURE(typed({4, 0}, {4, 3}, 0), {"....#", "....#", "....#", ".....", "....."});
}

// Pixels that lie beside a line three pixels high: of the half that it begins with and of the other.
std::pair<bool, bool> heads(int type, int length, bool soft = true) {
  const Rows rows = typed({10, 30}, {10 + length, 30}, type, 1, kSide, soft);
  const auto beside = [&](int from, int to) { return rows[28].substr(from, to - from).find_first_not_of('.') < kSide; };
  return {beside(0, 10 + length / 2), beside(10 + length / 2, kSide)};
}

TEST(LineTypes, ArrowsHaveHeadsWhenLongEnough) {
  EXPECT_EQ(heads(kArrowLine, 6), std::pair(false, false));
  EXPECT_TRUE(heads(kArrowLine, 7).second);
  EXPECT_EQ(heads(kArrowLine, 25, false), std::pair(false, true));
  EXPECT_EQ(heads(kDoubleArrowLine, 14), std::pair(false, false));
  EXPECT_EQ(heads(kDoubleArrowLine, 15, false), std::pair(true, true));
  EXPECT_EQ(heads(kSoftLine, 25), std::pair(false, false));
}

}  // namespace
}  // namespace ruvo::shape
