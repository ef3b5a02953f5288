// Targa (Truevision TGA file format specification, version 2.0). The origin bits of the descriptor are not looked at:
// the first line of the file is always the bottom one.
#include "formats/clsTGA.h"

#include <array>
#include <new>
#include <optional>

#include "base/byte_reader.h"
#include "base/byte_writer.h"
#include "base/file_io.h"
#include "base/limits.h"
#include "formats/source_rows.h"
#include "platform/raster/blit.h"

namespace ruvo {
namespace {

enum ImageType : std::uint8_t { kMapped = 1, kTrueColour = 2, kGrey = 3, kRuns = 8 };  // kRuns is added to the others

constexpr int kLongestPacket = 128;

using Table = std::array<Pixel32, 256>;

struct Header {
  int idBytes = 0;
  int mapType = 0;
  int type = 0;
  int mapFirst = 0;
  int mapEntries = 0;
  int mapBits = 0;
  int lineWidth = 0;  // pixels of a line as stored; the picture shows the first `width` of them
  int width = 0;
  int height = 0;
  int bits = 0;

  int kind() const { return type & ~kRuns; }
  bool runs() const { return (type & kRuns) != 0; }
  bool known() const {
    return (bits == 8 || bits == 16 || bits == 24 || bits == 32) && type < 16 && kind() >= kMapped && kind() <= kGrey;
  }
  bool depthKnown() const { return (bits == 8) == (kind() != kTrueColour); }
  std::size_t pixelBytes() const { return static_cast<std::size_t>(bits) / 8; }
  std::size_t entryBytes() const { return (static_cast<std::size_t>(mapBits) + 7) / 8; }
  std::size_t mapBytes() const { return mapType == 1 ? entryBytes() * static_cast<std::size_t>(mapEntries) : 0; }
};

Header readHeader(ByteReader& reader) {
  Header header;
  header.idBytes = reader.u8();
  header.mapType = reader.u8();
  header.type = reader.u8();
  header.mapFirst = reader.u16();
  header.mapEntries = reader.u16();
  header.mapBits = reader.u8();
  const int left = reader.u16(), bottom = reader.u16();
  header.lineWidth = reader.u16();
  // As 16 bits without a sign: an origin beyond the size gives one that no line has.
  header.width = static_cast<std::uint16_t>(header.lineWidth - left);
  header.height = static_cast<std::uint16_t>(reader.u16() - bottom);
  header.bits = reader.u8();
  reader.skip(1);
  return header;
}

// Two bytes: five bits a channel. More: B, G, R.
Pixel32 colourOf(const std::uint8_t* bytes, std::size_t count) {
  if (count > 2) return {bytes[0], bytes[1], bytes[2], 0};
  const int word = bytes[0] | bytes[1] << 8;
  const auto channel = [&](int shift) { return static_cast<std::uint8_t>((word >> shift & 31) * 8); };
  return {channel(0), channel(5), channel(10), 0};
}

// The colours of 8-bit pixels; the reader stands at the map and goes behind it. Nothing when the map is not all there
// or of an unknown kind.
std::optional<Table> readTable(ByteReader& reader, const Header& header) {
  const auto map = reader.take(header.mapBytes());
  Table table{};
  if (!reader.ok()) return std::nullopt;
  if (header.kind() != kMapped || header.mapType != 1) {
    for (std::size_t i = 0; i < table.size(); ++i) {
      const auto level = static_cast<std::uint8_t>(i);
      table[i] = {level, level, level, 0};
    }
    return table;
  }
  const std::size_t bytes = header.entryBytes();
  if (bytes < 2 || bytes > 4) return std::nullopt;
  const int end = std::min(header.mapFirst + header.mapEntries, static_cast<int>(table.size()));
  for (int i = header.mapFirst; i < end; ++i) {
    table[static_cast<std::size_t>(i)] = colourOf(&map[static_cast<std::size_t>(i - header.mapFirst) * bytes], bytes);
  }
  return table;
}

// Pixels in stored order; packets may go on in the next line.
class PixelDecoder {
 public:
  PixelDecoder(ByteReader& reader, const Header& header, const Table& table)
      : reader_(reader), table_(table), bytes_(header.pixelBytes()), runs_(header.runs()) {}

  // False when the data end before the line does.
  bool next(std::vector<Pixel32>& line) {
    for (std::size_t at = 0; at < line.size();) {
      if (!runs_) left_ = line.size();
      if (left_ == 0) readPacket();
      const std::size_t part = std::min(left_, line.size() - at);
      if (repeated_) {
        std::fill_n(line.begin() + static_cast<std::ptrdiff_t>(at), part, value_);
      } else {
        const auto pixels = reader_.take(part * bytes_);
        for (std::size_t i = 0; i < part && reader_.ok(); ++i) line[at + i] = pixel(&pixels[i * bytes_]);
      }
      if (!reader_.ok()) return false;
      left_ -= part;
      at += part;
    }
    return true;
  }

 private:
  void readPacket() {
    const int head = reader_.u8();
    repeated_ = head >= kLongestPacket;
    left_ = static_cast<std::size_t>(head % kLongestPacket) + 1;
    if (!repeated_) return;
    const auto bytes = reader_.take(bytes_);
    if (reader_.ok()) value_ = pixel(bytes.data());
  }
  Pixel32 pixel(const std::uint8_t* bytes) const { return bytes_ == 1 ? table_[*bytes] : colourOf(bytes, bytes_); }

  ByteReader& reader_;
  const Table& table_;
  std::size_t bytes_;
  bool runs_;
  std::size_t left_ = 0;
  bool repeated_ = false;
  Pixel32 value_{};
};

// Whether so many bytes can hold the picture at all, before memory is taken for it.
bool enough(const Header& header, std::size_t bytes) {
  const std::size_t pixels = static_cast<std::size_t>(header.lineWidth) * static_cast<std::size_t>(header.height);
  return header.runs() ? bytes / (1 + header.pixelBytes()) * kLongestPacket + kLongestPacket >= pixels
                       : bytes / header.pixelBytes() >= pixels;
}

std::vector<std::uint8_t> fileOf(const raster::Surface& source, int width, int height) {
  ByteWriter out;
  out.u16(0);
  out.u8(kTrueColour);
  out.zeros(9);
  out.u16(static_cast<std::uint16_t>(width));
  out.u16(static_cast<std::uint16_t>(height));
  out.u8(24);
  out.u8(0);
  SourceRows rows(source, width);
  for (int y = height - 1; y >= 0; --y) {
    for (const Pixel32& pixel : rows.row(y)) out.append(std::array{pixel.blue, pixel.green, pixel.red});
  }
  return out.take();
}

}  // namespace

bool clsTGA::LoadTGA(const std::filesystem::path& FileName) {
  ClearUp();
  const auto file = readWholeFile(FileName, kMaxFileBytes);
  return file && loadBytes(*file);
}

bool clsTGA::loadBytes(std::span<const std::uint8_t> file) {
  ClearUp();
  ByteReader reader(file);
  const Header header = readHeader(reader);
  if (!reader.ok() || !header.known()) return false;
  valid_ = true;
  Compressed = header.runs();
  width_ = header.width;
  height_ = header.height;
  bpp_ = header.bits;
  reader.skip(static_cast<std::size_t>(header.idBytes));
  const auto table = readTable(reader, header);
  clsDIB dib;
  if (!table || !header.depthKnown() || !pictureSizeAllowed(width_, height_) || width_ > header.lineWidth ||
      !enough(header, reader.left()) || !dib.CreateBlankDIB(width_, height_, 32, kBlack)) {
    return false;
  }
  PixelDecoder pixels(reader, header, *table);
  std::vector<Pixel32> line(static_cast<std::size_t>(header.lineWidth));
  for (int y = 0; y < height_; ++y) {
    if (!pixels.next(line)) return false;
    std::copy_n(line.begin(), width_, dib.surface().view32().row(y));
  }
  dib_ = std::move(dib);
  return true;
}

void clsTGA::DrawTGA(raster::Surface& hDC, int X, int Y) const {
  raster::blit(hDC, X, Y, dib_.surface());
}

bool clsTGA::SaveTGAinFile(const std::filesystem::path& FileName, const raster::Surface& hDC, int Width,
                           int Height) const {
  if (hDC.empty() || !pictureSizeAllowed(Width, Height)) return false;
  try {
    return replaceFile(FileName, fileOf(hDC, Width, Height));
  } catch (const std::bad_alloc&) {
    return false;
  }
}

void clsTGA::ClearUp() {
  *this = clsTGA();
}

}  // namespace ruvo
