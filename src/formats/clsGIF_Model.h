// What a clsGIF holds, for the files of that class.
#pragma once

#include <algorithm>
#include <span>

#include "formats/clsGIF.h"

namespace ruvo {

// The control record and the image that it belongs to stand and move together.
struct GifFrame {
  GifControl control;
  GifImage image;

  int width() const { return image.XOR ? image.XOR->DIBWidth() : 0; }
  int height() const { return image.XOR ? image.XOR->DIBHeight() : 0; }
};

struct GifModel {
  std::string signature = "000";
  std::string version = "000";
  std::uint16_t width = 0;
  std::uint16_t height = 0;
  std::uint8_t background = 0;
  std::uint8_t aspect = 0;
  std::uint16_t loops = 0;
  bool globalExists = false;
  bool globalSorted = false;
  int globalEntries = 0;
  GifTable global{};
  std::string comment;
  std::vector<GifFrame> frames;
  // Of the last file that was looked at, also when the model was emptied afterwards.
  Size stated;

  int count() const { return static_cast<int>(frames.size()); }
  bool has(int number) const { return number >= 1 && number <= count(); }
  // Null when there is no such frame.
  GifFrame* frame(int number) { return has(number) ? &frames[static_cast<std::size_t>(number) - 1] : nullptr; }
  // For reading: a frame without pixels, all fields 0, when there is no such one.
  const GifFrame& frameOrNone(int number) const;
};

// Reads a GIF, all of it or up to the end of its first image; answers a GifCode. The bytes are moved about. After a
// failure the model holds what was read so far.
int readGifModel(std::span<std::uint8_t> data, GifModel& model, bool firstImageOnly = false);

// The same from a file, its first image only.
int readFirstImage(const std::filesystem::path& path, GifModel& model);

// Both surfaces, blank: index 0 all over, and nothing see-through. False when there is no memory.
bool createSurfaces(GifImage& image, Size size);
// Gives a table to an indexed surface.
void setTable(clsDIB& dib, const GifTable& table);
// See clsGIF::FrameMask. Surfaces that are shared are copied first; without memory for that nothing happens.
void maskFrame(GifFrame& frame, int transparentIndex);
// The highest of the indices in the picture, which has 8 bits.
int highestIndex(const clsDIB& dib);
// The surface for changes: a copy of its own when somebody else holds it too; null when there is no memory.
clsDIB* ownSurface(std::shared_ptr<clsDIB>& surface);

// True when a frame of that size may stand at that place of the list.
bool gifSizeAllowed(int width, int height, int place);

constexpr std::uint16_t toWord(int value) {
  return static_cast<std::uint16_t>(std::clamp(value, 0, 65535));
}
constexpr std::uint8_t toDisposal(int method) {
  return static_cast<std::uint8_t>(std::clamp(method, 0, 7));
}
constexpr bool isTableIndex(int index) {
  return index >= 0 && index < 256;
}

}  // namespace ruvo
