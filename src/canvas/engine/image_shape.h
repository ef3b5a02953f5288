// Pictures that are cut to a shape by a mask.
#pragma once

#include <cstdint>

#include "base/colour.h"
#include "image/clsDIB.h"

namespace ruvo {

// Every pixel of `image` where `mask` is white takes the colour, with `alpha` as its byte 3; byte 3 of the mask does not
// count. Both are 32 bits and of one size, else nothing changes.
void ClearAreasOutsideImageShape(clsDIB& image, const clsDIB& mask, Colour colour, std::uint8_t alpha = 0);

}  // namespace ruvo
