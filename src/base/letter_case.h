// Upper case of ASCII letters, whatever the locale: names of formats and extensions have no others.
#pragma once

#include <string>
#include <string_view>

namespace ruvo {

inline std::string upperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

}  // namespace ruvo
