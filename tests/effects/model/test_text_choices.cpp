#include "effects/model/text_choices.h"

#include <gtest/gtest.h>

namespace ruvo {
namespace {

TEST(TextChoices, SizesAndLengthsOutOfRangeAreRefusedInWords) {
  const std::string size = "Font size should be a whole number from 4 to 400.";
  for (const char* typed : {"", "3", "401", "-12", "12.5", "12 ", "twelve", "99999999999999999999"}) {
    EXPECT_EQ(textRefusal(typed, "a"), size) << typed;
  }
  EXPECT_EQ(textSizeOf("4"), 4);
  EXPECT_EQ(textSizeOf("400"), 400);
  // Characters count, not bytes.
  std::string letters;
  for (int i = 0; i < 2000; ++i) letters += "\u4E2D";
  EXPECT_EQ(textRefusal("36", letters), std::nullopt);
  EXPECT_EQ(textRefusal("36", letters + "a"), "Text should have at most 2,000 characters.");
}

TEST(TextChoices, WhatCanBeWritten) {
  EXPECT_EQ(writableText(std::string("a\r\nb\rc\n\td\x1B\x7F\0e", 13)), "a\nb\nc\n\tde");
  EXPECT_EQ(writableText("\u05D0\u0301"), "\u05D0\u0301");
  for (const char* blank : {"", " \n\t ", "\u3000\u00A0\u200B"}) EXPECT_FALSE(hasLetters(blank)) << blank;
  for (const char* text : {".", "\n\n x", "\u3000\u4E2D"}) EXPECT_TRUE(hasLetters(text)) << text;
}

TEST(TextChoices, ThePictureOfATextKeepsTheLimitsOfPictures) {
  EXPECT_EQ(textPictureRefusal(32760, 763), std::nullopt);
  for (const auto& [width, height] : {std::pair<std::int64_t, std::int64_t>{32761, 10}, {5001, 5000}, {-1, 5}}) {
    EXPECT_EQ(textPictureRefusal(width, height), "Text at this size would be " + std::to_string(width) + " x " +
                                                     std::to_string(height) + " pixels, larger than a picture may be.");
  }
}

}  // namespace
}  // namespace ruvo
