#include "base/file_io.h"
#include "formats/gif_bytes.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;

const std::vector<Colour> kLocalColours = {rgb(9, 9, 9), rgb(8, 7, 6)};

GifBytes twoFrames() {
  GifBytes gif(6, 4);
  gif.extension(0xFF, {"NETSCAPE2.0", "\x01\x05\x01"}).extension(0xFE, {"made ", "by hand"});
  gif.control(1 | 2 | 3 << 2, 300, 2).image({"012", "222"}, 1, 2, 0);
  gif.control(0, 7, 3).image({"01", "10"}, 4, 0, 0xA0, kLocalColours);
  return gif;
}

TEST(GifLoad, SeeThroughPixelsAreWhiteInTheMaskAndBlackInThePicture) {
  clsGIF gif;
  ASSERT_EQ(load(gif, twoFrames().bytes()), kGifOk);
  EXPECT_PICTURE(rowsOf(gif.FrameDIBAND(1)), ({"##.", "..."}));
  EXPECT_PICTURE(rowsOf(gif.FrameDIBAND(2)), ({"##", "##"}));
  const Ink ink = {{'a', kFourColours[0]}, {'r', kFourColours[1]}, {'#', kBlack}};
  EXPECT_PICTURE(rowsOf(gif.FrameDIBXOR(1), ink), ({"ar#", "###"}));
  EXPECT_PICTURE(digits(gif.FrameDIBXOR(1)), ({"012", "222"}));
  EXPECT_EQ(gif.FrameTransparentColor(1), rgb(0, 255, 0)) << "the frame's table keeps the file's colour";
}

TEST(GifLoad, ControlRecordsBelongToImagesByNumber) {
  clsGIF gif;
  ASSERT_EQ(load(gif, GifBytes(2, 1).control(0, 11).control(0, 22).image({"01"}).image({"10"}).bytes()), kGifOk);
  EXPECT_EQ(gif.FrameDelay(1), 11);
  EXPECT_EQ(gif.FrameDelay(2), 22);
  EXPECT_EQ(codeOf(GifBytes(2, 1).image({"01"}).bytes()), kGifOk);
  // The one extension fills the record of the first image, so the second has none.
  EXPECT_EQ(codeOf(GifBytes(2, 1).image({"01"}).control(0, 5).image({"10"}).bytes()), kGifOther);
  EXPECT_EQ(codeOf(GifBytes(2, 1).image({"01"}).image({"10"}).bytes()), kGifOther);
}

TEST(GifLoad, StrayBytesAndAMissingOrOtherTrailerAreTolerated) {
  const GifBytes plain = GifBytes(2, 1).raw({0, 7, 0xFF}).control(0).image({"01"}).raw({0, 1, 2});
  EXPECT_EQ(codeOf(plain.bytes()), kGifOk);
  EXPECT_EQ(codeOf(plain.open()), kGifOk);
  EXPECT_EQ(codeOf(GifBytes(2, 1).extension(0x01, {"twelve bytes", "text"}).image({"01"}).open()), kGifOk);
  // Nothing behind the trailer counts.
  EXPECT_EQ(codeOf(GifBytes(2, 1).image({"01"}).raw({0x3B, 0x2C}).open()), kGifOk);
}

TEST(GifLoad, RunningOutInsideABlockEmptiesTheModel) {
  const GifBytes header(2, 1);
  const std::size_t first = header.size() + 8, one = GifBytes(header).control(0).image({"01"}).size() - header.size();
  const Bytes whole = GifBytes(header).control(0).image({"01"}).control(1).image({"10"}).bytes();
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const std::size_t images = length < header.size() ? 0 : (length - header.size()) / one;
    // The file may end between two blocks.
    const bool between = length == header.size() || length == first + images * one ||
                         length == header.size() + images * one || length == whole.size();
    const int expected = length < 3    ? kGifNoSignature
                         : length < 6  ? kGifUnknownVersion
                         : !between    ? kGifOutOfBounds
                         : images == 0 ? kGifNoFrame
                                       : kGifOk;
    clsGIF gif;
    EXPECT_EQ(load(gif, Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length))), expected) << length;
    EXPECT_EQ(gif.FramesCount() > 0 && gif.BgdWidth() > 0, expected == kGifOk);
  }
  // Sub-blocks without end, and a table that is not there.
  EXPECT_EQ(codeOf(GifBytes(2, 1).raw({0x21, 0xFE}).raw(Bytes(3000, 255)).open()), kGifOutOfBounds);
  EXPECT_EQ(codeOf(GifBytes(2, 1, "89a", 0x87, {}).raw(Bytes(700, 1)).open()), kGifOutOfBounds);
}

TEST(GifLoad, SizesAreCheckedBeforeAnythingIsMade) {
  const auto screen = [](int w, int h) { return GifBytes(w, h).image({"01"}).bytes(); };
  EXPECT_EQ(codeOf(screen(0, 5)), kGifBadSize);
  EXPECT_EQ(codeOf(screen(32761, 1)), kGifBadSize);
  EXPECT_EQ(codeOf(screen(5001, 5000)), kGifBadSize);
  EXPECT_EQ(codeOf(screen(5000, 5000)), kGifOk);

  const auto frame = [](int w, int h, int place) {
    GifBytes gif(9, 9);
    for (int i = 1; i < place; ++i) gif.control(0).image({"01"});
    return gif.control(0).descriptor(0, 0, w, h).raw({2, 1, 0, 0}).bytes();
  };
  EXPECT_EQ(codeOf(frame(2001, 1, 1)), kGifOk);
  EXPECT_EQ(codeOf(frame(2001, 1, 2)), kGifBadSize);
  EXPECT_EQ(codeOf(frame(2000, 1500, 2)), kGifOk);
  EXPECT_EQ(codeOf(frame(2000, 1501, 2)), kGifBadSize);
  EXPECT_EQ(codeOf(frame(1, 0, 1)), kGifBadSize);
  clsGIF gif;
  EXPECT_EQ(load(gif, frame(65535, 65535, 1)), kGifBadSize);
  EXPECT_EQ((Size{gif.statedWidth(), gif.statedHeight()}), (Size{65535, 65535}));
  EXPECT_EQ(load(gif, screen(30000, 30000)), kGifBadSize);
  EXPECT_EQ((Size{gif.statedWidth(), gif.statedHeight()}), (Size{30000, 30000}));
}

TEST(GifLoad, AtMostACertainNumberOfFrames) {
  GifBytes gif(2, 1);
  for (int i = 0; i < clsGIF::kMostFrames; ++i) gif.control(0, i).image({"01"});
  clsGIF loaded;
  ASSERT_EQ(load(loaded, gif.bytes()), kGifOk);
  EXPECT_EQ(loaded.FrameDelay(120), 119);
  EXPECT_EQ(codeOf(gif.control(0).bytes()), kGifOk);
  EXPECT_EQ(load(loaded, gif.image({"01"}).bytes()), kGifTooManyFrames);
  EXPECT_EQ(loaded.FramesCount(), 0);
  EXPECT_EQ(codeOf(GifBytes(2, 1).control(0).bytes()), kGifNoFrame);
}

TEST(GifLoad, AnImageWithoutDataEndsTheWalk) {
  clsGIF gif;
  const GifBytes file = GifBytes(2, 1).control(0).image({"01"}).control(0).descriptor(0, 0, 2, 1).raw({2, 0, 0x2C});
  ASSERT_EQ(load(gif, file.open()), kGifOk);
  EXPECT_EQ(gif.FramesCount(), 1);
  EXPECT_EQ(codeOf(GifBytes(2, 1).descriptor(0, 0, 2, 1).raw({2, 0}).image({"01"}).bytes()), kGifNoFrame);
}

TEST(GifLoad, TheFirstCommentAndWholeLoopBlocksCount) {
  using Blocks = std::vector<std::string>;
  const auto loaded = [](int label, const Blocks& first, const Blocks& second, const std::string& version = "89a") {
    clsGIF gif;
    GifBytes file(2, 1, version);
    EXPECT_EQ(load(gif, file.extension(label, first).extension(label, second).image({"01"}).bytes()), kGifOk);
    EXPECT_EQ(gif.hasComment(), !gif.CommentText().empty());
    return label == 0xFE ? gif.CommentText() : std::to_string(gif.NetscapeLoops());
  };
  EXPECT_EQ(loaded(0xFE, {"a\t\xE9z\r\n~\x7F", "b"}, {"2"}), "az\r\n~b");
  EXPECT_EQ(loaded(0xFE, {"\x01\x02"}, {"second"}), "second");
  EXPECT_EQ(loaded(0xFE, {"old"}, {}, "87a"), "");

  const std::string loops = "NETSCAPE2.0", other = "ANIMEXTS1.0";
  EXPECT_EQ(loaded(0xFF, {loops, "\xFF\xFF\xFF"}, {loops, "\x01\x02"}), "65535") << "the short block is skipped";
  EXPECT_EQ(loaded(0xFF, {loops, "\x07", "\x02\x03"}, {other, "\x01\x02\x03"}), "770")
      << "the kind is not looked at, nor where blocks end";
}

TEST(GifLoad, FilesPassTheTestsInTheirOrder) {
  const TempFolder folder;
  Bytes file = GifBytes(2, 1).image({"01"}).bytes();
  file.resize(101);
  // Each change stands before the last one in the order of the tests.
  for (const auto& [change, expected] : std::vector<std::pair<std::function<void()>, int>>{
           {[] {}, kGifOk},
           {[&] { std::fill_n(file.begin() + 6, 4, std::uint8_t{0xFF}); }, kGifBadSize},
           {[&] { file[5] = 'b'; }, kGifUnknownVersion},
           {[&] { file[0] = 'J'; }, kGifNoSignature},
           {[&] { file.resize(100); }, kGifNotGif},
           {[&] { file.clear(); }, kGifNotGif}}) {
    change();
    ASSERT_TRUE(replaceFile(folder / "a.gif", file));
    clsGIF gif;
    EXPECT_EQ(gif.LoadFromGIFFile(folder / "a.gif"), expected);
    EXPECT_EQ(gif.FramesCount() > 0, expected == kGifOk);
  }
  EXPECT_EQ(clsGIF().LoadFromGIFFile(folder / "none.gif"), kGifNotFound);
  EXPECT_EQ(clsGIF().LoadFromGIFFile(folder.path()), kGifNotFound);
}

}  // namespace
}  // namespace ruvo
