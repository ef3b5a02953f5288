#include <system_error>

#include "formats/clsGIF.h"
#include "formats/gif_player.h"
#include "formats/picture_readers.h"

namespace ruvo::readers {
namespace {

bool isLarge(const std::filesystem::path& file) {
  std::error_code error;
  const auto size = std::filesystem::file_size(file, error);
  return !error && static_cast<std::int64_t>(size) > kLargestModelledGif;
}

// The first frame as a player shows it: see-through where nothing was drawn.
bool drawSeeThrough(const clsGIF& gif, clsDIB& dib) {
  GifPlayer player(gif);
  if (player.next() == 0) return false;
  dib.adopt(player.takeScreen(), true);
  return !dib.empty();
}

bool drawOnWhite(const clsGIF& gif, clsDIB& dib) {
  if (!dib.CreateBlankDIB(gif.BgdWidth(), gif.BgdHeight(), 32, kWhite)) return false;
  // The frame's own place on the screen is added by the drawing.
  gif.FrameDraw(dib.surface(), 1, 0, 0);
  return true;
}

}  // namespace

ReadPicture gif(const std::filesystem::path& file, const ReadRequest& request) {
  using enum imaging::LoadError;
  if (!request.native && isLarge(file)) return classic(file, request);
  ReadPicture read;
  clsGIF gif;
  read.gifCode = gif.LoadFromGIFFile(file);
  read.width = gif.statedWidth();
  read.height = gif.statedHeight();
  if (read.gifCode != kGifOk) {
    read.error = read.gifCode == kGifNotFound ? Missing : read.gifCode == kGifBadSize ? TooLarge : Broken;
    read.words = clsGIF::FlagErrMessage(read.gifCode);
    return read;
  }
  read.fileDepth = 8;
  read.transparent = gif.FrameUseTransparentColor(1);
  read.interlaced = gif.FrameInterlaced(1);
  read.severalFrames = gif.FramesCount() > 1;
  if (!(request.keepAlpha ? drawSeeThrough(gif, read.dib) : drawOnWhite(gif, read.dib))) read.error = NoMemory;
  return read;
}

}  // namespace ruvo::readers
