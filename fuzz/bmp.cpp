#include "fuzz_entry.h"
#include "platform/imaging/bmp_reader.h"

RUVO_FUZZ_ENTRY(bmp, data) {
  const ruvo::imaging::BmpResult result = ruvo::imaging::readBmp(data);
  if (result && (result.surface.empty() || result.surface.width() != result.width)) __builtin_trap();
  // As other programs hand it over: without the file header.
  constexpr std::size_t kFileHeader = 14;
  if (data.size() > kFileHeader) {
    ruvo::imaging::LoadPictureFromBytes({data.begin() + kFileHeader, data.end()}, ruvo::kLargePicturePixels);
  }
}
