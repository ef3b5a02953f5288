#include "platform/imaging/metafile_files.h"

namespace ruvo::imaging {
namespace {

using namespace test;

// A pen of the geometric kind: style bits, width, black.
EmfFile& extPen(EmfFile& file, int style, int width, std::initializer_list<std::int64_t> dashes = {}) {
  file.add(U_EMR_EXTCREATEPEN,
           longs({9, 0, 0, 0, 0, style | 0x10000, width, 0, 0, 0, static_cast<int>(dashes.size())}) + longs(dashes));
  return file.add(37, longs({9}));
}
constexpr int kSquare = 0x100, kFlat = 0x200, kBevel = 0x1000, kMiter = 0x2000;

TEST(MetafileFigures, AreasAndOutlinesLieWhereTheirCornersSay) {
  EmfFile file(24, 24);
  file.stock(7).brush(1, rgb(9, 9, 9)).box(1, 1, 6, 4);
  file.stock(8).stock(4).draw(U_EMR_POLYGON, longs({3, 8, 0, 12, 4, 8, 4}));
  file.stock(7).draw(U_EMR_POLYLINE, longs({3, 14, 0, 14, 3, 17, 3}));
  EXPECT_PICTURE(
      rowsIn(drawn(file), {0, 0, 18, 5}, {{'.', kWhite}, {'#', kBlack}, {'o', rgb(9, 9, 9)}}),
      {"..............#...", ".#####..#.....#...", ".#ooo#..##....#...", ".#####..###...###.", ".................."});
}

TEST(MetafileFigures, RingsOfOnePolygonCutHolesByTheFillMode) {
  for (const int mode : {1, 2}) {
    EmfFile file(24, 24);
    file.blackAreas().add(U_EMR_SETPOLYFILLMODE, longs({mode}));
    file.draw(U_EMR_POLYPOLYGON,
              longs({3, 12, 4, 4, 4, 0, 0, 8, 0, 8, 8, 0, 8, 2, 2, 6, 2, 6, 6, 2, 6, 10, 0, 12, 0, 12, 2, 10, 2}));
    const raster::Surface picture = drawn(file);
    EXPECT_EQ(colourAt(picture, 1, 1), kBlack);
    EXPECT_EQ(colourAt(picture, 4, 4), mode == 1 ? kWhite : kBlack);
    EXPECT_EQ(inkAt(picture, {{11, 1}, {9, 1}, {9, 0}}), "#..") << "what joins the rings leaves no mark";
  }
}

TEST(MetafileFigures, NarrowRecordsDrawWhatWideOnesDo) {
  const auto picture = [](std::uint32_t polygon, std::uint32_t bezier, auto fields) {
    EmfFile file(24, 24);
    file.brush(1, kRed).pen(2, 0, 2, kBlack);
    file.draw(polygon, longs({3}) + fields({2, 2, 20, 4, 9, 20}));
    file.draw(bezier, longs({4}) + fields({-3, 2, 20, 30, 9, -20, 23, 23}));
    return rowsIn(drawn(file), {0, 0, 24, 24});
  };
  EXPECT_PICTURE(picture(U_EMR_POLYGON, U_EMR_POLYBEZIER, longs),
                 {picture(U_EMR_POLYGON16, U_EMR_POLYBEZIER16, words)});
}

TEST(MetafileFigures, LinesGoOnFromThePositionAndCombineByTheRop) {
  EmfFile file(24, 24);
  file.stock(7).move(2, 1).line(6, 1).line(6, 4);
  file.add(U_EMR_SETROP2, longs({6})).move(4, 0).line(4, 3);
  file.draw(U_EMR_POLYDRAW, longs({4, 9, 0, 12, 0, 12, 3, 9, 3}) + Bytes{6, 2, 2, 3});
  EXPECT_PICTURE(rowsIn(drawn(file), {0, 0, 14, 5}),
                 {"....#....####.", "..##.##..#..#.", "....#.#..#..#.", "......#..####.", ".............."});
}

TEST(MetafileFigures, ArcsRunTheWayTheirDirectionSays) {
  const auto quarter = [](bool clockwise, std::uint32_t kind) {
    EmfFile file(24, 24);
    file.stock(7).stock(4).add(U_EMR_SETARCDIRECTION, longs({clockwise ? 2 : 1}));
    file.add(kind, longs({2, 2, 23, 23, 30, 12, 12, -30}));  // from the right to the top
    return drawn(file);
  };
  const raster::Surface shortWay = quarter(false, U_EMR_ARC), longWay = quarter(true, U_EMR_ARC);
  EXPECT_EQ(inkBox(shortWay), (Rect{13, 2, 23, 13})) << "without its last point";
  EXPECT_EQ(inkBox(longWay), (Rect{2, 2, 23, 23}));
  EXPECT_EQ(colourAt(quarter(false, U_EMR_PIE), 14, 10), kBlack);
  EXPECT_EQ(inkAt(quarter(false, U_EMR_CHORD), {{14, 10}, {18, 8}}), ".#");
  EXPECT_EQ(colourAt(shortWay, 18, 8), kWhite);

  EmfFile joined(24, 24);
  joined.stock(7).move(2, 20).add(U_EMR_ARCTO, longs({2, 2, 23, 23, 30, 12, 12, -30}));
  joined.line(12, 20);
  const raster::Surface picture = drawn(joined);
  EXPECT_EQ(inkAt(picture, {{2, 20}, {12, 15}}), "##") << "the position moved to the arc's end";

  EmfFile angle(24, 24);
  angle.stock(7).move(0, 12).add(U_EMR_ANGLEARC, longs({12, 12, 10}) + floats({0, 90}));
  EXPECT_EQ(inkBox(drawn(angle)), (Rect{0, 2, 23, 13}));
}

TEST(MetafileFigures, CapsAndJoinsOfGeometricPens) {
  const auto stroke = [](int style, std::initializer_list<std::int64_t> points) {
    EmfFile file(24, 24);
    extPen(file, style, 6).draw(U_EMR_POLYLINE, longs({static_cast<int>(points.size()) / 2}) + longs(points));
    return inkBox(drawn(file));
  };
  EXPECT_EQ(stroke(kFlat, {8, 12, 16, 12}), (Rect{8, 9, 16, 15}));
  EXPECT_EQ(stroke(kSquare, {8, 12, 16, 12}), (Rect{5, 9, 19, 15}));
  const auto corner = [](int style, float limit) {
    EmfFile file(24, 24);
    extPen(file.add(U_EMR_SETMITERLIMIT, floats({limit})), style | kFlat, 6);
    return inkAt(drawn(file.draw(U_EMR_POLYLINE, longs({3, 4, 20, 4, 4, 20, 4}))), {{1, 1}, {3, 2}});
  };
  EXPECT_EQ(corner(kMiter, 10), "##");
  EXPECT_EQ(corner(kMiter, 1), ".#");
  EXPECT_EQ(corner(kBevel, 10), ".#");
  EXPECT_EQ(corner(0, 10)[0], '.') << "a round corner";
}

TEST(MetafileFigures, DashesOfThePenRepeatAlongTheLine) {
  EmfFile file(24, 24);
  extPen(file, 7 | kFlat, 1, {4, 2}).draw(U_EMR_POLYLINE, longs({2, 0, 1, 18, 1}));
  extPen(file, 2 | kFlat, 3).draw(U_EMR_POLYLINE, longs({2, 0, 5, 18, 5}));
  EXPECT_PICTURE(rowsIn(drawn(file), {0, 0, 18, 7}),
                 {"..................", "####..####..####..", "..................", "..................",
                  "###...###...###...", "###...###...###...", "###...###...###..."});
}

TEST(MetafileFigures, PathsAreCollectedThenFilledStrokedOrBoth) {
  const auto path = [](std::uint32_t act, bool widen = false) {
    EmfFile file(24, 24);
    file.brush(1, kRed).pen(2, 0, 1, kBlack).add(U_EMR_BEGINPATH);
    file.move(2, 2).line(20, 2).line(20, 20).add(U_EMR_CLOSEFIGURE);
    file.box(4, 14, 9, 21).add(U_EMR_ENDPATH);
    if (widen) file.pen(3, 0, 5, kBlack).add(U_EMR_WIDENPATH);
    file.draw(act, {});
    return drawn(file);
  };
  EXPECT_EQ(inkAt(path(U_EMR_FILLPATH), {{16, 6}, {20, 10}}), "r.");
  EXPECT_EQ(inkAt(path(U_EMR_STROKEPATH), {{16, 6}, {20, 10}, {10, 10}, {4, 16}}), ".###")
      << "the figure was closed; boxes join the path";
  EXPECT_EQ(inkAt(path(U_EMR_STROKEANDFILLPATH), {{16, 6}, {20, 10}}), "r#");
  EXPECT_EQ(inkAt(path(U_EMR_FILLPATH, true), {{21, 10}, {15, 7}}), "r.") << "a widened path is the pen's shape";
}

TEST(MetafileFigures, FigureRecordsOfWmfFilesHaveTheirFieldsLastFirst) {
  WmfFile file;
  file.window(24, 24).blackAreas().box(1, 1, 5, 4);
  file.add(0x0418, words({12, 12, 2, 2}));                      // ellipse
  file.add(0x061C, words({4, 4, 8, 22, 1, 14}));                // round rectangle
  file.add(0x081A, words({12, 30, -30, 17, 23, 23, 12, 12}));   // pie
  file.add(0x0324, words({3, 1, 14, 5, 18, 1, 18}));            // polygon
  file.add(0x0538, words({1, 4, 1, 20, 3, 20, 3, 23, 1, 23}));  // polygons
  file.add(0x041F, longs({0}) + words({20, 8}));                // pixel
  const raster::Surface picture = drawn(file.placeable(0, 0, 24, 24, 96));
  EXPECT_EQ(inkAt(picture, {{2, 2}, {6, 6}, {18, 4}, {14, 14}, {1, 17}, {2, 21}, {8, 20}}), "#######");
  EXPECT_EQ(inkAt(picture, {{10, 1}, {19, 15}, {5, 14}, {6, 21}}), "....");
}

TEST(MetafileFigures, FloodsUpToABorderOrOverAColour) {
  EmfFile file(24, 24);
  file.stock(7).stock(5).box(2, 2, 12, 12);
  file.brush(1, kBlue).add(U_EMR_EXTFLOODFILL, longs({5, 5, kBlack, 0}));
  file.brush(2, kGreen).add(U_EMR_EXTFLOODFILL, longs({20, 20, kWhite, 1}));
  EXPECT_EQ(inkAt(drawn(file), {{10, 10}, {2, 2}, {0, 0}}), "b#g");
}

}  // namespace
}  // namespace ruvo::imaging
