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
  return read;
}

// Another depth or row order becomes 32 bits, bottom line first.
bool bringTo32(clsDIB& dib) {
  if (dib.empty() || dib.surface().depth() == 32) return !dib.empty();
  clsDIB deep;
  if (!deep.CreateBlankDIB(dib.DIBWidth(), dib.DIBHeight(), 32, kWhite)) return false;
  clsDIB::PaintFromDIBtoDIB(dib, deep);
  dib = std::move(deep);
  return true;
}

}  // namespace

ReadPicture png(const std::filesystem::path& file, const ReadRequest& request) {
  if (!request.native) return imagingService(file, request);
  ReadPicture read = pngNatively(file, request);
  if (read.error == None && !bringTo32(read.dib)) read.error = NoMemory;
  return read;
}

}  // namespace ruvo::readers
