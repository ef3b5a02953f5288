#include "document/model/picture_writing.h"

#include "base/file_io.h"
#include "base/limits.h"
#include "base/paths.h"
#include "document/model/colour_reduction.h"
#include "document/model/gif_writing.h"
#include "formats/clsEXIF.h"
#include "formats/clsJPG.h"
#include "formats/clsPCX.h"
#include "formats/clsTGA.h"
#include "image/basGDIProc.h"
#include "platform/imaging/imaging_service.h"

namespace ruvo {
namespace {

bool writeBmp(const clsDIB& picture, const WriteOrder& order, int& bits, const Progress& progress) {
  bits = order.item.way == SaveWay::ReduceCanvas ? 8 : clsDIB::BPPperActualDIB(picture);
  if (bits > 8) return picture.Save_DIB_To_File(order.file, picture);
  clsPal pal;
  clsPalDither dither;
  if (!picture.DIBhasAlpha() && dither.ExactRows(picture, pal, bits)) {
    return clsDIB::Save_DIB_To_File_Paletted(order.file, picture, pal, dither, bits);
  }
  clsDIB copy;
  if (!flattenedCopy(picture, copy)) return false;
  bits = 8;
  paletteRows(copy, bits, pal, dither, progress);
  return clsDIB::Save_DIB_To_File_Paletted(order.file, copy, pal, dither, bits);
}

// By the imaging service, else by the program's own writer.
bool encodeJpeg(const clsDIB& opaque, int quality, const std::filesystem::path& file) {
  if (imaging::imagingUsable()) return SaveDIBWithEncoder(opaque, file, kEncodeJpeg, quality);
  clsJPG writer;
  writer.setQuality(quality);
  if (!writer.SampleHDC(opaque.surface(), opaque.DIBWidth(), opaque.DIBHeight())) return false;
  try {
    return replaceFile(file, writer.saveBytes());
  } catch (const JpgError&) {
    return false;
  }
}

bool writeJpeg(const clsDIB& opaque, const WriteOrder& order) {
  if (order.exifBlock.empty()) return encodeJpeg(opaque, order.item.quality, order.file);
  const std::filesystem::path bare = order.tempFolder / "tmpnoexif.jpg";
  bool written = false;
  if (encodeJpeg(opaque, order.item.quality, bare)) {
    const auto bytes = readWholeFile(bare, kMaxFileBytes);
    const auto whole = bytes ? clsEXIF::withBlock(*bytes, order.exifBlock) : std::vector<std::uint8_t>();
    written = !whole.empty() && replaceFile(order.file, whole);
  }
  deleteIfPossible(bare);
  return written;
}

// The formats that know no alpha.
bool writeOpaque(const clsDIB& opaque, const WriteOrder& order, const Progress& progress) {
  switch (order.item.format) {
    case Format::Jpeg:
      return writeJpeg(opaque, order);
    case Format::Gif:
      return writeGif(opaque, order, progress);
    case Format::Tga:
      return clsTGA().SaveTGAinFile(order.file, opaque.surface(), opaque.DIBWidth(), opaque.DIBHeight());
    case Format::Pcx: {
      clsPCX writer;
      writer.Compressed = true;  // plain ones are legal, and unknown to many readers
      return writer.SavePCXinFile(order.file, opaque.surface(), opaque.DIBWidth(), opaque.DIBHeight());
    }
    default:
      return false;
  }
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

bool writePicture(const clsDIB& picture, const WriteOrder& order, int& bits, const Progress& progress) {
  bits = picture.DIBhasAlpha() ? 32 : 24;
  switch (order.item.format) {
    case Format::Bmp:
      return writeBmp(picture, order, bits, progress);
    case Format::Png:
      return SaveDIBWithEncoder(picture, order.file, kEncodePng);
    case Format::Tiff:
      return SaveDIBWithEncoder(picture, order.file, kEncodeTiff, bits);
    default:
      break;
  }
  bits = order.item.format == Format::Gif ? 8 : 24;
  if (!picture.DIBhasAlpha()) return writeOpaque(picture, order, progress);
  clsDIB flat;
  return flattenedCopy(picture, flat) && writeOpaque(flat, order, progress);
}

}  // namespace ruvo
