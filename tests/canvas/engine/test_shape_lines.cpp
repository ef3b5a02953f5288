#include "canvas/engine/shape_lines.h"

#include <cmath>

#include "canvas/engine/shape_line_types.h"
#include "support/pictures.h"

namespace ruvo::shape {
namespace {

using namespace test;

constexpr int kSide = 61;
constexpr Point kMiddle{30, 30};

int darkness(const clsDIB& dib, int x, int y) {
  return 255 - pixelAt(dib, x, y).red;
}
clsDIB softLine(Point from, Point to, int width) {
  clsDIB dib = plainDib(kSide, kSide, kWhite);
  AAWideLine(dib, from, to, kBlack, width);
  return dib;
}
Rows typed(Point from, Point to, int type, int width = 1, int side = 5, bool soft = true) {
  clsDIB dib = plainDib(side, side, kWhite);
  drawLine(dib, from, to, kBlack, {type, width, soft});
  return rowsOf(dib);
}

TEST(ShapeLines, SoftOnesShareTheirWidthWithTheNeighbours) {
  const clsDIB dib = softLine({2, 1}, {3, 5}, 2);
  const int dark[][4] = {{22, 128, 0, 0}, {129, 255, 128, 0}, {65, 255, 192, 0}, {0, 255, 255, 0}, {0, 193, 255, 64}};
  for (int i = 0; i < 20; ++i) EXPECT_EQ(darkness(dib, i % 4 + 1, i / 4), dark[i / 4][i % 4]) << i;
}

// At every angle a line looks the same from both ends and in the mirror, and has neither gaps nor frayed edges. The two
// pixels wide one starts with half a step, rounded down: its neighbours may differ by that.
void checkSoftLine(Point to, int width) {
  const clsDIB there = softLine(kMiddle, to, width), back = softLine(to, kMiddle, width);
  const clsDIB mirror = softLine(kMiddle, {2 * kMiddle.x - to.x, to.y}, width);
  const double dx = to.x - kMiddle.x, dy = to.y - kMiddle.y;
  const double near = width == 2 ? 2 + 255 / std::max(std::abs(dx), std::abs(dy)) : 1;
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      const int dark = darkness(there, x, y);
      ASSERT_NEAR(dark, darkness(back, x, y), near);
      ASSERT_NEAR(dark, darkness(mirror, kSide - 1 - x, y), near);
      const double px = x - kMiddle.x, py = y - kMiddle.y;
      const double t = std::clamp((px * dx + py * dy) / (dx * dx + dy * dy), 0.0, 1.0);
      const double beyond = std::hypot(px - t * dx, py - t * dy) - width / 2.0;
      ASSERT_TRUE(beyond > (width == 2 ? -0.66 : -0.51) || dark == 255) << x << ' ' << y;
      ASSERT_TRUE(beyond < 0.51 || dark == 0) << x << ' ' << y;
    }
  }
}
TEST(ShapeLines, SoftOnesAreSolidAndSymmetricAtEveryAngle) {
  for (const int width : {2, 3, 4, 7, 12, 21}) {
    for (int degrees = 0; degrees < 360; degrees += 5) {
      const int radius = width == 2 ? 3 + degrees % 7 : 28;
      const Point to{kMiddle.x + static_cast<int>(std::lround(radius * std::cos(degrees * 0.0174533))),
                     kMiddle.y + static_cast<int>(std::lround(radius * std::sin(degrees * 0.0174533)))};
      SCOPED_TRACE(testing::Message() << "width " << width << " to " << to.x << ' ' << to.y);
      checkSoftLine(to, width);
    }
  }
}

TEST(ShapeLines, StayInThePictureAndTellWhatTheyChanged) {
  for (int type = kPenLine; type <= 2 * kSoftLine; ++type) {
    clsDIB dib = plainDib(kSide, kSide, rgb(0, 0, 255));
    dib.setDIBhasAlpha(true);
    const Rect told = drawLine(dib, kMiddle, {-30, 99}, kBlack, {type / 2, type % 2 == 0 ? 1 : 8, true});
    EXPECT_TRUE(!told.empty() && told == told.intersected(dib.surface().bounds()));
    const auto allowed = [&](int x, int y) {
      const Pixel32 pixel = pixelAt(dib, x, y);
      return pixel.alpha == 255 && told.contains(x, y) ? pixel : Pixel32::plain(rgb(0, 0, 255));
    };
    EXPECT_EQ(farthest(&dib.surface(), allowed), 0) << type;
  }
}

TEST(ShapeLines, DashesAndDotsGrowWithTheWidth) {
  const auto row = [](int width, int type) { return typed({2, 30}, {40, 30}, type, width, kSide)[30].substr(0, 36); };
  EXPECT_EQ(row(1, 3), "..#..#..#..#..#..#..#..#..#..#..#..#");
  EXPECT_EQ(row(1, 5), "..######..#..#..######..#..#..######");
  EXPECT_EQ(row(2, 2), ".############......############.....");
}

TEST(ShapeLines, EndsOfThinOnes) {
  for (int type = kPenLine; type <= kSoftLine; ++type) {
    EXPECT_PICTURE(typed({1, 1}, {1, 1}, type), {".....", ".#...", ".....", ".....", "....."});
  }
  // The lower end is left out unless it is on the last column or row and the line does not run along it.
  EXPECT_PICTURE(typed({3, 3}, {0, 0}, kPenLine), {"#....", ".#...", "..#..", ".....", "....."});
  EXPECT_PICTURE(typed({3, 3}, {0, 0}, kSquareLine), {"#....", ".#...", "..#..", "...#.", "....."});
  EXPECT_PICTURE(typed({1, 4}, {1, 2}, kPenLine), {".....", ".....", ".#...", ".#...", ".#..."});
  EXPECT_PICTURE(typed({4, 0}, {4, 3}, kPenLine), {"....#", "....#", "....#", ".....", "....."});
}

TEST(ShapeLines, ArrowsHaveHeadsWhenLongEnough) {
  // Something lies beside the line in the half that it begins with, and in the other.
  const auto heads = [](int type, int length, bool soft) {
    const std::string row = typed({10, 30}, {10 + length, 30}, type, 1, kSide, soft)[28];
    const auto middle = static_cast<std::size_t>(10 + length / 2);
    return std::pair{row.find_first_not_of('.') < middle, row.find_first_not_of('.', middle) < row.size()};
  };
  EXPECT_EQ(heads(kArrowLine, 6, true), std::pair(false, false));
  EXPECT_TRUE(heads(kArrowLine, 7, true).second);
  EXPECT_EQ(heads(kArrowLine, 25, false), std::pair(false, true));
  EXPECT_EQ(heads(kDoubleArrowLine, 14, true), std::pair(false, false));
  EXPECT_EQ(heads(kDoubleArrowLine, 15, false), std::pair(true, true));
}

}  // namespace
}  // namespace ruvo::shape
