// PCX and Targa, whose readers give a finished picture.
#include "base/paths.h"
#include "formats/clsPCX.h"
#include "formats/clsTGA.h"
#include "formats/picture_readers.h"

namespace ruvo::readers {
namespace {

using enum imaging::LoadError;

constexpr const char* kNotPcx = "Not a PCX file.";
constexpr const char* kNotTga = "Not a TGA file.";

}  // namespace

ReadPicture pcx(const std::filesystem::path& file, const ReadRequest&) {
  ReadPicture read;
  if (!fileExists(file)) {
    read.error = Missing;
    return read;
  }
  clsPCX pcx;
  const bool loaded = pcx.LoadPCX(file);
  read.width = pcx.PCXWidth();
  read.height = pcx.PCXHeight();
  read.fileDepth = pcx.Bpp();
  if (loaded) {
    read.dib = pcx.takeDib();
  } else {
    read.error = pcx.IsPCX() ? Broken : NotThisFormat;
    if (!pcx.IsPCX()) read.words = kNotPcx;
  }
  return read;
}

ReadPicture tga(const std::filesystem::path& file, const ReadRequest&) {
  ReadPicture read;
  if (!fileExists(file)) {
    read.error = Missing;
    return read;
  }
  clsTGA tga;
  const bool loaded = tga.LoadTGA(file);
  read.width = tga.TGAWidth();
  read.height = tga.TGAHeight();
  read.fileDepth = tga.Bpp();
  if (loaded) {
    read.dib = tga.takeDib();
  } else {
    read.error = tga.IsTGA() ? Broken : NotThisFormat;
    if (!tga.IsTGA()) read.words = kNotTga;
  }
  return read;
}

}  // namespace ruvo::readers
