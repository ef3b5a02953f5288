#include "document/model/gif_writing.h"

#include "base/paths.h"
#include "document/model/colour_reduction.h"
#include "formats/clsGIF.h"
#include "image/basGDIProc.h"
#include "platform/imaging/imaging_service.h"

namespace ruvo {
namespace {

// A file that goes away with this object.
class WorkingFile {
 public:
  explicit WorkingFile(std::filesystem::path path) : path_(std::move(path)) {}
  ~WorkingFile() { deleteIfPossible(path_); }
  WorkingFile(const WorkingFile&) = delete;
  WorkingFile& operator=(const WorkingFile&) = delete;
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

struct IndexedPicture {
  clsDIB dib;
  clsPal pal;
  Colour transparentColour = 0;
};

// By way of a bitmap in the session's own folder: the program's folder may be write-protected, and another session may
// be at work there.
bool makeIndexed(const clsDIB& opaque, const WriteOrder& order, const Progress& progress, IndexedPicture& indexed) {
  clsDIB copy;
  clsPalDither dither;
  if (!clsDIB::CloneDIB(opaque, copy, kWhite, opaque.BottomUp())) return false;
  paletteRows(copy, 8, indexed.pal, dither, progress);
  const WorkingFile bitmap(order.tempFolder / "xxGIF256.bmp");
  if (!clsDIB::Save_DIB_To_File_Paletted(bitmap.path(), copy, indexed.pal, dither, 8)) return false;
  const auto* row = reinterpret_cast<const Pixel32*>(copy.surface().pictureRow(order.transparentAt.y));
  indexed.transparentColour = row[order.transparentAt.x].colour();
  return indexed.dib.CreateDIBFromFile(bitmap.path());
}

// Rewrites a plain GIF with the flags of the item.
bool rewrite(const std::filesystem::path& plain, const WriteOrder& order, Colour transparentColour) {
  clsGIF gif;
  GifFrameSettings settings;
  settings.Interlaced = order.item.interlaced;
  if (gif.LoadFromGIFFileAddOn(plain, 1, settings) != kGifOk) return false;
  const int index =
      gif.GlobalPaletteR_G_B_Find(redOf(transparentColour), greenOf(transparentColour), blueOf(transparentColour));
  const bool transparent = order.item.transparent && index >= 0;
  gif.setFrameUseTransparentColor(1, transparent);
  gif.setFrameTransparentColorIndex(1, transparent ? index : 0);
  return gif.Save(order.file);
}

}  // namespace

bool writeGif(const clsDIB& opaque, const WriteOrder& order, const Progress& progress) {
  IndexedPicture indexed;
  if (!makeIndexed(opaque, order, progress, indexed)) return false;
  const SaveItem& item = order.item;
  if (!imaging::imagingUsable()) {
    return clsGIF::SaveGIFFrom_BPP8_DIB(order.file, indexed.dib, indexed.pal, 8, item.interlaced, item.transparent,
                                        indexed.transparentColour);
  }
  if (!item.transparent && !item.interlaced) return SaveDIBWithEncoder(indexed.dib, order.file, kEncodeGif);
  const WorkingFile plain(order.tempFolder / "xxGIF256.gif");
  return SaveDIBWithEncoder(indexed.dib, plain.path(), kEncodeGif) &&
         rewrite(plain.path(), order, indexed.transparentColour);
}

}  // namespace ruvo
