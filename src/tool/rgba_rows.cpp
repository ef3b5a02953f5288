#include "tool/rgba_rows.h"

#include <string>
#include <vector>

namespace ruvo::tool {
namespace {

constexpr std::size_t kBufferBytes = 1 << 18;

}  // namespace

bool writeRgba(FileReplacement& file, const raster::Surface& surface, bool hasAlpha) {
  const std::size_t rowBytes = static_cast<std::size_t>(surface.width()) * 4;
  std::vector<std::uint8_t> buffer;
  buffer.reserve(kBufferBytes + rowBytes);
  for (int y = 0; y < surface.height() && file.ok(); ++y) {
    const auto* row = reinterpret_cast<const Pixel32*>(surface.pictureRow(y));
    for (int x = 0; x < surface.width(); ++x) {
      const std::uint8_t alpha = hasAlpha ? row[x].alpha : 255;
      buffer.insert(buffer.end(), {row[x].red, row[x].green, row[x].blue, alpha});
    }
    if (buffer.size() >= kBufferBytes || y == surface.height() - 1) {
      file.write(buffer);
      buffer.clear();
    }
  }
  return file.ok();
}

bool writePam(FileReplacement& file, const raster::Surface& surface, bool hasAlpha) {
  const std::string header = "P7\nWIDTH " + std::to_string(surface.width()) + "\nHEIGHT " +
                             std::to_string(surface.height()) + "\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n";
  return file.write({reinterpret_cast<const std::uint8_t*>(header.data()), header.size()}) &&
         writeRgba(file, surface, hasAlpha);
}

}  // namespace ruvo::tool
