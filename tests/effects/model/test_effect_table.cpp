#include "effects/model/effect_table.h"

#include <set>

#include "support/pictures.h"

namespace ruvo {
namespace {

bool isText(const char* text) {
  return text && *text;
}

TEST(EffectTable, namesAreOneWordAndStandardsWithinTheirRanges) {
  std::set<std::string> names;
  for (const Effect& effect : effectTable()) {
    EXPECT_TRUE(names.insert(effect.name).second) << effect.name;
    EXPECT_EQ(std::string(effect.name).find_first_not_of("abcdefghijklmnopqrstuvwxyz-"), std::string::npos);
    EXPECT_TRUE(isText(effect.title) && isText(effect.help) && effect.apply) << effect.name;
    std::set<std::string> arguments;
    for (const EffectArgument& argument : effect.arguments) {
      EXPECT_TRUE(arguments.insert(argument.name).second && isText(argument.label)) << effect.name;
      EXPECT_TRUE(argument.low <= argument.standard && argument.standard <= argument.high) << effect.name;
      if (argument.kind == EffectValueKind::Choice) {
        EXPECT_EQ(argument.high, static_cast<double>(argument.choices.size()) - 1) << effect.name;
      }
    }
  }
}

TEST(EffectTable, everyEffectTakesSmallPicturesAndCanBeStopped) {
  const auto relief = std::make_shared<clsDIB>(test::dibOf({"#.", ".#"}));
  for (const Effect& effect : effectTable()) {
    std::vector<EffectValue> values = standardValues(effect);
    for (EffectValue& value : values) value.picture = relief;
    for (const Size size : {Size{1, 1}, Size{7, 1}, Size{1, 5}, Size{6, 4}}) {
      clsDIB dib = test::plainDib(size.width, size.height, rgb(90, 120, 30));
      EXPECT_TRUE(effect.apply(dib, EffectInput(values), {})) << effect.name;
      EXPECT_FALSE(dib.empty()) << effect.name;
    }
    clsDIB dib = test::plainDib(9, 9, kWhite);
    EXPECT_FALSE(effect.apply(dib, EffectInput(values), {{}, {}, [] { return true; }})) << effect.name;
  }
}

// Each row hands its values to its operation in the right places.
TEST(EffectTable, valuesReachTheirOperation) {
  const auto after = [](const char* name, std::vector<double> numbers, Colour colour, double scale = 1) {
    std::vector<EffectValue> values;
    for (const double number : numbers) values.push_back({number, nullptr});
    clsDIB dib = test::dibOf(4, 4, [&](int x, int) { return Pixel32::plain(x < 2 ? colour : kWhite); });
    EffectInput input(values);
    input.scale = scale;
    EXPECT_TRUE(effectOf(name)->apply(dib, input, {})) << name;
    return test::pixelAt(dib, 1, 2).colour();
  };
  EXPECT_EQ(after("brighten", {10, -1}, rgb(15, 100, 250)), rgb(17, 110, 255));
  EXPECT_EQ(after("darken", {50, -1}, rgb(100, 20, 0)), rgb(50, 10, 0));
  EXPECT_EQ(after("darken", {50, 100}, rgb(100, 0, 0)), rgb(100, 0, 0));
  EXPECT_EQ(after("contrast", {2, 1, -1}, rgb(130, 100, 0)), rgb(133, 73, 0));
  EXPECT_EQ(after("fade", {100, -1}, kBlack), kWhite);
  EXPECT_EQ(after("grayscale", {-1}, rgb(100, 0, 0)), rgb(30, 30, 30));
  EXPECT_EQ(after("colorize", {double{rgb(200, 100, 0)}}, kWhite), rgb(200, 100, 0));
  EXPECT_EQ(after("adjust", {1, -40, -1}, rgb(100, 100, 100)), rgb(100, 60, 100));
  EXPECT_EQ(after("swap", {4}, rgb(1, 2, 3)), rgb(3, 2, 1));
  EXPECT_EQ(after("swap", {0}, rgb(1, 2, 3)), rgb(1, 3, 2));
  EXPECT_EQ(after("theme-hls", {-1, 240, -1, 0}, rgb(1, 2, 3)), kWhite);
  EXPECT_EQ(after("theme-rgb", {1, 2, 3, 0}, rgb(30, 60, 90)), rgb(61, 62, 63));
  EXPECT_EQ(after("cast", {1, 2, 3}, kWhite), rgb(1, 2, 3));
  EXPECT_EQ(after("emboss", {1, 255, 0, 0}, kBlack), rgb(51, 51, 51));
  EXPECT_EQ(after("engrave", {1, 0, 0, 255}, kBlack), rgb(26, 26, 26));
  // A block of two pixels of the real picture is one of a sample at half its size: column 1 keeps its own colour.
  EXPECT_EQ(after("pixelate", {2}, rgb(9, 9, 9), 0.5), rgb(9, 9, 9));
}

TEST(EffectMenu, itemsHangUnderOthersAndTellTheirMnemonicsApart) {
  std::set<std::string> controls = {"mnuEffects", "mnuLayer"}, places;
  std::map<std::string, std::string> mnemonics;
  for (const EffectItem& item : effectMenu()) {
    EXPECT_TRUE(places.insert(item.control + std::to_string(item.index)).second) << item.text;
    EXPECT_TRUE(controls.contains(item.parent)) << item.text;
    controls.insert(item.control);
    for (const char* name : item.effects) EXPECT_NE(effectOf(name), nullptr) << name;
    const std::string text = item.text;
    if (text == "-") continue;
    const std::size_t mark = text.find('&');
    ASSERT_LT(mark + 1, text.size()) << text;
    const char letter = static_cast<char>(std::tolower(text[mark + 1]));
    // The long menu has more items than there are letters to mark; two share one at the most.
    std::string& taken = mnemonics[item.parent];
    EXPECT_LE(std::ranges::count(taken, letter), item.parent == std::string("mnuEffects") ? 1 : 0) << text;
    taken += letter;
  }
}

}  // namespace
}  // namespace ruvo
