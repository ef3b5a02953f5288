#include "base/paths.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <system_error>

#include "base/rounding.h"

namespace ruvo {
namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMaxParsedLength = 255;
#ifdef _WIN32
constexpr std::string_view kSeparators = "/\\";
#else
constexpr std::string_view kSeparators = "/";
#endif

// Bytes of the character that starts `text`: a whole valid sequence, else 1.
std::size_t characterBytes(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  const std::size_t want = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
  if (want > text.size()) return 1;
  for (std::size_t i = 1; i < want; ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return 1;
  }
  return want;
}

struct PathParts {
  std::string_view drive, folder, file, name, extension;
};

PathParts splitPath(std::string_view path) {
  PathParts parts;
  if (path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0]))) {
    parts.drive = path.substr(0, 2);
    path.remove_prefix(2);
  }
  const std::size_t separator = path.find_last_of(kSeparators);
  if (separator != std::string_view::npos) {
    parts.folder = path.substr(0, separator + 1);
    path.remove_prefix(separator + 1);
  }
  parts.file = path;
  const std::size_t dot = path.substr(0, path.empty() ? 0 : path.size() - 1).rfind('.');
  parts.name = path.substr(0, dot);
  if (dot != std::string_view::npos) parts.extension = path.substr(dot);
  return parts;
}

}  // namespace

std::string utf8Of(const fs::path& path) {
  const auto text = path.u8string();
  return {text.begin(), text.end()};
}

fs::path pathOf(std::string_view utf8) {
  return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::size_t utf8Length(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(characterBytes(text));
  return count;
}

std::string_view utf8Left(std::string_view text, std::size_t count) {
  std::size_t bytes = 0;
  for (; count > 0 && bytes < text.size(); --count) bytes += characterBytes(text.substr(bytes));
  return text.substr(0, bytes);
}

std::string_view utf8Right(std::string_view text, std::size_t count) {
  const std::size_t length = utf8Length(text);
  return length <= count ? text : text.substr(utf8Left(text, length - count).size());
}

std::string parsePath(std::string_view path, int part) {
  if (path.empty() || path[0] == '$' || path[0] == ' ' || utf8Length(path) > kMaxParsedLength) return {};
  const PathParts parts = splitPath(path);
  std::string place = std::string(parts.drive) + std::string(parts.folder);
  switch (part) {
    case kPartDriveFolder:
      return place;
    case kPartDriveFolderName:
      return place + std::string(parts.name);
    case kPartDrive:
      return std::string(parts.drive);
    case kPartFolder:
      return std::string(parts.folder);
    case kPartFile:
      return std::string(parts.file);
    case kPartName:
      return std::string(parts.name);
    case kPartExtension:
      return std::string(parts.extension);
    default:
      return {};
  }
}

std::string_view fileNameOf(std::string_view path) {
  return splitPath(path).file;
}
std::string_view extensionOf(std::string_view path) {
  return splitPath(path).extension;
}

std::string shortenPath(std::string_view path, std::size_t maximum) {
  constexpr std::string_view kMiddle = "......";
  constexpr std::size_t kStart = 3;
  const auto isSeparator = [](char c) { return kSeparators.find(c) != std::string_view::npos; };
  std::string shown(path);
  if (std::count_if(path.begin(), path.end(), isSeparator) >= 4) {
    const std::size_t first = path.find_first_of(kSeparators);
    const std::size_t second = path.find_first_of(kSeparators, first + 1);
    const char separator = path[second];
    shown = std::string(path.substr(0, second)) + separator + "....." + separator + std::string(fileNameOf(path));
  }
  if (utf8Length(shown) <= maximum || maximum < kStart + kMiddle.size()) return shown;
  const std::size_t tail = maximum - kStart - kMiddle.size();
  return std::string(utf8Left(shown, kStart)).append(kMiddle).append(utf8Right(shown, tail));
}

bool fileExists(const fs::path& path) {
  // Not blocking: a named pipe must not hang the test.
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return false;
  struct stat info {};
  const bool regular = ::fstat(file, &info) == 0 && S_ISREG(info.st_mode);
  ::close(file);
  return regular;
}

bool folderExists(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

bool isReadOnlyHiddenOrSystem(const fs::path& path) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return false;
  return (info.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 || ::access(path.c_str(), W_OK) != 0;
}

bool clearAttributes(const fs::path& path) {
  std::error_code error;
  fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, error);
  return !error;
}

bool deleteIfPossible(const fs::path& path) {
  std::error_code error;
  if (fs::symlink_status(path, error).type() == fs::file_type::not_found) return true;
  if (folderExists(path) || isReadOnlyHiddenOrSystem(path)) return false;
  return fs::remove(path, error);
}

std::optional<Size> fitSize(Size size, Size maximum, bool force) {
  if (size.empty()) return std::nullopt;
  if (!force && size.width <= maximum.width && size.height <= maximum.height) return size;
  const double across = static_cast<double>(maximum.width) / size.width;
  const double down = static_cast<double>(maximum.height) / size.height;
  if (across <= down) return Size{maximum.width, std::max(1, roundToInt(size.height * across))};
  return Size{std::max(1, roundToInt(size.width * down)), maximum.height};
}

RgbValues clampRgb(RgbValues values) {
  return {std::clamp(values.red, 0, 255), std::clamp(values.green, 0, 255), std::clamp(values.blue, 0, 255)};
}

std::string hexColour(RgbValues values) {
  const RgbValues c = clampRgb(values);
  char text[8];
  std::snprintf(text, sizeof text, "%02X%02X%02X", static_cast<unsigned>(c.red), static_cast<unsigned>(c.green),
                static_cast<unsigned>(c.blue));
  return text;
}

}  // namespace ruvo
