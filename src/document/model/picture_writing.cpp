#include "document/model/picture_writing.h"

#include "document/model/colour_reduction.h"
#include "image/basGDIProc.h"
#include "platform/imaging/imaging_service.h"

namespace ruvo {
namespace {

bool writeBmp(const clsDIB& picture, const SaveItem& item, const std::filesystem::path& file, int& bits,
              const Progress& progress) {
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
  paletteRows(copy, bits, pal, dither, progress);
  return clsDIB::Save_DIB_To_File_Paletted(file, copy, pal, dither, bits);
}

}  // namespace

bool resizedCopy(const clsDIB& picture, int width, int height, clsDIB& copy) {
  if (imaging::imagingUsable()) {
    return clsDIB::CloneDIB(picture, copy, kWhite, picture.BottomUp()) && ResizeDIBQuality(copy, width, height, true);
  }
  if (!copy.CreateBlankDIB(width, height, 32, kWhite)) return false;
  clsDIB::StretchPaintFromDIBtoDIB(picture, copy, true);
  copy.setDIBhasAlpha(picture.DIBhasAlpha());
  return true;
}

bool writePicture(const clsDIB& picture, const SaveItem& item, const std::filesystem::path& file, int& bits,
                  const Progress& progress) {
  bits = picture.DIBhasAlpha() ? 32 : 24;
  switch (item.format) {
    case SaveFormat::Bmp:
      return writeBmp(picture, item, file, bits, progress);
    case SaveFormat::Png:
      return SaveDIBWithEncoder(picture, file, kEncodePng);
    case SaveFormat::Tiff:
      return SaveDIBWithEncoder(picture, file, kEncodeTiff, bits);
    case SaveFormat::Jpeg:
      break;
  }
  // A JPEG loses its camera data here. The block of the record's own file has to be read before the target is replaced,
  // and go into the new file as it is written.
  bits = 24;
  if (!picture.DIBhasAlpha()) return SaveDIBWithEncoder(picture, file, kEncodeJpeg, item.quality);
  clsDIB flat;
  return flattenedCopy(picture, flat) && SaveDIBWithEncoder(flat, file, kEncodeJpeg, item.quality);
}

}  // namespace ruvo
