#include "platform/imaging/bmp_reader.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <system_error>
#include <vector>

#include "base/file_source.h"
#include "base/limits.h"
#include "platform/imaging/bmp_header.h"
#include "platform/imaging/codecs.h"

namespace ruvo::imaging {
namespace {

using raster::strideFor;
using raster::Surface;

constexpr std::size_t kChunkBytes = 128 * 1024;  // stays in the cache between reading and converting

// The bytes of a BMP, in memory or in a file.
class Input {
 public:
  explicit Input(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
  explicit Input(const FileSource& file) : file_(&file) {}

  std::uint64_t size() const { return file_ ? file_->size() : bytes_.size(); }
  std::size_t read(std::uint64_t offset, std::span<std::uint8_t> out) const {
    if (file_) return file_->readAt(offset, out);
    if (offset >= bytes_.size()) return 0;
    const std::size_t count = std::min<std::uint64_t>(out.size(), bytes_.size() - offset);
    std::memcpy(out.data(), bytes_.data() + offset, count);
    return count;
  }

 private:
  std::span<const std::uint8_t> bytes_;
  const FileSource* file_ = nullptr;
};

// Bytes one after the other, for the run-length codes: what lies behind the end mark is never read.
class Stream {
 public:
  Stream(const Input& input, std::uint64_t offset) : input_(input), offset_(offset), buffer_(64 * 1024) {}

  bool ended() const { return ended_; }
  std::uint8_t next() {
    if (at_ == filled_ && !refill()) return 0;
    return buffer_[at_++];
  }

 private:
  bool refill() {
    if (!ended_) filled_ = input_.read(offset_, buffer_);
    offset_ += filled_;
    at_ = 0;
    if (filled_ == 0) ended_ = true;
    return !ended_;
  }

  const Input& input_;
  std::uint64_t offset_;
  std::vector<std::uint8_t> buffer_;
  std::size_t at_ = 0;
  std::size_t filled_ = 0;
  bool ended_ = false;
};

void readTable(const Input& input, const BmpHeader& header, Surface& surface) {
  std::array<std::uint8_t, 1024> bytes{};
  const auto step = static_cast<std::size_t>(header.tableEntryBytes);
  const std::size_t got = input.read(header.tableOffset, std::span(bytes).first(header.tableEntries * step));
  for (std::size_t i = 0; (i + 1) * step <= got; ++i) {
    surface.table()[i] = {bytes[i * step], bytes[i * step + 1], bytes[i * step + 2], 0};
  }
}

// --- Rows as they are

// One channel of a bit-field pixel: where it lies and its 8-bit value for each of its values.
class Channel {
 public:
  explicit Channel(std::uint32_t mask) {
    if (mask == 0) {
      values_.assign(1, 0);
      return;
    }
    // A mask with holes counts as the range that it spans. Beyond twelve bits the lower ones can not change the result.
    const int low = std::countr_zero(mask);
    const int bits = std::bit_width(mask) - low;
    const int used = std::min(bits, 12);
    shift_ = low + bits - used;
    keep_ = (1u << used) - 1;
    values_.resize(keep_ + 1);
    for (std::uint32_t v = 0; v <= keep_; ++v) {
      values_[v] = static_cast<std::uint8_t>((v * 510 + keep_) / (2 * keep_));
    }
  }
  std::uint8_t of(std::uint32_t pixel) const { return values_[(pixel >> shift_) & keep_]; }

 private:
  int shift_ = 0;
  std::uint32_t keep_ = 0;
  std::vector<std::uint8_t> values_;
};

struct Channels {
  Channel red, green, blue, alpha;
  explicit Channels(const std::array<std::uint32_t, 4>& masks)
      : red(masks[0]), green(masks[1]), blue(masks[2]), alpha(masks[3]) {}
};

template <int kFileBytes, int kSurfaceBytes>
void convertFields(const Channels& channels, const std::uint8_t* from, std::uint8_t* to, int width) {
  for (int x = 0; x < width; ++x, from += kFileBytes, to += kSurfaceBytes) {
    std::uint32_t pixel = from[0] | from[1] << 8;
    if constexpr (kFileBytes == 4) pixel |= from[2] << 16 | static_cast<std::uint32_t>(from[3]) << 24;
    to[0] = channels.blue.of(pixel);
    to[1] = channels.green.of(pixel);
    to[2] = channels.red.of(pixel);
    if constexpr (kSurfaceBytes == 4) to[3] = channels.alpha.of(pixel);
  }
}

void expandTwoBits(const std::uint8_t* from, std::uint8_t* to, int width) {
  for (int x = 0; x < width; x += 2) {
    const int pair = from[x / 4] >> (x % 4 == 0 ? 4 : 0);
    to[x / 2] = static_cast<std::uint8_t>((pair & 0x0C) << 2 | (pair & 0x03));
  }
}

class PlainRows {
 public:
  PlainRows(const Input& input, const BmpHeader& header, Surface& surface)
      : input_(input), header_(header), surface_(surface), channels_(header.masks) {
    fileStride_ = static_cast<std::size_t>(strideFor(header.width, header.bits));
    rowBytes_ = (static_cast<std::size_t>(header.width) * header.bits + 7) / 8;
  }

  // Rows that the file holds whole; the padding of the last one is often missing.
  int rowsPresent() const {
    const std::uint64_t size = input_.size();
    if (size < header_.dataOffset + rowBytes_) return 0;
    const std::uint64_t rows = (size - header_.dataOffset - rowBytes_) / fileStride_ + 1;
    return static_cast<int>(std::min<std::uint64_t>(rows, header_.height));
  }

  // Fills the surface; answers how many rows it got.
  int read(int rows) { return copiesAsItLies() ? readInPlace(rows) : readByChunks(rows); }

 private:
  bool standardMasks() const {
    return header_.bits == 32 && header_.masks[0] == 0x00FF0000 && header_.masks[1] == 0x0000FF00 &&
           header_.masks[2] == 0x000000FF && (header_.masks[3] == 0 || header_.masks[3] == 0xFF000000);
  }
  bool copiesRows() const {
    return header_.coding == BmpCoding::Fields ? standardMasks() : header_.bits == surface_.depth();
  }
  bool copiesAsItLies() const { return copiesRows() && !header_.topDown; }

  int rowsIn(std::size_t bytes) const {
    return bytes < rowBytes_ ? 0 : static_cast<int>((bytes - rowBytes_) / fileStride_ + 1);
  }

  int readInPlace(int rows) {
    const std::size_t got = input_.read(header_.dataOffset, surface_.bytes().first(fileStride_ * rows));
    const int whole = std::min(rows, rowsIn(got));
    // What came of a row that is not whole goes again.
    if (got > fileStride_ * whole) std::memset(surface_.memoryRow(whole), 0, got - fileStride_ * whole);
    for (int y = 0; y < whole; ++y) tidy(surface_.memoryRow(y));
    return whole;
  }

  int readByChunks(int rows) {
    const int most = std::max(1, static_cast<int>(kChunkBytes / fileStride_));
    std::vector<std::uint8_t> chunk(fileStride_ * static_cast<std::size_t>(std::min(most, rows)));
    for (int first = 0; first < rows; first += most) {
      const int want = std::min(most, rows - first);
      const std::size_t got = input_.read(header_.dataOffset + fileStride_ * static_cast<std::uint64_t>(first),
                                          std::span(chunk).first(fileStride_ * static_cast<std::size_t>(want)));
      const int whole = std::min(want, rowsIn(got));
      for (int i = 0; i < whole; ++i) {
        const int y = header_.topDown ? surface_.height() - 1 - first - i : first + i;
        convert(chunk.data() + fileStride_ * static_cast<std::size_t>(i), surface_.memoryRow(y));
      }
      if (whole < want) return first + whole;
    }
    return rows;
  }

  void convert(const std::uint8_t* from, std::uint8_t* to) const {
    if (copiesRows()) {
      std::memcpy(to, from, rowBytes_);
      tidy(to);
    } else if (header_.bits == 2) {
      expandTwoBits(from, to, header_.width);
    } else if (header_.bits == 32) {
      convertFields<4, 4>(channels_, from, to, header_.width);
    } else if (surface_.depth() == 32) {
      convertFields<2, 4>(channels_, from, to, header_.width);
    } else {
      convertFields<2, 3>(channels_, from, to, header_.width);
    }
  }

  // Padding becomes zero, and so does a fourth byte that no mask claims.
  void tidy(std::uint8_t* row) const {
    std::memset(row + rowBytes_, 0, fileStride_ - rowBytes_);
    if (header_.coding != BmpCoding::Fields || header_.masks[3] != 0) return;
    for (int x = 0; x < header_.width; ++x) row[x * 4 + 3] = 0;
  }

  const Input& input_;
  const BmpHeader& header_;
  Surface& surface_;
  Channels channels_;
  std::size_t fileStride_ = 0;
  std::size_t rowBytes_ = 0;
};

// --- Run-length codes

// RLE4, RLE8 and OS/2's RLE24. Pixels that the codes jump over stay zero.
class RunLengths {
 public:
  RunLengths(const Input& input, const BmpHeader& header, Surface& surface)
      : in_(input, header.dataOffset), surface_(surface), topDown_(header.topDown), bits_(header.bits) {}

  // False when not one pixel came; `truncated` when the data ended before the picture and the end mark did.
  bool read(bool& truncated) {
    while (y_ < surface_.height()) {
      const int count = in_.next();
      const bool goesOn = count > 0 ? run(count) : escape();
      if (!goesOn) break;
    }
    const bool lastRowFull = y_ >= surface_.height() || (y_ == surface_.height() - 1 && x_ >= surface_.width());
    truncated = in_.ended() && !lastRowFull;
    return painted_;
  }

 private:
  bool run(int count) {
    std::array<std::uint8_t, 3> value{};
    for (int i = 0; i < bytesPerValue(); ++i) value[i] = in_.next();
    if (in_.ended()) return false;
    for (int i = 0; i < count; ++i) put(bits_ == 4 ? nibble(value[0], i) : value[0], value);
    return true;
  }

  bool escape() {
    const int code = in_.next();
    if (in_.ended() || code == 1) return false;
    if (code == 0) {
      x_ = 0;
      ++y_;
    } else if (code == 2) {
      x_ = std::min(surface_.width(), x_ + in_.next());
      y_ += in_.next();
    } else {
      literal(code);
    }
    return !in_.ended();
  }

  // Pixels one by one; their bytes are padded to an even number.
  void literal(int count) {
    int bytes = 0;
    std::array<std::uint8_t, 3> value{};
    for (int i = 0; i < count && !in_.ended(); ++i) {
      if (bits_ != 4 || i % 2 == 0) {
        for (int k = 0; k < bytesPerValue(); ++k, ++bytes) value[k] = in_.next();
      }
      if (!in_.ended()) put(bits_ == 4 ? nibble(value[0], i) : value[0], value);
    }
    if (bytes % 2 != 0) in_.next();
  }

  void put(std::uint8_t index, const std::array<std::uint8_t, 3>& value) {
    if (x_ >= surface_.width()) return;  // A run that is too long is cut; it never goes on in the next row.
    std::uint8_t* row = surface_.memoryRow(topDown_ ? surface_.height() - 1 - y_ : y_);
    if (bits_ == 8) {
      row[x_] = index;
    } else if (bits_ == 24) {
      std::memcpy(row + static_cast<std::ptrdiff_t>(x_) * 3, value.data(), 3);
    } else if (x_ % 2 == 0) {
      row[x_ / 2] = static_cast<std::uint8_t>((row[x_ / 2] & 0x0F) | index << 4);
    } else {
      row[x_ / 2] = static_cast<std::uint8_t>((row[x_ / 2] & 0xF0) | index);
    }
    ++x_;
    painted_ = true;
  }

  int bytesPerValue() const { return bits_ == 24 ? 3 : 1; }
  static std::uint8_t nibble(std::uint8_t byte, int i) { return i % 2 == 0 ? byte >> 4 : byte & 0x0F; }

  Stream in_;
  Surface& surface_;
  bool topDown_;
  int bits_;
  int x_ = 0;
  int y_ = 0;
  bool painted_ = false;
};

// --- The whole

int surfaceDepth(const BmpHeader& header) {
  if (header.bits == 2) return 4;
  if (header.bits == 16) return header.masks[3] != 0 ? 32 : 24;
  return header.bits;
}

bool anyAlpha(const Surface& surface) {
  if (surface.depth() != 32) return false;
  for (int y = 0; y < surface.height(); ++y) {
    const Pixel32* row = surface.view32().row(y);
    for (int x = 0; x < surface.width(); ++x) {
      if (row[x].alpha != 0) return true;
    }
  }
  return false;
}

LoadError decode(const Input& input, const BmpHeader& header, BmpResult& result) {
  PlainRows plain(input, header, result.surface);
  const bool runs = header.coding == BmpCoding::Rle;
  // Nothing is allocated for a file that only states a size.
  const int rows = runs ? header.height : plain.rowsPresent();
  if (rows == 0 || header.dataOffset >= input.size()) return LoadError::Broken;
  if (!result.surface.create(header.width, header.height, surfaceDepth(header))) return LoadError::NoMemory;
  if (header.bits <= 8) readTable(input, header, result.surface);
  if (runs) {
    if (!RunLengths(input, header, result.surface).read(result.truncated)) return LoadError::Broken;
  } else {
    const int got = plain.read(rows);
    if (got == 0) return LoadError::Broken;
    result.truncated = got < header.height;
  }
  result.hasAlpha = anyAlpha(result.surface);
  return LoadError::None;
}

BmpResult readFrom(const Input& input, std::int64_t maxPixels) {
  BmpResult result;
  std::array<std::uint8_t, kBmpHeadBytes> head{};
  const std::size_t got = input.read(0, head);
  BmpHeader header;
  result.error = parseBmpHeader(std::span(head).first(got), header);
  result.width = header.width;
  result.height = header.height;
  result.fileDepth = header.bits;
  if (result.error == LoadError::None && !sizeAllowed(header.width, header.height, maxPixels)) {
    result.error = LoadError::TooLarge;
  }
  if (result.error == LoadError::None) result.error = decode(input, header, result);
  if (result.error != LoadError::None) result.surface.clear();
  return result;
}

}  // namespace

bool looksLikeBmp(std::span<const std::uint8_t> firstBytes) {
  return looksLikeBmpHead(firstBytes);
}

BmpResult readBmp(std::span<const std::uint8_t> bytes, std::int64_t maxPixels) {
  return readFrom(Input(bytes), maxPixels);
}

BmpResult readBmpFile(const std::filesystem::path& path) {
  const FileSource file(path);
  if (file.isOpen() && file.size() <= static_cast<std::uint64_t>(kMaxFileBytes))
    return readFrom(Input(file), kMaxPicturePixels);
  BmpResult refused;
  refused.error = file.isOpen() ? LoadError::TooLarge : LoadError::Missing;
  return refused;
}

}  // namespace ruvo::imaging
