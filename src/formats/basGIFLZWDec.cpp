#include "formats/basGIFLZWDec.h"

#include <bit>
#include <cstring>

#include "formats/gif_lines.h"

namespace ruvo::basGIFLZWDec {
namespace {

constexpr int kLargestCodeSize = 12;
constexpr unsigned kCodes = 1U << kLargestCodeSize;

// Codes of a growing width, low bits first.
class CodeReader {
 public:
  explicit CodeReader(std::span<const std::uint8_t> data) : next_(data.data()), end_(data.data() + data.size()) {}

  // False at the end of the data.
  bool read(int size, unsigned& code) {
    if (count_ < size && !refill(size)) return false;
    code = static_cast<unsigned>(buffer_) & ((1U << size) - 1);
    buffer_ >>= size;
    count_ -= size;
    return true;
  }

 private:
  bool refill(int size) {
    if (end_ - next_ >= 8) {
      std::uint64_t bytes = 0;
      for (int i = 0; i < 8; ++i) bytes |= static_cast<std::uint64_t>(next_[i]) << (8 * i);
      buffer_ |= bytes << count_;
      // Only whole bytes are counted; the bits above them are read again, to the same places.
      const int taken = (63 - count_) / 8;
      next_ += taken;
      count_ += 8 * taken;
      return true;
    }
    buffer_ &= (std::uint64_t{1} << count_) - 1;
    while (next_ != end_ && count_ <= 48) {
      buffer_ |= static_cast<std::uint64_t>(*next_++) << count_;
      count_ += 8;
    }
    return count_ >= size;
  }

  const std::uint8_t* next_;
  const std::uint8_t* end_;
  std::uint64_t buffer_ = 0;
  int count_ = 0;
};

// Pixels in stored order onto the lines of the surface.
class PixelWriter {
 public:
  PixelWriter(raster::Surface& surface, bool interlaced)
      : surface_(surface), lines_(surface.height(), interlaced), row_(surface.pictureRow(0)) {}

  // False when the last pass is over; pixels beyond are dropped.
  bool write(const std::uint8_t* pixels, std::size_t count) {
    while (count > 0) {
      const std::size_t part = std::min(count, static_cast<std::size_t>(surface_.width() - column_));
      std::memcpy(row_ + column_, pixels, part);
      column_ += static_cast<int>(part);
      pixels += part;
      count -= part;
      if (column_ < surface_.width()) continue;
      column_ = 0;
      if (!lines_.advance()) return false;
      row_ = surface_.pictureRow(lines_.line());
    }
    return true;
  }

 private:
  raster::Surface& surface_;
  GifLines lines_;
  std::uint8_t* row_;
  int column_ = 0;
};

// What both decoders below share: the codes of a stream and how their width grows.
struct Stream {
  Stream(std::span<const std::uint8_t> data, int minCodeSize)
      : codes(data), firstSize(minCodeSize + 1), clear(1U << minCodeSize), end(clear + 1) {
    restart();
    // Whatever stands first is taken for a clear code.
    unsigned first = 0;
    codes.read(size, first);
  }

  bool read(unsigned& code) { return codes.read(size, code) && code != end; }
  void restart() {
    size = firstSize;
    free = clear + 2;
  }
  void oneMoreString() {
    if (++free >= 1U << size && size < kLargestCodeSize) ++size;
  }

  CodeReader codes;
  const int firstSize;
  const unsigned clear;
  const unsigned end;
  int size = 0;
  unsigned free = 0;
};

// The decoder of sound streams. A string lies in the table in pieces of eight pixels, the last one (full or not) with
// its own code, so that it is written in steps of eight.
class SoundDecoder {
 public:
  // False when the stream turns out to be damaged in a way that only DamagedDecoder can follow.
  bool run(raster::Surface& surface, bool interlaced, Stream stream) {
    PixelWriter pixels(surface, interlaced);
    for (unsigned i = 0; i < stream.clear; ++i) {
      const auto pixel = static_cast<std::uint8_t>(i);
      strings_[i] = {atByte(pixel, 0), 0, 1, pixel};
    }
    std::uint8_t* out = pending_;
    for (;;) {
      unsigned code = 0;
      if (!stream.read(code)) break;
      if (code == stream.clear) {
        stream.restart();
        continue;
      }
      if (code > stream.end) return false;
      *out++ = strings_[code].first;
      if (!runToClear(stream, code, out, pixels)) return false;
      if (ended_ || !makeRoom(out, pixels)) break;
    }
    pixels.write(pending_, static_cast<std::size_t>(out - pending_));
    return true;
  }

 private:
  struct String {
    std::uint64_t tail;    // the pixels of the last piece in memory order
    std::uint16_t prefix;  // the string of all pieces before it
    std::uint16_t length;
    std::uint8_t first;
  };

  static constexpr std::size_t kPending = 16384;

  static constexpr std::uint64_t atByte(std::uint8_t pixel, unsigned place) {
    return static_cast<std::uint64_t>(pixel) << 8 * (std::endian::native == std::endian::little ? place : 7 - place);
  }

  // Codes up to the next clear code, or to the end (ended_). False for damage.
  bool runToClear(Stream& stream, unsigned old, std::uint8_t*& out, PixelWriter& pixels) {
    for (;;) {
      unsigned code = 0;
      if (!stream.read(code)) {
        ended_ = true;
        return true;
      }
      if (code == stream.clear) {
        stream.restart();
        return true;
      }
      if (code > stream.free) return false;
      if (stream.free < kCodes) {
        addString(stream.free, old, code < stream.free ? strings_[code].first : strings_[old].first);
        stream.oneMoreString();
      }
      out = put(code, out);
      old = code;
      if (!makeRoom(out, pixels)) {
        ended_ = true;
        return true;
      }
    }
  }

  // Room for one more string of any length, and a pixel. False when the picture takes no more.
  bool makeRoom(std::uint8_t*& out, PixelWriter& pixels) {
    if (out < pending_ + kPending) return true;
    const auto count = static_cast<std::size_t>(out - pending_);
    out = pending_;
    return pixels.write(pending_, count);
  }

  void addString(unsigned code, unsigned old, std::uint8_t last) {
    const String& from = strings_[old];
    const unsigned place = from.length % 8;
    String& string = strings_[code];
    string.tail = (place ? from.tail : 0) | atByte(last, place);
    string.prefix = place ? from.prefix : static_cast<std::uint16_t>(old);
    string.length = static_cast<std::uint16_t>(from.length + 1);
    string.first = from.first;
  }

  // Last piece first: what it writes beyond the string is written again by the next string.
  std::uint8_t* put(unsigned code, std::uint8_t* out) const {
    const String* string = &strings_[code];
    const unsigned length = string->length;
    unsigned piece = (length - 1) / 8 * 8;
    std::memcpy(out + piece, &string->tail, 8);
    while (piece > 0) {
      piece -= 8;
      string = &strings_[string->prefix];
      std::memcpy(out + piece, &string->tail, 8);
    }
    return out + length;
  }

  String strings_[kCodes];
  std::uint8_t pending_[kPending + kCodes + 8];
  bool ended_ = false;
};

// Any stream, pixel by pixel. A code that does not stand in the table yet repeats the last string, and the table keeps
// what it held before a clear code, so a string may lead anywhere; a ring of them fills the stack and ends the
// decoding.
class DamagedDecoder {
 public:
  void run(raster::Surface& surface, bool interlaced, Stream stream) {
    PixelWriter pixels(surface, interlaced);
    bool first = true;
    unsigned old = 0;
    std::uint8_t fin = 0;
    for (unsigned code = 0; stream.read(code);) {
      if (code == stream.clear) {
        first = true;
        stream.restart();
        continue;
      }
      if (first) {
        first = false;
        old = code;
        fin = static_cast<std::uint8_t>(code);
        if (!pixels.write(&fin, 1)) return;
        continue;
      }
      if (code == stream.free) {
        stack_[0] = fin;
        if (!expand(old, 1, stream.clear)) return;
      } else if (code < stream.free && !expand(code, 0, stream.clear)) {
        return;
      }
      fin = stack_[top_];
      for (int i = top_; i >= 0; --i) {
        if (!pixels.write(&stack_[i], 1)) return;
      }
      if (stream.free < kCodes) {
        prefix_[stream.free] = static_cast<std::uint16_t>(old);
        suffix_[stream.free] = fin;
        stream.oneMoreString();
      }
      old = code;
    }
  }

 private:
  static constexpr int kStack = kCodes + 1;  // the longest string, and one

  bool expand(unsigned code, int at, unsigned clear) {
    for (; code >= clear; code = prefix_[code]) {
      if (at == kStack - 1) return false;
      stack_[at++] = suffix_[code];
    }
    stack_[at] = static_cast<std::uint8_t>(code);
    top_ = at;
    return true;
  }

  std::uint16_t prefix_[kCodes] = {};
  std::uint8_t suffix_[kCodes] = {};
  std::uint8_t stack_[kStack] = {};
  int top_ = 0;
};

}  // namespace

void Decode(clsDIB& Dib, bool Interlaced, int MinCodeSize, std::span<const std::uint8_t> Data) {
  raster::Surface& surface = Dib.surface();
  if (surface.empty() || surface.depth() != 8 || MinCodeSize < 1 || MinCodeSize >= kLargestCodeSize) return;
  const Stream stream(Data, MinCodeSize);
  // Starting over writes the same pixels first.
  if (!SoundDecoder().run(surface, Interlaced, stream)) DamagedDecoder().run(surface, Interlaced, stream);
}

}  // namespace ruvo::basGIFLZWDec
