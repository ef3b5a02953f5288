#include "tool/console.h"

namespace ruvo::tool {

int Console::refuse(std::string_view file, std::string_view words) {
  return refuse(std::string(file) + ": " + std::string(words));
}

int Console::refuse(std::string_view words) {
  std::string line(words);
  for (char& c : line) {
    if (c == '\n' || c == '\r') c = ' ';
  }
  err_ << kToolName << ": " << line << '\n';
  return 1;
}

std::string printable(std::string_view text) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string safe;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\\') {
      safe += "\\\\";
    } else if (c == '\n') {
      safe += "\\n";
    } else if (c == '\r') {
      safe += "\\r";
    } else if (c == '\t') {
      safe += "\\t";
    } else if (byte < 32 || byte == 127) {
      safe += {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 15]};
    } else {
      safe += c;
    }
  }
  return safe;
}

}  // namespace ruvo::tool
