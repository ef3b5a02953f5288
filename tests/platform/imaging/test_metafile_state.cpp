#include "platform/imaging/metafile_files.h"
#include "platform/imaging/metafile_mapping.h"

namespace ruvo::imaging {
namespace {

using namespace test;

// What a box of one unit at the origin of every unit system covers.
TEST(MetafileMapping, FixedModesCountLengthsAndGrowUpwards) {
  struct Row {
    int mode;
    double pixels;
  };
  for (const Row& row : {Row{1, 1}, {2, 0.96 / 2.54}, {3, 0.096 / 2.54}, {4, 0.96}, {5, 0.096}, {6, 96.0 / 1440}}) {
    meta::Mapping mapping;
    mapping.setMode(row.mode);
    mapping.setWindowExtent({7, 7});  // has no meaning here
    mapping.windowOrigin = {10, 0};
    const meta::PointF p = mapping.toDevice().map({110, 100});
    EXPECT_NEAR(p.x, 100 * row.pixels, 1e-9) << row.mode;
    EXPECT_NEAR(p.y, row.mode == 1 ? 100 : -100 * row.pixels, 1e-9) << row.mode;
  }
  meta::Mapping mapping;
  mapping.setMode(99);
  EXPECT_EQ(mapping.mode, 1);
}

TEST(MetafileMapping, WindowsAreScaledToViewports) {
  meta::Mapping mapping;
  mapping.setMode(meta::Mapping::Anisotropic);
  mapping.setWindowExtent({200, -100});
  mapping.setViewportExtent({100, 100});
  mapping.viewportOrigin = {5, 6};
  EXPECT_NEAR(mapping.toDevice().map({20, 20}).x, 15, 1e-9);
  EXPECT_NEAR(mapping.toDevice().map({20, 20}).y, -14, 1e-9);
  mapping.setMode(meta::Mapping::Isotropic);
  EXPECT_NEAR(mapping.toDevice().map({20, 20}).y, -4, 1e-9) << "the smaller ratio serves both ways";
  mapping.scaleExtent(&meta::Mapping::viewportExtent, {3, 1}, {1, 0});
  EXPECT_NEAR(mapping.toDevice().map({20, 20}).x, 15, 1e-9) << "nothing is divided by zero";
  mapping.setWindowExtent({0, 5});
  EXPECT_NEAR(mapping.toDevice().map({20, 20}).x, 15, 1e-9);
}

TEST(MetafileState, TransformsActInTheOrderInWhichTheyAreGiven) {
  const auto box = [](std::uint32_t how) {
    EmfFile file(96, 96);
    file.blackAreas().add(U_EMR_SETWORLDTRANSFORM, floats({2, 0, 0, 2, 10, 0}));
    file.add(U_EMR_MODIFYWORLDTRANSFORM, floats({1, 0, 0, 1, 5, 5}) + longs({how})).box(0, 0, 11, 11);
    return inkBox(drawn(file));
  };
  EXPECT_EQ(box(1), (Rect{0, 0, 10, 10}));
  EXPECT_EQ(box(2), (Rect{20, 10, 41, 31})) << "before";
  EXPECT_EQ(box(3), (Rect{15, 5, 36, 26})) << "after";
  EXPECT_EQ(box(4), (Rect{5, 5, 15, 15}));
  EmfFile turned(96, 96);
  turned.blackAreas().add(U_EMR_SETWORLDTRANSFORM, floats({0, 1, -1, 0, 50, 0})).box(0, 0, 20, 10);
  EXPECT_EQ(inkBox(drawn(turned)), (Rect{40, 0, 50, 20}));
}

TEST(MetafileState, RestoreBringsBackEverythingByNumberOrByStep) {
  EmfFile file(24, 24);
  file.blackAreas().save().brush(1, kRed).save().brush(2, kGreen);
  file.add(U_EMR_INTERSECTCLIPRECT, longs({0, 0, 1, 1})).restore(-1).box(2, 2, 5, 5);
  file.save().save().restore(1).box(8, 2, 11, 5).restore(-1).restore(5).restore(0).box(14, 2, 17, 5);
  EXPECT_EQ(inkAt(drawn(file), {{2, 2}, {8, 2}, {14, 2}}), "r##") << "numbers without a saved state change nothing";
}

TEST(MetafileState, NumbersOfWmfObjectsAreTakenAgainWhenTheyAreFree) {
  WmfFile file;
  file.window(24, 24).blackAreas();                                                     // 0 a brush, 1 a pen
  file.add(0x02FC, words({0}) + longs({kRed}) + words({0}));                            // 2
  file.add(0x01F0, words({0})).add(0x02FC, words({0}) + longs({kGreen}) + words({0}));  // 0 again
  file.add(0x02FC, words({0}) + longs({kBlue}) + words({0}));                           // 3
  int x = 1;
  for (const int number : {2, 0, 3}) {
    file.add(0x012D, words({number})).box(x, 1, x + 4, 5);
    x += 6;
  }
  EXPECT_EQ(inkAt(drawn(file.plain()), {{1, 1}, {7, 1}, {13, 1}}), "rgb");
}

TEST(MetafileState, HatchesShowTheBackColourBetweenTheirLinesUnlessTransparent) {
  for (const bool opaque : {true, false}) {
    EmfFile file(24, 24);
    file.stock(8).add(25, longs({kGreen})).add(U_EMR_SETBKMODE, longs({opaque ? 2 : 1}));
    file.brush(1, kBlack, 2, 0).box(0, 0, 9, 9);
    const raster::Surface picture = drawn(file);
    EXPECT_EQ(colourAt(picture, 2, 3), kBlack);
    EXPECT_EQ(colourAt(picture, 2, 4), opaque ? kGreen : kWhite);
  }
}

// --- Clips and regions

Bytes regionOf(std::initializer_list<std::int64_t> boxes) {
  const auto count = static_cast<std::int64_t>(boxes.size()) / 4;
  return longs({32, 1, count, 16 * count, 0, 0, 99, 99}) + longs(boxes);
}

Rows clipped(const std::function<void(EmfFile&)>& clip) {
  EmfFile file(24, 24);
  file.blackAreas();
  clip(file);
  file.box(-5, -5, 99, 99);
  return rowsIn(drawn(file), {0, 0, 8, 6});
}

TEST(MetafileClip, BoxesNarrowItAndCutHolesAndMoveIt) {
  EXPECT_PICTURE(clipped([](EmfFile& f) {
                   f.add(U_EMR_INTERSECTCLIPRECT, longs({1, 1, 7, 5})).add(U_EMR_EXCLUDECLIPRECT, longs({3, 2, 5, 4}));
                 }),
                 {"........", ".######.", ".##..##.", ".##..##.", ".######.", "........"});
  EXPECT_PICTURE(clipped([](EmfFile& f) {
                   f.add(U_EMR_INTERSECTCLIPRECT, longs({1, 1, 4, 4}))
                       .add(U_EMR_OFFSETCLIPRGN, longs({3, 1}))
                       .add(U_EMR_SETMETARGN);
                   f.add(U_EMR_EXTSELECTCLIPRGN, longs({0, 5}));
                 }),
                 {"........", "........", "....###.", "....###.", "....###.", "........"});
}

TEST(MetafileClip, RegionsJoinItByEveryMode) {
  const auto joined = [](int mode) {
    return clipped([&](EmfFile& f) {
      const Bytes region = regionOf({3, 0, 6, 3, 0, 4, 1, 5});
      f.add(U_EMR_INTERSECTCLIPRECT, longs({1, 1, 5, 4}))
          .add(U_EMR_EXTSELECTCLIPRGN, longs({static_cast<int>(region.size()), mode}) + region);
    });
  };
  EXPECT_PICTURE(joined(1), {"........", "...##...", "...##...", "........", "........", "........"});
  EXPECT_PICTURE(joined(2), {"...###..", ".#####..", ".#####..", ".####...", "#.......", "........"});
  EXPECT_PICTURE(joined(3), {"...###..", ".##..#..", ".##..#..", ".####...", "#.......", "........"});
  EXPECT_PICTURE(joined(4), {"........", ".##.....", ".##.....", ".####...", "........", "........"});
  EXPECT_PICTURE(joined(5), {"...###..", "...###..", "...###..", "........", "#.......", "........"});
}

TEST(MetafileClip, APathCutsEveryKindOfDrawing) {
  EmfFile file(24, 24);
  file.add(U_EMR_BEGINPATH)
      .draw(3, longs({3, 0, 0, 20, 0, 0, 20}))
      .add(U_EMR_ENDPATH)
      .add(U_EMR_SELECTCLIPPATH, longs({5}));
  file.blackAreas().add(U_EMR_ELLIPSE, longs({0, 0, 24, 24}));
  file.stock(7).move(0, 3).line(24, 3);
  file.draw(71, longs({static_cast<int>(regionOf({0, 20, 24, 24}).size()), 1}) + regionOf({0, 20, 24, 24}));
  const raster::Surface picture = drawn(file);
  EXPECT_EQ(inkAt(picture, {{8, 8}, {15, 15}, {2, 3}, {20, 3}}), "#.#.");
  EXPECT_EQ(inkBox(picture).bottom <= 20, true);
}

TEST(MetafileClip, RegionsAreFilledFramedInvertedAndPainted) {
  const Bytes region = regionOf({1, 1, 7, 5});
  const auto size = static_cast<std::int64_t>(region.size());
  const auto picture = [&](std::uint32_t record, const Bytes& fields) {
    EmfFile file(24, 24);
    file.add(39, longs({1, 0, kBlack, 0})).stock(4).draw(record, fields + region);
    return rowsIn(drawn(file), {0, 0, 8, 6});
  };
  const Rows full = {"........", ".######.", ".######.", ".######.", ".######.", "........"};
  EXPECT_PICTURE(picture(U_EMR_FILLRGN, longs({size, 1})), {full});
  EXPECT_PICTURE(picture(U_EMR_PAINTRGN, longs({size})), {full});
  EXPECT_PICTURE(picture(U_EMR_INVERTRGN, longs({size})), {full});
  EXPECT_PICTURE(picture(U_EMR_FRAMERGN, longs({size, 1, 2, 1})),
                 {"........", ".######.", ".##..##.", ".##..##.", ".######.", "........"});
}

TEST(MetafileClip, WmfRegionsAreScansOfRows) {
  WmfFile file;
  file.window(24, 24).blackAreas();
  // Rows 1 to 2 from 1 to 3 and from 5 to 7; row 3 from 1 to 7.
  file.add(0x06FF, words({0, 6, 0, 0, 0, 2, 4, 1, 1, 7, 4, 4, 1, 3, 1, 3, 5, 7, 4, 2, 3, 4, 1, 7, 2}));
  file.add(0x012C, words({2})).box(-5, -5, 99, 99);
  EXPECT_PICTURE(rowsIn(drawn(file.plain()), {0, 0, 8, 5}),
                 {"........", ".##..##.", ".##..##.", ".######.", "........"});
}

}  // namespace
}  // namespace ruvo::imaging
