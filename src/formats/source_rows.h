// The top left Width x Height of a surface of any depth, line by line, for the writers of true-colour files.
#pragma once

#include <algorithm>
#include <vector>

#include "platform/imaging/pixel_rows.h"

namespace ruvo {

class SourceRows {
 public:
  SourceRows(const raster::Surface& surface, int width)
      : expander_(surface),
        height_(surface.height()),
        inside_(std::min(width, surface.width())),
        row_(static_cast<std::size_t>(width)) {}

  // Black where the surface has no pixels. Valid until the next call.
  const std::vector<Pixel32>& row(int pictureRow) {
    if (pictureRow < height_) {
      std::copy_n(expander_.row(pictureRow), inside_, row_.begin());
    } else {
      std::fill(row_.begin(), row_.end(), Pixel32{});
    }
    return row_;
  }

 private:
  imaging::RowExpander expander_;
  int height_;
  int inside_;
  std::vector<Pixel32> row_;
};

}  // namespace ruvo
