#include "document/model/picture_loading.h"

#include "base/limits.h"
#include "base/paths.h"
#include "formats/clsEXIF.h"
#include "platform/imaging/imaging_service.h"

namespace ruvo {
namespace {

// What the file itself says where the format tells it, else what the picture's colours need.
int depthForRecord(Format format, const ReadPicture& read) {
  switch (format) {
    case Format::Gif:
      return 8;
    case Format::Jpeg:
      return 24;
    case Format::Ico:
    case Format::Cur:
      return read.fileDepth;
    case Format::Bmp: {
      const std::int64_t pixels = static_cast<std::int64_t>(read.dib.DIBWidth()) * read.dib.DIBHeight();
      if (pixels < kLargePicturePixels && read.fileDepth > 0) return read.fileDepth == 16 ? 24 : read.fileDepth;
      break;
    }
    default:
      break;
  }
  return clsDIB::BPPperActualDIB(read.dib);
}

std::string yesNoOrNothing(std::optional<bool> fact) {
  return fact ? yesNo(*fact) : std::string();
}

}  // namespace

LoadedPicture loadPicture(const std::string& path, const OpenPlan& plan, const ReadRequest& request) {
  LoadedPicture loaded;
  const FormatRow& row = *plan.row;
  if (row.readNeedsImaging && !imaging::imagingUsable()) {
    loaded.fault = OpenFault::NoImagingService;
    return loaded;
  }
  ReadPicture read = readPicture(pathOf(path), row, request);
  loaded.fault = loadFault(read);
  if (loaded.fault != OpenFault::None) return loaded;
  FileRecord& record = loaded.record;
  record.name = path;
  record.type = typeOfPath(path);
  record.bitsPerPixel = depthForRecord(row.format, read);
  record.width = record.originalWidth = read.dib.DIBWidth();
  record.height = record.originalHeight = read.dib.DIBHeight();
  record.fileSize = plan.fileSize;
  record.transparent = yesNoOrNothing(read.transparent);
  record.interlaced = yesNoOrNothing(read.interlaced);
  record.severalFrames = yesNoOrNothing(read.severalFrames);
  if (row.format == Format::Jpeg) record.fromCamera = yesNo(clsEXIF().IsFromDigitalCamera(pathOf(path)));
  loaded.dib = std::move(read.dib);
  loaded.iconMask = std::move(read.mask);
  return loaded;
}

LoadedPicture loadPicture(const std::string& path) {
  const OpenPlan plan = planOpen(path);
  if (plan.fault == OpenFault::None) return loadPicture(path, plan);
  LoadedPicture refused;
  refused.fault = plan.fault;
  return refused;
}

std::optional<clsDIB> loadUndoState(const std::filesystem::path& file) {
  clsDIB stored;
  if (!stored.CreateDIBFromFile(file)) return std::nullopt;
  if (stored.DIBbpp() == 32) {
    // A state has 32 bits only for the sake of its alpha, even when that is zero throughout.
    stored.setDIBhasAlpha(true);
    return stored;
  }
  clsDIB picture;
  if (!picture.CreateBlankDIB(stored.DIBWidth(), stored.DIBHeight(), 32, kWhite)) return std::nullopt;
  clsDIB::PaintFromDIBtoDIB(stored, picture);
  return picture;
}

}  // namespace ruvo
