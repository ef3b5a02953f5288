#include <string>

#include "base/letter_case.h"
#include "image/clsDIB.h"
#include "platform/imaging/picture_loader.h"
#include "platform/raster/blit.h"

namespace ruvo {

bool clsDIB::CreateDIBFromFile2(const std::filesystem::path& FileName, bool Straight, int Bpp) {
  ClearUp();
  const std::string name = FileName.string();
  if (name.size() <= 4) return false;
  const std::string ending = upperCase(std::string_view(name).substr(name.size() - 4));
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
