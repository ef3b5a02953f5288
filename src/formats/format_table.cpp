#include "formats/format_table.h"

#include <algorithm>
#include <new>

#include "base/letter_case.h"
#include "formats/picture_readers.h"

namespace ruvo {
namespace {

constexpr FormatRow kTable[] = {
    {Format::Bmp, "BMP", "Bitmap", ".bmp", "(*.bmp)|*.bmp|", false, false, readers::classic},
    {Format::Gif, "GIF", "GIF", ".gif", "(*.gif)|*.gif", false, false, readers::gif},
    {Format::Jpeg, "JPEG", "JPEG", ".jpg/.jpeg", "(*.jpg, *.jpeg)|*.jpg;*.jpeg|", false, false, readers::classic},
    {Format::Wmf, "WMF", "Metafile", ".wmf", "", false, false, readers::classic},
    {Format::Emf, "EMF", "Metafile", ".emf", "", false, false, readers::classic},
    {Format::Png, "PNG", "PNG", ".png", "(*.png)|*.png|", true, true, readers::png},
    {Format::Tiff, "TIFF", "TIFF", ".tif/.tiff", "(*.tif;*.tiff)|*.tif;*.tiff|", true, true, readers::imagingService},
    {Format::Tga, "TGA", "Targa", ".tga", "(*.tga)|*.tga|", false, false, readers::tga},
    {Format::Pcx, "PCX", "PCX", ".pcx", "(*.pcx)|*.pcx|", false, false, readers::pcx},
    {Format::Ico, "ICO", "Icon", ".ico", "(*.ico)|*.ico|", false, false, readers::icon},
    {Format::Cur, "CUR", "Cursor", ".cur", "(*.cur)|*.cur|", false, false, readers::cursor},
};

// Whether `list` (names with slashes between) has exactly this name.
bool listHas(std::string_view list, std::string_view name) {
  while (true) {
    const std::size_t slash = list.find('/');
    if (upperCase(list.substr(0, slash)) == name) return true;
    if (slash == std::string_view::npos) return false;
    list.remove_prefix(slash + 1);
  }
}

}  // namespace

std::span<const FormatRow> formatTable() {
  return kTable;
}

const FormatRow& rowOf(Format format) {
  return *std::find_if(std::begin(kTable), std::end(kTable),
                       [&](const FormatRow& row) { return row.format == format; });
}

const FormatRow* formatOfExtension(std::string_view extension) {
  if (extension.empty()) return nullptr;
  const std::string upper = upperCase(extension);
  for (const FormatRow& row : kTable) {
    if (listHas(row.extensions, upper)) return &row;
  }
  return nullptr;
}

const std::string& openableExtensions() {
  static const std::string all = [] {
    std::string text;
    for (const FormatRow& row : kTable) {
      if (!text.empty()) text += '/';
      text += row.extensions;
    }
    return text;
  }();
  return all;
}

bool isOpenableExtension(std::string_view extension) {
  return !extension.empty() && upperCase(openableExtensions()).find(upperCase(extension)) != std::string::npos;
}

const FormatRow* formatToOpen(std::string_view extension) {
  if (const FormatRow* row = formatOfExtension(extension)) return row;
  return isOpenableExtension(extension) ? kTable : nullptr;
}

ReadPicture readPicture(const std::filesystem::path& file, const FormatRow& row, const ReadRequest& request) {
  if (!row.read) {
    ReadPicture refused;
    refused.error = imaging::LoadError::NotThisFormat;
    return refused;
  }
  try {
    return row.read(file, request);
  } catch (const std::bad_alloc&) {
    ReadPicture refused;
    refused.error = imaging::LoadError::NoMemory;
    return refused;
  }
}

}  // namespace ruvo
