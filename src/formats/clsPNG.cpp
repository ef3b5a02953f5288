#include "formats/clsPNG.h"

#include <algorithm>
#include <cstdint>

#include "formats/clsPNG_Private.h"
#include "platform/raster/blit.h"

namespace ruvo {
namespace {

struct Words {
  int code;
  const char* text;
};
constexpr Words kOpenWords[] = {{kPngNotFound, "File not found."},
                                {kPngTooShort, "Invalid PNG file."},
                                {kPngBadSignature, "Invalid PNG file signature."},
                                {kPngBadChunkName, "Chunk name invalid or dislocated."},
                                {kPngPastEnd, "Will read pass the file end."},
                                {kPngBadSum, "Invalid CRC check sum found."},
                                {kPngBadHeader, "Error reading header data."},
                                {kPngChunksMissing, "Essential data chunks not present."},
                                {kPngChunksRepeated, "Critical chunk erroneoursly repeated."},
                                {kPngInflateFailed, "Manual decompression failed."},
                                {kPngZlibFailed, "zLib decompression failed."}};
constexpr Words kSaveWords[] = {{kPngNotThisDepth, "Not 32-bit, 24-bit or 8-bit."},
                                {kPngReadOnly, "File exists and read only."},
                                {kPngNot8Bit, "Not 8-bit."},
                                {kPngNotWritten, "File not written."}};

std::string wordsOf(std::span<const Words> all, int code) {
  for (const Words& words : all) {
    if (words.code == code) return words.text + std::string(3, ' ') + std::to_string(code);
  }
  return {};
}

}  // namespace

namespace png {

bool allowed(const Header& header) {
  static constexpr int kDepths[][6] = {
      {kGrey, 1, 2, 4, 8, 16}, {kColour, 8, 16}, {kPalette, 1, 2, 4, 8}, {kGreyAlpha, 8, 16}, {kColourAlpha, 8, 16}};
  bool known = false;
  for (const auto& row : kDepths) {
    known |= row[0] == header.type && header.depth > 0 && std::find(row + 1, row + 6, header.depth) != row + 6;
  }
  return known && header.interlace <= 1 && pictureSizeAllowed(header.width, header.height);
}

std::vector<Pass> passesOf(const Header& header) {
  std::vector<Pass> passes;
  const auto width = static_cast<int>(header.width), height = static_cast<int>(header.height);
  for (int number = 1; number <= (header.interlace != 0 ? 7 : 1); ++number) {
    Pass pass;
    if (header.interlace != 0) {
      clsPNG::InterlaceStartPosAndIntervals(number, pass.startX, pass.startY, pass.stepX, pass.stepY);
    }
    pass.columns = width / pass.stepX + (width % pass.stepX > pass.startX ? 1 : 0);
    pass.rows = height / pass.stepY + (height % pass.stepY > pass.startY ? 1 : 0);
    const std::size_t bits = static_cast<std::size_t>(pass.columns) * channelsOf(header.type) * header.depth;
    pass.rowBytes = (bits + 7) / 8;
    if (pass.columns > 0 && pass.rows > 0) passes.push_back(pass);
  }
  return passes;
}

std::int64_t bytesOf(const std::vector<Pass>& passes) {
  std::int64_t bytes = 0;
  for (const Pass& pass : passes) bytes += pass.rows * static_cast<std::int64_t>(pass.rowBytes + 1);
  return bytes;
}

}  // namespace png

clsPNG::clsPNG() : state_(std::make_unique<State>()) {}
clsPNG::~clsPNG() = default;

void clsPNG::SetAlphaBytes(std::vector<std::uint8_t> bytes) {
  state_->alphaBytes = std::move(bytes);
}
void clsPNG::storePattern(const clsDIB& Dib) {
  state_->pattern.ClearUp();
  clsDIB::CloneDIB(Dib, state_->pattern, Dib.DIBBackColor(), Dib.BottomUp());
}

int clsPNG::ErrorNum() const {
  return state_->error;
}
const clsDIB& clsPNG::dib() const {
  return state_->dib;
}
clsDIB clsPNG::takeDib() {
  return std::move(state_->dib);
}
void clsPNG::DrawPNG(raster::Surface& Target, int X, int Y, int W, int H) const {
  const raster::Surface& source = state_->dib.surface();
  if (source.empty()) return;
  raster::blit(Target, X, Y, W < 1 ? source.width() : W, H < 1 ? source.height() : H, source, 0, 0);
}

int clsPNG::Width() const {
  return static_cast<int>(std::min<std::uint32_t>(state_->header.width, INT32_MAX));
}
int clsPNG::Height() const {
  return static_cast<int>(std::min<std::uint32_t>(state_->header.height, INT32_MAX));
}
int clsPNG::BitDepth() const {
  return state_->header.depth;
}
int clsPNG::ColorType() const {
  return state_->header.type;
}
int clsPNG::Compression() const {
  return state_->header.compression;
}
int clsPNG::Filter() const {
  return state_->header.filter;
}
int clsPNG::getTranspColorPos() const {
  return state_->transparentPosition;
}
Colour clsPNG::BKGDchunkColorPerFile() const {
  return state_->backgroundColour;
}
const std::string& clsPNG::zText() const {
  return state_->zText;
}
const std::string& clsPNG::ModiTime() const {
  return state_->modified;
}
double clsPNG::Gama() const {
  return state_->gamma / 100000.0;
}
int clsPNG::BytesPerPixel(int Type, int Depth) {
  return std::max(1, png::channelsOf(Type) * Depth / 8);
}
int clsPNG::BitsPerPixel() const {
  return png::channelsOf(state_->header.type) * state_->header.depth;
}
const std::vector<std::uint8_t>& clsPNG::getPNGpalette() const {
  return state_->palette;
}

void clsPNG::InterlaceStartPosAndIntervals(int Pass, int& StartX, int& StartY, int& StepX, int& StepY) {
  static constexpr int kAdam7[7][4] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                                       {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};
  static constexpr int kNone[4] = {};
  const int* row = Pass >= 1 && Pass <= 7 ? kAdam7[Pass - 1] : kNone;
  StartX = row[0];
  StartY = row[1];
  StepX = row[2];
  StepY = row[3];
}

std::string clsPNG::FlagErrMsgOpen(int Code) {
  return wordsOf(kOpenWords, Code);
}
std::string clsPNG::FlagErrMsgSave(int Code) {
  return wordsOf(kSaveWords, Code);
}
std::uint32_t clsPNG::SwapBytesLong(std::uint32_t Value) {
  return Value >> 24 | (Value >> 8 & 0xFF00) | (Value << 8 & 0xFF0000) | Value << 24;
}

void clsPNG::ClearUp() {
  forgetFile();
  state_->alphaBytes.clear();
  state_->pattern.ClearUp();
}

}  // namespace ruvo
