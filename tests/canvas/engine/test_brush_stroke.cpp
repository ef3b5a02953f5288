#include "canvas/engine/brush_dab.h"
#include "canvas/engine/stroke_start.h"
#include "support/pictures.h"
#include "support/steady_random.h"

namespace ruvo::brush {
namespace {

using namespace test;

const Ink kGreys = {{'.', kWhite}, {'#', kBlack}, {'h', rgb(128, 128, 128)}, {'q', rgb(64, 64, 64)}};

TEST(BrushStroke, translucentStrokeStaysEvenHoweverOftenItCrossesItself) {
  clsDIB dib = dibOf(Rows(7, ".........."));
  BrushStroke stroke;
  stroke.BrushStrokeBegin(dib, kBlack);
  stroke.BrushDab(2, 3, 3, 50, 2);
  stroke.walk({2, 3}, {7, 3}, 3, 50, 2);
  stroke.walk({7, 3}, {2, 3}, 3, 50, 2);
  const Rows even = {"..........", "hhhhhhhhhh", "hhhhhhhhhh", "hhhhhhhhhh", "hhhhhhhhhh", "hhhhhhhhhh", ".........."};
  EXPECT_EQ(rowsOf(dib, kGreys), even);

  // A new stroke starts from what is there now.
  stroke.BrushStrokeBegin(dib, kBlack);
  stroke.BrushDab(0, 0, 1, 50, 2);
  stroke.BrushDab(5, 3, 1, 50, 2);
  stroke.BrushStrokeEnd();
  EXPECT_EQ(rowsOf(dib, kGreys)[0], "h.........");
  EXPECT_EQ(rowsOf(dib, kGreys)[3], "hhhhhqhhhh");
}

TEST(BrushStroke, burstsBuildUpAndDensityIsAThresholdForTheRandomNumbers) {
  for (const int density : {0, 1, 2}) {
    clsDIB dib = dibOf({"..."});
    SteadyRandom random(std::array{0.8, 0.6, 0.4}[density]);
    BrushStroke stroke;
    stroke.setRandomSource(&random);
    stroke.BrushStrokeBegin(dib, kBlack);
    stroke.SprayBurst(1, 0, 1, 50, density);
    EXPECT_PICTURE(rowsOf(dib, kGreys), {"..."});
    random.value += 0.01;
    EXPECT_EQ(stroke.SprayBurst(1, 0, 1, 50, density), (Rect{0, 0, 3, 1}));
    EXPECT_PICTURE(rowsOf(dib, kGreys), {"hhh"});
    stroke.SprayBurst(1, 0, 1, 50, density);
    EXPECT_PICTURE(rowsOf(dib, kGreys), {"qqq"});
  }
}

TEST(BrushStroke, walksDabsAtEachWholeDistance) {
  const auto walked = [](Point from, Point to) {
    clsDIB dib = dibOf(Rows(5, "......."));
    BrushStroke stroke;
    stroke.BrushStrokeBegin(dib, kBlack);
    stroke.walk(from, to, 1, 100, 2);
    return rowsOf(dib);
  };
  EXPECT_PICTURE(walked({1, 1}, {1, 1}), {".......", ".......", ".......", ".......", "......."});
  EXPECT_PICTURE(walked({1, 1}, {5, 1}), {".......", "..####.", ".......", ".......", "......."});
  // Columns and rows are cut toward the start.
  EXPECT_PICTURE(walked({5, 3}, {1, 2}), {".......", ".......", ".#.....", "..###..", "......."});
  EXPECT_PICTURE(walked({0, 0}, {1, 1}), {".......", ".#.....", ".......", ".......", "......."});
}

TEST(StrokeStart, keepsOnlyTheTilesThatWereTouchedAsTheyWereFirst) {
  raster::Surface picture;
  ASSERT_TRUE(picture.create(3000, 2000, 32));
  StrokeStart start(picture);
  const Rect area{60, 1990, 70, 2000};
  start.keep(area);
  pixelAt(picture, 63, 1995) = Pixel32::plain(kWhite);
  start.keep(area);
  EXPECT_LE(start.keptPixels(), 2u * 64 * 64);

  std::vector<Pixel32> pixels;
  start.read(area, pixels);
  ASSERT_EQ(pixels.size(), 100u);
  EXPECT_EQ(pixels[5 * 10 + 3].colour(), kBlack);

  pixelAt(picture, 2999, 0) = Pixel32::plain(rgb(1, 2, 3));
  const Rect corner{2998, 0, 3000, 2};
  start.keep(corner);
  start.read(corner, pixels);
  EXPECT_EQ(pixels[1].colour(), rgb(1, 2, 3));
}

}  // namespace
}  // namespace ruvo::brush
