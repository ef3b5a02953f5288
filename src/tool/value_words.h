// Values as words of a command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/colour.h"

namespace ruvo::tool {

// A finite number; nothing for any other word.
std::optional<double> parseReal(std::string_view text);
// "RRGGBB", with or without "#" before it.
std::optional<Colour> parseColour(std::string_view text);
std::string colourText(Colour colour);
// As short as it can be: "0.25", "3".
std::string numberText(double number);

}  // namespace ruvo::tool
