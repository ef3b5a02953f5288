// The first frame of a GIF through giflib, laid on its logical screen (GIF89a, 18 to 23).
#include <gif_lib.h>

#include <optional>

#include "platform/imaging/codecs.h"

namespace ruvo::imaging {
namespace {

using GifHandle = std::unique_ptr<GifFileType, decltype([](GifFileType* gif) { DGifCloseFile(gif, nullptr); })>;

int readBytes(GifFileType* gif, GifByteType* target, int count) {
  if (count <= 0) return 0;
  auto& reader = *static_cast<SequentialReader*>(gif->UserData);
  return static_cast<int>(reader.read({target, static_cast<std::size_t>(count)}));
}

// Goes on to the first image; notes the transparent index of the control block before it.
bool findFirstImage(GifFileType* gif, std::optional<int>& transparent) {
  for (;;) {
    GifRecordType record{};
    if (DGifGetRecordType(gif, &record) != GIF_OK) return false;
    if (record == IMAGE_DESC_RECORD_TYPE) return true;
    if (record == TERMINATE_RECORD_TYPE) return false;
    if (record != EXTENSION_RECORD_TYPE) continue;
    int code = 0;
    GifByteType* block = nullptr;
    if (DGifGetExtension(gif, &code, &block) != GIF_OK) return false;
    if (code == GRAPHICS_EXT_FUNC_CODE && block && block[0] == 4) {
      transparent = (block[1] & 1) ? std::optional<int>(block[4]) : std::nullopt;
    }
    while (block) {
      if (DGifGetExtensionNext(gif, &block) != GIF_OK) return false;
    }
  }
}

Pixel32 pixelOf(const ColorMapObject* map, int index) {
  if (!map || index >= map->ColorCount) return {};
  const GifColorType& c = map->Colors[index];
  return {c.Blue, c.Green, c.Red, 0};
}

void fillBackground(const GifFileType* gif, raster::Surface& surface) {
  const ColorMapObject* map = gif->SColorMap;
  const bool told = map && gif->SBackGroundColor < map->ColorCount;
  const Pixel32 back = told ? pixelOf(map, gif->SBackGroundColor) : Pixel32::plain(kWhite);
  const auto view = surface.view32();
  for (int y = 0; y < surface.height(); ++y) std::fill_n(view.row(y), surface.width(), back);
}

// The frame's line numbers in the order in which they are stored (GIF89a, appendix E).
std::vector<int> storedLines(int height, bool interlaced) {
  std::vector<int> lines;
  lines.reserve(static_cast<std::size_t>(height));
  if (!interlaced) {
    for (int y = 0; y < height; ++y) lines.push_back(y);
    return lines;
  }
  constexpr int kStart[] = {0, 4, 2, 1};
  constexpr int kStep[] = {8, 8, 4, 2};
  for (int pass = 0; pass < 4; ++pass) {
    for (int y = kStart[pass]; y < height; y += kStep[pass]) lines.push_back(y);
  }
  return lines;
}

bool drawFrame(GifFileType* gif, std::optional<int> transparent, raster::Surface& surface) {
  const GifImageDesc& frame = gif->Image;
  const ColorMapObject* map = frame.ColorMap ? frame.ColorMap : gif->SColorMap;
  Pixel32 colours[256];
  for (int i = 0; i < 256; ++i) colours[i] = pixelOf(map, i);
  std::vector<GifPixelType> line(static_cast<std::size_t>(frame.Width));
  const int visible = std::min(frame.Width, surface.width() - frame.Left);
  for (const int y : storedLines(frame.Height, frame.Interlace)) {
    if (DGifGetLine(gif, line.data(), frame.Width) != GIF_OK) return false;
    if (visible <= 0 || frame.Top + y >= surface.height()) continue;
    auto* row = reinterpret_cast<Pixel32*>(surface.pictureRow(frame.Top + y)) + frame.Left;
    for (int x = 0; x < visible; ++x) {
      if (line[x] != transparent) row[x] = colours[line[x]];
    }
  }
  return true;
}

}  // namespace

LoadResult readGif(ByteSource& source, std::int64_t maxPixels) {
  SequentialReader reader(source);
  const GifHandle gif(DGifOpen(&reader, readBytes, nullptr));
  LoadResult result;
  result.error = LoadError::Broken;
  if (!gif) return result;
  result.width = gif->SWidth;
  result.height = gif->SHeight;
  const bool sizeTold = gif->SWidth > 0 && gif->SHeight > 0;
  if (sizeTold && !sizeAllowed(gif->SWidth, gif->SHeight, maxPixels)) {
    result.error = LoadError::TooLarge;
    return result;
  }
  std::optional<int> transparent;
  if (!findFirstImage(gif.get(), transparent) || DGifGetImageDesc(gif.get()) != GIF_OK) return result;
  const GifImageDesc& frame = gif->Image;
  if (frame.Width < 1 || frame.Height < 1) return result;
  if (!sizeTold) {
    result.width = frame.Left + frame.Width;
    result.height = frame.Top + frame.Height;
  }
  const ColorMapObject* map = frame.ColorMap ? frame.ColorMap : gif->SColorMap;
  result.fileDepth = map ? map->BitsPerPixel : 8;
  raster::Surface surface;
  if (!sizeAllowed(result.width, result.height, maxPixels) || !sizeAllowed(frame.Width, frame.Height, maxPixels)) {
    result.error = LoadError::TooLarge;
  } else if (!surface.create(result.width, result.height, 32)) {
    result.error = LoadError::NoMemory;
  } else {
    fillBackground(gif.get(), surface);
    if (!drawFrame(gif.get(), transparent, surface)) return result;
    result.error = LoadError::None;
    result.picture = Picture::ofBitmap(std::move(surface));
  }
  return result;
}

}  // namespace ruvo::imaging
