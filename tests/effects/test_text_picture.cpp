#include "effects/text_picture.h"

#include <gtest/gtest.h>

#include <QFontDatabase>

#include "support/pictures.h"

namespace ruvo {
namespace {

using namespace test;

constexpr Colour kInk = 0x2030C8;

TextChoices choicesOf(const char* text) {
  TextChoices choices;
  choices.text = text;
  choices.family = "DejaVu Sans";
  choices.colour = kInk;
  return choices;
}
clsDIB drawn(const TextChoices& choices) {
  clsDIB dib;
  EXPECT_TRUE(TextPicture(choices).render(dib));
  return dib;
}
// How much of columns `from` to `to` is covered, 255 a pixel.
std::int64_t cover(const clsDIB& dib, int from, int to) {
  std::int64_t sum = 0;
  for (int y = 0; y < dib.DIBHeight(); ++y) {
    for (int x = from; x < to; ++x) sum += pixelAt(dib, x, y).alpha;
  }
  return sum;
}
std::int64_t cover(const clsDIB& dib) {
  return cover(dib, 0, dib.DIBWidth());
}

// Small letters come from the glyph cache, large ones are filled outlines.
TEST(TextPicture, LettersHaveTheirColourEverywhereAndSoftEdgesOnlyWhenAsked) {
  for (const int size : {14, 90, 300}) {
    for (const bool antialias : {true, false}) {
      for (const bool filled : {true, false}) {
        TextChoices choices = choicesOf("aSg");
        choices.size = size;
        choices.antialias = antialias;
        choices.filled = filled;
        choices.backColour = 0x40E010;
        const clsDIB dib = drawn(choices);
        int between = 0, other = 0, ink = 0;
        for (int y = 0; y < dib.DIBHeight(); ++y) {
          for (int x = 0; x < dib.DIBWidth(); ++x) {
            const Pixel32 p = pixelAt(dib, x, y);
            between += filled ? p.colour() != kInk && p.colour() != choices.backColour : p.alpha % 255 != 0;
            other += filled ? p.alpha != 255 : p.colour() != kInk;
            ink += p == Pixel32::opaque(kInk);
          }
        }
        EXPECT_EQ(between > 0, antialias) << size << filled;
        EXPECT_EQ(other, 0) << size << filled;
        EXPECT_GT(ink, size * size / 50);
        // Nothing is cut at the rim: above the letters and below them there is room.
        EXPECT_TRUE(filled || pixelAt(dib, dib.DIBWidth() / 2, 0).alpha == 0);
      }
    }
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
  TextChoices slanted = plain;
  slanted.italic = true;
  EXPECT_LT(cover(drawn(slanted), 0, base.DIBWidth() / 8), cover(base, 0, base.DIBWidth() / 8) * 9 / 10);
  // The lone letter of the second line goes to the right; a third of the picture has but the first line then.
  TextChoices right = plain;
  right.align = TextAlign::Right;
  const int third = base.DIBWidth() / 3;
  EXPECT_GT(cover(base, 0, third), cover(drawn(right), 0, third));
  EXPECT_EQ(cover(base), cover(drawn(right)));
  TextChoices once = plain;
  once.text = "Hill";
  EXPECT_NEAR(base.DIBHeight(), 2 * drawn(once).DIBHeight(), 4);
}

TEST(TextPicture, ScriptsRunTheirWayAndMarksStayWithTheirLetter) {
  // A Hebrew word begins at the right: a letter added behind it comes at the left.
  const clsDIB shorter = drawn(choicesOf("\u05E9\u05DC\u05D5")), longer = drawn(choicesOf("\u05E9\u05DC\u05D5\u05DD"));
  const int added = longer.DIBWidth() - shorter.DIBWidth();
  EXPECT_GT(added, 8);
  EXPECT_NEAR(cover(longer, added, longer.DIBWidth()), cover(shorter), cover(shorter) / 50);
  // Arabic letters join, so that a word is not the sum of its letters; accents take no room of their own.
  EXPECT_LT(drawn(choicesOf("\u0628\u0628")).DIBWidth(), 2 * drawn(choicesOf("\u0628")).DIBWidth());
  EXPECT_NEAR(drawn(choicesOf("e\u0301")).DIBWidth(), drawn(choicesOf("e")).DIBWidth(), 1);
  EXPECT_GT(drawn(choicesOf("E\u0301\u0302\u0302\u0302")).DIBHeight(), drawn(choicesOf("E")).DIBHeight());
}

TEST(TextPicture, FontsThatStandInAreNamed) {
  EXPECT_EQ(TextPicture(choicesOf("Plain\tand simple\n")).fontNote(), "");
  TextChoices missing = choicesOf("Some");
  missing.family = "No Such Font";
  const QString note = TextPicture(missing).fontNote();
  EXPECT_TRUE(note.startsWith("No Such Font is not here; ") && note.endsWith(" stands in for it."))
      << note.toStdString();
  // No font has a private letter of the last plane.
  EXPECT_TRUE(TextPicture(choicesOf("a\U0010FFFD")).fontNote().contains("Some characters are in no font here"));
}

TEST(TextPicture, NothingAndTooMuchGiveNoPicture) {
  clsDIB dib;
  EXPECT_FALSE(TextPicture(choicesOf(" \n ")).render(dib));
  TextChoices wide = choicesOf("");
  wide.text.assign(2000, 'W');
  wide.size = 400;
  const TextPicture text(wide);
  EXPECT_GT(text.width(), 400000);
  EXPECT_FALSE(text.render(dib));
  EXPECT_TRUE(text.renderSample(dib, 0.1, {300, 100}));
  EXPECT_EQ(dib.DIBWidth(), 300);
  EXPECT_GT(cover(dib), 0);
}

}  // namespace
}  // namespace ruvo
