// Filling of a connected area.
#pragma once

#include "base/colour.h"
#include "platform/raster/draw_context.h"

namespace ruvo::raster {

enum class FloodMode {
  Border = 0,   // up to pixels of the colour
  Surface = 1,  // all pixels of the colour that hang together
};
enum class AlphaMatch { Ignore, Compare };

// Fills the pixels that hang together with (x, y), by their four sides and inside the clip, using the context's brush and
// ROP2. The set is found first and painted then, so a brush may hold the colour that is looked for. False with nothing
// changed when the start is outside the clip or does not match. A null brush changes nothing and answers true.
// `filled` takes the rectangle that holds all that was painted.
//
// At 32 bits only B, G and R are compared; with AlphaMatch::Compare a pixel is of the colour only when its byte 3 is 0.
// Indexed surfaces compare indices: `colour` stands for its nearest entry. Besides two bits a pixel of the clip, memory
// grows with the number of separate runs that wait to be looked at.
bool floodFill(const DrawContext& context, int x, int y, Colour colour, FloodMode mode,
               AlphaMatch alpha = AlphaMatch::Ignore, Rect* filled = nullptr);

}  // namespace ruvo::raster
