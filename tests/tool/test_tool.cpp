#include <gmock/gmock.h>

#include <filesystem>

#include "formats/exif_bytes.h"
#include "support/bmp_bytes.h"
#include "support/file_size_limit.h"
#include "tool/verbs.h"
#include "tool_fixture.h"

namespace ruvo {
namespace {

using namespace test;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(ToolTest, TellsAndDocumentsEveryVerb) {
  ASSERT_EQ(run({"--help"}), 0);
  const std::string all = out;
  std::string manual;
  const auto page = readWholeFile(RUVO_DOCS "/ruvotool.1", kMaxFileBytes);
  ASSERT_TRUE(page);
  for (const std::uint8_t c : *page) {
    if (c != '\\') manual += static_cast<char>(c);
  }
  for (const tool::VerbRow& verb : tool::verbTable()) {
    const std::string name(verb.name);
    EXPECT_THAT(all, HasSubstr("  " + name + ' ' + std::string(verb.operands))) << name;
    EXPECT_THAT(manual, HasSubstr("ruvotool " + name)) << name;
    std::vector<std::string> words;
    for (std::stringstream stream(name); stream >> words.emplace_back();) {
    }
    words.back() = "--help";
    EXPECT_EQ(run(words), 0);
    EXPECT_THAT(out, StartsWith("Usage: ruvotool " + name)) << name;
    for (const tool::OptionRow& option : verb.options) {
      EXPECT_THAT(out, HasSubstr("  " + std::string(option.name))) << name;
      EXPECT_THAT(manual, HasSubstr(option.name)) << name;
    }
  }
  EXPECT_EQ(run({"gif", "--help"}), 0);
  EXPECT_THAT(out, AllOf(HasSubstr("gif frames"), testing::Not(HasSubstr("exif list"))));
  EXPECT_EQ(run({"--version"}), 0);
  EXPECT_THAT(out, StartsWith("ruvotool 1"));
}

TEST_F(ToolTest, RefusesWordsThatItDoesNotKnow) {
  std::stringstream lines(
      ";paint;gif;gif paint;info;info --all a.bmp;convert a.bmp;convert a.bmp b.bmp c.bmp;"
      "convert --bpp 5 a.bmp b.bmp;convert a.bmp b.bmp --bpp;convert --bpp=4 --bpp=8 a.bmp b.bmp;"
      "convert --quality 101 a.bmp b.jpg;convert --quality 9x a.bmp b.jpg;convert --resize 0x5 a.bmp b.bmp;"
      "convert --resize 5001x5000 a.bmp b.bmp;convert --native=yes a.bmp b.bmp;palette a.bmp b.pal;"
      "palette --web --16 a.bmp b.pal;palette --optimal 8 b.pal;palette --halftone 5 b.pal;"
      "gif composed --png --rgba a.gif b;");
  for (std::string line; std::getline(lines, line, ';');) {
    std::vector<std::string> words;
    for (std::stringstream stream(line); !(stream >> std::ws).eof();) stream >> words.emplace_back();
    EXPECT_EQ(run(words), 1) << line;
    EXPECT_THAT(err, AllOf(StartsWith("ruvotool: "), EndsWith("\n")));
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
    EXPECT_EQ(out, "");
  }
}

TEST_F(ToolTest, NamesTheFileThatItRefusesAndGoesOn) {
  putPng("good.png", dibOf({"#."}));
  put("cut.png", bytesOf("good.png").substr(0, 40));
  put("noext", "x");
  put("song.ogg", "x");
  put("cut.gif", "GIF89a");
  const auto wide = BmpFile{.width = 32761, .height = 1}.bytes();
  replaceFile(folder / "wide.bmp", wide);
  EXPECT_EQ(run({"info", "@none.bmp", "@cut.png", "@noext", "@song.ogg", "@cut.gif", "@wide.bmp", "@good.png"}), 1);
  std::vector<std::string> lines;
  for (std::stringstream stream(err); std::getline(stream, lines.emplace_back());) {
  }
  lines.pop_back();
  EXPECT_THAT(lines, ElementsAre("ruvotool: " + at("none.bmp") + ": File not found",
                                 "ruvotool: " + at("cut.png") + ": Failed to load this file.",
                                 "ruvotool: " + at("noext") +
                                     ": File does not have file extension/file format unknown. " + at("noext"),
                                 "ruvotool: " + at("song.ogg") + ": File format not allowed for " + at("song.ogg"),
                                 "ruvotool: " + at("cut.gif") + ": Not a GIF file.",
                                 "ruvotool: " + at("wide.bmp") + ": Incoming image exceeds max size allowed."));
  EXPECT_EQ(out, at("good.png") + "\n  format: PNG\n  width: 2\n  height: 1\n  bits: 24\n  colours: 2\n");
}

TEST_F(ToolTest, WritesWholeFilesOrNone) {
  putPng("in.png", dibOf(300, 200, [](int x, int y) { return Pixel32::plain(rgb(x, y, x * y)); }));
  for (const char* extension : {"bmp", "gif", "jpg", "png", "tif", "tga", "pcx", "rgba", "pam", "pal"}) {
    const std::string name = std::string("out.") + extension;
    put(name, "old");
    const bool pam = name == "out.pam", pal = name == "out.pal";
    std::vector<std::string> words = {pam ? "decode" : pal ? "palette" : "convert", "@in.png", "@" + name};
    if (pal) words.push_back("--optimal=16");
    {
      const FileSizeLimit full(1000);
      EXPECT_EQ(run(words), 1) << name;
      EXPECT_THAT(err, StartsWith("ruvotool: " + at(name) + ": ")) << name;
    }
    EXPECT_EQ(bytesOf(name), "old");
    EXPECT_EQ(run(words), 0) << name << err;
    EXPECT_GT(bytesOf(name).size(), 1000u) << name;
  }
  EXPECT_EQ(folder.names().size(), 11u) << "no neighbours are left";
  std::filesystem::create_directory(folder / "folder.png");
  EXPECT_EQ(run({"convert", "@in.png", "@folder.png"}), 1);
  EXPECT_EQ(run({"convert", "@in.png", "@none/out.png"}), 1);
  EXPECT_EQ(run({"convert", "@in.png", "@out.wmf"}), 1);
}

TEST_F(ToolTest, TakesCameraDataOutAndPutsItBack) {
  TiffBuilder tiff(true);
  tiff.begin();
  tiff.text(271, "Maker\x1B[2J");
  tiff.shorts(274, {6});
  replaceFile(folder / "a.jpg", jpegWith(tiff.build(), kJfif));
  put("text", "no block");
  const std::string whole = bytesOf("a.jpg");
  ASSERT_EQ(run({"exif", "list", "@a.jpg"}), 0) << err;
  EXPECT_EQ(out, "Manufacturer:   Maker\\x1B[2J\nOrientationRowColumn:   [Right, Top]\n");
  const auto refused = [&](const std::vector<std::string>& words, const std::string& why) {
    EXPECT_EQ(run(words), 1);
    EXPECT_THAT(err, HasSubstr(why));
  };
  refused({"exif", "erase", "@a.jpg", "@a.jpg"}, "");
  refused({"exif", "erase", "@a.jpg", "@none/block"}, "");
  refused({"exif", "restore", "@a.jpg", "@a.jpg"}, "has camera data already");
  EXPECT_EQ(bytesOf("a.jpg"), whole);

  ASSERT_EQ(run({"exif", "erase", "@a.jpg", "@block"}), 0) << err;
  EXPECT_LT(bytesOf("a.jpg").size(), whole.size());
  refused({"exif", "list", "@a.jpg"}, at("a.jpg") + ": Current file without EXIF.\n");
  refused({"exif", "erase", "@a.jpg", "@other"}, at("a.jpg") + ": Current file without EXIF.\n");
  refused({"exif", "restore", "@a.jpg", "@text"}, at("text") + ": is no block of camera data\n");
  refused({"exif", "restore", "@text", "@block"}, at("text") + ": is no JPEG\n");
  ASSERT_EQ(run({"exif", "restore", "@a.jpg", "@block"}), 0) << err;
  EXPECT_EQ(bytesOf("a.jpg"), whole);
  refused({"exif", "list", "@none.jpg"}, ": Failed to open the file.\n");
}

TEST_F(ToolTest, FailsWhenItsTextCanNotBeWritten) {
  std::ostringstream closed, errors;
  closed.setstate(std::ios::badbit);
  EXPECT_EQ(tool::run(std::vector<std::string>{"--help"}, closed, errors), 1);
  EXPECT_EQ(errors.str(), "ruvotool: standard output: could not be written\n");
}

}  // namespace
}  // namespace ruvo
