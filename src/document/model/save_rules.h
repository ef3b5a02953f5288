// The Save As commands: their formats, proposed names and refusals.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/save_texts.h"
#include "document/model/file_record.h"
#include "formats/format_table.h"

namespace ruvo {

enum class SaveWay {
  Direct,
  ReduceCanvas,  // the picture itself is first reduced to 8 bits, and stays so
  Panel,         // options panel of GIF and PNG
  IconWindow,    // the window of icons and cursors
};

// One Save As item.
struct SaveItem {
  std::string_view control;  // of the menu row
  int index;
  Format format;
  SaveWay way = SaveWay::Direct;
  int quality = 0;           // of a JPEG
  bool transparent = false;  // of a GIF: the colour of the picture's top left
  bool interlaced = false;   // of a GIF
};
// Null for an item that is none, or has no writer.
const SaveItem* saveItemOf(std::string_view control, int index);
// The item that stands for plain Save on this record: the same format in the same manner, else the lossless default.
const SaveItem& saveItemForRecord(const FileRecord& record);

// The words with which an item is refused for want of a library; an empty text stands for the main window's own words.
std::optional<std::string> saveRefusal(const SaveItem& item, bool imagingUsable, bool zlibPresent);

// Without dot, lower case.
std::string usualExtension(Format format);
// The chosen path, with the format's extension behind it when it ends in none of the format's own: opening goes by the
// extension, so a file under another format's name could not be read again.
std::string pathWithExtension(Format format, const std::string& path);
// The record's name with a new end (extension and what stands before it), in `folder` when the record has no path. ":"
// has no place in a file name.
std::string proposedName(const std::string& recordName, std::string_view ending, const std::string& folder);

inline constexpr const char* kOriginalMissing = "Orig file missing.  Orig EXIF data will not be saved.";
// How the name of a photograph ends that gets its camera data back.
inline constexpr std::string_view kExifEnding = "_EX.jpg";

}  // namespace ruvo
