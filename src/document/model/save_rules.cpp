#include "document/model/save_rules.h"

#include <array>

#include "base/letter_case.h"
#include "base/paths.h"

namespace ruvo {
namespace {

constexpr const char* kPngNeedsImaging = "GDIplus.dll not found.  Please select to save with Options Panel.";
constexpr const char* kPngNeedsZlib =
    "zLIB.dll missing in Ruvo Paint program folder.\nPlease select to save without Options Panel.";
constexpr const char* kPngNeedsBoth =
    "(1) zLIB.dll missing in Ruvo Paint program folder and (2) GDIplus.dll not found.\nHence cannot proceed to save "
    "PNG "
    "file.";

constexpr std::array kItems = {
    SaveItem{"mnuFileSaveBMPSub", 0, Format::Bmp},
    SaveItem{"mnuFileSaveBMPSub", 2, Format::Bmp, SaveWay::ReduceCanvas},
    SaveItem{.control = "mnuFileSaveGIFSub", .index = 0, .format = Format::Gif},
    SaveItem{.control = "mnuFileSaveGIFSub", .index = 1, .format = Format::Gif, .transparent = true},
    SaveItem{
        .control = "mnuFileSaveGIFSub", .index = 2, .format = Format::Gif, .transparent = true, .interlaced = true},
    SaveItem{.control = "mnuFileSaveGIFSub", .index = 3, .format = Format::Gif, .interlaced = true},
    SaveItem{"mnuFileSaveGIFSub", 5, Format::Gif, SaveWay::Panel},
    SaveItem{"mnuFileSaveJPGSub", 0, Format::Jpeg, SaveWay::Direct, 55},
    SaveItem{"mnuFileSaveJPGSub", 1, Format::Jpeg, SaveWay::Direct, 65},
    SaveItem{"mnuFileSaveJPGSub", 2, Format::Jpeg, SaveWay::Direct, 75},
    SaveItem{"mnuFileSaveJPGSub", 3, Format::Jpeg, SaveWay::Direct, 85},
    SaveItem{"mnuFileSaveJPGSub", 4, Format::Jpeg, SaveWay::Direct, 95},
    SaveItem{"mnuFileSavePNGSub", 0, Format::Png},
    SaveItem{"mnuFileSavePNGSub", 1, Format::Png, SaveWay::ReduceCanvas},
    SaveItem{"mnuFileSavePNGSub", 3, Format::Png, SaveWay::Panel},
    SaveItem{"mnuFileSavePNGSub", 4, Format::Png, SaveWay::Panel},
    SaveItem{"mnuFileSub", 11, Format::Tiff},
    SaveItem{"mnuFileSub", 12, Format::Tga},
    SaveItem{"mnuFileSub", 13, Format::Pcx},
    SaveItem{"mnuFileSub", 15, Format::Ico, SaveWay::IconWindow},
    SaveItem{"mnuFileSub", 16, Format::Cur, SaveWay::IconWindow},
};

}  // namespace

const SaveItem* saveItemOf(std::string_view control, int index) {
  for (const SaveItem& item : kItems) {
    if (item.control == control && item.index == index) return &item;
  }
  return nullptr;
}

const SaveItem& saveItemForRecord(const FileRecord& record) {
  const FormatRow* row = formatOfExtension('.' + record.type);
  const Format format = row && !row->saveFilter.empty() ? row->format : Format::Bmp;
  if (format == Format::Jpeg) return *saveItemOf("mnuFileSaveJPGSub", 4);
  const bool transparent = record.transparent == yesNo(true);
  const bool interlaced = record.interlaced == yesNo(true);
  for (const SaveItem& item : kItems) {
    const bool sameManner = format != Format::Gif || (item.transparent == transparent && item.interlaced == interlaced);
    if (item.format == format && sameManner) return item;
  }
  return kItems.front();
}

std::optional<std::string> saveRefusal(const SaveItem& item, bool imagingUsable, bool zlibPresent) {
  if (item.format == Format::Png && item.way == SaveWay::Panel) {
    if (zlibPresent) return std::nullopt;
    return imagingUsable ? kPngNeedsZlib : kPngNeedsBoth;
  }
  if (imagingUsable || !rowOf(item.format).writeNeedsImaging) return std::nullopt;
  return item.format == Format::Png ? kPngNeedsImaging : "";
}

std::string usualExtension(Format format) {
  const std::string_view all = rowOf(format).extensions;
  return std::string(all.substr(1, all.find('/') - 1));
}

std::string pathWithExtension(Format format, const std::string& path) {
  if (formatOfExtension(extensionOf(path)) == &rowOf(format)) return path;
  return path + '.' + usualExtension(format);
}

std::string proposedName(const std::string& recordName, std::string_view ending, const std::string& folder) {
  const std::string_view file = fileNameOf(recordName);
  const std::string_view old = extensionOf(recordName);
  std::string name(file.substr(0, file.size() - old.size()));
  for (char& c : name) {
    if (c == ':') c = '_';
  }
  std::string place(recordName.substr(0, recordName.size() - file.size()));
  if (place.empty()) place = folder + '/';
  return place + name + std::string(ending);
}

}  // namespace ruvo
