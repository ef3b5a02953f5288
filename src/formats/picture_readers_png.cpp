#include "formats/clsPNG.h"
#include "formats/picture_readers.h"

namespace ruvo::readers {
namespace {

using enum imaging::LoadError;

ReadPicture pngNatively(const std::filesystem::path& file, const ReadRequest& request) {
  clsPNG png;
  png.BitmapBPP = 32;  // straight into the surface that is wanted, with no second one of another depth
  png.AlphaSet = true;
  // A picture that may not keep its alpha is shown on white, whatever background the file proposes.
  png.setOwnerBkgd = !request.keepAlpha;
  png.BKGDColorToUse = kWhite;
  const int code = png.OpenPNG(file);
  ReadPicture read;
  read.width = png.Width();
  read.height = png.Height();
  if (code != kPngOpened) {
    read.error = code == kPngNotFound ? Missing : Broken;
    read.words = clsPNG::FlagErrMsgOpen(code);
    return read;
  }
  read.fileDepth = png.BitsPerPixel();
  read.interlaced = png.Interlacing != 0;
  read.dib = png.takeDib();
  if (read.dib.empty()) read.error = NoMemory;
  return read;
}

}  // namespace

ReadPicture png(const std::filesystem::path& file, const ReadRequest& request) {
  if (!request.native) return imagingService(file, request);
  return pngNatively(file, request);
}

}  // namespace ruvo::readers
