#include "platform/raster/draw.h"

#include <cstring>

#include "platform/raster/bezier.h"
#include "platform/raster/blit.h"
#include "support/pictures.h"

namespace ruvo::raster {
namespace {

using test::Rows;

constexpr Colour kInk = rgb(1, 0, 0), kFill = rgb(2, 0, 0), kGap = rgb(3, 0, 0);
const test::Ink kNames = {{'.', kBlack}, {'#', kInk}, {'o', kFill}, {'b', kGap}};
using Figure = std::function<void(DrawContext&)>;

DrawContext contextOn(Surface& s, int width = 1) {
  DrawContext c(s);
  c.pen = Pen::solid(kInk, width);
  c.brush = Brush::null();
  c.backColour = kGap;
  return c;
}

Rows drawn(int width, int height, const Figure& figure, int penWidth = 1) {
  Surface s;
  s.create(width, height, 32);
  DrawContext c = contextOn(s, penWidth);
  figure(c);
  return test::rowsOf(s, kNames);
}

Figure lineFigure(Point from, Point to) {
  return [=](DrawContext& c) { line(c, from, to); };
}

TEST(Pen, ThinLinesRoundHalvesDownAndLeaveOutTheEnd) {
  struct Case {
    Point to;
    std::vector<int> minor;
  };
  const Case cases[] = {{{7, 3}, {0, 0, 1, 1, 2, 2, 3}}, {{5, -2}, {0, 0, -1, -1, -2}},      {{-5, 2}, {0, 0, 1, 1, 2}},
                        {{-4, -2}, {0, -1, -1, -2}},     {{6, -3}, {0, -1, -1, -2, -2, -3}}, {{2, 4}, {0, 0, 1, 1}},
                        {{-2, 4}, {0, -1, -1, -2}},      {{3, -6}, {0, 0, 1, 1, 2, 2}},      {{0, 0}, {}}};
  for (const Case& c : cases) {
    const int dx = c.to.x, dy = c.to.y;
    Rows expected(17, std::string(17, '.'));
    for (int i = 0; i < static_cast<int>(c.minor.size()); ++i) {
      const bool xMajor = std::abs(dx) >= std::abs(dy);
      const int x = xMajor ? (dx > 0 ? i : -i) : c.minor[i], y = xMajor ? c.minor[i] : (dy > 0 ? i : -i);
      expected[8 + y][8 + x] = '#';
    }
    EXPECT_TRUE(test::samePicture(drawn(17, 17, lineFigure({8, 8}, {8 + dx, 8 + dy})), expected)) << dx << ", " << dy;
  }
}

TEST(Pen, WideLinesHaveRoundEndsAndASlantedBody) {
  const auto dot = lineFigure({2, 2}, {2, 2});
  EXPECT_PICTURE(drawn(5, 5, dot, 2), {".....", ".##..", ".##..", ".....", "....."});
  EXPECT_PICTURE(drawn(5, 5, dot, 3), {".....", "..#..", ".###.", "..#..", "....."});
  EXPECT_PICTURE(drawn(5, 5, dot, 4), {".##..", "####.", "####.", ".##..", "....."});
  EXPECT_PICTURE(drawn(5, 5, dot, 5), {".###.", "#####", "#####", "#####", ".###."});
  EXPECT_PICTURE(drawn(8, 5, lineFigure({1, 4}, {7, 1}), 2),
                 {"......##", ".....###", "...#####", "######..", "####...."});
  EXPECT_PICTURE(drawn(9, 6, lineFigure({1, 1}, {7, 4}), 3),
                 {".###.....", "######...", "########.", "..######.", "....#####", ".......#."});
  EXPECT_PICTURE(drawn(7, 10, lineFigure({5, 2}, {2, 8}), 4), {"....##.", "...####", "...####", "..#####", "..#####",
                                                               ".#####.", ".#####.", "#####..", "#####..", ".##...."});
}

TEST(Pen, BrokenStylesGoOnRoundCornersAndFillTheirGaps) {
  const auto styled = [](PenStyle style, BackMode mode) {
    return drawn(40, 1, [=](DrawContext& c) {
      c.pen.style = style;
      c.backMode = mode;
      const Point points[] = {{0, 0}, {10, 0}, {39, 0}};
      polyline(c, points);
    });
  };
  EXPECT_EQ(styled(PenStyle::Dash, BackMode::Opaque)[0], "##################bbbbbb###############.");
  EXPECT_EQ(styled(PenStyle::Dot, BackMode::Transparent)[0], "###...###...###...###...###...###...###.");
  EXPECT_EQ(styled(PenStyle::DashDot, BackMode::Transparent)[0], "#########......###......#########.......");
  EXPECT_EQ(styled(PenStyle::DashDotDot, BackMode::Opaque)[0], "#########bbb###bbb###bbb#########bbb###.");
  EXPECT_EQ(styled(PenStyle::Null, BackMode::Opaque)[0], std::string(40, '.'));
  // A rectangle runs counter-clockwise from its top right corner; a wide pen is solid.
  EXPECT_PICTURE(drawn(6, 4,
                       [](DrawContext& c) {
                         c.pen.style = PenStyle::Dot;
                         rectangle(c, {0, 0, 6, 4});
                       }),
                 {"bbb###", "#....b", "#....#", "#bbb##"});
  EXPECT_EQ(drawn(9, 1,
                  [](DrawContext& c) {
                    c.pen = {PenStyle::Dash, 2, kInk};
                    line(c, {0, 0}, {9, 0});
                  })[0],
            "#########");
}

void boxed(DrawContext& c, int kind, Rect box, int corner = 10) {
  c.brush = Brush::solid(kFill);
  if (kind == 0) rectangle(c, box);
  if (kind == 1) ellipse(c, box);
  if (kind == 2) roundRectangle(c, box, corner, corner);
}
Figure box(int kind, Rect rect, bool pen = true) {
  return [=](DrawContext& c) {
    if (!pen) c.pen = Pen::null();
    boxed(c, kind, rect);
  };
}

TEST(Draw, RectanglesEllipsesAndRoundRectangles) {
  EXPECT_PICTURE(drawn(6, 5, box(0, {5, 4, 1, 1})), {"......", ".####.", ".#oo#.", ".####.", "......"});
  EXPECT_PICTURE(drawn(5, 5, box(0, {0, 0, 5, 5}, false)), {"oooo.", "oooo.", "oooo.", "oooo.", "....."});
  EXPECT_PICTURE(drawn(5, 5, box(1, {0, 0, 5, 5}, false)), {".ooo.", "ooooo", "ooooo", "ooooo", ".ooo."});
  EXPECT_PICTURE(drawn(10, 10, box(1, {0, 0, 10, 10})),
                 {"...####...", "..#oooo#..", ".#oooooo#.", "#oooooooo#", "#oooooooo#", "#oooooooo#", "#oooooooo#",
                  ".#oooooo#.", "..#oooo#..", "...####..."});
  EXPECT_PICTURE(drawn(20, 8, box(2, {0, 0, 20, 8})),
                 {"...##############...", ".##oooooooooooooo##.", "#oooooooooooooooooo#", "#oooooooooooooooooo#",
                  "#oooooooooooooooooo#", "#oooooooooooooooooo#", ".##oooooooooooooo##.", "...##############..."});
  EXPECT_PICTURE(drawn(6, 6, box(2, {1, 1, 6, 6}), 2), {".####.", "######", "######", "##oo##", "######", "######"})
      << "";
  EXPECT_PICTURE(drawn(7, 7, box(1, {1, 1, 6, 6}), 3),
                 {"..#####", "######.", "#######", "#######", "#######", "######.", "..#####"});
  EXPECT_PICTURE(drawn(3, 3, box(0, {1, 1, 2, 2})), {"...", "...", "..."}) << "one pixel has no outline";
  EXPECT_PICTURE(drawn(4, 3,
                       [](DrawContext& c) {
                         c.brush = Brush::solid(kFill);
                         frameRect(c, {0, 0, 4, 3});
                       }),
                 {"oooo", "o..o", "oooo"});
}

TEST(Draw, EveryFigureIsTheSameAtAllDepthsRowOrdersAndClips) {
  const std::vector<Point> zigzag = {{3, 2}, {38, 25}, {-9, 17}, {22, -6}, {12, 31}, {30, 5}, {7, 9}};
  const std::vector<std::function<void(DrawContext&, Point)>> figures = {
      [&](DrawContext& c, Point o) {
        auto p = zigzag;
        for (Point& q : p) q = {q.x + o.x, q.y + o.y};
        polygon(c, p);
      },
      [](DrawContext& c, Point o) { boxed(c, 0, Rect::fromSize(o.x - 3, o.y + 2, 30, 17)); },
      [](DrawContext& c, Point o) { boxed(c, 1, Rect::fromSize(o.x - 4, o.y - 6, 44, 31)); },
      [](DrawContext& c, Point o) { boxed(c, 2, Rect::fromSize(o.x + 2, o.y - 6, 44, 31), 13); },
      [](DrawContext& c, Point o) {
        arc(c, Rect::fromSize(o.x - 4, o.y - 6, 30, 31), {o.x + 40, o.y}, o);
      }};
  for (int figure = 0; figure < 5; ++figure) {
    for (int width : {1, 2, 5}) {
      Surface whole;
      whole.create(140, 140, 32);
      DrawContext all = contextOn(whole, width);
      all.brush = Brush::solid(kFill);
      figures[figure](all, {50, 50});
      Surface part;
      part.create(32, 24, 32);
      blit(part, 0, 0, 32, 24, whole, 50, 50);
      for (int depth : {4, 8, 24, 32}) {
        Surface s;
        s.create(32, 24, depth, depth == 8 ? RowOrder::TopDown : RowOrder::BottomUp);
        for (int i = 0; depth <= 8 && i < 3; ++i) s.table()[i] = TableEntry::of(rgb(i, 0, 0));
        DrawContext c = contextOn(s, width);
        c.brush = Brush::solid(kFill);
        figures[figure](c, {0, 0});
        EXPECT_TRUE(test::samePicture(test::rowsOf(s, kNames), test::rowsOf(part, kNames)))
            << "figure " << figure << ", pen " << width << ", depth " << depth;
      }
    }
  }
}

TEST(Draw, InvertingTouchesPixelsOncePerFigure) {
  const auto inverted = [](int width, const Figure& figure) {
    Surface s;
    s.create(14, 10, 32);
    DrawContext c = contextOn(s, width);
    c.rop2 = Rop2::Not;
    figure(c);
    Rows rows = test::rowsOf(s, {{'.', kBlack}, {'#', kWhite}});
    figure(c);
    EXPECT_EQ(test::rowsOf(s), Rows(10, std::string(14, '#'))) << "twice restores";
    return rows;
  };
  const Point open[] = {{2, 2}, {10, 2}, {10, 7}};
  const Rows joined = inverted(3, [&](DrawContext& c) { polyline(c, open); });
  EXPECT_EQ(joined[2], ".###########..") << "the corner once";
  const Rows chained = inverted(3, [&](DrawContext& c) {
    line(c, open[0], open[1]);
    line(c, open[1], open[2]);
  });
  EXPECT_EQ(chained[2], ".########.....") << "two calls meet twice";
  const Rows full = inverted(1, [](DrawContext& c) { boxed(c, 0, {2, 2, 12, 8}); });
  EXPECT_EQ(full[2], "..##########..");
  EXPECT_EQ(full[5], "..##########..");
  const Rows rim = inverted(1, [](DrawContext& c) { boxed(c, 1, {2, 2, 12, 8}); });
  EXPECT_EQ(rim[4], "...########...") << "fill and outline cancel";
}

TEST(Draw, CodesRunOnAllBitsAndAlphaFollowsTheContext) {
  const std::uint32_t results[] = {0x00000000, 0xFFE0D00C, 0x00102003, 0xFFF0F00F, 0x000E0DC0, 0xFFEEDDCC,
                                   0x001E2DC3, 0xFFFEFDCF, 0x00010230, 0xFFE1D23C, 0x00112233, 0xFFF1F23F,
                                   0x000F0FF0, 0xFFEFDFFC, 0x001F2FF3, 0xFFFFFFFF};
  for (int code = 1; code <= 16; ++code) {
    for (bool alphaFill : {false, true}) {
      Surface s;
      s.create(3, 1, 32);
      fillRect(s, s.bounds(), rgb(0x11, 0x22, 0x33));
      DrawContext c(s);
      c.rop2 = static_cast<Rop2>(code);
      c.alphaFill = alphaFill;
      EXPECT_TRUE(setPixel(c, 1, 0, rgb(0x0F, 0x0F, 0xF0)));
      std::uint32_t pixel;
      std::memcpy(&pixel, s.pictureRow(0) + 4, 4);
      EXPECT_EQ(pixel, alphaFill ? results[code - 1] | 0xFF000000u : results[code - 1]) << code;
      EXPECT_FALSE(setPixel(c, 3, 0, 0));
      EXPECT_EQ(getPixel(s, 1, 0), rgb(results[code - 1] >> 16, results[code - 1] >> 8, results[code - 1]));
      EXPECT_EQ(getPixel(s, 0, 1), kNoColour);
      EXPECT_EQ(getPixel(s, 2, 0), rgb(0x11, 0x22, 0x33));
    }
  }
}

TEST(Draw, FocusRectangleStartsAtTheTopRight) {
  Surface s;
  s.create(8, 6, 32);
  DrawContext c(s);
  focusRect(c, {1, 1, 7, 5});
  const test::Ink ink = {{'.', kBlack}, {'#', kWhite}};
  EXPECT_PICTURE(test::rowsOf(s, ink), {"........", "..#.#.#.", ".#......", "......#.", ".#.#.#..", "........"});
  focusRect(c, {1, 1, 7, 5});
  EXPECT_EQ(test::rowsOf(s, ink), Rows(6, "........"));
}

TEST(Draw, CurvesGoThroughTheFlattenedPoints) {
  using Points = std::vector<Point>;
  const Points twoPieces = {{7, 0}, {6, 9}, {16, 4}, {4, 10}, {19, 16}, {16, 6}, {1, 1}};
  EXPECT_EQ(bezierPoints(twoPieces),
            (Points{{7, 0}, {8, 5}, {10, 6}, {9, 7}, {4, 10}, {12, 12}, {14, 11}, {14, 10}, {13, 8}, {10, 5}, {1, 1}}));
  EXPECT_EQ(bezierPoints(Points{{17, 20}, {17, 20}, {11, 13}, {11, 13}}),
            (Points{{17, 20}, {17, 20}, {17, 20}, {16, 19}, {14, 17}, {11, 13}}));
  EXPECT_EQ(bezierPoints(Points{{-4, 0}, {3, 8}, {0, 0}, {12, 18}}), (Points{{-4, 0}, {2, 5}, {12, 18}}));
  EXPECT_TRUE(bezierPoints(Points{{0, 0}, {1, 1}, {2, 2}}).empty());
  const auto curve = drawn(
      20, 20, [&](DrawContext& c) { polyBezier(c, twoPieces); }, 3);
  EXPECT_EQ(curve, drawn(
                       20, 20, [&](DrawContext& c) { polyline(c, bezierPoints(twoPieces)); }, 3));
}

TEST(Draw, AnArcRunsCounterClockwiseAlongTheOutline) {
  const auto part = [](Point start, Point end) {
    return drawn(10, 10, [=](DrawContext& c) { arc(c, {0, 0, 10, 10}, start, end); });
  };
  const Rows ring = drawn(10, 10, [](DrawContext& c) { ellipse(c, {0, 0, 10, 10}); });
  EXPECT_EQ(part({9, 4}, {9, 4}), ring);
  const Rows upper = part({20, 4}, {-20, 4}), lower = part({-20, 4}, {20, 4});
  int missing = 0;
  for (int y = 0; y < 10; ++y) {
    for (int x = 0; x < 10; ++x) {
      const bool above = upper[y][x] == '#', below = lower[y][x] == '#';
      EXPECT_FALSE((above && below) || (above && y > 5) || (below && y < 4)) << x << ", " << y;
      EXPECT_FALSE((above || below) && ring[y][x] != '#') << x << ", " << y;
      missing += ring[y][x] == '#' && !above && !below;
    }
  }
  EXPECT_LE(missing, 2) << "each end is left out";
}

}  // namespace
}  // namespace ruvo::raster
