#include "effects/model/rotation.h"

#include "effects/filter/clsDIBFilter.h"
#include "effects/filter/rotation_size.h"

namespace ruvo {

bool rotatePicture(clsDIB& picture, const Rotation& rotation, const Progress& progress) {
  Size size = picture.size();
  if (rotation.grow && rotationMayGrow(size)) size.width = size.height = rotatedSide(size);
  clsDIB turned;
  if (!turned.CreateBlankDIB(size.width, size.height, 32, rotation.fill, picture.BottomUp())) return false;
  turned.setDIBhasAlpha(picture.DIBhasAlpha());
  if (!clsDIBFilter(progress).RotateDIB_To_DIB(picture, turned, rotation.angle, rotation.antialias,
                                               rotation.transparent, rotation.fill))
    return false;
  picture = std::move(turned);
  return true;
}

std::string rotationQuestion() {
  const std::string side = std::to_string(kMaxPictureSide);
  return "Full rotation operation will result in max width/height or area in excess of\n"
         "the maximum allowable.  Rotated image will be at the original size.\n\n(" +
         side + " x " + side + ")\n\nProceed still?";
}

}  // namespace ruvo
