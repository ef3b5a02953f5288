// The order in which the lines of a GIF image are stored (GIF89a, appendix E): top to bottom, or in four passes.
#pragma once

#include <cstdint>

namespace ruvo {

class GifLines {
 public:
  // Pictures of fewer lines are stored top to bottom although they are flagged as interlaced.
  static constexpr int kLeastInterlaced = 5;

  GifLines(int height, bool interlaced) : height_(height), interlaced_(interlaced && height >= kLeastInterlaced) {}

  // The current picture line, from the top.
  int line() const { return line_; }
  // On to the next one; false when the passes are over. Lines top to bottom start over at the top three times: damaged
  // streams with too many pixels write there.
  bool advance() {
    line_ += interlaced_ ? kStep[pass_] : 1;
    if (line_ < height_) return true;
    if (++pass_ == kPasses) return false;
    line_ = interlaced_ ? kFirst[pass_] : 0;
    return true;
  }

 private:
  static constexpr int kPasses = 4;
  static constexpr std::uint8_t kFirst[kPasses] = {0, 4, 2, 1};
  static constexpr std::uint8_t kStep[kPasses] = {8, 8, 4, 2};

  int height_;
  bool interlaced_;
  int line_ = 0;
  int pass_ = 0;
};

}  // namespace ruvo
