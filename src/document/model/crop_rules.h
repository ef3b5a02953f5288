// What reduces a picture to a region, and what puts one on a new sheet. Plain functions on 32-bit pictures.
#pragma once

#include <string>

#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo {

inline constexpr const char* kCropTooSmall = "Size too small to crop.";
inline constexpr const char* kCropReminder =
    "Reminder:  If the cropped image is invisible, it is because you have cropped\n"
    "a white sheet, i.e. cropped white image is put back on a white sheet.";

// What a region's box leaves of the picture after the cut at its bounds is too small to be a picture of its own.
bool cropTooSmall(const Rect& box, Size picture);
// The part of the picture under the box, or under the ellipse that fills the box, on white. False without memory.
bool croppedCopy(const clsDIB& picture, const Rect& box, bool oval, clsDIB& cut);

// What floats, as the canvas holds it. An empty mask stands for one that is black all over.
struct FloatingPictures {
  const clsDIB& region;
  const clsDIB& mask;
  const clsDIB& snap;
  bool soft = false;  // the region covers by its alpha
};
// The smallest picture that holds what of the floating picture is not masked in pure white, white elsewhere. The answer
// says in words why there is none; it is empty when there is one. Without memory both are empty.
std::string cropPerImage(const FloatingPictures& floating, Size picture, clsDIB& cut);

// A white sheet of that size with `kept` at a place that may lie partly outside. With alpha when `kept`, which may be
// empty, has it. False without memory.
bool whiteSheetWith(const clsDIB& kept, Point at, Size size, clsDIB& sheet);

}  // namespace ruvo
