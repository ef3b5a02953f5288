#include "document/model/save_rules.h"

#include <array>

#include "base/paths.h"
#include "formats/format_names.h"
#include "image/basGDIProc.h"
#include "image/clsPal.h"
#include "image/clsPalDither.h"
#include "platform/imaging/imaging_service.h"

namespace ruvo {
namespace {

constexpr int kPaletteColours = 256;
constexpr int kPaletteDepth = 8;

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

// Exact rows when the picture has few enough colours, else `copy` is reduced with diffusion.
void paletteRows(clsDIB& copy, int bits, clsPal& pal, clsPalDither& dither) {
  if (dither.ExactRows(copy, pal, bits)) return;
  pal.CreateOptimal(copy, kPaletteColours, kPaletteDepth);
  dither.DitherToPalette256(copy, pal);
}

bool writeBmp(const clsDIB& picture, const SaveItem& item, const std::filesystem::path& file, int& bits) {
  bits = item.reduceCanvas ? 8 : clsDIB::BPPperActualDIB(picture);
  if (bits > 8) return picture.Save_DIB_To_File(file, picture);
  clsPal pal;
  clsPalDither dither;
  if (!picture.DIBhasAlpha() && dither.ExactRows(picture, pal, bits)) {
    return clsDIB::Save_DIB_To_File_Paletted(file, picture, pal, dither, bits);
  }
  clsDIB copy;
  if (!flattenedCopy(picture, copy)) return false;
  bits = 8;
  paletteRows(copy, bits, pal, dither);
  return clsDIB::Save_DIB_To_File_Paletted(file, copy, pal, dither, bits);
}

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

bool resizedCopy(const clsDIB& picture, int width, int height, clsDIB& copy) {
  if (imaging::imagingUsable()) {
    return clsDIB::CloneDIB(picture, copy, kWhite, picture.BottomUp()) && ResizeDIBQuality(copy, width, height, true);
  }
  if (!copy.CreateBlankDIB(width, height, 32, kWhite)) return false;
  clsDIB::StretchPaintFromDIBtoDIB(picture, copy, true);
  copy.setDIBhasAlpha(picture.DIBhasAlpha());
  return true;
}

bool flattenedCopy(const clsDIB& picture, clsDIB& copy) {
  if (!copy.CreateBlankDIB(picture.DIBWidth(), picture.DIBHeight(), 32, kWhite)) return false;
  clsDIB::Display_DIB_With_Alpha(picture, copy.surface(), kWhite);
  return true;
}

bool reduceTo256(clsDIB& picture) {
  if (picture.DIBhasAlpha()) {
    clsDIB flat;
    if (!flattenedCopy(picture, flat)) return false;
    picture = std::move(flat);
  }
  clsPal pal;
  clsPalDither dither;
  paletteRows(picture, kPaletteDepth, pal, dither);
  return true;
}

bool writePicture(const clsDIB& picture, const SaveItem& item, const std::filesystem::path& file, int& bits) {
  bits = picture.DIBhasAlpha() ? 32 : 24;
  switch (item.format) {
    case SaveFormat::Bmp:
      return writeBmp(picture, item, file, bits);
    case SaveFormat::Png:
      return SaveDIBWithEncoder(picture, file, kEncodePng);
    case SaveFormat::Tiff:
      return SaveDIBWithEncoder(picture, file, kEncodeTiff, bits);
    case SaveFormat::Jpeg:
      break;
  }
  bits = 24;
  if (!picture.DIBhasAlpha()) return SaveDIBWithEncoder(picture, file, kEncodeJpeg, item.quality);
  clsDIB flat;
  return flattenedCopy(picture, flat) && SaveDIBWithEncoder(flat, file, kEncodeJpeg, item.quality);
}

}  // namespace ruvo
