// Small files made by the format libraries themselves, so that the decoders are checked against writers that are not
// ours.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/colour.h"

namespace ruvo::test {

using Bytes = std::vector<std::uint8_t>;

// Samples of a pixel at x, y in the order of the file, each 0 to the highest value of its depth.
using SampleOf = std::function<int(int x, int y, int channel)>;

struct JpegFile {
  int width = 16;
  int height = 16;
  int channels = 3;  // 1 grey, 3 RGB, 4 CMYK
  bool progressive = false;
  bool arithmetic = false;
  bool adobeMarker = false;
  int restart = 0;  // in MCU rows
};
Bytes makeJpeg(const JpegFile& file, const SampleOf& sample);

struct TiffFile {
  int width = 5;
  int height = 3;
  int bits = 8;
  int samples = 3;
  int photometric = 2;  // RGB
  int compression = 1;  // none
  int orientation = 1;
  int extra = -1;  // ExtraSamples
  bool planes = false;
  bool isFloat = false;
  int tile = 0;  // side, or 0 for strips
  int rowsPerStrip = 2;
  std::vector<Colour> table = {};
};
Bytes makeTiff(const TiffFile& file, const SampleOf& sample);

}  // namespace ruvo::test
