#include "document/model/open_rules.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include "base/letter_case.h"
#include "base/limits.h"
#include "base/paths.h"
#include "formats/format_table.h"

namespace ruvo {
namespace {

using enum OpenRoute;

constexpr OpenRow kTable[] = {
    {".BMP", "Bitmap", kAnyFileSize, PlatformLoader}, {".GIF", "GIF", kAnyFileSize, PlatformLoader},
    {".JPG", "JPEG", kAnyFileSize, PlatformLoader},   {".JPEG", "JPEG", kAnyFileSize, PlatformLoader},
    {".WMF", "Metafile", kAnyFileSize, NotBuilt},     {".EMF", "Metafile", kAnyFileSize, NotBuilt},
    {".PNG", "PNG", kAnyFileSize, ImagingService},    {".TIF", "TIFF", kAnyFileSize, ImagingService},
    {".TIFF", "TIFF", kAnyFileSize, ImagingService},  {".TGA", "Targa", kAnyFileSize, NotBuilt},
    {".PCX", "PCX", kAnyFileSize, NotBuilt},          {".ICO", "Icon", kAnyFileSize, NotBuilt},
    {".CUR", "Cursor", kAnyFileSize, NotBuilt},
};

std::string patternOf(std::string_view extension) {
  std::string pattern = "*";
  for (const char c : extension) pattern += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  return pattern;
}

void addPattern(std::string& list, std::string_view extension) {
  if (!list.empty()) list += ';';
  list += patternOf(extension);
}

}  // namespace

std::span<const OpenRow> openTable() {
  return kTable;
}

OpenPlan planOpen(const std::string& path) {
  OpenPlan plan;
  std::error_code error;
  if (!fileExists(pathOf(path))) {
    plan.fault = OpenFault::NotFound;
    return plan;
  }
  const auto size = std::filesystem::file_size(pathOf(path), error);
  plan.fileSize = error ? 0 : static_cast<std::int64_t>(size);
  const std::string_view extension = extensionOf(path);
  const std::size_t length = utf8Length(extension);
  if (length < 4 || length > 5) {
    plan.fault = OpenFault::NoExtension;
    return plan;
  }
  plan.extension = upperCase(extension);
  if (!isOpenableExtension(extension)) {
    plan.fault = OpenFault::NotAllowed;
    return plan;
  }
  // A part of a known extension (".jpe") is in the list too; such a file is told by its content.
  plan.route = PlatformLoader;
  for (const OpenRow& row : kTable) {
    if (row.extension == plan.extension && plan.fileSize <= row.maxFileBytes) {
      plan.route = row.route;
      break;
    }
  }
  if (plan.route == NotBuilt) plan.fault = OpenFault::NotAllowed;
  return plan;
}

std::string openFaultText(OpenFault fault, const std::string& path) {
  switch (fault) {
    case OpenFault::NotFound:
      return path + "\nFile not found";
    case OpenFault::NoExtension:
      return "File does not have file extension/file format unknown.\n" + path;
    case OpenFault::NotAllowed:
      return "File format not allowed for\n" + path;
    case OpenFault::LoadFailed:
      return path + "\nFailed to load this file.";
    case OpenFault::NoImage:
      return "Failed to retrieve incoming image";
    case OpenFault::TooLarge:
      return "Incoming image exceeds max size allowed.";
    case OpenFault::None:
    case OpenFault::NoImagingService:
      break;
  }
  return {};
}

OpenFault sizeFault(std::int64_t width, std::int64_t height) {
  if (width < 1 || height < 1) return OpenFault::NoImage;
  return pictureSizeAllowed(width, height) ? OpenFault::None : OpenFault::TooLarge;
}

OpenFault loadFault(const imaging::LoadResult& result) {
  if (result) return sizeFault(result.picture.width, result.picture.height);
  const bool sizeKnown = result.width != 0 || result.height != 0;
  const OpenFault fault = sizeKnown ? sizeFault(result.width, result.height) : OpenFault::None;
  if (fault != OpenFault::None) return fault;
  return result.error == imaging::LoadError::TooLarge ? OpenFault::TooLarge : OpenFault::LoadFailed;
}

std::string openFilter() {
  std::string all;
  std::vector<std::pair<std::string_view, std::string>> families;
  for (const OpenRow& row : kTable) {
    if (row.route == NotBuilt) continue;
    addPattern(all, row.extension);
    if (families.empty() || families.back().first != row.family) families.push_back({row.family, {}});
    addPattern(families.back().second, row.extension);
  }
  std::string filter = "(bmp/gif/jpg/jpeg/wmf/emf/png/tif/tiff/tga/pcx/ico/cur)|" + all;
  for (const auto& [name, patterns] : families) filter += '|' + std::string(name) + " (" + patterns + ")|" + patterns;
  return filter;
}

}  // namespace ruvo
