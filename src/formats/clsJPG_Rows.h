// The pixels of one sampling rate, eight lines at a time and padded to whole blocks: columns and lines beyond the
// picture repeat its last ones.
#pragma once

#include <vector>

#include "formats/clsJPG_Tables.h"
#include "image/row_reader.h"

namespace ruvo::jpg {

// Means of 2 x 2 pixels, rounded half up, byte 3 zero; an odd last column is the mean of its own two. The result is
// (width + 1) / 2 pixels long and equals what the smooth stretch gives.
void halveRows(const Pixel32* upper, const Pixel32* lower, int width, Pixel32* to);

class BlockRows {
 public:
  // The picture as it is, or with both sides halved (rounded up). It must outlive this.
  BlockRows(const raster::Surface& picture, bool halved);

  // Eight lines, the first of them blockRow x 8, which must be in the picture. Valid until the next call.
  const Pixel32* load(int blockRow);
  int stride() const { return stride_; }

 private:
  const Pixel32* line(RowReader& reader, int y);

  const raster::Surface& picture_;
  RowReader first_;
  RowReader second_;
  bool halved_;
  int width_;
  int height_;
  int stride_;
  std::vector<Pixel32> pixels_;
};

}  // namespace ruvo::jpg
