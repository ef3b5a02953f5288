// A colour's values in the ways that people write them.
#pragma once

#include <QImage>
#include <QString>

#include "base/colour.h"

namespace ruvo {

class clsDIB;

// The picture as Qt shows it, 32 bits without alpha; null when there is none.
QImage toImage(const clsDIB& picture);

namespace shell {

// Lines "RGB ( ...", "HLS: ...", "CMYK: ..." and "HTML   #...". Hue in degrees, the other shares in per cent.
QString colourValuesText(Colour colour);

}  // namespace shell
}  // namespace ruvo
