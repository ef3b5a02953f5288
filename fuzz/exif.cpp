#include <cstdlib>

#include "formats/clsEXIF.h"
#include "fuzz_entry.h"

// The input as a file, and as a block that is put into a small one: that must come out with the block in it or not at
// all.
RUVO_FUZZ_ENTRY(exif, data) {
  ruvo::clsEXIF exif;
  bool ok = false;
  exif.readBytes(data, ok);
  const std::vector<std::uint8_t> plain = {0xFF, 0xD8, 0xFF, 0xDB, 0xFF, 0xD9};
  const auto whole = ruvo::clsEXIF::withBlock(plain, data);
  if (!whole.empty() && whole.size() != data.size() + plain.size() - 2) std::abort();
  ruvo::clsEXIF::withBlock(data, data);
}
