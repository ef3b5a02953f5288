#include "document/model/open_rules.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "base/limits.h"
#include "base/paths.h"

namespace ruvo {
namespace {

void addPatterns(std::string& list, std::string_view extensions) {
  for (std::size_t start = 0; start < extensions.size();) {
    const std::size_t end = std::min(extensions.find('/', start), extensions.size());
    list += (list.empty() ? "*" : ";*") + std::string(extensions.substr(start, end - start));
    start = end + 1;
  }
}

}  // namespace

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
  plan.row = formatToOpen(extension);
  if (length < 4 || length > 5) {
    plan.fault = OpenFault::NoExtension;
  } else if (!plan.row || !plan.row->read) {
    plan.fault = OpenFault::NotAllowed;
  }
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
    case OpenFault::Cancelled:
      break;
  }
  return {};
}

OpenFault sizeFault(std::int64_t width, std::int64_t height) {
  if (width < 1 || height < 1) return OpenFault::NoImage;
  return pictureSizeAllowed(width, height) ? OpenFault::None : OpenFault::TooLarge;
}

OpenFault loadFault(const ReadPicture& read) {
  if (read.cancelled) return OpenFault::Cancelled;
  if (read) return sizeFault(read.dib.DIBWidth(), read.dib.DIBHeight());
  const bool sizeKnown = read.width != 0 || read.height != 0;
  const OpenFault fault = sizeKnown ? sizeFault(read.width, read.height) : OpenFault::None;
  if (fault != OpenFault::None) return fault;
  return read.error == imaging::LoadError::TooLarge ? OpenFault::TooLarge : OpenFault::LoadFailed;
}

std::string openFilter() {
  std::string all;
  std::vector<std::pair<std::string_view, std::string>> families;
  for (const FormatRow& row : formatTable()) {
    if (!row.read) continue;
    addPatterns(all, row.extensions);
    if (families.empty() || families.back().first != row.family) families.push_back({row.family, {}});
    addPatterns(families.back().second, row.extensions);
  }
  std::string filter = "(bmp/gif/jpg/jpeg/wmf/emf/png/tif/tiff/tga/pcx/ico/cur)|" + all;
  for (const auto& [name, patterns] : families) filter += '|' + std::string(name) + " (" + patterns + ")|" + patterns;
  return filter;
}

}  // namespace ruvo
