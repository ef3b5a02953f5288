// Small services on paths and values that every floor uses. Paths are UTF-8; lengths are counted in characters, not
// bytes.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "base/geometry.h"

namespace ruvo {

// The longest text that a window title or a history item shows of a path.
inline constexpr std::size_t kShownPathLength = 80;

// A path as UTF-8 and back, whatever the platform's own encoding of paths is.
std::string utf8Of(const std::filesystem::path& path);
std::filesystem::path pathOf(std::string_view utf8);

// Characters of a UTF-8 text; a byte that belongs to no valid sequence counts as one.
std::size_t utf8Length(std::string_view text);
// The first `count` and the last `count` characters.
std::string_view utf8Left(std::string_view text, std::size_t count);
std::string_view utf8Right(std::string_view text, std::size_t count);

// The parts of a path, as numbered by parsePath.
enum PathPart {
  kPartDriveFolder = 0,      // drive and folder
  kPartDriveFolderName = 1,  // drive, folder and name without extension
  kPartDrive = 2,            // "X:" when the path begins so
  kPartFolder = 3,           // with its last separator
  kPartFile = 4,             // name with extension
  kPartName = 5,             // name without extension
  kPartExtension = 6,        // with its dot; a dot with nothing after it starts no extension
};
// Empty for any other part, for a path over 255 characters, and for one that begins with "$" or a blank. Because of
// that limit no opening or saving may hang on it; those use extensionOf and fileNameOf, which take any path.
std::string parsePath(std::string_view path, int part);
std::string_view fileNameOf(std::string_view path);
std::string_view extensionOf(std::string_view path);  // ".png", or empty

// With four separators or more: all before the second one, then "/...../", then the file name. If that is still longer
// than `maximum`: the first 3 characters, "......" and the last maximum - 9.
std::string shortenPath(std::string_view path, std::size_t maximum = kShownPathLength);

// A regular file that can be opened for reading. A folder is no file.
bool fileExists(const std::filesystem::path& path);
bool folderExists(const std::filesystem::path& path);
// True for an existing file with no write permission at all (even for a user who may write everywhere) or to which this
// user may not write. A name that begins with a dot is an ordinary one.
bool isReadOnlyHiddenOrSystem(const std::filesystem::path& path);
// Gives the owner write permission; false when that fails.
bool clearAttributes(const std::filesystem::path& path);
// True when the file is gone afterwards (or never was); a read-only one stays and gives false.
bool deleteIfPossible(const std::filesystem::path& path);

// Scales a size into a frame, keeping its proportions: the side that limits takes the maximum exactly, the other at
// least
// 1. A size that fits is left unchanged unless `force`. Nothing when a side of the size is not positive.
std::optional<Size> fitSize(Size size, Size maximum, bool force);

struct RgbValues {
  int red = 0;
  int green = 0;
  int blue = 0;
  friend bool operator==(const RgbValues&, const RgbValues&) = default;
};
// Each to 0 to 255.
RgbValues clampRgb(RgbValues values);
// "RRGGBB" in upper case; values are clamped first.
std::string hexColour(RgbValues values);

}  // namespace ruvo
