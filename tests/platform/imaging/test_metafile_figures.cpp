#include <gtest/gtest.h>

#include "platform/imaging/metafile_files.h"

namespace ruvo::imaging {
namespace {

using namespace test;

enum Record : std::uint32_t {
  kPolyline = 4,
  kPolyPolygon = 8,
  kSetRop2 = 20,
  kArcDirection = 57,
  kPolygon = 3,
  kPolyFillMode = 19,
  kMoveTo = 27,
  kRestore = 34,
  kPixel = 15,
  kEllipse = 42,
  kRoundRect = 44,
  kArc = 45,
  kChord = 46,
  kPie = 47,
  kFlood = 53,
  kLineTo = 54,
  kArcTo = 55,
  kMiterLimit = 58,
  kBeginPath = 59,
  kEndPath = 60,
  kCloseFigure = 61,
  kFillPath = 62,
  kStrokeFill = 63,
  kStrokePath = 64,
  kWidenPath = 66,
  kClipPath = 67,
  kPolygon16 = 86,
  kPolyline16 = 87,
  kPolyBezier = 2,
  kPolyBezierTo = 5,
  kPolyBezier16 = 85,
  kPolyDraw = 56,
  kExtPen = 95,
  kAngleArc = 41,
};

// A pen of the geometric kind: style bits, width, black.
EmfFile& extPen(EmfFile& file, int style, int width, std::initializer_list<std::int64_t> dashes = {}) {
  file.add(kExtPen,
           longs({9, 0, 0, 0, 0, style | 0x10000, width, 0, 0, 0, static_cast<int>(dashes.size())}) + longs(dashes));
  return file.add(37, longs({9}));
}
constexpr int kSquare = 0x100, kFlat = 0x200, kBevel = 0x1000, kMiter = 0x2000;

TEST(MetafileFigures, AreasAndOutlinesLieWhereTheirCornersSay) {
  EmfFile file(24, 24);
  file.stock(7).brush(1, rgb(9, 9, 9)).box(1, 1, 6, 4);
  file.stock(8).stock(4).draw(kPolygon, longs({3, 8, 0, 12, 4, 8, 4}));
  file.stock(7).draw(kPolyline, longs({3, 14, 0, 14, 3, 17, 3}));
  EXPECT_PICTURE(
      rowsIn(drawn(file), {0, 0, 18, 5}, {{'.', kWhite}, {'#', kBlack}, {'o', rgb(9, 9, 9)}}),
      {"..............#...", ".#####..#.....#...", ".#ooo#..##....#...", ".#####..###...###.", ".................."});
}

TEST(MetafileFigures, RingsOfOnePolygonCutHolesByTheFillMode) {
  for (const int mode : {1, 2}) {
    EmfFile file(24, 24);
    file.blackAreas().add(kPolyFillMode, longs({mode}));
    file.draw(kPolyPolygon,
              longs({3, 12, 4, 4, 4, 0, 0, 8, 0, 8, 8, 0, 8, 2, 2, 6, 2, 6, 6, 2, 6, 10, 0, 12, 0, 12, 2, 10, 2}));
    const raster::Surface picture = drawn(file);
    EXPECT_EQ(colourAt(picture, 1, 1), kBlack);
    EXPECT_EQ(colourAt(picture, 4, 4), mode == 1 ? kWhite : kBlack);
    EXPECT_EQ(colourAt(picture, 11, 1), kBlack);
    EXPECT_EQ(colourAt(picture, 9, 1), kWhite) << "what joins the rings leaves no mark";
    EXPECT_EQ(colourAt(picture, 9, 0), kWhite);
  }
}

TEST(MetafileFigures, NarrowRecordsDrawWhatWideOnesDo) {
  const auto picture = [](std::uint32_t polygon, std::uint32_t bezier, auto fields) {
    EmfFile file(24, 24);
    file.brush(1, rgb(200, 0, 0)).pen(2, 0, 2, kBlack);
    file.draw(polygon, longs({3}) + fields({2, 2, 20, 4, 9, 20}));
    file.draw(bezier, longs({4}) + fields({-3, 2, 20, 30, 9, -20, 23, 23}));
    return rowsIn(drawn(file), {0, 0, 24, 24});
  };
  EXPECT_PICTURE(picture(kPolygon, kPolyBezier, longs), {picture(kPolygon16, kPolyBezier16, words)});
}

TEST(MetafileFigures, LinesGoOnFromThePositionAndCombineByTheRop) {
  EmfFile file(24, 24);
  file.stock(7).add(kMoveTo, longs({2, 1})).add(kLineTo, longs({6, 1})).add(kLineTo, longs({6, 4}));
  file.add(kSetRop2, longs({6})).add(kMoveTo, longs({4, 0})).add(kLineTo, longs({4, 3}));
  file.draw(kPolyDraw, longs({4, 9, 0, 12, 0, 12, 3, 9, 3}) + Bytes{6, 2, 2, 3});
  EXPECT_PICTURE(rowsIn(drawn(file), {0, 0, 14, 5}),
                 {"....#....####.", "..##.##..#..#.", "....#.#..#..#.", "......#..####.", ".............."});
}

TEST(MetafileFigures, ArcsRunTheWayTheirDirectionSays) {
  const auto quarter = [](bool clockwise, std::uint32_t kind) {
    EmfFile file(24, 24);
    file.stock(7).stock(4).add(kArcDirection, longs({clockwise ? 2 : 1}));
    file.add(kind, longs({2, 2, 23, 23, 30, 12, 12, -30}));  // from the right to the top
    return drawn(file);
  };
  const raster::Surface shortWay = quarter(false, kArc), longWay = quarter(true, kArc);
  EXPECT_EQ(inkBox(shortWay), (Rect{13, 2, 23, 13})) << "without its last point";
  EXPECT_EQ(inkBox(longWay), (Rect{2, 2, 23, 23}));
  EXPECT_EQ(colourAt(quarter(false, kPie), 14, 10), kBlack);
  EXPECT_EQ(colourAt(quarter(false, kChord), 14, 10), kWhite);
  EXPECT_EQ(colourAt(quarter(false, kChord), 18, 8), kBlack);
  EXPECT_EQ(colourAt(shortWay, 18, 8), kWhite);

  EmfFile joined(24, 24);
  joined.stock(7).add(kMoveTo, longs({2, 20})).add(kArcTo, longs({2, 2, 23, 23, 30, 12, 12, -30}));
  joined.add(kLineTo, longs({12, 20}));
  const raster::Surface picture = drawn(joined);
  EXPECT_EQ(colourAt(picture, 2, 20), kBlack);
  EXPECT_EQ(colourAt(picture, 12, 15), kBlack) << "the position moved to the arc's end";

  EmfFile angle(24, 24);
  angle.stock(7).add(kMoveTo, longs({0, 12})).add(kAngleArc, longs({12, 12, 10}) + floats({0, 90}));
  EXPECT_EQ(inkBox(drawn(angle)), (Rect{0, 2, 23, 13}));
}

TEST(MetafileFigures, CapsAndJoinsOfGeometricPens) {
  const auto stroke = [](int style, std::initializer_list<std::int64_t> points) {
    EmfFile file(24, 24);
    extPen(file, style, 6).draw(kPolyline, longs({static_cast<int>(points.size()) / 2}) + longs(points));
    return inkBox(drawn(file));
  };
  EXPECT_EQ(stroke(kFlat, {8, 12, 16, 12}), (Rect{8, 9, 16, 15}));
  EXPECT_EQ(stroke(kSquare, {8, 12, 16, 12}), (Rect{5, 9, 19, 15}));
  const auto corner = [](int style) {
    EmfFile file(24, 24);
    extPen(file, style | kFlat, 6).draw(kPolyline, longs({3, 4, 20, 4, 4, 20, 4}));
    return drawn(file);
  };
  EXPECT_EQ(colourAt(corner(kMiter), 1, 1), kBlack);
  EXPECT_EQ(colourAt(corner(kBevel), 1, 1), kWhite);
  EXPECT_EQ(colourAt(corner(kBevel), 3, 2), kBlack);
  EXPECT_EQ(colourAt(corner(0), 1, 1), kWhite) << "a round corner";
  EmfFile limited(24, 24);
  limited.add(kMiterLimit, floats({1}));
  extPen(limited, kMiter | kFlat, 6).draw(kPolyline, longs({3, 4, 20, 4, 4, 20, 4}));
  EXPECT_EQ(colourAt(drawn(limited), 1, 1), kWhite);
}

TEST(MetafileFigures, DashesOfThePenRepeatAlongTheLine) {
  EmfFile file(24, 24);
  extPen(file, 7 | kFlat, 1, {4, 2}).draw(kPolyline, longs({2, 0, 1, 18, 1}));
  extPen(file, 2 | kFlat, 3).draw(kPolyline, longs({2, 0, 5, 18, 5}));
  EXPECT_PICTURE(rowsIn(drawn(file), {0, 0, 18, 7}),
                 {"..................", "####..####..####..", "..................", "..................",
                  "###...###...###...", "###...###...###...", "###...###...###..."});
}

TEST(MetafileFigures, PathsAreCollectedThenFilledStrokedOrBoth) {
  const auto path = [](std::uint32_t act, bool widen = false) {
    EmfFile file(24, 24);
    file.brush(1, rgb(200, 0, 0)).pen(2, 0, 1, kBlack).add(kBeginPath);
    file.add(kMoveTo, longs({2, 2})).add(kLineTo, longs({20, 2})).add(kLineTo, longs({20, 20})).add(kCloseFigure);
    file.box(4, 14, 9, 21).add(kEndPath);
    if (widen) file.pen(3, 0, 5, kBlack).add(kWidenPath);
    file.draw(act, {});
    return drawn(file);
  };
  EXPECT_EQ(colourAt(path(kFillPath), 16, 6), rgb(200, 0, 0));
  EXPECT_EQ(colourAt(path(kFillPath), 20, 10), kWhite);
  EXPECT_EQ(colourAt(path(kStrokePath), 16, 6), kWhite);
  EXPECT_EQ(colourAt(path(kStrokePath), 20, 10), kBlack);
  EXPECT_EQ(colourAt(path(kStrokePath), 10, 10), kBlack) << "the figure was closed";
  EXPECT_EQ(colourAt(path(kStrokePath), 4, 16), kBlack) << "boxes join the path";
  EXPECT_EQ(colourAt(path(kStrokeFill), 16, 6), rgb(200, 0, 0));
  EXPECT_EQ(colourAt(path(kStrokeFill), 20, 10), kBlack);
  EXPECT_EQ(colourAt(path(kFillPath, true), 21, 10), rgb(200, 0, 0)) << "a widened path is the pen's shape";
  EXPECT_EQ(colourAt(path(kFillPath, true), 15, 7), kWhite);
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
  for (const Point p : {Point{2, 2}, {6, 6}, {18, 4}, {14, 14}, {1, 17}, {2, 21}, {8, 20}}) {
    EXPECT_EQ(colourAt(picture, p.x, p.y), kBlack) << p.x << "," << p.y;
  }
  for (const Point p : {Point{10, 1}, {19, 15}, {5, 14}, {6, 21}}) {
    EXPECT_EQ(colourAt(picture, p.x, p.y), kWhite) << p.x << "," << p.y;
  }
}

TEST(MetafileFigures, FloodsUpToABorderOrOverAColour) {
  EmfFile file(24, 24);
  file.stock(7).stock(5).box(2, 2, 12, 12);
  file.brush(1, rgb(0, 0, 200))
      .add(kFlood, longs({5, 5, kBlack, 0}))
      .brush(2, rgb(0, 200, 0))
      .add(kFlood, longs({20, 20, kWhite, 1}));
  const raster::Surface picture = drawn(file);
  EXPECT_EQ(colourAt(picture, 10, 10), rgb(0, 0, 200));
  EXPECT_EQ(colourAt(picture, 2, 2), kBlack);
  EXPECT_EQ(colourAt(picture, 0, 0), rgb(0, 200, 0));
}

}  // namespace
}  // namespace ruvo::imaging
