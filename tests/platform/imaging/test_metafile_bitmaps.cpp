#include "platform/imaging/metafile_files.h"

namespace ruvo::imaging {
namespace {

using namespace test;

constexpr std::int64_t kSrcCopy = 0xCC0020;

struct Dib {
  Bytes info;
  Bytes bits;
  // Offsets and lengths for a record whose own fields end at `head`.
  Bytes places(std::size_t head) const {
    const auto at = static_cast<std::int64_t>(head);
    const auto infoSize = static_cast<std::int64_t>(info.size());
    return longs({at, infoSize, at + infoSize, static_cast<std::int64_t>(bits.size())});
  }
  Bytes all() const { return info + bits; }
};

Bytes header(int width, int height, int depth, int compression = 0, int colours = 0) {
  return longs({40, width, height}) + words({1, depth}) + longs({compression, 0, 0, 0, colours, 0});
}
Bytes table() {
  return {0, 0, 0, 0, 0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0};  // black, red, green, blue
}
// r g
// b #
Dib small(int depth) {
  switch (depth) {
    case 4:
      return {header(2, 2, 4, 0, 4) + table(), {0x30, 0, 0, 0, 0x12, 0, 0, 0}};
    case 8:
      return {header(2, 2, 8, 0, 4) + table(), {3, 0, 0, 0, 1, 2, 0, 0}};
    case 16:
      return {header(2, 2, 16), words({0x1F, 0, 0x7C00, 0x3E0})};
    case 24:
      return {header(2, 2, 24), {255, 0, 0, 0, 0, 0, 0, 0, 0, 0, 255, 0, 255, 0, 0, 0}};
    default:
      return {header(2, 2, 32), longs({0xFF0000FF, 0xFF000000, 0xFFFF0000, 0xFF00FF00})};
  }
}

EmfFile& stretchDib(EmfFile& file, const Dib& dib, Rect to, std::int64_t rop = kSrcCopy, Rect from = {0, 0, 2, 2}) {
  constexpr std::size_t kHead = 80;
  return file.draw(U_EMR_STRETCHDIBITS, longs({to.left, to.top, from.left, from.top, from.width(), from.height()}) +
                                            dib.places(kHead) + longs({0, rop, to.width(), to.height()}) + dib.all());
}

Rows rowsOfFirst(const EmfFile& file, int width, int height) {
  return rowsIn(drawn(file), {0, 0, width, height});
}

TEST(MetafileBitmaps, EveryDepthGivesTheSamePicture) {
  for (const int depth : {4, 8, 16, 24, 32}) {
    EmfFile file(24, 24);
    stretchDib(file, small(depth), {1, 1, 5, 3});
    // Five bits of a 16-bit channel are as bright as eight.
    EXPECT_PICTURE(rowsOfFirst(file, 6, 4), {"......", ".rrgg.", ".bb##.", "......"}) << depth;
  }
  EmfFile topDown(24, 24), runs(24, 24), mono(24, 24);
  Dib turned = small(24);
  turned.info = header(2, -2, 24);
  stretchDib(topDown, turned, {0, 0, 2, 2});
  EXPECT_PICTURE(rowsOfFirst(topDown, 2, 2), {"b#", "rg"});
  stretchDib(runs, {header(2, 2, 8, 1, 4) + table(), {1, 3, 1, 0, 0, 0, 1, 1, 1, 2, 0, 1}}, {0, 0, 2, 2});
  EXPECT_PICTURE(rowsOfFirst(runs, 2, 2), {"rg", "b#"});
  Bytes blackAndRed = table();
  blackAndRed.resize(8);
  stretchDib(mono, {header(2, 2, 1) + blackAndRed, {0x40, 0, 0, 0, 0x80, 0, 0, 0}}, {0, 0, 2, 2});
  EXPECT_PICTURE(rowsOfFirst(mono, 2, 2), {"r#", "#r"});
}

TEST(MetafileBitmaps, PartsAreMeasuredFromTheFirstRowInMemory) {
  EmfFile file(24, 24);
  stretchDib(file, small(24), {0, 0, 2, 1}, kSrcCopy, {0, 0, 2, 1});
  stretchDib(file, small(24), {3, 0, 4, 1}, kSrcCopy, {1, 1, 2, 2});
  EXPECT_PICTURE(rowsOfFirst(file, 5, 1), {"b#.g."});
  EmfFile mirrored(24, 24);
  stretchDib(mirrored, small(24), {2, 2, 0, 0});
  EXPECT_PICTURE(rowsOfFirst(mirrored, 2, 2), {"#b", "gr"});
}

TEST(MetafileBitmaps, RastersOperationsCombineSourceBrushAndTarget) {
  const auto result = [](std::int64_t rop) {
    EmfFile file(24, 24);
    file.brush(1, kBlue).stock(8).box(0, 0, 3, 3).brush(2, kRed);
    stretchDib(file, small(24), {0, 0, 2, 2}, rop);
    Ink ink = kInks;
    ink.insert({{'y', rgb(255, 255, 0)}, {'m', rgb(255, 0, 255)}, {'c', rgb(0, 255, 255)}});
    return rowsIn(drawn(file), {0, 0, 2, 2}, ink);
  };
  EXPECT_PICTURE(result(0x660046), {"mc", "#b"}) << "exclusive or with the target";
  EXPECT_PICTURE(result(0x330008), {"cm", "y."}) << "the source turned round";
  EXPECT_PICTURE(result(0xC000CA), {"r#", "##"}) << "source and brush";
  EXPECT_PICTURE(result(0x550009), {"yy", "yy"}) << "the target turned round, no source needed";
  EXPECT_PICTURE(result(0xF00021), {"rr", "rr"}) << "the brush alone";
  // Where the source is set the target stays, else the brush: for each of the three channels.
  EXPECT_PICTURE(result(0xB8074A), {"#r", "mr"}) << "all three";
}

EmfFile& blit(EmfFile& file, std::uint32_t record, const Dib& dib, Rect to, std::int64_t how, bool stretched = true) {
  const std::size_t head = 100 + (stretched ? 8 : 0);
  return file.draw(record, longs({to.left, to.top, to.width(), to.height(), how, 0, 0}) + floats({1, 0, 0, 1, 0, 0}) +
                               longs({kWhite, 0}) + dib.places(head) + (stretched ? longs({2, 2}) : Bytes()) +
                               dib.all());
}

TEST(MetafileBitmaps, BlitsTransparencyAndBlending) {
  EmfFile file(24, 24);
  blit(file, U_EMR_BITBLT, small(24), {0, 0, 2, 2}, kSrcCopy, false);
  blit(file, U_EMR_STRETCHBLT, small(24), {3, 0, 7, 2}, kSrcCopy);
  blit(file, U_EMR_TRANSPARENTBLT, small(24), {8, 0, 10, 2}, kGreen);
  blit(file, U_EMR_ALPHABLEND, small(32), {11, 0, 13, 2}, 0x01FF0000);
  EXPECT_PICTURE(rowsOfFirst(file, 13, 2), {"rg.rrgg.r..rg", "b#.bb##.b#.b#"});

  EmfFile half(24, 24);
  blit(half, U_EMR_ALPHABLEND, small(24), {0, 0, 2, 2}, 0x00800000);
  EXPECT_EQ(colourAt(drawn(half), 0, 0), rgb(255, 127, 127)) << "a constant share";
  const Dib faint{header(2, 2, 32), longs({0x80800000, 0, 0, 0x80800000})};  // red at one half, multiplied already
  EmfFile pixels(24, 24);
  blit(pixels, U_EMR_ALPHABLEND, faint, {0, 0, 2, 2}, 0x01FF0000);
  EXPECT_EQ(colourAt(drawn(pixels), 0, 1), rgb(255, 127, 127));
  EXPECT_EQ(colourAt(drawn(pixels), 0, 0), kWhite) << "nothing where alpha is nothing";
}

TEST(MetafileBitmaps, MasksChooseAmongTwoOperations) {
  const Dib picture = small(24), mask{header(2, 2, 1) + Bytes(8, 0), {0x80, 0, 0, 0, 0x80, 0, 0, 0}};
  Bytes bits = mask.info;
  bits[44] = 255;
  const auto masked = [&](std::uint32_t record, const Bytes& start, std::size_t head) {
    const auto second = head + picture.all().size();
    EmfFile file(24, 24);
    file.draw(record, start + floats({1, 0, 0, 1, 0, 0}) + longs({0, 0}) + picture.places(head) + longs({0, 0, 0}) +
                          Dib{bits, mask.bits}.places(second) + picture.all() + bits + mask.bits);
    return rowsOfFirst(file, 4, 4);
  };
  EXPECT_PICTURE(masked(U_EMR_MASKBLT, longs({1, 1, 2, 2, 0xAACC0020, 0, 0}), 128), {"....", ".r..", ".b..", "...."});
  EXPECT_PICTURE(masked(U_EMR_PLGBLT, longs({1, 1, 3, 1, 1, 3, 0, 0, 2, 2}), 140), {"....", ".r..", ".b..", "...."});
}

TEST(MetafileBitmaps, ParallelogramsAndTurnedBitmapsAreSampled) {
  const Dib picture = small(24);
  EmfFile file(24, 24);
  file.draw(U_EMR_PLGBLT, longs({4, 0, 4, 4, 0, 0, 0, 0, 2, 2}) + floats({1, 0, 0, 1, 0, 0}) + longs({0, 0}) +
                              picture.places(140) + longs({0, 0, 0, 0, 0, 0, 0}) + picture.all());
  const Rows quarterTurn = {"bbrr", "bbrr", "##gg", "##gg"};
  EXPECT_PICTURE(rowsOfFirst(file, 4, 4), {quarterTurn});
  EmfFile world(24, 24);
  world.add(35, floats({0, 1, -1, 0, 4, 0}));
  stretchDib(world, picture, {0, 0, 4, 4});
  EXPECT_PICTURE(rowsOfFirst(world, 4, 4), {quarterTurn});
}

TEST(MetafileBitmaps, SomeRowsOfABitmapToTheDevice) {
  EmfFile file(24, 24);
  Dib upper = small(24);
  upper.bits.erase(upper.bits.begin(), upper.bits.begin() + 8);  // only the second row in memory, the upper one
  file.draw(U_EMR_SETDIBITSTODEVICE, longs({2, 1, 0, 0, 2, 2}) + upper.places(76) + longs({0, 1, 1}) + upper.all());
  EXPECT_PICTURE(rowsOfFirst(file, 5, 4), {".....", "..rg.", ".....", "....."});
}

TEST(MetafileBitmaps, BrushesOfBitmaps) {
  const Dib dib = small(24), mono{header(2, 2, 1) + Bytes(8, 0), {0x40, 0, 0, 0, 0x80, 0, 0, 0}};
  EmfFile file(24, 24);
  file.stock(8).add(24, longs({kRed})).add(25, longs({kBlue}));
  file.add(U_EMR_CREATEDIBPATTERNBRUSHPT, longs({1, 0}) + dib.places(32) + dib.all())
      .add(37, longs({1}))
      .box(0, 0, 5, 3);
  file.add(U_EMR_CREATEMONOBRUSH, longs({2, 0}) + mono.places(32) + mono.all()).add(37, longs({2})).box(6, 0, 9, 3);
  EXPECT_PICTURE(rowsOfFirst(file, 8, 2), {"rgrg..br", "b#b#..rb"});
}

TEST(MetafileBitmaps, TablesOfPaletteNumbers) {
  const Dib dib{header(2, 1, 8, 0, 2) + words({1, 0}), {0, 1, 0, 0}};
  EmfFile file(24, 24);
  file.add(49, longs({3}) + words({0x300, 2}) + longs({kRed, kBlue})).add(48, longs({3}));
  file.draw(U_EMR_STRETCHDIBITS, longs({0, 0, 0, 0, 2, 1}) + dib.places(80) + longs({1, kSrcCopy, 2, 1}) + dib.all());
  EXPECT_PICTURE(rowsOfFirst(file, 3, 1), {"br."});
}

TEST(MetafileBitmaps, RecordsOfWmfFilesCarryPackedBitmaps) {
  const Dib dib = small(8);
  WmfFile file;
  file.window(24, 24);
  file.add(0x0F43, longs({kSrcCopy}) + words({0, 2, 2, 0, 0, 2, 2, 0, 0}) + dib.all());
  file.add(0x0B41, longs({kSrcCopy}) + words({2, 2, 0, 0, 2, 4, 0, 3}) + dib.all());
  file.add(0x0940, longs({kSrcCopy}) + words({0, 0, 2, 2, 0, 8}) + dib.all());
  file.add(0x0D33, words({0, 2, 0, 0, 0, 2, 2, 0, 11}) + dib.all());
  file.add(0x0922, longs({kSrcCopy}) + words({0, 0, 2, 2, 0, 14, 0, 2, 2, 2}) + Bytes{1, 1, 0x40, 0, 0x80, 0});
  file.add(0x061D, longs({0x42}) + words({1, 2, 0, 17}));
  EXPECT_PICTURE(rowsIn(drawn(file.plain()), {0, 0, 20, 2}), {"rg.rrgg.rg.rg.#..##.", "b#.bb##.b#.b#..#...."});
}

TEST(MetafileBitmaps, GradientsRunFromCornerToCorner) {
  const auto point = [](int x, int y, int red, int green) { return longs({x, y}) + words({red, green, 0, 0}); };
  EmfFile file(24, 24);
  file.draw(U_EMR_GRADIENTFILL, longs({2, 1, 0}) + point(0, 0, 0xFF00, 0) + point(16, 4, 0, 0xFF00) + longs({0, 1}));
  file.draw(U_EMR_GRADIENTFILL, longs({2, 1, 1}) + point(18, 0, 0xFF00, 0) + point(22, 16, 0, 0xFF00) + longs({0, 1}));
  file.draw(U_EMR_GRADIENTFILL, longs({3, 1, 2}) + point(0, 6, 0xFF00, 0) + point(16, 6, 0, 0xFF00) +
                                    point(0, 22, 0, 0) + longs({0, 1, 2}));
  file.draw(U_EMR_GRADIENTFILL, longs({1, 1, 0}) + point(0, 0, 0xFF00, 0) + longs({0, 5}));
  const raster::Surface picture = drawn(file);
  EXPECT_EQ(colourAt(picture, 0, 0), kRed);
  EXPECT_EQ(colourAt(picture, 8, 3), rgb(127, 127, 0));
  EXPECT_EQ(colourAt(picture, 18, 8), rgb(127, 127, 0));
  EXPECT_EQ(colourAt(picture, 0, 6), kRed);
  EXPECT_EQ(colourAt(picture, 4, 14), rgb(63, 63, 0));
  EXPECT_EQ(colourAt(picture, 14, 20), kWhite);
}

}  // namespace
}  // namespace ruvo::imaging
