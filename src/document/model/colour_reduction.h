// The colour reductions of the BPP menu. The picture stays a 32-bit surface and only shows fewer colours afterwards.
#pragma once

#include <string_view>

#include "base/progress.h"
#include "image/clsDIB.h"
#include "image/clsPal.h"
#include "image/clsPalDither.h"

namespace ruvo {

enum class Reduction { To256, To16, BwStucki, BwFloydSteinberg, BwBurke, BwOrdered, Websafe };

struct ReductionItem {
  std::string_view control;  // of the menu row
  int index;
  Reduction reduction;
  const char* question;  // begins with a line break
};
// Null for a row that is none.
const ReductionItem* reductionItemOf(std::string_view control, int index);

// Packed rows of a picture at `bits` (1, 4 or 8) with their table: exact when it has few enough colours, and then it
// stays as it is; else its optimal 256 colours (`bits` must be 8), and it becomes the dithered picture.
void paletteRows(clsDIB& picture, int bits, clsPal& pal, clsPalDither& dither, const Progress& progress);

// Reduces in place. Alpha is first composed over white. False, with the picture as it was, for lack of memory.
bool reduceColours(clsDIB& picture, Reduction reduction, const Progress& progress = {});
// The same on the image of an icon: where `mask` (1 bit, the picture's size) is white it keeps its pixels. Black and
// white is always Stucki's here.
bool reduceIconColours(clsDIB& image, const clsDIB& mask, Reduction reduction, const Progress& progress = {});

// A copy with its alpha composed over white, as it is shown.
bool flattenedCopy(const clsDIB& picture, clsDIB& copy);

}  // namespace ruvo
