// What the verbs make of pictures, seen through `decode`, which the first tests check by itself.
#include <gmock/gmock.h>

#include <set>

#include "formats/clsGIF.h"
#include "formats/clsICO.h"
#include "tool_fixture.h"

namespace ruvo {
namespace {

using namespace test;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'r', rgb(255, 0, 0)}, {'b', rgb(0, 0, 255)}};
const std::map<std::string, char> kLetters = {
    {"FFFFFFFF", '.'}, {"000000FF", '#'}, {"FF0000FF", 'r'}, {"0000FFFF", 'b'}, {"FF000080", 'h'}};

class ToolPictures : public ToolTest {
 protected:
  // As `pictures`, with "-" for every see-through pixel.
  std::vector<std::string> decoded(const std::string& name) {
    auto letters = kLetters;
    for (const char* colour : {"000000", "FF0000", "0000FF", "FFFFFF"}) letters[std::string(colour) + "00"] = '-';
    return pictures(name, letters);
  }
  // Three frames on a screen of 3 x 1: "rb" at 0, which stays, "#" at 1, which is taken back, and "b" at 2.
  void putGif(const std::string& name) const {
    clsGIF gif;
    ASSERT_TRUE(gif.FrameInsertImage(dibOf({"rb"}, kInk), 1, {}));
    ASSERT_TRUE(gif.FrameInsertImage(dibOf({"#"}, kInk), 2, {}));
    ASSERT_TRUE(gif.FrameInsertImage(dibOf({"b"}, kInk), 3, {}));
    gif.setFrameLeft(2, 1);
    gif.setFrameDisposalMethod(2, 3);
    gif.setFrameLeft(3, 2);
    gif.setFrameDelay(3, 25);
    gif.setNetscapeLoops(7);
    gif.setBgdWidth(3);
    gif.setBgdHeight(1);
    ASSERT_TRUE(gif.Save(folder / name, 0, "line\none"));
  }
  // A 24-bit image with a mask and a 32-bit one with alpha.
  void putIcon(const std::string& name, int type) const {
    clsICO icon;
    icon.setFileType(type);
    clsICO::Image masked, soft;
    masked.XOR.CreateBlankDIB(2, 1, 24, kBlack);
    masked.XOR.surface().pictureRow(0)[5] = 255;
    masked.AND.CreateBlankDIB(2, 1, 1, kWhite);
    masked.AND.surface().pictureRow(0)[0] = 0x80;
    masked.hotSpotX = 1;
    soft.XOR = dibOf(1, 1, [](int, int) { return Pixel32{0, 0, 255, 128}; });
    soft.XOR.setDIBhasAlpha(true);
    soft.AND.CreateBlankDIB(1, 1, 1, kWhite);
    icon.add(std::move(masked));
    icon.add(std::move(soft));
    ASSERT_TRUE(icon.SaveICO_All(folder / name));
  }
};

TEST_F(ToolPictures, DecodesEveryPictureOfAFile) {
  putGif("a.gif");
  EXPECT_THAT(decoded("a.gif"), ElementsAre("3x1 rb-", "3x1 r#-", "3x1 rbb"));
  putIcon("a.ico", kIconType);
  EXPECT_THAT(decoded("a.ico"), ElementsAre("2x1 -r", "1x1 h"));
  clsDIB half = dibOf(2, 1, [](int x, int) { return x ? Pixel32{0, 0, 255, 128} : Pixel32{255, 0, 0, 255}; });
  half.setDIBhasAlpha(true);
  putPng("a.png", half);
  EXPECT_THAT(decoded("a.png"), ElementsAre("2x1 bh"));
  put("cut.ico", bytesOf("a.ico").substr(0, 30));
  put("out.pam", "old");
  EXPECT_EQ(run({"decode", "@cut.ico", "@out.pam"}), 1);
  EXPECT_EQ(err, "ruvotool: " + at("cut.ico") + ": Invalid icon file.\n");
  EXPECT_EQ(bytesOf("out.pam"), "old");
}

TEST_F(ToolPictures, TellsFramesAndImages) {
  putGif("a.gif");
  ASSERT_EQ(run({"info", "@a.gif"}), 0);
  EXPECT_THAT(out, HasSubstr("  version: 89a\n  screen: 3 x 1\n  loops: 7\n  comment: line\\none\n  global entries: "));
  EXPECT_THAT(out, EndsWith("  frame 3: left 2, top 0, width 1, height 1, delay 25, disposal 0, transparent none, "
                            "interlaced no, local entries 2\n"));
  putIcon("a.cur", kCursorType);
  ASSERT_EQ(run({"info", "@a.cur"}), 0);
  EXPECT_THAT(out, HasSubstr("  format: CUR\n  width: 2\n  height: 1\n  bits: 24\n  colours: 2\n  images: 2\n"
                             "  image 1: width 2, height 1, bits 24, alpha no, hot spot 1 0, bytes "));
  EXPECT_THAT(out, HasSubstr("  image 2: width 1, height 1, bits 32, alpha yes, hot spot 0 0, bytes "));
}

// Each row: a picture, the words of `convert` behind its name, and what is then in the file.
TEST_F(ToolPictures, ConvertsBetweenFormats) {
  putPng("in.png", dibOf({"rb", ".r"}, kInk));
  clsDIB soft = dibOf(2, 1, [](int x, int) { return x ? Pixel32{0, 0, 255, 255} : Pixel32{0, 0, 0, 0}; });
  soft.setDIBhasAlpha(true);
  putPng("soft.png", soft);
  putGif("a.gif");
  putIcon("a.cur", kCursorType);
  struct Row {
    std::string from;
    std::vector<std::string> words;
    std::string to;
    std::string picture;
    std::string bits;
  };
  for (const Row& row : std::vector<Row>{
           {"in.png", {}, "o.bmp", "2x2 rb.r", "4"},
           {"in.png", {}, "o.jpg", "2x2 ????", "24"},
           {"in.png", {"--interlaced", "--transparent-top-pixel"}, "o.gif", "2x2 -b.-", "8"},
           {"in.png", {"--bpp", "8"}, "o.png", "2x2 rb.r", "8"},
           {"in.png", {"--native", "--interlaced"}, "o.png", "2x2 rb.r", "24"},
           {"in.png", {"--transparent-top-pixel", "--bpp", "32"}, "o.png", "2x2 -b.-", "32"},
           {"in.png", {"--bpp=8"}, "o.tiff", "2x2 rb.r", "8"},
           {"in.png", {"--bpp", "8"}, "o.pcx", "2x2 rb.r", "24"},
           {"in.png", {}, "o.ico", "2x2 rb.r", "24"},
           {"in.png", {"--transparent-top-pixel", "--bpp=4"}, "o.cur", "2x2 -b.-", "4"},
           {"in.png", {"--resize=4x2", "--nearest"}, "o.bmp", "4x2 rrbb..rr", "4"},
           {"soft.png", {}, "o.png", "2x1 -r", "32"},
           {"soft.png", {"--bpp", "24"}, "o.png", "2x1 .r", "24"},
           {"soft.png", {"--bpp", "8"}, "o.ico", "2x1 -r", "8"},
           {"soft.png", {"--native", "--bpp=8"}, "o.gif", "2x1 .r", "8"},
           {"a.gif", {}, "o.bmp", "3x1 rb-", "32"},
           {"a.gif", {"--frame=2"}, "o.tga", "3x1 r#.", "24"},
           {"a.gif", {"--frame=3", "--native"}, "o.png", "3x1 rbb", "24"},
           {"a.cur", {}, "o.cur", "2x1 -r", "32"},
           {"a.cur", {"--frame", "2"}, "o.png", "1x1 h", "32"},
       }) {
    std::vector<std::string> words = {"convert", "@" + row.from, "@" + row.to};
    words.insert(words.end(), row.words.begin(), row.words.end());
    EXPECT_EQ(run(words), 0) << err;
    EXPECT_THAT(decoded(row.to), ElementsAre(row.picture)) << testing::PrintToString(words);
    ASSERT_EQ(run({"info", "@" + row.to}), 0) << err;
    EXPECT_THAT(out, HasSubstr("  bits: " + row.bits + "\n")) << testing::PrintToString(words);
  }
  ASSERT_EQ(run({"convert", "@a.cur", "@o.cur"}), 0);
  ASSERT_EQ(run({"info", "@o.cur"}), 0);
  EXPECT_THAT(out, HasSubstr("hot spot 1 0")) << "a cursor keeps its hot spot";
  EXPECT_EQ(run({"convert", "@soft.png", "@o.rgba"}), 0);
  EXPECT_EQ(bytesOf("o.rgba"), std::string("\0\0\0\0\xFF\0\0\xFF", 8));
}

TEST_F(ToolPictures, RefusesWhatAFormatCanNotHold) {
  putPng("in.png", dibOf({"rb"}, kInk));
  putGif("a.gif");
  for (const auto& [words, said] : std::vector<std::pair<std::vector<std::string>, std::string>>{
           {{"@in.png", "@o.gif", "--bpp=24"}, "GIF has at most 8 bits a pixel"},
           {{"@in.png", "@o.jpg", "--bpp=32"}, "JPG has at most 24 bits a pixel"},
           {{"@in.png", "@o.bmp", "--interlaced"}, "BMP can not be interlaced"},
           {{"@in.png", "@o.jpg", "--transparent-top-pixel"}, "JPG can not be transparent"},
           {{"@in.png", "@o.tif", "--transparent-top-pixel", "--bpp=8"}, "below 32 bits"},
           {{"@in.png", "@o.ico", "--resize=257x1"}, "at most 256 pixels"},
           {{"@a.gif", "@o.png", "--frame=4"}, "has no frame 4"},
           {{"@in.png", "@o.png", "--frame=2"}, "has no frame 2"}}) {
    auto all = words;
    all.insert(all.begin(), "convert");
    EXPECT_EQ(run(all), 1);
    EXPECT_THAT(err, HasSubstr(said));
  }
  EXPECT_THAT(folder.names(), ElementsAre("a.gif", "in.png"));
}

// Black and white each by another method; a smooth ramp keeps as many colours as there may be.
TEST_F(ToolPictures, ReducesColours) {
  putPng("ramp.png", dibOf(64, 16, [](int x, int y) { return Pixel32::plain(rgb(x * 4, y * 16, 128)); }));
  std::set<std::string> dithered;
  for (const char* method : {"stucki", "floyd", "burke", "ordered"}) {
    ASSERT_EQ(run({"convert", "--bpp=1", "--dither", method, "@ramp.png", "@o.rgba"}), 0);
    dithered.insert(bytesOf("o.rgba"));
  }
  EXPECT_EQ(dithered.size(), 4u);
  ASSERT_EQ(run({"convert", "--bpp=8", "@ramp.png", "@o.bmp"}), 0);
  ASSERT_EQ(run({"colours", "@o.bmp"}), 0);
  EXPECT_LE(std::stoi(out), 256);
  EXPECT_GT(std::stoi(out), 64);
}

TEST_F(ToolPictures, WritesJpegByBothEncoders) {
  putPng("grey.png", dibOf(16, 16, [](int, int) { return Pixel32::plain(rgb(100, 100, 100)); }));
  std::set<std::string> files;
  for (const auto& [encoder, quality] : {std::pair{"--bpp=24", "--quality=5"},
                                         {"--native", "--quality=5"},
                                         {"--bpp=24", "--quality=95"},
                                         {"--native", "--quality=95"}}) {
    ASSERT_EQ(run({"convert", "@grey.png", "@o.jpg", encoder, quality}), 0) << err;
    files.insert(bytesOf("o.jpg"));
  }
  EXPECT_EQ(files.size(), 4u);
  ASSERT_EQ(run({"convert", "@o.jpg", "@o.rgba"}), 0) << err;
  EXPECT_NEAR(static_cast<unsigned char>(bytesOf("o.rgba")[0]), 100, 2);
}

TEST_F(ToolPictures, ReducesTheColoursOfAGif) {
  clsGIF gif;
  const test::Ink ink = {{'r', rgb(255, 0, 0)}, {'d', rgb(250, 0, 0)}, {'b', rgb(0, 0, 255)}};
  ASSERT_TRUE(gif.FrameInsertImage(dibOf({"rdb"}, ink), 1));
  ASSERT_TRUE(gif.FrameInsertImage(dibOf({"dd"}, ink), 2));
  ASSERT_TRUE(gif.Save(folder / "a.gif", 0, "words"));
  ASSERT_EQ(run({"gif", "reduce", "--entries", "2", "--globalise", "@a.gif", "@o.gif"}), 0) << err;
  EXPECT_THAT(decoded("o.gif"), ElementsAre("3x1 ??b", "3x1 ??b"));
  ASSERT_EQ(run({"info", "@o.gif"}), 0);
  EXPECT_THAT(out,
              AllOf(HasSubstr("comment: words\n"), HasSubstr("global entries: 2\n"), HasSubstr("local entries 0")));
  EXPECT_EQ(run({"gif", "reduce", "@a.gif", "@o.gif"}), 1);
  EXPECT_EQ(err, "ruvotool: gif reduce needs --entries\n");
  EXPECT_EQ(run({"gif", "reduce", "--entries=1", "@a.gif", "@o.gif"}), 1);
  EXPECT_EQ(run({"gif", "reduce", "--entries=4", "@none.gif", "@o.gif"}), 1);
}

TEST_F(ToolPictures, WritesPalettes) {
  putPng("in.png", dibOf({"rb", ".r"}, kInk));
  const std::string head = "JASC-PAL\r\n0100\r\n256\r\n000 000 000\r\n";
  for (const auto& [kind, holds] : {std::pair{"--16", head + "128 000 000\r\n000 128 000\r\n"},
                                    {"--web", "\r\n255 255 255\r\n000 000 000\r\n"},
                                    {"--halftone=0", head + "255 000 000\r\n"},
                                    {"--optimal=256", "255 000 000\r\n"}}) {
    EXPECT_EQ(run({"palette", kind, "@in.png", "@o.pal"}), 0) << err;
    EXPECT_THAT(bytesOf("o.pal"), HasSubstr(holds));
    EXPECT_EQ(bytesOf("o.pal").size(), 21u + 256 * 13);
  }
  EXPECT_EQ(run({"palette", "--web", "@none.png", "@o.pal"}), 1);
}

TEST_F(ToolPictures, TakesGifsApartAndWritesThemAnew) {
  putGif("a.gif");
  ASSERT_EQ(run({"gif", "frames", "@a.gif", "@parts/stored"}), 0) << err;
  EXPECT_THAT(namesIn(folder / "parts/stored"), ElementsAre("frame001.gif", "frame002.gif", "frame003.gif"));
  EXPECT_THAT(decoded("parts/stored/frame002.gif"), ElementsAre("3x1 -#-"));
  ASSERT_EQ(run({"gif", "composed", "@a.gif", "@shown"}), 0) << err;
  EXPECT_THAT(namesIn(folder / "shown"), ElementsAre("frame001.png", "frame002.png", "frame003.png"));
  EXPECT_THAT(decoded("shown/frame002.png"), ElementsAre("3x1 r#-"));
  ASSERT_EQ(run({"gif", "composed", "--rgba", "@a.gif", "@raw"}), 0) << err;
  EXPECT_EQ(bytesOf("raw/frame001.rgba"), std::string("\xFF\0\0\xFF\0\0\xFF\xFF\0\0\0\0", 12));
  put("file", "x");
  EXPECT_EQ(run({"gif", "frames", "@a.gif", "@file"}), 1);
  EXPECT_THAT(err, StartsWith("ruvotool: " + at("file")));

  ASSERT_EQ(run({"info", "@a.gif"}), 0);
  const std::string before = out.substr(out.find('\n'));
  ASSERT_EQ(run({"gif", "rewrite", "@a.gif", "@a.gif"}), 0);
  ASSERT_EQ(run({"info", "@a.gif"}), 0);
  EXPECT_EQ(out.substr(out.find('\n')), before);
}

TEST_F(ToolPictures, MinimisesAndChecksGifs) {
  putGif("a.gif");
  const auto before = bytesOf("a.gif").size();
  const auto shown = decoded("a.gif");
  ASSERT_EQ(run({"gif", "minimise", "--global", "@a.gif", "@global.gif"}), 0) << err;
  ASSERT_EQ(run({"info", "@global.gif"}), 0);
  EXPECT_THAT(out, AllOf(HasSubstr("global entries: 4"), HasSubstr("comment: \n")));
  ASSERT_EQ(run({"gif", "minimise", "@a.gif", "@a.gif"}), 0) << err;
  const auto now = bytesOf("a.gif").size();
  EXPECT_EQ(out, "Orig file size:  " + std::to_string(before) + "       New:  " + std::to_string(now) + " bytes\n");
  EXPECT_LT(now, before);
  EXPECT_EQ(decoded("a.gif"), shown);
  EXPECT_EQ(bytesOf("a.gif"), bytesOf("global.gif"));
  EXPECT_EQ(run({"gif", "check", "@a.gif"}), 0);
  EXPECT_THAT(out, StartsWith("No discrepancy found.\n"));
  // The comment goes also when there is nothing else to do.
  ASSERT_EQ(run({"gif", "set", "--comment", "words", "@a.gif", "@worded.gif"}), 0) << err;
  ASSERT_EQ(run({"gif", "minimise", "--no-interlace", "@worded.gif", "@worded.gif"}), 0) << err;
  EXPECT_EQ(bytesOf("worded.gif"), bytesOf("a.gif"));
  EXPECT_EQ(run({"gif", "minimise", "@none.gif", "@o.gif"}), 1);
  EXPECT_EQ(run({"gif", "check", "@none.gif"}), 1);
}

}  // namespace
}  // namespace ruvo
