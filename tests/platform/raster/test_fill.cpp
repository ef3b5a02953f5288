#include "platform/raster/blit.h"
#include "platform/raster/draw.h"
#include "platform/raster/flood_fill.h"
#include "support/pictures.h"

namespace ruvo::raster {
namespace {

using test::Rows;

const test::Ink kNames = {{'.', kBlack}, {'#', rgb(255, 0, 0)}, {'o', rgb(255, 255, 0)}, {'b', rgb(0, 0, 255)}};

std::string spansOf(const Region& region, int height) {
  std::string text;
  for (int y = 0; y < height; ++y) {
    std::string row;
    for (const Span& s : region.spans()) {
      if (s.y != y) continue;
      if (!row.empty()) row += '+';
      row += std::to_string(s.left);
      row += '-';
      row += std::to_string(s.right);
    }
    if (y > 0) text += ' ';
    text += row.empty() ? "." : row;
  }
  return text;
}

TEST(Region, EllipsesAndRoundRectangles) {
  const auto ellipse = [](int w, int h) { return spansOf(Region::ellipse({0, 0, w, h}), h); };
  EXPECT_EQ(ellipse(9, 7), "2-6 1-7 0-8 0-8 1-7 2-6 .");
  EXPECT_EQ(ellipse(12, 9), "3-8 2-9 1-10 0-11 0-11 1-10 2-9 3-8 .");
  EXPECT_EQ(ellipse(9, 10), "2-6 1-7 1-7 0-8 0-8 0-8 1-7 1-7 2-6 .");
  EXPECT_EQ(ellipse(2, 4), "0-1 0-1 0-1 .");
  EXPECT_EQ(ellipse(1, 4), ". . . .");
  EXPECT_EQ(ellipse(4, 9), "1-2 1-2 0-3 0-3 0-3 0-3 1-2 1-2 .") << "the tips that the walk does not reach";
  EXPECT_EQ(spansOf(Region::roundRect({54, 15, 0, 0}, 29, 10), 15),
            "8-45 4-49 2-51 1-52 0-53 0-53 0-53 0-53 0-53 0-53 1-52 2-51 4-49 8-45 .");
  EXPECT_EQ(spansOf(Region::roundRect({0, 0, 26, 3}, 33, 34), 3), "0-25 0-25 .");
  // A big one: as many pixels as an ellipse has, mirrored both ways.
  const Region big = Region::ellipse({0, 0, 3002, 502});
  EXPECT_EQ(big.bounds(), (Rect{0, 0, 3001, 501}));
  std::int64_t area = 0;
  for (const Span& s : big.spans()) {
    area += s.right - s.left;
    EXPECT_EQ(s.left, 3001 - s.right);
    EXPECT_TRUE(big.contains(s.left, 500 - s.y) && !big.contains(s.left - 1, 500 - s.y));
  }
  EXPECT_NEAR(static_cast<double>(area), 3001 * 501 * 0.7853982, 3000);
}

TEST(Region, PolygonsByParityAndWinding) {
  const Point triangle[] = {{2, 2}, {30, 10}, {8, 28}};
  EXPECT_EQ(spansOf(Region::polygon(triangle), 12), ". . . 3-6 3-9 3-13 3-16 4-20 4-23 4-27 4-30 5-29");
  const Point star[] = {{10, 0}, {16, 19}, {0, 7}, {20, 7}, {4, 19}};
  EXPECT_FALSE(Region::polygon(star, FillMode::Alternate).contains(10, 10));
  EXPECT_TRUE(Region::polygon(star, FillMode::Winding).contains(10, 10));
  const Point square[] = {{1, 1}, {4, 1}, {4, 3}, {1, 3}};
  EXPECT_EQ(spansOf(Region::polygon(square), 4), ". 1-4 1-4 .");
}

TEST(Region, CombinesAndMoves) {
  const Region a = Region::rect({0, 0, 6, 3}), b = Region::rect({8, 4, 2, 1});
  EXPECT_EQ(spansOf(Region::combined(a, b, RegionOp::And), 4), ". 2-6 2-6 .");
  EXPECT_EQ(spansOf(Region::combined(a, b, RegionOp::Or), 4), "0-6 0-8 0-8 2-8");
  EXPECT_EQ(spansOf(Region::combined(a, b, RegionOp::Xor), 4), "0-6 0-2+6-8 0-2+6-8 2-8");
  EXPECT_EQ(spansOf(Region::combined(a, b, RegionOp::Diff), 4), "0-6 0-2 0-2 .");
  Region moved = Region::combined(a, b, RegionOp::Xor);
  moved.offset(1, 1);
  EXPECT_TRUE(moved.contains(1, 2) && moved.contains(8, 2) && !moved.contains(5, 2) && !moved.contains(9, 2));
}

TEST(Brush, HatchesAlignWithTheOriginAndPatternsTile) {
  const auto hatched = [](HatchStyle style, Point origin, BackMode mode) {
    Surface s;
    s.create(9, 9, 32, origin.x ? RowOrder::TopDown : RowOrder::BottomUp);
    DrawContext c(s);
    c.brush = Brush::hatch(style, kNames.at('#'));
    c.backColour = kNames.at('o');
    c.backMode = mode;
    c.brushOrigin = origin;
    c.rop2 = Rop2::Not;
    fillRect(c, {1, 1, 9, 9});
    return test::rowsOf(s, kNames);
  };
  EXPECT_PICTURE(hatched(HatchStyle::ForwardDiagonal, {}, BackMode::Opaque),
                 {".........", ".#ooooooo", ".o#oooooo", ".oo#ooooo", ".ooo#oooo", ".oooo#ooo", ".ooooo#oo",
                  ".oooooo#o", ".ooooooo#"});
  EXPECT_PICTURE(hatched(HatchStyle::Cross, {-1, 3}, BackMode::Transparent),
                 {".........", "...#.....", "...#.....", "...#.....", "...#.....", "...#.....", ".########",
                  "...#.....", "...#....."});
  const Rows back = hatched(HatchStyle::BackwardDiagonal, {1, 1}, BackMode::Transparent);
  EXPECT_EQ(back[1], "........#");
  EXPECT_EQ(back[8], ".#.......");

  const Surface tile = test::surfaceOf({"#o.", "b.#"}, kNames, RowOrder::TopDown);
  for (int depth : {8, 32}) {
    Surface s;
    s.create(6, 4, depth);
    if (depth == 8) s.table()[200] = TableEntry::of(kNames.at('#'));
    if (depth == 8) s.table()[100] = TableEntry::of(kNames.at('o'));
    if (depth == 8) s.table()[50] = TableEntry::of(kNames.at('b'));
    DrawContext c(s);
    c.brush = Brush::pattern(tile);
    c.brushOrigin = {1, -3};
    fillRect(c, {0, 0, 5, 9});
    EXPECT_PICTURE(test::rowsOf(s, kNames), {"#b.#b.", ".#o.#.", "#b.#b.", ".#o.#."});
  }
}

struct Flood {
  bool answer;
  Rows rows;
};
Flood flooded(const Rows& before, Point at, char colour, FloodMode mode,
              const std::function<void(DrawContext&)>& set = {}) {
  Surface s = test::surfaceOf(before, kNames);
  DrawContext c(s);
  c.brush = Brush::solid(kNames.at('#'));
  if (set) set(c);
  const bool answer = floodFill(c, at.x, at.y, kNames.at(colour), mode);
  return {answer, test::rowsOf(s, kNames)};
}

TEST(FloodFill, SurfaceAndBorder) {
  const Rows maze = {"b.......", ".b..bbb.", "..b.b.b.", "..b.bbb.", "..b....o"};
  const Flood right = flooded(maze, {7, 0}, '.', FloodMode::Surface);
  EXPECT_TRUE(right.answer);
  EXPECT_PICTURE(right.rows, {"b#######", ".b##bbb#", "..b#b.b#", "..b#bbb#", "..b####o"});
  EXPECT_PICTURE(flooded(maze, {7, 0}, 'b', FloodMode::Border).rows,
                 {"b#######", ".b##bbb#", "..b#b.b#", "..b#bbb#", "..b#####"});
  EXPECT_PICTURE(flooded(maze, {5, 2}, 'b', FloodMode::Border).rows,
                 {"b.......", ".b..bbb.", "..b.b#b.", "..b.bbb.", "..b....o"});
  for (const Point at : {Point{-1, 0}, Point{0, 5}, Point{0, 0}}) {
    const Flood none = flooded(maze, at, '.', FloodMode::Surface);
    EXPECT_FALSE(none.answer);
    EXPECT_EQ(none.rows, maze);
  }
  const Flood null = flooded(maze, {7, 0}, '.', FloodMode::Surface, [](DrawContext& c) { c.brush = Brush::null(); });
  EXPECT_TRUE(null.answer);
  EXPECT_EQ(null.rows, maze);
}

TEST(FloodFill, PaintsOnlyAfterTheWholeSetIsFound) {
  const Surface tile = test::surfaceOf({".#"}, kNames);
  const auto withPattern = flooded({"....", "bb..", "...."}, {0, 0}, '.', FloodMode::Surface,
                                   [&](DrawContext& c) { c.brush = Brush::pattern(tile); });
  EXPECT_PICTURE(withPattern.rows, {".#.#", "bb.#", ".#.#"});
  const auto clipped = flooded({"....", "....", "...."}, {2, 1}, '.', FloodMode::Surface, [](DrawContext& c) {
    c.clip = {1, 1, 3, 9};
    c.rop2 = Rop2::NotCopyPen;
    c.brush = Brush::solid(~kNames.at('o') & 0xFFFFFF);
  });
  EXPECT_PICTURE(clipped.rows, {"....", ".oo.", ".oo."});
}

TEST(FloodFill, ByteThreeAndIndices) {
  Surface s = test::surfaceOf({"...."}, kNames);
  s.pictureRow(0)[4 * 2 + 3] = 200;
  Surface strict = copyOf(s);
  DrawContext c(s), cs(strict);
  c.brush = cs.brush = Brush::solid(kNames.at('#'));
  c.alphaFill = true;
  EXPECT_TRUE(floodFill(cs, 0, 0, kBlack, FloodMode::Surface, AlphaMatch::Compare));
  EXPECT_EQ(test::rowsOf(strict, kNames)[0], "##..");
  EXPECT_TRUE(floodFill(c, 0, 0, kBlack, FloodMode::Surface));
  EXPECT_EQ(test::rowsOf(s, kNames)[0], "####");
  EXPECT_EQ(s.pictureRow(0)[3], 255);

  // Two black entries: only pixels of the lower one are "black".
  Surface indexed;
  indexed.create(5, 1, 4);
  indexed.table()[1] = TableEntry::of(kNames.at('#'));
  indexed.pictureRow(0)[1] = 0x20;  // pixel 2 is index 2
  DrawContext ci(indexed);
  ci.brush = Brush::solid(kNames.at('#'));
  EXPECT_TRUE(floodFill(ci, 0, 0, kBlack, FloodMode::Surface));
  EXPECT_EQ(indexed.pictureRow(0)[0], 0x11);
  EXPECT_EQ(indexed.pictureRow(0)[1], 0x20);
}

// Against a plain search, on areas wide enough for several words of bits a row.
TEST(FloodFill, AgreesWithAPlainSearch) {
  std::uint32_t seed = 7;
  for (int round = 0; round < 20; ++round) {
    Rows rows(23, std::string(150, '.'));
    for (auto& row : rows) {
      for (char& pixel : row) {
        seed = seed * 1664525 + 1013904223;
        if (seed >> 24 < 90u) pixel = 'b';
      }
    }
    const Point start{static_cast<int>(seed >> 8) % 150, 11};
    Rows expected = rows;
    std::vector<Point> open = {start};
    while (!open.empty()) {
      const Point p = open.back();
      open.pop_back();
      if (p.x < 0 || p.y < 0 || p.x >= 150 || p.y >= 23 || expected[p.y][p.x] != '.') continue;
      expected[p.y][p.x] = '#';
      for (const Point d : {Point{1, 0}, Point{-1, 0}, Point{0, 1}, Point{0, -1}})
        open.push_back({p.x + d.x, p.y + d.y});
    }
    EXPECT_TRUE(test::samePicture(flooded(rows, start, '.', FloodMode::Surface).rows, expected));
  }
}

}  // namespace
}  // namespace ruvo::raster
