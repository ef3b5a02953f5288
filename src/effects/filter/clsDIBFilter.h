// Whole-picture pixel operations, in place, on 32-bit surfaces. Byte 3 is neither read nor written. Rows are memory
// rows: with the usual surfaces row 0 is the picture's bottom line. Empty surfaces and other depths are left alone,
// silently.
#pragma once

#include <functional>

#include "image/clsDIB.h"

namespace ruvo {

class clsDIBFilter {
 public:
  // Raised once a row with the percent done, unless there is only one row; and at the end of every operation.
  std::function<void(int percent)> Filtertemp_Progress;
  std::function<void()> Filtertemp_ProgressEnd;

  // Lays a grey relief over the target: with t the relief's blue byte at the same column and row, each channel becomes
  // c x round(t / 128) + t - 128, clamped. Only the part that both surfaces have is changed.
  void Texturize(clsDIB& Target, const clsDIB& Relief);

  // Turns the target into a grey relief of itself. Each pixel is compared with its neighbour at column - 1 (column 0
  // with itself) and row + 1 (the last row with row 0): e = |weight x (pixel - neighbour) + level|, rounded and
  // clamped, and the three are joined to grey by 0.2 red, 0.7 green, 0.1 blue. Levels are for blue, green, red.
  void Emboss(clsDIB& Target, float Weight, int LevelB, int LevelG, int LevelR);
  // The same with neighbour - pixel.
  void Engrave(clsDIB& Target, float Weight, int LevelB, int LevelG, int LevelR);

 private:
  void relief(clsDIB& Target, float Weight, int LevelB, int LevelG, int LevelR);
  void reportRow(int row, int height) const;
  void reportEnd() const;
};

}  // namespace ruvo
