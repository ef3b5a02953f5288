#include "document/model/save_rules.h"

#include <array>

#include "base/letter_case.h"
#include "base/paths.h"

namespace ruvo {
namespace {

constexpr std::array kItems = {
    SaveItem{"mnuFileSaveBMPSub", 0, SaveFormat::Bmp, false, 0},
    SaveItem{"mnuFileSaveBMPSub", 2, SaveFormat::Bmp, true, 0},
    SaveItem{"mnuFileSaveJPGSub", 0, SaveFormat::Jpeg, false, 55},
    SaveItem{"mnuFileSaveJPGSub", 1, SaveFormat::Jpeg, false, 65},
    SaveItem{"mnuFileSaveJPGSub", 2, SaveFormat::Jpeg, false, 75},
    SaveItem{"mnuFileSaveJPGSub", 3, SaveFormat::Jpeg, false, 85},
    SaveItem{"mnuFileSaveJPGSub", 4, SaveFormat::Jpeg, false, 95},
    SaveItem{"mnuFileSavePNGSub", 0, SaveFormat::Png, false, 0},
    SaveItem{"mnuFileSavePNGSub", 1, SaveFormat::Png, true, 0},
    SaveItem{"mnuFileSub", 11, SaveFormat::Tiff, false, 0},
};

constexpr std::array kFormats = {
    SaveFormatInfo{"(*.bmp)|*.bmp|", "bmp", false},
    SaveFormatInfo{"(*.jpg, *.jpeg)|*.jpg;*.jpeg|", "jpg", true},
    SaveFormatInfo{"(*.png)|*.png|", "png", true},
    SaveFormatInfo{"(*.tif;*.tiff)|*.tif;*.tiff|", "tif", true},
};

}  // namespace

const SaveItem* saveItemOf(std::string_view control, int index) {
  for (const SaveItem& item : kItems) {
    if (item.control == control && item.index == index) return &item;
  }
  return nullptr;
}

const SaveItem& saveItemForType(std::string_view type) {
  const std::string upper = upperCase(type);
  if (upper == "JPG" || upper == "JPEG") return *saveItemOf("mnuFileSaveJPGSub", 4);
  if (upper == "PNG") return *saveItemOf("mnuFileSavePNGSub", 0);
  if (upper == "TIF" || upper == "TIFF") return *saveItemOf("mnuFileSub", 11);
  return *saveItemOf("mnuFileSaveBMPSub", 0);
}

const SaveFormatInfo& saveFormatInfo(SaveFormat format) {
  return kFormats[static_cast<std::size_t>(format)];
}

std::string pathWithExtension(const SaveFormatInfo& info, const std::string& path) {
  const std::string extension = upperCase(extensionOf(path));
  for (const char end : {';', '|'}) {
    if (!extension.empty() && upperCase(info.filter).find('*' + extension + end) != std::string::npos) return path;
  }
  return path + '.' + std::string(info.extension);
}

std::string proposedName(const std::string& recordName, std::string_view extension, const std::string& folder) {
  const std::string_view file = fileNameOf(recordName);
  const std::string_view old = extensionOf(recordName);
  std::string name(file.substr(0, file.size() - old.size()));
  for (char& c : name) {
    if (c == ':') c = '_';
  }
  std::string place(recordName.substr(0, recordName.size() - file.size()));
  if (place.empty()) place = folder + '/';
  return place + name + '.' + std::string(extension);
}

}  // namespace ruvo
