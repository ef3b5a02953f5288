#include <gmock/gmock.h>

#include "effects/filter/clsDIBFilter.h"
#include "tool_fixture.h"

namespace ruvo {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

const std::map<std::string, char> kLetters = {{"000000FF", '#'}, {"FFFFFFFF", '.'}, {"FF0000FF", 'r'},
                                              {"808080FF", 'g'}, {"C0C0C0FF", 'l'}, {"00FF00FF", 'G'}};

class ToolEffects : public test::ToolTest {
 protected:
  ToolEffects() { putPng("in.png", test::dibOf({"#..", "...", "..."})); }
  // Words between the verb and its files; what OUT shows, or the error.
  std::string after(std::vector<std::string> words) {
    words.push_back("@in.png");
    words.push_back("@out.png");
    if (run(words) != 0) return err;
    return pictures("out.png", kLetters).front();
  }
};

TEST_F(ToolEffects, FiltersByValuesInOrderByNameAndByStandards) {
  EXPECT_EQ(after({"filter", "negative"}), "3x3 .########");
  EXPECT_EQ(after({"filter", "negative", "FFFFFF"}), "3x3 .........");
  EXPECT_EQ(after({"filter", "negative", "exclude=#000000"}), "3x3 #########");
  EXPECT_EQ(after({"filter", "negative", "none"}), "3x3 .########");
  EXPECT_EQ(after({"filter", "colorize", "FF0000"}), "3x3 #rrrrrrrr");
  EXPECT_EQ(after({"filter", "adjust", "blue", "amount=-255"}).substr(0, 5), "3x3 #");
  EXPECT_EQ(after({"filter", "tile", "tile=@in.png"}), "ruvotool: @in.png: File not found\n");
  EXPECT_EQ(after({"filter", "tile", at("in.png")}), "3x3 #........");
}

TEST_F(ToolEffects, ASecondPictureCountsAsFarAsItIsSeen) {
  clsDIB second = test::dibOf(2, 1, [](int x, int) { return x == 0 ? Pixel32{} : Pixel32::opaque(rgb(255, 0, 0)); });
  second.setDIBhasAlpha(true);
  putPng("second.png", second);
  EXPECT_EQ(after({"filter", "layer", at("second.png")}), "3x3 #r.......");
  EXPECT_EQ(after({"filter", "tile", at("second.png")}), "3x3 .r..r..r.");
}

TEST_F(ToolEffects, FilterRefusesInWordsAndWritesNothing) {
  for (const auto& [words, told] : std::vector<std::pair<std::vector<std::string>, std::string>>{
           {{"filter", "sparkle"}, "there is no filter \"sparkle\""},
           {{"filter", "brighten", "401"}, "percent takes 0 to 400"},
           {{"filter", "brighten", "1.5"}, "percent takes 0 to 400"},
           {{"filter", "brighten", "nan"}, "percent takes 0 to 400"},
           {{"filter", "gamma", "-1"}, "gamma takes 0.1 to 10"},
           {{"filter", "negative", "red"}, "exclude takes RRGGBB or none"},
           {{"filter", "negative", "exclude=FFFFF"}, "exclude takes RRGGBB or none"},
           {{"filter", "swap", "order=xyz"}, "order takes r.b.g.|"},
           {{"filter", "negative", "none", "7"}, "filter negative takes no value \"7\""},
           {{"filter", "texturize"}, "filter texturize needs relief=FILE"},
           {{"filter", "texturize", "relief=gone.png"}, "gone.png"},
           {{"rotate", "east"}, "ANGLE takes a number from -360 to 360"},
           {{"rotate", "361"}, "ANGLE takes a number from -360 to 360"},
           {{"rotate", "inf"}, "ANGLE takes a number from -360 to 360"},
           {{"rotate", "5", "--fill", "FFF"}, "--fill takes RRGGBB"},
           {{"rotate", "5", "--transparent=white"}, "--transparent takes RRGGBB"}}) {
    EXPECT_THAT(after(words), AllOf(HasSubstr("ruvotool: "), HasSubstr(told)));
    EXPECT_EQ(bytesOf("out.png"), "(no file)");
  }
  EXPECT_EQ(run({"filter", "negative", "@gone.png", "@out.png"}), 1);
  EXPECT_THAT(err, HasSubstr("gone.png: "));
  EXPECT_EQ(run({"rotate", "9", "@in.png", "@no/folder/out.png"}), 1);
  EXPECT_THAT(err, HasSubstr("out.png: "));
  EXPECT_EQ(run({"filter", "negative", "@in.png", "@out.wmf"}), 1);
  putPng("strip.png", test::plainDib(5000, 2, kBlack));
  EXPECT_EQ(run({"rotate", "1", "--grow", "@strip.png", "@out.png"}), 1);
  EXPECT_THAT(err, HasSubstr("5002 x 5002"));
}

TEST_F(ToolEffects, RotatesAsTheFilterDoes) {
  const auto wanted = [](double angle, Size size, bool antialias, std::int64_t transparent, Colour fill) {
    const clsDIB in = test::dibOf({"#..", "...", "..."});
    clsDIB turned = test::plainDib(size.width, size.height, fill);
    clsDIBFilter().RotateDIB_To_DIB(in, turned, angle, antialias, transparent, fill);
    std::string text = std::to_string(size.width) + 'x' + std::to_string(size.height) + ' ';
    for (const std::string& row :
         test::rowsOf(turned, {{'#', kBlack}, {'.', kWhite}, {'r', rgb(255, 0, 0)}, {'G', rgb(0, 255, 0)}}))
      text += row;
    return text;
  };
  EXPECT_EQ(after({"rotate", "0"}), "3x3 #........");
  EXPECT_EQ(after({"rotate", "-90"}), wanted(-90, {3, 3}, false, -1, kWhite));
  EXPECT_EQ(after({"rotate", "--grow", "--fill", "FF0000", "30.5"}), wanted(30.5, {6, 6}, false, -1, rgb(255, 0, 0)));
  EXPECT_EQ(after({"rotate", "--antialias", "17"}), wanted(17, {3, 3}, true, -1, kWhite));
  EXPECT_EQ(after({"rotate", "0", "--transparent", "000000", "--fill=00FF00"}), "3x3 G........");
}

}  // namespace
}  // namespace ruvo
