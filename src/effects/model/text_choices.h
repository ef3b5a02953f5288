// What a person may choose for a text that is written on a picture, with its limits and the words of its refusals.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/colour.h"
#include "base/geometry.h"

namespace ruvo {

enum class TextAlign { Left, Center, Right };

// Height of the font in pixels of the picture.
inline constexpr int kSmallestText = 4;
inline constexpr int kLargestText = 400;
inline constexpr std::array<int, 20> kTextSizes = {8,  9,  10, 11, 12, 14, 16, 18, 20, 24,
                                                   28, 32, 36, 40, 48, 56, 64, 72, 96, 144};
inline constexpr int kMaxTextCharacters = 2000;

struct TextChoices {
  std::string text;    // UTF-8, lines divided by '\n'
  std::string family;  // of the font; empty: the desktop's own
  int size = 36;       // kSmallestText to kLargestText
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikeThru = false;
  bool antialias = true;
  TextAlign align = TextAlign::Left;
  Colour colour = kBlack;
  bool filled = false;  // the ground in backColour, else see-through
  Colour backColour = kWhite;

  friend bool operator==(const TextChoices&, const TextChoices&) = default;
};

// The size that was typed; nothing when it is no whole number within the limits.
std::optional<int> textSizeOf(std::string_view typed);
// The text as it can be written: each kind of line end becomes '\n', other control characters but the tab go.
std::string writableText(std::string_view typed);
// Characters, of one byte or more.
int textLength(std::string_view text);
// There is something to be seen: more than blanks and line ends.
bool hasLetters(std::string_view text);

inline constexpr const char* kTextFailed = "Text writing has been unsuccessful.";
// Why a size as it was typed, and a text, can not be taken; nothing when they can.
std::optional<std::string> textRefusal(std::string_view typedSize, std::string_view text);
// Why the picture of a text, of that size, can not be made.
std::optional<std::string> textPictureRefusal(std::int64_t width, std::int64_t height);

}  // namespace ruvo
