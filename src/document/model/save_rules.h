// The Save As commands: their formats, proposed names and refusals.
#pragma once

#include <string>
#include <string_view>

#include "base/save_texts.h"

namespace ruvo {

enum class SaveFormat { Bmp, Jpeg, Png, Tiff };

// One Save As item.
struct SaveItem {
  std::string_view control;  // of the menu row
  int index;
  SaveFormat format;
  bool reduceCanvas;  // the picture itself is first reduced to 8 bits, and stays so
  int quality;        // of a JPEG
};
// Null for an item that is none, or has no writer.
const SaveItem* saveItemOf(std::string_view control, int index);
// The item that stands for plain Save on a record of this type: the same format, else the lossless default.
const SaveItem& saveItemForType(std::string_view type);

struct SaveFormatInfo {
  std::string_view filter;
  std::string_view extension;  // without dot, lower case
  bool needsImaging;
};
const SaveFormatInfo& saveFormatInfo(SaveFormat format);

// The chosen path, with the format's extension behind it when it ends in none of the format's own: opening goes by the
// extension, so a file under another format's name could not be read again.
std::string pathWithExtension(const SaveFormatInfo& info, const std::string& path);

// The record's name with the new extension, in `folder` when the record has no path. ":" has no place in a file name.
std::string proposedName(const std::string& recordName, std::string_view extension, const std::string& folder);

inline constexpr const char* kPngNeedsImaging = "GDIplus.dll not found.  Please select to save with Options Panel.";

}  // namespace ruvo
