#include "formats/clsICO.h"

#include "base/file_io.h"
#include "base/limits.h"
#include "formats/ico_bytes.h"
#include "platform/imaging/encoders.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;

const Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'r', rgb(255, 0, 0)}, {'g', rgb(0, 255, 0)}};

// 3 x 2, one bit: "#.#" over ".##", see-through in the last column. The file's height field and the entry disagree.
const Data kOneBit = IcoData{3, 2, 1, 0, {0,    0, 0, 0, 255,  255, 255, 0,  // black, white
                                          0x80, 0, 0, 0, 0x40, 0,   0,   0,  // bottom line first
                                          0x20, 0, 0, 0, 0x20, 0,   0,   0}}
                         .bytes();  // mask
Data plain24(int width, int height, Data pixel = {0, 0, 255}) {
  IcoData data{width, height, 24, 0, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) data.rest.insert(data.rest.end(), pixel.begin(), pixel.end());
    data.rest.resize(data.rest.size() + static_cast<std::size_t>(width % 4));
  }
  data.rest.resize(data.rest.size() + static_cast<std::size_t>(height * ((width + 31) / 32 * 4)));
  return data.bytes();
}
Data deep32(const Data& pixels, const Data& mask) {
  IcoData data{2, 1, 32, 0, pixels};
  data.rest.insert(data.rest.end(), mask.begin(), mask.end());
  return data.bytes();
}
Data pngOf(const Rows& rows, std::uint8_t alpha) {
  raster::Surface surface = surfaceOf(rows, kInk);
  for (int x = 0; x < surface.width(); ++x) pixelAt(surface, x, 0).alpha = alpha;
  return imaging::pngBytes(surface, true);
}

TEST(ClsICO, ReadsPictureMaskAndNumbersOfEachImage) {
  clsICO file;
  ASSERT_TRUE(file.openBytes(icoFile({{3, 9, kOneBit}, {2, 1, plain24(2, 1)}})));
  EXPECT_EQ(file.FileType(), kIconType);
  ASSERT_EQ(file.IconCount(), 2);
  EXPECT_EQ(file.IconHeight(0), 2);  // the info header's, halved
  EXPECT_EQ(file.IconBPP(0), 1);
  EXPECT_EQ(file.IconBytesInRes(0), kOneBit.size());
  EXPECT_PICTURE(rowsOf(file.DIBXOR(0)), {"#.#", ".##"});
  EXPECT_PICTURE(rowsOf(file.DIBAND(0)), {"##.", "##."});
  EXPECT_EQ(file.SeekIcon(2, 1, 24), 1);
  EXPECT_EQ(file.SeekIcon(2, 1, 32), -1);
  EXPECT_EQ(file.SeekIcon_Size(3, 2), 0);

  ASSERT_TRUE(file.openBytes(icoFile({{3, 2, kOneBit, 7, 5}}, kCursorType)));
  EXPECT_EQ(file.FileType(), kCursorType);
  EXPECT_EQ(file.HotSpotX(0) * 10 + file.HotSpotY(0), 75);
}

TEST(ClsICO, TablesOfEveryDepthAndShortOnesByLength) {
  IcoData four{2, 1, 4, 0, Data(16 * 4)};
  four.rest[15 * 4 + 1] = 255;
  four.rest.insert(four.rest.end(), {0x0F, 0, 0, 0, 0, 0, 0, 0});
  clsICO file;
  ASSERT_TRUE(file.openBytes(icoFile({{2, 1, four.bytes()}})));
  EXPECT_PICTURE(rowsOf(file.DIBXOR(0), kInk), {"#g"});
  // Two entries of 256 are stored and the entry's length says so.
  const IcoData brief{2, 1, 8, 2, {0, 0, 255, 0, 0, 255, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0}};
  ASSERT_TRUE(file.openBytes(icoFile({{2, 1, brief.bytes()}})));
  EXPECT_PICTURE(rowsOf(file.DIBXOR(0), kInk), {"rg"});
  EXPECT_FALSE(file.openBytes(icoFile({{2, 1, brief.bytes(), 1, 0, 1080}})));
}

TEST(ClsICO, AlphaOf32BitsCountsWhenAnyIsThere) {
  clsICO file;
  const Data mask = {0x40, 0, 0, 0};
  ASSERT_TRUE(file.openBytes(icoFile({{2, 1, deep32({0, 0, 255, 0, 0, 255, 0, 0}, mask)}})));
  EXPECT_FALSE(file.DIBXOR(0).DIBhasAlpha());
  EXPECT_EQ(pixelAt(file.withAlpha(0), 0, 0), (Pixel32{0, 0, 255, 255}));
  EXPECT_EQ(pixelAt(file.withAlpha(0), 1, 0), (Pixel32{0, 255, 0, 0}));
  // Without the mask's rows alpha makes one.
  ASSERT_TRUE(file.openBytes(icoFile({{2, 1, deep32({0, 0, 255, 128, 0, 255, 0, 0}, {})}})));
  EXPECT_TRUE(file.DIBXOR(0).DIBhasAlpha());
  EXPECT_PICTURE(rowsOf(file.DIBAND(0)), {"#."});
  EXPECT_EQ(file.getArrayAlpha(0), (Data{128, 0}));
  EXPECT_EQ(pixelAt(file.withAlpha(0), 0, 0), (Pixel32{0, 0, 255, 128}));
  file.putArrayAlpha(0, Data{0, 0});
  EXPECT_FALSE(file.DIBXOR(0).DIBhasAlpha());
}

TEST(ClsICO, DrawsByMaskOverWhatIsThereAndByAlphaOnTheBackground) {
  clsICO file;
  // Green under white mask is added to the ground (OR).
  ASSERT_TRUE(file.openBytes(icoFile({{2, 1, deep32({0, 255, 0, 0, 0, 0, 255, 0}, {0x80, 0, 0, 0})},
                                      {2, 1, deep32({0, 0, 255, 51, 0, 0, 255, 255}, {0, 0, 0, 0})}})));
  clsDIB target = plainDib(4, 1, rgb(0, 0, 255));
  file.DrawIcon_To_DIB(0, target, 1, 0);
  EXPECT_PICTURE(rowsOf(target, {{'b', rgb(0, 0, 255)}, {'c', rgb(0, 255, 255)}, {'r', rgb(255, 0, 0)}}), {"bcrb"});
  file.DrawIcon_To_DIB(1, target, 2, 0);
  EXPECT_EQ(pixelAt(target, 2, 0), (Pixel32{204, 204, 255, 0}));
  EXPECT_EQ(pixelAt(target, 3, 0), (Pixel32{0, 0, 255, 0}));
}

TEST(ClsICO, PngEntriesMeanTheirOwnSize) {
  const Data png = pngOf({"rg."}, 100);
  clsICO file;
  ASSERT_TRUE(file.openBytes(icoFile({{0, 0, png}, {0, 2, kOneBit}, {0, 0, png, 1, 0, 20}})));
  EXPECT_EQ(file.IconWidth(0), 3);
  EXPECT_EQ(file.getArrayAlpha(0), (Data{100, 100, 100}));
  EXPECT_PICTURE(rowsOf(file.DIBAND(0)), {"###"});
  EXPECT_EQ(file.IconWidth(1), 3);  // a later entry's 0 is filled in from the info header
  EXPECT_FALSE(file.images()[2].readable);
}

TEST(ClsICO, HeadersThatAreRefused) {
  const TempFolder folder;
  const auto path = folder / "a";
  const auto answers = [&](const Data& bytes) {
    replaceFile(path, bytes);
    return std::array{clsICO::ValidIcons(path), clsICO::ValidCursor(path), clsICO().OpenICO(path)};
  };
  EXPECT_EQ(answers(icoFile({{3, 2, kOneBit}})), (std::array{true, false, true}));
  EXPECT_EQ(answers(icoFile({{3, 2, kOneBit}}, 2)), (std::array{false, true, true}));
  EXPECT_EQ(answers(icoFile({{0, 0, pngOf({"r"}, 255)}})), (std::array{true, false, true}));
  for (const Data& refused : {icoFile({{3, 2, kOneBit}}, 3), icoFile({{0, 2, kOneBit}}), icoFile({{3, 0, kOneBit}}),
                              icoFile({{3, 2, kOneBit, 1, 0, 0}}), icoFile({{3, 2, kOneBit, 1, 0, -1, 0}}),
                              icoFile({{3, 2, kOneBit}}, 1, 0), Data(21, 1), Data()}) {
    EXPECT_EQ(answers(refused), (std::array{false, false, false})) << testing::PrintToString(refused);
  }
}

TEST(ClsICO, ImagesThatCanNotBeReadKeepTheirPlace) {
  IcoData sixteen{2, 1, 16, 0, Data(8)};
  clsICO file;
  ASSERT_TRUE(file.openBytes(icoFile({{2, 1, sixteen.bytes()},
                                      {3, 2, kOneBit, 1, 0, -1, 0xFFFFFFFF},
                                      {3, 2, kOneBit},
                                      {3, 2, kOneBit, 1, 0, -1, 102}})));  // inside another image
  EXPECT_EQ(file.IconCount(), 4);
  EXPECT_EQ(file.firstReadable(), 2);
  EXPECT_EQ(file.images()[0].statedBPP, 16);
  EXPECT_EQ(file.IconBPP(0), 0);
  Data cut = icoFile({{3, 2, kOneBit}});
  cut.pop_back();
  EXPECT_FALSE(file.openBytes(cut));
  EXPECT_EQ(file.IconCount(), 0);
}

TEST(ClsICO, SizesThatAreRefusedAreStillTold) {
  clsICO file;
  EXPECT_FALSE(file.openBytes(icoFile({{16, 16, IcoData{16, 65535 / 2, 1, 0, Data(64)}.bytes()}})));
  EXPECT_EQ(file.refusedSize(), (Size{16, 32767}));
  EXPECT_FALSE(file.openBytes(icoFile({{3, 2, IcoData{3, -2, 1, 0, Data(64)}.bytes()}})));
  Data png = pngOf({"r"}, 255);
  png[16] = 0x7F;  // billions wide
  EXPECT_FALSE(file.openBytes(icoFile({{0, 0, png}})));
  EXPECT_TRUE(file.openBytes(icoFile({{3, 2, kOneBit}})));
  EXPECT_EQ(file.refusedSize(), Size{});
}

TEST(ClsICO, ManyEntriesOfTheSameDataStayWithinBounds) {
  // 255 x 1000 pixels of one bit take 40,000 bytes; 65,535 of them would be 16 thousand million pixels.
  const IcoEntry shared{255, 255, IcoData{255, 1000, 1, 0, Data(8 + 1000 * 64)}.bytes()};
  std::vector<IcoEntry> entries(65535, IcoEntry{255, 255, {}, 1, 0, 1, 6 + 16 * 65535});
  entries[0] = shared;
  clsICO file;
  ASSERT_TRUE(file.openBytes(icoFile(entries)));
  std::int64_t pixels = 0;
  for (const auto& image : file.images()) pixels += std::int64_t{image.XOR.DIBWidth()} * image.XOR.DIBHeight();
  EXPECT_LE(pixels, kMaxPicturePixels);
  EXPECT_TRUE(file.images()[3].readable);
  EXPECT_FALSE(file.images()[65534].readable);
}

TEST(ClsICO, SinglePicturesComeBackAsSaved) {
  const TempFolder folder;
  clsDIB image = dibOf({"r.g", ".#."}, kInk), mask;
  clsDIB::Create_ImageMask_Pair(image, mask, kWhite);
  ASSERT_TRUE(clsICO::SaveICO_Single(folder / "a.cur", image, mask, kCursorType, 2, 1));
  clsICO file;
  ASSERT_TRUE(file.OpenICO(folder / "a.cur"));
  EXPECT_EQ(file.HotSpotX(0) * 10 + file.HotSpotY(0), 21);
  EXPECT_PICTURE(rowsOf(file.DIBXOR(0), kInk), {"r#g", "###"});
  EXPECT_PICTURE(rowsOf(file.DIBAND(0)), {"#.#", ".#."});
  // Real alpha is kept but under the mask, and a top-down table picture comes the right way up.
  image = dibOf(2, 1, [](int x, int) { return Pixel32{1, 2, 3, static_cast<std::uint8_t>(x ? 7 : 200)}; });
  image.setDIBhasAlpha(true);
  ASSERT_TRUE(clsICO::SaveICO_Single(folder / "a.ico", image, dibOf({"#."}), kIconType));
  ASSERT_TRUE(file.OpenICO(folder / "a.ico"));
  EXPECT_EQ(file.getArrayAlpha(0), (Data{200, 0}));
  clsDIB indexed = plainDib(2, 2, kWhite, 8, true);
  indexed.surface().pictureRow(1)[0] = 1;
  ASSERT_TRUE(clsICO::SaveICO_Single(folder / "a.ico", indexed, clsDIB(), kIconType));
  ASSERT_TRUE(file.OpenICO(folder / "a.ico"));
  EXPECT_PICTURE(rowsOf(file.DIBXOR(0)), {"##", ".#"});
}

TEST(ClsICO, AllImagesOnceForEachSizeAndDepth) {
  const TempFolder folder;
  const Data alpha = deep32({0, 0, 255, 128, 0, 255, 0, 0}, {0x40, 0, 0, 0});
  clsICO file, again;
  ASSERT_TRUE(
      file.openBytes(icoFile({{3, 2, kOneBit, 4, 5}, {2, 1, plain24(2, 1), 6, 7}, {2, 1, alpha}}, kCursorType)));
  ASSERT_TRUE(file.SaveICO_All(folder / "all.cur"));
  ASSERT_TRUE(again.OpenICO(folder / "all.cur"));
  ASSERT_EQ(again.IconCount(), 3);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(again.HotSpotY(i), file.HotSpotY(i));
    EXPECT_EQ(rowsOf(again.DIBXOR(i), kInk), rowsOf(file.DIBXOR(i), kInk));
    EXPECT_EQ(rowsOf(again.DIBAND(i)), rowsOf(file.DIBAND(i)));
  }
  EXPECT_EQ(again.getArrayAlpha(2), (Data{128, 0}));
  const clsDIB wide = plainDib(257, 1, kWhite), fits = plainDib(8, 8, kWhite);
  EXPECT_FALSE(clsICO::SaveICO_Single(folder / "a", wide, clsDIB(), kIconType) ||
               clsICO::SaveICO_Single(folder / "a", fits, wide, kIconType) ||
               clsICO::SaveICO_Single(folder / "a", fits, clsDIB(), 3) || clsICO().SaveICO_All(folder / "a"));
  std::string reason;
  ASSERT_TRUE(file.openBytes(icoFile({{3, 2, kOneBit}, {3, 2, kOneBit}})));
  EXPECT_FALSE(file.SaveICO_All(folder / "all.cur", &reason));
  EXPECT_EQ(reason, clsICO::kSameSizeAndDepth);
}

TEST(ClsICO, ASideOf256IsWrittenAsPng) {
  const TempFolder folder;
  const clsDIB image = plainDib(256, 2, rgb(255, 0, 0));
  clsDIB mask = plainDib(256, 2, kBlack);
  pixelAt(mask, 255, 1) = Pixel32::plain(kWhite);
  clsICO file;
  ASSERT_TRUE(clsICO::SaveICO_Single(folder / "a.cur", image, mask, kCursorType, 200, 1));
  ASSERT_TRUE(file.OpenICO(folder / "a.cur"));
  EXPECT_EQ(file.HotSpotX(0), 200);
  const clsDIB shown = file.withAlpha(0);
  EXPECT_EQ(pixelAt(shown, 254, 1), (Pixel32{0, 0, 255, 255}));
  EXPECT_EQ(pixelAt(shown, 255, 1).alpha, 0);
}

}  // namespace
}  // namespace ruvo
