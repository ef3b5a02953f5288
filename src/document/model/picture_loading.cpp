#include "document/model/picture_loading.h"

#include <algorithm>

#include "base/limits.h"
#include "base/paths.h"
#include "platform/imaging/imaging_service.h"

namespace ruvo {
namespace {

// The loaded bitmap as a picture of 32 bits, its own memory moved where that is possible.
bool takeBitmap(imaging::Picture&& picture, clsDIB& dib) {
  raster::Surface* bitmap = picture.bitmap.get();
  const bool movable = bitmap && bitmap->depth() == 32 && bitmap->order() == raster::RowOrder::BottomUp &&
                       picture.bitmap.use_count() == 1;
  if (movable) {
    dib.adopt(std::move(*bitmap), picture.hasAlpha);
  } else if (dib.CreateDIBFromPic(picture, true)) {
    dib.setDIBhasAlpha(picture.hasAlpha);
  }
  return !dib.empty();
}

// What the file itself says where the format tells it, else what the picture's colours need.
int depthForRecord(const std::string& extension, int fileDepth, const clsDIB& dib) {
  if (extension == ".GIF") return 8;
  if (extension == ".JPG" || extension == ".JPEG") return 24;
  const std::int64_t pixels = static_cast<std::int64_t>(dib.DIBWidth()) * dib.DIBHeight();
  if (extension == ".BMP" && pixels < kLargePicturePixels && fileDepth > 0) return fileDepth == 16 ? 24 : fileDepth;
  return clsDIB::BPPperActualDIB(dib);
}

}  // namespace

LoadedPicture loadPicture(const std::string& path, const OpenPlan& plan) {
  LoadedPicture loaded;
  const bool throughService = plan.route == OpenRoute::ImagingService;
  if (throughService && !imaging::imagingUsable()) {
    loaded.fault = OpenFault::NoImagingService;
    return loaded;
  }
  imaging::LoadResult result =
      throughService ? imaging::LoadImageThroughGDIPlus(pathOf(path)) : imaging::LoadPicture(pathOf(path));
  loaded.fault = loadFault(result);
  if (loaded.fault != OpenFault::None) return loaded;
  if (!takeBitmap(std::move(result.picture), loaded.dib)) {
    loaded.fault = OpenFault::LoadFailed;
    return loaded;
  }
  FileRecord& record = loaded.record;
  record.name = path;
  record.type = typeOfPath(path);
  record.bitsPerPixel = depthForRecord(plan.extension, result.fileDepth, loaded.dib);
  record.width = record.originalWidth = loaded.dib.DIBWidth();
  record.height = record.originalHeight = loaded.dib.DIBHeight();
  record.fileSize = plan.fileSize;
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
