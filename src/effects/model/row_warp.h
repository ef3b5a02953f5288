// Distortions under which level lines stay level: each row of the result is a piece of the source's height, squeezed or
// stretched to some width.
#pragma once

#include <functional>

#include "base/colour.h"
#include "base/progress.h"
#include "image/clsDIB.h"

namespace ruvo {

struct RowWarp {
  // Where a row of the target comes from. Places are edges of pixels: pixel i lies from i to i + 1.
  struct Row {
    double sourceFrom = 0;  // the piece of the source's height that the row shows, in either order
    double sourceTo = 0;
    double left = 0;  // where the source's left and right edges lie in the row; right is above left
    double right = 0;
    double slope = 0;  // how far these move from row to row
    double cover = 0;  // the share of the row's height that is not free
  };
  std::function<Row(int y)> rowAt;  // by picture row
  Colour fill = 0;
  // Each pixel is the mean of the area that it shows, between source pixels a mix, and edges are smooth; else each is
  // the source pixel that lies there.
  bool antialias = true;
};

// Writes every pixel of the target, which is another surface than the source, of 32 bits and with its alpha.
bool warpRows(const clsDIB& source, clsDIB& target, const RowWarp& warp, const Progress& progress);

}  // namespace ruvo
