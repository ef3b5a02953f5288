#include "formats/basGIFLZWEnc.h"

#include <algorithm>

#include "formats/gif_lines.h"

namespace ruvo::basGIFLZWEnc {
namespace {

constexpr int kLargestCodeSize = 12;
constexpr int kCodes = 1 << kLargestCodeSize;
constexpr std::size_t kBlock = 254;  // one below what the format allows
constexpr int kSlots = 5003;

// Bytes cut into sub-blocks.
class BlockWriter {
 public:
  explicit BlockWriter(ByteWriter& out) : out_(out), start_(out.size()) {}

  // The whole bytes of the bits, low ones first; answers how many bits they were.
  int put(std::uint64_t bits, int count) {
    for (int i = 0; i < 8; ++i) pending_[size_ + i] = static_cast<std::uint8_t>(bits >> (8 * i));
    size_ += static_cast<std::size_t>(count / 8);
    if (size_ >= kPending) writeWhole();
    return count / 8 * 8;
  }
  // What is left; answers the bytes of all blocks.
  std::int64_t finish() {
    writeWhole();
    if (size_ > 0) writeBlock({pending_, size_});
    return static_cast<std::int64_t>(out_.size() - start_);
  }

 private:
  static constexpr std::size_t kPending = 64 * kBlock;

  void writeWhole() {
    std::size_t at = 0;
    for (; size_ - at >= kBlock; at += kBlock) writeBlock({pending_ + at, kBlock});
    std::copy(pending_ + at, pending_ + size_, pending_);
    size_ -= at;
  }
  void writeBlock(std::span<const std::uint8_t> block) {
    out_.u8(static_cast<std::uint8_t>(block.size()));
    out_.append(block);
  }

  ByteWriter& out_;
  const std::size_t start_;
  std::size_t size_ = 0;
  std::uint8_t pending_[kPending + 8];
};

class Encoder {
 public:
  Encoder(ByteWriter& out, int initBits)
      : blocks_(out), initBits_(initBits), clear_(1 << (initBits - 1)), freeSlot_(slotOf(clear_, 0)) {}

  std::int64_t run(const raster::Surface& surface, bool interlaced) {
    restart();
    put(clear_);
    GifLines lines(surface.height(), interlaced);
    const std::uint8_t* row = surface.pictureRow(lines.line());
    int prefix = row[0];
    int x = 1;
    for (int left = surface.height();;) {
      for (; x < surface.width(); ++x) prefix = step(prefix, row[x]);
      if (--left == 0) break;
      lines.advance();
      row = surface.pictureRow(lines.line());
      x = 0;
    }
    put(prefix);
    put(clear_ + 1);
    count_ += 7;  // up to a whole byte
    flushBits();
    return blocks_.finish();
  }

 private:
  // A string of the table: its key (last pixel and the code before it), and in the low bits its code. The key of a free
  // one begins with the clear code, as no string does.
  using Slot = std::uint32_t;
  static constexpr Slot keyOf(int prefix, int pixel) { return static_cast<Slot>(pixel << kLargestCodeSize | prefix); }
  static constexpr Slot slotOf(int prefix, int pixel, int code = 0) {
    return keyOf(prefix, pixel) << kLargestCodeSize | static_cast<Slot>(code);
  }

  // Takes one more pixel: the code of the longer string when the table has it; else the string goes out.
  int step(int prefix, int pixel) {
    const Slot key = keyOf(prefix, pixel);
    int at = (pixel << 4) ^ prefix;
    if (slots_[at] >> kLargestCodeSize == key) return slots_[at] & (kCodes - 1);
    if (slots_[at] != freeSlot_) {
      const int back = at == 0 ? 1 : kSlots - at;
      do {
        at -= back;
        if (at < 0) at += kSlots;
        if (slots_[at] >> kLargestCodeSize == key) return slots_[at] & (kCodes - 1);
        // The search ends at the string of two zeros too, which is then written over. Files of this program have always
        // been made so.
      } while (slots_[at] != freeSlot_ && slots_[at] >> kLargestCodeSize != 0);
    }
    put(prefix);
    if (next_ < kCodes) {
      slots_[at] = slotOf(prefix, pixel, next_++);
    } else {
      put(clear_);
      restart();
    }
    return pixel;
  }

  void restart() {
    std::fill_n(slots_, kSlots, freeSlot_);
    next_ = clear_ + 2;
    bits_ = initBits_;
  }

  void put(int code) {
    buffer_ |= static_cast<std::uint64_t>(code) << count_;
    count_ += bits_;
    if (count_ >= 32) flushBits();
    // The width grows one code late: the string that this code completes is added after it.
    if (next_ >= 1 << bits_ && bits_ < kLargestCodeSize) ++bits_;
  }

  void flushBits() {
    const int flushed = blocks_.put(buffer_, count_);
    buffer_ >>= flushed;
    count_ -= flushed;
  }

  BlockWriter blocks_;
  const int initBits_;
  const int clear_;
  const Slot freeSlot_;
  int next_ = 0;
  int bits_ = 0;
  std::uint64_t buffer_ = 0;
  int count_ = 0;
  Slot slots_[kSlots];
};

}  // namespace

std::int64_t Encode(ByteWriter& out, const clsDIB& Dib, int InitBits, bool Interlaced) {
  const raster::Surface& surface = Dib.surface();
  if (surface.empty() || surface.depth() != 8 || InitBits < 3 || InitBits > 9) return 0;
  return Encoder(out, InitBits).run(surface, Interlaced);
}

}  // namespace ruvo::basGIFLZWEnc
