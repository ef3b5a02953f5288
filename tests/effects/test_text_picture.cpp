#include "effects/text_picture.h"

#include <gtest/gtest.h>

#include "support/pictures.h"

namespace ruvo {
namespace {

using namespace test;

constexpr Colour kInk = 0x2030C8, kGround = 0x40E010;

TextChoices choicesOf(const char* text) {
  TextChoices choices;
  choices.text = text;
  choices.family = "DejaVu Sans";
  choices.colour = kInk;
  choices.backColour = kGround;
  return choices;
}
clsDIB drawn(const TextChoices& choices) {
  clsDIB dib;
  EXPECT_TRUE(TextPicture(choices).render(dib));
  return dib;
}
// How much of the columns from `from` on is covered, 255 a pixel.
std::int64_t cover(const clsDIB& dib, int from = 0) {
  std::int64_t sum = 0;
  for (int y = 0; y < dib.DIBHeight(); ++y) {
    for (int x = from; x < dib.DIBWidth(); ++x) sum += pixelAt(dib, x, y).alpha;
  }
  return sum;
}

// Small letters come from the glyph cache, large ones are filled outlines.
TEST(TextPicture, LettersHaveTheirColourEverywhereAndSoftEdgesOnlyWhenAsked) {
  for (int kind = 0; kind < 12; ++kind) {
    TextChoices choices = choicesOf("aSg");
    choices.size = std::array{14, 90, 300}[kind / 4];
    choices.antialias = kind % 2 != 0;
    choices.filled = kind / 2 % 2 != 0;
    const clsDIB dib = drawn(choices);
    int between = 0, other = 0;
    for (int y = 0; y < dib.DIBHeight(); ++y) {
      for (int x = 0; x < dib.DIBWidth(); ++x) {
        const Pixel32 p = pixelAt(dib, x, y);
        between += choices.filled ? p.colour() != kInk && p.colour() != kGround : p.alpha % 255 != 0;
        other += choices.filled ? p.alpha != 255 : p.colour() != kInk;
      }
    }
    EXPECT_EQ(between > 0, choices.antialias) << kind;
    EXPECT_EQ(other, 0) << kind;
  }
}

TEST(TextPicture, StylesAndAlignmentShow) {
  const TextChoices plain = choicesOf("Hill\ni");
  const clsDIB base = drawn(plain);
  for (bool TextChoices::*style : {&TextChoices::bold, &TextChoices::underline, &TextChoices::strikeThru}) {
    TextChoices choices = plain;
    choices.*style = true;
    EXPECT_GT(cover(drawn(choices)), cover(base) * 11 / 10);
  }
  TextChoices slanted = plain, right = plain;
  slanted.italic = true;
  EXPECT_GT(cover(drawn(slanted), base.DIBWidth() / 8), cover(base, base.DIBWidth() / 8));
  right.align = TextAlign::Right;
  EXPECT_GT(cover(drawn(right), base.DIBWidth() / 3), cover(base, base.DIBWidth() / 3));
  EXPECT_EQ(cover(drawn(right)), cover(base));
}

TEST(TextPicture, ScriptsRunTheirWayAndMarksStayWithTheirLetter) {
  // A Hebrew word begins at the right: a letter added behind it comes at the left, and a blank behind it not at all.
  const clsDIB shorter = drawn(choicesOf("\u05E9\u05DC\u05D5")), longer = drawn(choicesOf("\u05E9\u05DC\u05D5\u05DD "));
  const int added = longer.DIBWidth() - shorter.DIBWidth();
  EXPECT_GT(added, 8);
  EXPECT_NEAR(cover(longer, added), cover(shorter), cover(shorter) / 50);
  EXPECT_LT(drawn(choicesOf("\u0628\u0628")).DIBWidth(), 2 * drawn(choicesOf("\u0628")).DIBWidth()) << "they join";
  EXPECT_NEAR(drawn(choicesOf("e\u0301")).DIBWidth(), drawn(choicesOf("e")).DIBWidth(), 1);
  EXPECT_GT(drawn(choicesOf("E\u0301\u0302\u0302\u0302")).DIBHeight(), drawn(choicesOf("E")).DIBHeight());
}

TEST(TextPicture, FontsThatStandInAreNamedAndTooMuchIsNoPicture) {
  EXPECT_EQ(TextPicture(choicesOf("Plain\tand simple\n")).fontNote(), "");
  TextChoices missing = choicesOf("Some");
  missing.family = "No Such Font";
  EXPECT_TRUE(TextPicture(missing).fontNote().startsWith("No Such Font is not here; "));
  // No font has a private letter of the last plane.
  EXPECT_TRUE(TextPicture(choicesOf("a\U0010FFFD")).fontNote().contains("Some characters are in no font here"));
  // Not even where only the slanted face lacks a script.
  TextChoices slanted = choicesOf("\u0628\u0628 a");
  const bool upright = TextPicture(slanted).fontNote().contains("in no font here");
  slanted.italic = slanted.bold = true;
  EXPECT_EQ(TextPicture(slanted).fontNote().contains("in no font here"), upright);
  TextChoices wide = choicesOf("");
  wide.text.assign(2000, 'W');
  wide.size = 400;
  clsDIB dib;
  EXPECT_FALSE(TextPicture(wide).render(dib) || TextPicture(choicesOf(" \n ")).render(dib));
  EXPECT_TRUE(TextPicture(wide).renderSample(dib, 0.1, {300, 100}));
  EXPECT_EQ(dib.DIBWidth(), 300);
  EXPECT_GT(cover(dib), 0);
}

}  // namespace
}  // namespace ruvo
