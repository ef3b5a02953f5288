// Lines of text in the selected font.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/imaging/metafile_figures.h"

namespace ruvo::imaging::meta {

struct Character {
  char32_t code = 0;  // Unicode, or a glyph's number
  int units = 1;      // bytes or 16-bit units of the record that it stands for
};

// Bytes by a font's character set; what is not valid there becomes U+FFFD. Symbol sets (2) give the bytes themselves.
std::vector<Character> charactersOf(std::span<const std::uint8_t> text, int charset);
// UTF-16, low byte first.
std::vector<Character> charactersOfUtf16(std::span<const std::uint8_t> text);
std::string utf8Of(std::span<const Character> text);
// What a character of the fonts Symbol and Wingdings looks like, by its low byte; zero when there is no such letter.
char32_t symbolLetter(std::string_view face, char32_t code);

struct TextLine {
  PointF at;
  std::vector<Character> characters;
  std::vector<PointF> steps;  // of each unit, logical; empty: by the font
  bool glyphNumbers = false;
  bool opaqueBox = false;
  bool clipped = false;
  std::optional<Box> box;
};

// With the state's font, colours, alignment and position.
void drawText(Device& device, const TextLine& line);

}  // namespace ruvo::imaging::meta
