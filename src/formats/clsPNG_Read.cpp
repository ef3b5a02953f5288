// The walk over the chunks of a PNG file (ISO 15948, 5 and 11).
#include <algorithm>
#include <cstdio>

#include "base/byte_reader.h"
#include "base/file_io.h"
#include "base/latin1.h"
#include "base/rounding.h"
#include "formats/clsCRC.h"
#include "formats/clsPNG_Private.h"
#include "formats/inflate.h"

namespace ruvo {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t kShortestFile = 100;
// Most bytes of texts, and of inflated ones, that are kept of one file; no text for people comes near it.
constexpr std::size_t kMostText = std::size_t{1} << 24;

// No background has more than three samples, no table more than 256 entries.
constexpr std::size_t kMostBackground = 6;
constexpr std::size_t kMostTransparency = 256;

constexpr bool isLetter(std::uint8_t c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

Bytes atMost(Bytes bytes, std::size_t count) {
  return bytes.first(std::min(bytes.size(), count));
}

std::string_view asText(Bytes bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

void join(std::string& text, const std::string& more) {
  if (!text.empty()) text += "\r\n";
  text += more;
}

struct Chunk {
  std::string_view name;
  Bytes data;
  std::uint32_t sum = 0;
};

// One chunk from the reader's place on, its name and sum proved.
int readChunk(ByteReader& reader, Chunk& chunk) {
  const std::uint32_t length = reader.u32be();
  const std::size_t start = reader.position();
  const Bytes name = reader.take(4);
  if (!reader.ok()) return kPngPastEnd;
  if (!std::all_of(name.begin(), name.end(), isLetter)) return kPngBadChunkName;
  chunk.name = asText(name);
  chunk.data = reader.take(length);
  chunk.sum = reader.u32be();
  if (!reader.ok()) return kPngPastEnd;
  return clsCRC().Calculate(reader.slice(start, 4 + chunk.data.size())) == chunk.sum ? kPngOpened : kPngBadSum;
}

std::string lineOf(std::size_t position, const Chunk& chunk) {
  char sum[9];
  std::snprintf(sum, sizeof sum, "%08X", chunk.sum);
  return std::to_string(position) + "  " + std::string(chunk.name) + "  " + std::to_string(chunk.data.size()) + "  " +
         sum;
}

png::Header headerOf(Bytes data) {
  ByteReader reader(data);
  png::Header header;
  header.width = reader.u32be();
  header.height = reader.u32be();
  header.depth = reader.u8();
  header.type = reader.u8();
  header.compression = reader.u8();
  header.filter = reader.u8();
  header.interlace = reader.u8();
  return header;
}

std::string timeOf(Bytes data) {
  ByteReader reader(data);
  const int year = reader.u16be();
  std::array<int, 5> rest;
  for (int& part : rest) part = reader.u8();
  if (!reader.ok()) return {};
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", year, rest[0], rest[1], rest[2], rest[3], rest[4]);
  return text;
}

}  // namespace

int png::sampleAt(Bytes chunk, int index) {
  const std::size_t at = 2 * static_cast<std::size_t>(index);
  return at + 2 <= chunk.size() ? chunk[at] << 8 | chunk[at + 1] : 0;
}

void clsPNG::forgetFile() {
  State fresh;
  fresh.alphaBytes = std::move(state_->alphaBytes);
  fresh.pattern = std::move(state_->pattern);
  if (BitmapBPP == state_->filledDepth) BitmapBPP = 0;
  *state_ = std::move(fresh);
  Interlacing = 0;
  CommentText.clear();
  HasTranspColor = false;
  TranspColor = 0;
  HasBKGDChunk = false;
}

int clsPNG::OpenPNG(const std::filesystem::path& FileName) {
  return openFile(FileName, nullptr, true);
}

int clsPNG::OpenPNG_GetTagData(const std::filesystem::path& FileName, std::vector<std::string>* chunkLines) {
  return openFile(FileName, chunkLines, false);
}

int clsPNG::openFile(const std::filesystem::path& file, std::vector<std::string>* chunkLines, bool pixels) {
  forgetFile();
  std::error_code unknown;
  if (!std::filesystem::is_regular_file(file, unknown)) return state_->error = kPngNotFound;
  if (std::filesystem::file_size(file, unknown) > kMaxFileBytes) return state_->error = kPngTooShort;
  const auto bytes = readWholeFile(file, kMaxFileBytes);
  if (!bytes) return state_->error = kPngNotFound;
  if (bytes->size() < kShortestFile) return state_->error = kPngTooShort;
  return readAll(*bytes, chunkLines, pixels);
}

int clsPNG::openBytes(Bytes bytes) {
  forgetFile();
  if (bytes.size() < png::kSignature.size()) return state_->error = kPngTooShort;
  return readAll(bytes, nullptr, true);
}

int clsPNG::readAll(Bytes bytes, std::vector<std::string>* chunkLines, bool pixels) {
  int code = ReadChunks(bytes, chunkLines);
  if (code == kPngOpened) {
    settleColours();
    settleDepth();
    if (pixels) code = ProcessImageData();
  }
  state_->parts.clear();  // they do not outlive the bytes
  return state_->error = code;
}

int clsPNG::ReadChunks(Bytes bytes, std::vector<std::string>* chunkLines) {
  ByteReader reader(bytes);
  const Bytes signature = reader.take(png::kSignature.size());
  if (!std::equal(signature.begin(), signature.end(), png::kSignature.begin(), png::kSignature.end())) {
    return kPngBadSignature;
  }
  State& s = *state_;
  while (s.ends == 0) {
    const std::size_t position = reader.position();
    Chunk chunk;
    if (const int code = readChunk(reader, chunk); code != kPngOpened) return code;
    if (chunkLines) chunkLines->push_back(lineOf(position, chunk));
    if (const int code = takeChunk(chunk.name, chunk.data); code != kPngOpened) return code;
  }
  const bool tableMissing = s.header.type == png::kPalette && s.palette.empty();
  if (s.headers == 0 || !s.hasParts || tableMissing) return kPngChunksMissing;
  return s.headers > 1 ? kPngChunksRepeated : kPngOpened;
}

int clsPNG::takeChunk(std::string_view name, Bytes data) {
  State& s = *state_;
  if (name == "IHDR") {
    ++s.headers;
    s.header = headerOf(data);
    Interlacing = s.header.interlace;
    return data.size() == png::kHeaderBytes && png::allowed(s.header) ? kPngOpened : kPngBadHeader;
  }
  if (name == "PLTE") {
    const std::size_t used = std::min<std::size_t>(data.size() / 3, 256) * 3;
    s.palette.assign(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(used));
  } else if (name == "IDAT") {
    s.hasParts = true;
    if (!data.empty()) s.parts.push_back(data);
  } else if (name == "IEND") {
    ++s.ends;
  } else if (name == "bKGD") {
    const Bytes used = atMost(data, kMostBackground);
    s.background.assign(used.begin(), used.end());
  } else if (name == "tRNS") {
    const Bytes used = atMost(data, kMostTransparency);
    s.transparency.assign(used.begin(), used.end());
  } else if (name == "gAMA") {
    s.gamma = ByteReader(data).u32be();
  } else if (name == "tIME") {
    s.modified = timeOf(data);
  } else if (name == "tEXt" || name == "zTXt") {
    takeText(name, data);
  }
  return kPngOpened;
}

void clsPNG::takeText(std::string_view name, Bytes data) {
  if (name == "tEXt") {
    if (CommentText.size() >= kMostText) return;
    std::string text = utf8FromLatin1(atMost(data, kMostText));
    std::replace(text.begin(), text.end(), '\0', ' ');
    join(CommentText, text);
    return;
  }
  // Keyword, 0, method and the two bytes before a deflate stream.
  const auto keywordEnd = static_cast<std::size_t>(std::find(data.begin(), data.end(), 0) - data.begin());
  if (data.size() < keywordEnd + 4 || state_->zText.size() >= kMostText) return;
  const Bytes packed = data.subspan(keywordEnd + 4);
  const std::size_t most = std::min(12 * packed.size(), kMostText - state_->zText.size());
  std::vector<std::uint8_t> plain;
  if (inflateAll(packed, static_cast<std::int64_t>(most), plain) == InflateResult::Bad) return;
  join(state_->zText, utf8FromLatin1(plain));
}

namespace {

// A sample of a colour as a byte.
int scaled(int sample, int depth) {
  return std::min(255, roundToInt(static_cast<double>(sample) / ((1 << depth) - 1) * 255));
}

Colour paletteColour(const std::vector<std::uint8_t>& palette, std::size_t index) {
  return 3 * index + 2 < palette.size() ? rgb(palette[3 * index], palette[3 * index + 1], palette[3 * index + 2]) : 0;
}

Colour colourOfSamples(Bytes chunk, int depth) {
  return rgb(scaled(png::sampleAt(chunk, 0), depth), scaled(png::sampleAt(chunk, 1), depth),
             scaled(png::sampleAt(chunk, 2), depth));
}

}  // namespace

// What bKGD and tRNS say, now that header and palette are known whatever the order of the chunks.
void clsPNG::settleColours() {
  State& s = *state_;
  const png::Header& header = s.header;
  const bool colour = header.type == png::kColour || header.type == png::kColourAlpha;
  if (s.background.size() >= (colour ? 6u : header.type == png::kPalette ? 1u : 2u)) {
    HasBKGDChunk = true;
    if (colour) {
      s.backgroundColour = colourOfSamples(s.background, header.depth);
    } else if (header.type == png::kPalette) {
      s.backgroundColour = paletteColour(s.palette, s.background[0]);
    } else {
      // The plain sum of the sample's two bytes, not scaled by depth: files that rely on it look as they always did.
      const int grey = std::min(255, s.background[0] + s.background[1]);
      s.backgroundColour = rgb(grey, grey, grey);
    }
    if (!setOwnerBkgd) BKGDColorToUse = s.backgroundColour;
  }
  if (header.alphaChannel() || s.transparency.size() < (colour ? 6u : header.type == png::kPalette ? 1u : 2u)) {
    s.transparency.clear();
    return;
  }
  HasTranspColor = true;
  if (header.type == png::kPalette) {
    const auto clear = std::find(s.transparency.begin(), s.transparency.end(), 0);
    if (clear == s.transparency.end()) return;
    s.transparentPosition = static_cast<int>(clear - s.transparency.begin());
    TranspColor = paletteColour(s.palette, static_cast<std::size_t>(s.transparentPosition));
  } else if (colour) {
    TranspColor = colourOfSamples(s.transparency, header.depth);
  } else {
    const int grey = scaled(png::sampleAt(s.transparency, 0), header.depth);
    TranspColor = rgb(grey, grey, grey);
  }
}

// The surface's depth: that of the samples, or a deeper one that was asked for; 32 where alpha counts.
void clsPNG::settleDepth() {
  const png::Header& header = state_->header;
  int depth = header.alphaChannel() ? 32 : header.indexed() ? (header.depth == 2 ? 8 : header.depth) : 24;
  const bool askedKnown = BitmapBPP == 4 || BitmapBPP == 8 || BitmapBPP == 24 || BitmapBPP == 32;
  if (askedKnown) depth = std::max(depth, BitmapBPP);
  if (alphaCounts()) depth = 32;
  BitmapBPP = state_->filledDepth = depth;
}

bool clsPNG::alphaCounts() const {
  return AlphaSet && (state_->header.alphaChannel() || HasTranspColor);
}

int clsPNG::ProcessImageData() {
  State& s = *state_;
  using Alpha = png::PixelRequest::Alpha;
  png::PixelRequest request;
  request.header = s.header;
  request.palette = s.palette;
  request.transparency = s.transparency;
  request.depth = BitmapBPP;
  if (alphaCounts()) {
    request.alpha = setOwnerBkgd ? Alpha::OnColour : setOwnerBkgdPattern ? Alpha::OnPattern : Alpha::Kept;
  }
  request.background = BKGDColorToUse;
  request.pattern = &s.pattern;
  return png::readPixels(request, s.parts, s.dib) ? kPngOpened : kPngInflateFailed;
}

}  // namespace ruvo
