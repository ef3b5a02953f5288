// What a clsPNG holds of the file it read, and the road from its compressed data to a surface.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "formats/clsPNG.h"
#include "formats/clsPNG_Format.h"

namespace ruvo {

struct clsPNG::State {
  png::Header header;
  int headers = 0;
  int ends = 0;
  std::vector<std::uint8_t> palette;       // R, G, B, at most 256 entries
  std::vector<std::uint8_t> transparency;  // tRNS as it stands
  std::vector<std::uint8_t> background;    // bKGD as it stands
  // The parts of the compressed stream; they lie in the bytes that are being read.
  std::vector<std::span<const std::uint8_t>> parts;
  bool hasParts = false;
  int transparentPosition = -1;
  Colour backgroundColour = 0;
  std::uint32_t gamma = 0;
  std::string zText;
  std::string modified;
  clsDIB dib;
  int filledDepth = 0;  // what an opening wrote to BitmapBPP
  int error = 0;
  // Not of the file.
  std::vector<std::uint8_t> alphaBytes;
  clsDIB pattern;
};

namespace png {

struct PixelRequest {
  enum class Alpha { Dropped, Kept, OnColour, OnPattern };

  Header header;
  std::span<const std::uint8_t> palette;       // R, G, B
  std::span<const std::uint8_t> transparency;  // tRNS
  int depth = 0;  // of the surface: at least what the file needs, 32 unless alpha is dropped
  Alpha alpha = Alpha::Dropped;
  Colour background = 0;
  const clsDIB* pattern = nullptr;
};

// Reads the rows into a new surface. False, with `dib` empty, when the stream is damaged or holds fewer rows than the
// header promises, or when there is no memory. `parts` is a zlib stream, or plain rows behind two bytes when the header
// names another compression than 0.
bool readPixels(const PixelRequest& request, std::span<const std::span<const std::uint8_t>> parts, clsDIB& dib);

// A big-endian sample of tRNS or bKGD; 0 when the chunk is too short.
int sampleAt(std::span<const std::uint8_t> chunk, int index);

}  // namespace png
}  // namespace ruvo
