// PCX (ZSoft technical reference manual, revision 5).
#include "formats/clsPCX.h"

#include <array>
#include <new>

#include "base/byte_reader.h"
#include "base/byte_writer.h"
#include "base/file_io.h"
#include "base/limits.h"
#include "formats/source_rows.h"
#include "platform/raster/blit.h"

namespace ruvo {
namespace {

constexpr int kManufacturer = 10;
constexpr int kVersion = 5;
constexpr std::size_t kHeaderBytes = 128;
constexpr int kTableMark = 12;
constexpr std::size_t kTableBytes = 1 + 3 * 256;  // at the end of the file
constexpr int kRunMark = 192;
constexpr int kLongestRun = 63;
constexpr int kLongestWritten = 62;  // one below what the format allows
constexpr int kResolution = 96;

using Table = std::array<Pixel32, 256>;

struct Header {
  int manufacturer = 0;
  int encoding = 0;
  int bits = 0;  // of each plane
  int planes = 0;
  int width = 0;
  int height = 0;
  std::size_t lineBytes = 0;  // of each plane
  std::span<const std::uint8_t> table16;

  bool known() const { return manufacturer == kManufacturer && encoding < 2; }
  bool depthKnown() const {
    return (bits == 1 && (planes == 1 || planes == 4)) || (bits == 4 && planes == 1) ||
           (bits == 8 && (planes == 1 || planes == 3));
  }
  std::size_t rowBytes() const { return lineBytes * static_cast<std::size_t>(planes); }
};

Header readHeader(ByteReader& reader) {
  Header header;
  header.manufacturer = reader.u8();
  reader.skip(1);
  header.encoding = reader.u8();
  header.bits = reader.u8();
  const int left = reader.u16(), top = reader.u16();
  header.width = reader.u16() - left + 1;
  header.height = reader.u16() - top + 1;
  reader.skip(4);
  header.table16 = reader.take(48);
  reader.skip(1);
  header.planes = reader.u8();
  header.lineBytes = reader.u16();
  reader.seek(kHeaderBytes);
  return header;
}

Pixel32 greyOf(int level) {
  const auto v = static_cast<std::uint8_t>(level);
  return {v, v, v, 0};
}

// Entries of R, G, B.
Table tableOf(std::span<const std::uint8_t> bytes) {
  Table table{};
  for (std::size_t i = 0; i < bytes.size() / 3; ++i) table[i] = {bytes[3 * i + 2], bytes[3 * i + 1], bytes[3 * i], 0};
  return table;
}

Table greys() {
  Table table;
  for (int i = 0; i < 256; ++i) table[static_cast<std::size_t>(i)] = greyOf(i);
  return table;
}

// The colours of the indices, if the picture has indices. The table of 256 colours stands behind the pixels, which then
// end before it.
Table coloursOf(const Header& header, std::span<const std::uint8_t>& data) {
  if (header.planes == 3) return {};
  if (header.bits == 1 && header.planes == 1) return {greyOf(0), greyOf(255)};
  if (header.bits != 8) return tableOf(header.table16);
  if (data.size() < kTableBytes || data[data.size() - kTableBytes] != kTableMark) return greys();
  const auto last = data.last(kTableBytes - 1);
  data = data.first(data.size() - kTableBytes);
  return tableOf(last);
}

// The bytes of the rows one after another; runs may go on in the next row.
class RowDecoder {
 public:
  RowDecoder(std::span<const std::uint8_t> data, bool runs) : reader_(data), runs_(runs) {}

  // False when the data end before the row does.
  bool next(std::vector<std::uint8_t>& row) {
    if (!runs_) {
      const auto bytes = reader_.take(row.size());
      std::copy(bytes.begin(), bytes.end(), row.begin());
      return reader_.ok();
    }
    for (std::size_t at = 0; at < row.size();) {
      if (left_ == 0 && !readRun()) return false;
      const std::size_t part = std::min(left_, row.size() - at);
      std::fill_n(row.begin() + static_cast<std::ptrdiff_t>(at), part, value_);
      left_ -= part;
      at += part;
    }
    return true;
  }

 private:
  bool readRun() {
    value_ = reader_.u8();
    left_ = 1;
    if (value_ >= kRunMark) {
      left_ = value_ - kRunMark;
      value_ = reader_.u8();
    }
    return reader_.ok();
  }

  ByteReader reader_;
  bool runs_;
  std::size_t left_ = 0;
  std::uint8_t value_ = 0;
};

void placeRow(const Header& header, const std::vector<std::uint8_t>& row, const Table& table, Pixel32* to) {
  const std::uint8_t* plane = row.data();
  const std::size_t next = header.lineBytes;
  for (int x = 0; x < header.width; ++x) {
    if (header.planes == 3) {
      to[x] = {plane[2 * next + x], plane[next + x], plane[x], 0};
    } else if (header.planes == 4) {
      int index = 0;
      for (std::size_t p = 0; p < 4; ++p) index |= imaging::indexAt(plane + p * next, x, 1) << p;
      to[x] = table[static_cast<std::size_t>(index)];
    } else {
      to[x] = table[static_cast<std::size_t>(imaging::indexAt(plane, x, header.bits))];
    }
  }
}

// Whether the data can hold the picture at all, before memory is taken for it.
bool enough(const Header& header, std::size_t bytes) {
  const std::size_t perPair = header.encoding == 1 ? kLongestRun : 2;
  return (bytes + 1) / 2 * perPair >= header.rowBytes() * static_cast<std::size_t>(header.height);
}

class RunWriter {
 public:
  explicit RunWriter(ByteWriter& out) : out_(out) {}

  void add(std::uint8_t byte) {
    if (count_ > 0 && (byte != value_ || count_ == kLongestWritten)) end();
    value_ = byte;
    ++count_;
  }
  void end() {
    if (count_ > 1 || (count_ == 1 && value_ >= kRunMark)) out_.u8(static_cast<std::uint8_t>(kRunMark + count_));
    if (count_ > 0) out_.u8(value_);
    count_ = 0;
  }

 private:
  ByteWriter& out_;
  std::uint8_t value_ = 0;
  int count_ = 0;
};

// The corners count from 1, so that the last ones are width and height.
void writeHeader(ByteWriter& out, int width, int height, bool compressed, int lineBytes) {
  for (const int byte : {kManufacturer, kVersion, compressed ? 1 : 0, 8}) out.u8(static_cast<std::uint8_t>(byte));
  for (const int word : {1, 1, width, height, kResolution, kResolution}) out.u16(static_cast<std::uint16_t>(word));
  out.zeros(49);
  out.u8(3);
  out.u16(static_cast<std::uint16_t>(lineBytes));
  out.zeros(kHeaderBytes - out.size());
}

std::vector<std::uint8_t> fileOf(const raster::Surface& source, int width, int height, bool compressed) {
  ByteWriter out;
  const int lineBytes = width + width % 2;
  writeHeader(out, width, height, compressed, lineBytes);
  RunWriter runs(out);
  SourceRows rows(source, width);
  std::vector<std::uint8_t> line(static_cast<std::size_t>(lineBytes));
  for (int y = 0; y < height; ++y) {
    const auto& row = rows.row(y);
    for (const auto channel : {&Pixel32::red, &Pixel32::green, &Pixel32::blue}) {
      for (int x = 0; x < width; ++x) line[static_cast<std::size_t>(x)] = row[static_cast<std::size_t>(x)].*channel;
      if (!compressed) {
        out.append(line);
        continue;
      }
      for (const std::uint8_t byte : line) runs.add(byte);
      // Lines of an even width run into each other.
      if (width % 2 == 1) runs.end();
    }
  }
  runs.end();
  return out.take();
}

}  // namespace

bool clsPCX::LoadPCX(const std::filesystem::path& FileName) {
  ClearUp();
  const auto file = readWholeFile(FileName, kMaxFileBytes);
  return file && loadBytes(*file);
}

bool clsPCX::loadBytes(std::span<const std::uint8_t> file) {
  ClearUp();
  ByteReader reader(file);
  const Header header = readHeader(reader);
  if (!reader.ok() || !header.known()) return false;
  valid_ = true;
  Compressed = header.encoding == 1;
  width_ = header.width;
  height_ = header.height;
  bpp_ = header.bits * header.planes;
  auto data = file.subspan(kHeaderBytes);
  if (!header.depthKnown() || !pictureSizeAllowed(width_, height_) ||
      header.lineBytes < (static_cast<std::size_t>(width_) * static_cast<std::size_t>(header.bits) + 7) / 8 ||
      !enough(header, data.size())) {
    return false;
  }
  const Table table = coloursOf(header, data);
  clsDIB dib;
  if (!dib.CreateBlankDIB(width_, height_, 32, kBlack)) return false;
  RowDecoder rows(data, Compressed);
  std::vector<std::uint8_t> row(header.rowBytes());
  for (int y = 0; y < height_; ++y) {
    if (!rows.next(row)) return false;
    placeRow(header, row, table, reinterpret_cast<Pixel32*>(dib.surface().pictureRow(y)));
  }
  dib_ = std::move(dib);
  return true;
}

void clsPCX::DrawPCX(raster::Surface& hDC, int X, int Y) const {
  raster::blit(hDC, X, Y, dib_.surface());
}

bool clsPCX::SavePCXinFile(const std::filesystem::path& FileName, const raster::Surface& hDC, int Width,
                           int Height) const {
  if (hDC.empty() || !pictureSizeAllowed(Width, Height)) return false;
  try {
    return replaceFile(FileName, fileOf(hDC, Width, Height, Compressed));
  } catch (const std::bad_alloc&) {
    return false;
  }
}

void clsPCX::ClearUp() {
  *this = clsPCX();
}

}  // namespace ruvo
