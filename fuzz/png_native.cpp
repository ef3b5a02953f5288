#include "formats/clsCRC.h"
#include "formats/clsPNG.h"
#include "fuzz_entry.h"

namespace {

std::size_t lengthAt(std::span<const std::uint8_t> file, std::size_t at) {
  return static_cast<std::size_t>(file[at]) << 24 | file[at + 1] << 16 | file[at + 2] << 8 | file[at + 3];
}

// Most changes of a file would fail at a chunk's sum and never reach what lies behind it.
void mendSums(std::vector<std::uint8_t>& file) {
  for (std::size_t at = 8; at + 12 <= file.size();) {
    const std::size_t length = lengthAt(file, at);
    if (length > file.size() - at - 12) return;
    const std::uint32_t sum = ruvo::clsCRC().Calculate(std::span(file).subspan(at + 4, length + 4));
    for (int i = 0; i < 4; ++i) file[at + 8 + length + i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
    at += length + 12;
  }
}

}  // namespace

// The first byte chooses the settings.
RUVO_FUZZ_ENTRY(png_native, data) {
  if (data.empty()) return;
  ruvo::clsPNG png;
  png.AlphaSet = (data[0] & 1) != 0;
  png.setOwnerBkgd = (data[0] & 2) != 0;
  png.setOwnerBkgdPattern = (data[0] & 4) != 0;
  png.BitmapBPP = (data[0] & 8) != 0 ? 24 : 0;
  std::vector<std::uint8_t> file(data.begin() + 1, data.end());
  if ((data[0] & 16) == 0) mendSums(file);
  png.openBytes(file);
}
