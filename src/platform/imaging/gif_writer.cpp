// A single-frame GIF through giflib.
#include <gif_lib.h>

#include "base/file_io.h"
#include "platform/imaging/encoders.h"
#include "platform/imaging/pixel_rows.h"

namespace ruvo::imaging {
namespace {

using GifHandle = std::unique_ptr<GifFileType, decltype([](GifFileType* gif) { EGifCloseFile(gif, nullptr); })>;
using MapHandle = std::unique_ptr<ColorMapObject, decltype([](ColorMapObject* map) { GifFreeMapObject(map); })>;

int writeBytes(GifFileType* gif, const GifByteType* bytes, int count) {
  if (count <= 0) return 0;
  auto& file = *static_cast<FileReplacement*>(gif->UserData);
  return file.write({bytes, static_cast<std::size_t>(count)}) ? count : 0;
}

bool writeRows(GifFileType* gif, const raster::Surface& surface) {
  std::vector<GifPixelType> line(static_cast<std::size_t>(surface.width()));
  for (int y = 0; y < surface.height(); ++y) {
    const std::uint8_t* row = surface.pictureRow(y);
    for (int x = 0; x < surface.width(); ++x) line[x] = static_cast<GifPixelType>(indexAt(row, x, surface.depth()));
    if (EGifPutLine(gif, line.data(), surface.width()) != GIF_OK) return false;
  }
  return true;
}

}  // namespace

bool saveGif(const raster::Surface& surface, const std::filesystem::path& path) {
  if (surface.empty() || surface.depth() > 8) return false;
  const auto table = surface.table();
  const MapHandle map(GifMakeMapObject(static_cast<int>(table.size()), nullptr));
  if (!map) return false;
  for (std::size_t i = 0; i < table.size(); ++i) map->Colors[i] = {table[i].red, table[i].green, table[i].blue};
  FileReplacement file(path);
  GifHandle gif(EGifOpen(&file, writeBytes, nullptr));
  if (!gif) return false;
  const int width = surface.width();
  const int height = surface.height();
  if (EGifPutScreenDesc(gif.get(), width, height, surface.depth(), 0, map.get()) != GIF_OK ||
      EGifPutImageDesc(gif.get(), 0, 0, width, height, false, nullptr) != GIF_OK || !writeRows(gif.get(), surface)) {
    return false;
  }
  // Closing writes the end mark.
  return EGifCloseFile(gif.release(), nullptr) == GIF_OK && file.commit();
}

}  // namespace ruvo::imaging
