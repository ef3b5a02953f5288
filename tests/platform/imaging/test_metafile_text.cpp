#include "platform/imaging/metafile_text.h"

#include "platform/imaging/metafile_files.h"

namespace ruvo::imaging {
namespace {

using namespace test;

enum Align { kUpdate = 1, kRight = 2, kCentre = 6, kBottom = 8, kBaseline = 24 };
enum Option { kOpaque = 2, kClipped = 4 };

Bytes utf16(std::u16string_view text) {
  ByteWriter w;
  for (const char16_t c : text) w.u16(c);
  return w.take();
}

struct Font {
  int height = -20;
  int escapement = 0;
  int weight = 400;
  bool underline = false;
  int width = 0;
};
EmfFile& font(EmfFile& file, const Font& f) {
  Bytes face = utf16(u"DejaVu Sans");
  face.resize(64);
  file.add(U_EMR_EXTCREATEFONTINDIRECTW, longs({1, f.height, f.width, f.escapement, 0, f.weight}) +
                                             Bytes{0, f.underline, 0, 0, 0, 0, 0, 0x20} + face);
  return file.add(37, longs({1})).add(U_EMR_SETBKMODE, longs({1}));
}
EmfFile& text(EmfFile& file, std::u16string_view letters, Point at, std::vector<std::int64_t> steps = {},
              int options = 0, Rect box = {}) {
  constexpr std::int64_t kHead = 76;
  Bytes string = utf16(letters);
  string.resize((string.size() + 3) / 4 * 4);
  const std::int64_t stepsAt = steps.empty() ? 0 : kHead + static_cast<std::int64_t>(string.size());
  Bytes dx;
  for (const std::int64_t s : steps) dx = dx + longs({s});
  return file.draw(U_EMR_EXTTEXTOUTW, longs({1}) + floats({1, 1}) +
                                          longs({at.x, at.y, static_cast<std::int64_t>(letters.size()), kHead, options,
                                                 box.left, box.top, box.right, box.bottom, stepsAt}) +
                                          string + dx);
}

Rect inkOf(const std::function<void(EmfFile&)>& draw) {
  EmfFile file(120, 96);
  draw(file);
  return inkBox(drawn(file));
}

TEST(MetafileText, StandsWhereItsAlignmentSays) {
  const auto placed = [](int align) {
    return inkOf([&](EmfFile& f) { text(font(f, {}).add(U_EMR_SETTEXTALIGN, longs({align})), u"HH", {60, 48}); });
  };
  const Rect base = placed(kBaseline);
  ASSERT_FALSE(base.empty()) << "a font is installed";
  EXPECT_EQ(base.bottom, 48) << "capitals stand on the line";
  EXPECT_NEAR(base.height(), 15, 1) << "by the em of 20";
  EXPECT_GE(base.left, 60);
  EXPECT_LE(placed(kBaseline | kRight).right, 60);
  EXPECT_NEAR((placed(kBaseline | kCentre).left + placed(kBaseline | kCentre).right) / 2.0, 60, 1);
  EXPECT_GT(placed(0).top, 48) << "hangs below the top";
  EXPECT_LT(placed(kBottom).bottom, 48);
}

TEST(MetafileText, HeightsNameTheEmOrTheLine) {
  const auto height = [](int h) {
    return inkOf([&](EmfFile& f) {
             text(font(f, {.height = h}).add(U_EMR_SETTEXTALIGN, longs({kBaseline})), u"H", {10, 80});
           })
        .height();
  };
  EXPECT_NEAR(height(-60), 3 * height(-20), 2);
  EXPECT_LT(height(60), height(-60)) << "a line is higher than its em";
  EXPECT_GT(height(0), 3);
}

TEST(MetafileText, StepsEscapementWeightAndRules) {
  const Rect stepped = inkOf([](EmfFile& f) { text(font(f, {}), u"II", {10, 10}, {50, 10}); });
  EXPECT_NEAR(stepped.width(), 52, 3);
  const Rect turned = inkOf([](EmfFile& f) { text(font(f, {.escapement = 900}), u"HHH", {60, 90}); });
  EXPECT_GT(turned.height(), 2 * turned.width());
  EXPECT_LE(turned.bottom, 90);
  const auto wide = [](Font spec) { return inkOf([&](EmfFile& f) { text(font(f, spec), u"nnn", {10, 10}); }); };
  EXPECT_GT(wide({.weight = 700}).width(), wide({}).width());
  EXPECT_GT(wide({.width = 30}).width(), 2 * wide({}).width());
  EXPECT_GT(wide({.underline = true}).bottom, wide({}).bottom);
}

TEST(MetafileText, LettersStandUprightWhicheverWayTheUnitsGrow) {
  EmfFile file(120, 96);
  font(file, {}).add(17, longs({8})).add(9, longs({120, -96})).add(11, longs({120, 96})).add(12, longs({0, 96}));
  text(file.add(U_EMR_SETTEXTALIGN, longs({kBaseline})), u"L", {60, 48});
  const raster::Surface picture = drawn(file);
  const Rect ink = inkBox(picture);
  EXPECT_EQ(ink.bottom, 48);
  EXPECT_NE(colourAt(picture, ink.right - 2, ink.bottom - 1), kWhite) << "the foot is below";
  EXPECT_EQ(colourAt(picture, ink.right - 2, ink.top + 1), kWhite);
}

TEST(MetafileText, BackgroundsBoxesAndClips) {
  EmfFile file(120, 96);
  font(file, {}).add(U_EMR_SETBKCOLOR, longs({kGreen})).add(U_EMR_SETTEXTCOLOR, longs({kRed}));
  text(file, u"", {0, 0}, {}, kOpaque, {2, 2, 12, 9});
  text(file, u"HHHH", {10, 20}, {}, kClipped, {10, 20, 18, 60});
  file.add(U_EMR_SETBKMODE, longs({2}));
  text(file, u"  ", {60, 60});
  const raster::Surface picture = drawn(file);
  EXPECT_EQ(inkAt(picture, {{2, 2}, {12, 9}, {13, 30}, {62, 70}}), "g.rg");
  for (int y = 20; y < 50; ++y) EXPECT_EQ(colourAt(picture, 18, y), kWhite);
}

TEST(MetafileText, ThePositionMovesOnWhereTheAlignmentAsks) {
  const Rect both = inkOf([](EmfFile& f) {
    font(f, {}).add(U_EMR_SETTEXTALIGN, longs({kUpdate | kBaseline})).move(10, 60);
    text(text(f, u"I", {99, 99}, {40}), u"I", {99, 99}, {40});
  });
  EXPECT_NEAR(both.width(), 42, 2);
  EXPECT_EQ(both.bottom, 60);
}

TEST(MetafileText, LettersJoinAPath) {
  EmfFile file(120, 96);
  font(file, {.height = -80}).add(U_EMR_SETTEXTALIGN, longs({kBaseline})).brush(2, kBlue).add(59);
  text(file, u"I", {40, 90}).add(60).draw(62, {});
  const raster::Surface picture = drawn(file);
  const Rect ink = inkBox(picture);
  EXPECT_EQ(colourAt(picture, (ink.left + ink.right) / 2, 60), kBlue);
  EXPECT_NEAR(ink.height(), 58, 3);
}

TEST(MetafileText, EveryRecordOfTextDrawsTheSame) {
  const auto small = [](int options) {
    return inkOf([&](EmfFile& f) {
      f.blackAreas();
      font(f, {}).add(U_EMR_SMALLTEXTOUT, longs({10, 10, 2, options, 1}) + floats({1, 1}) +
                                              ((options & 0x200) ? Bytes{'H', 'i'} : utf16(u"Hi")));
    });
  };
  const Rect wide = inkOf([](EmfFile& f) { text(font(f, {}), u"Hi", {10, 10}); });
  EXPECT_EQ(small(0x300), wide);
  EXPECT_EQ(small(0x100), wide);
  EXPECT_EQ(inkOf([](EmfFile& f) {
              font(f, {}).draw(U_EMR_EXTTEXTOUTA, longs({1}) + floats({1, 1}) +
                                                      longs({10, 10, 2, 76, 0, 0, 0, 0, 0, 0}) + Bytes{'H', 'i'});
            }),
            wide);
  WmfFile wmf;
  wmf.window(120, 96).add(0x0102, words({1}));
  wmf.add(0x02FB, words({-20, 0, 0, 0, 400, 0, 0, 0, 0x2000}) +
                      Bytes{'D', 'e', 'j', 'a', 'V', 'u', ' ', 'S', 'a', 'n', 's', 0});
  wmf.add(0x012D, words({0})).add(0x0521, words({2}) + Bytes{'H', 'i'} + words({10, 10}));
  EXPECT_EQ(inkBox(drawn(wmf.plain())), wide);
}

std::u32string codes(const std::vector<meta::Character>& characters) {
  std::u32string out;
  for (const meta::Character& c : characters) out.push_back(c.code);
  return out;
}

TEST(MetafileText, BytesAreReadByTheFontsCharacterSet) {
  const auto read = [](std::initializer_list<std::uint8_t> bytes, int set) {
    return codes(meta::charactersOf(std::vector<std::uint8_t>(bytes), set));
  };
  EXPECT_EQ(read({'a', 0xE9, 0x80}, 0), U"a\u00E9\u20AC");
  EXPECT_EQ(read({0xC4, 0xE0}, 204), U"\u0414\u0430");
  EXPECT_EQ(read({0xE1}, 161), U"\u03B1");
  EXPECT_EQ(read({0xB9}, 238), U"\u0105");
  EXPECT_EQ(read({0x82, 0xA0, 'x'}, 128), U"\u3042x") << "two bytes";
  EXPECT_EQ(meta::charactersOf(std::vector<std::uint8_t>{0x82, 0xA0}, 128)[0].units, 2);
  EXPECT_EQ(read({0x82}, 128), U"\uFFFD") << "half a letter";
  EXPECT_EQ(read({0xB7}, 2), U"\u00B7") << "symbols keep their numbers";
  EXPECT_EQ(codes(meta::charactersOfUtf16(std::vector<std::uint8_t>{0x3D, 0xD8, 0x00, 0xDE, 'a', 0})), U"\U0001F600a");
  EXPECT_EQ(meta::utf8Of(meta::charactersOfUtf16(std::vector<std::uint8_t>{0xE9, 0, 0xAC, 0x20})), "\u00E9\u20AC");
}

}  // namespace
}  // namespace ruvo::imaging
