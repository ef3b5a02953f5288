#include <algorithm>
#include <string>

#include "image/clsDIB.h"
#include "platform/imaging/picture_loader.h"
#include "platform/raster/blit.h"

namespace ruvo {

bool clsDIB::CreateDIBFromFile2(const std::filesystem::path& FileName, bool Straight, int Bpp) {
  ClearUp();
  std::string ending = FileName.string();
  if (ending.size() <= 4) return false;
  ending = ending.substr(ending.size() - 4);
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? c - 32 : c; });
  if (ending != ".GIF" && ending != ".BMP" && ending != ".JPG" && ending != "JPEG") return false;

  const imaging::LoadResult loaded = imaging::LoadPicture(FileName);
  if (loaded.picture.kind != imaging::Picture::Kind::Bitmap || !loaded.picture.bitmap) return false;
  const raster::Surface& source = *loaded.picture.bitmap;
  if (!CreateBlankDIB(source.width(), source.height(), Bpp == 24 ? 24 : 32, kWhite)) return false;
  raster::blit(surface_, 0, 0, source);
  if (!Straight) RotateDIB(*this, 1);
  return true;
}

}  // namespace ruvo
