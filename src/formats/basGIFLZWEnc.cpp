#include "formats/basGIFLZWEnc.h"

#include <algorithm>

#include "formats/gif_lines.h"

namespace ruvo::basGIFLZWEnc {
namespace {

constexpr int kLargestCodeSize = 12;
constexpr unsigned kCodes = 1U << kLargestCodeSize;
constexpr std::size_t kBlock = 254;  // one below what the format allows

// Codes, low bits first, cut into sub-blocks.
class BlockWriter {
 public:
  explicit BlockWriter(ByteWriter& out) : out_(out), start_(out.size()) {}

  void put(unsigned code, int width) {
    bits_ |= static_cast<std::uint64_t>(code) << count_;
    count_ += width;
    if (count_ >= 32) writeBits();
  }
  // What is left; answers the bytes of all blocks.
  std::int64_t finish() {
    count_ += 7;  // up to a whole byte
    writeBits();
    writeBlocks();
    if (size_ > 0) writeBlock({pending_, size_});
    return static_cast<std::int64_t>(out_.size() - start_);
  }

 private:
  static constexpr std::size_t kPending = 64 * kBlock;

  void writeBits() {
    for (int i = 0; i < 8; ++i) pending_[size_ + i] = static_cast<std::uint8_t>(bits_ >> (8 * i));
    size_ += static_cast<std::size_t>(count_ / 8);
    bits_ >>= count_ / 8 * 8;
    count_ %= 8;
    if (size_ >= kPending) writeBlocks();
  }
  // All that are full.
  void writeBlocks() {
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
  std::uint64_t bits_ = 0;
  int count_ = 0;
  std::size_t size_ = 0;
  std::uint8_t pending_[kPending + 8];
};

// Whether the string of two zeros can still be found. Files of this program have always been made with a table of 5,003
// slots in which a search ends at the slot of that string as at a free one, so that another string may be written over
// it, and the string is then added anew. The table is filled in only when the question comes up.
class ZeroString {
 public:
  void restart() {
    safe_ = false;
    filled_ = 0;
  }
  // `keys` are those of all strings that were added, in order, two zeros among them.
  bool found(std::span<const std::uint32_t> keys) {
    if (filled_ == 0 && !safe_) {
      // No search comes back to slot 0, so there the string is safe.
      safe_ = *std::find_if(keys.begin(), keys.end(), [](std::uint32_t key) { return homeOf(key) == 0; }) == 0;
      slot_ = kNone;
      std::fill_n(taken_, kSlots, false);
    }
    if (safe_) return true;
    for (; filled_ < keys.size(); ++filled_) add(keys[filled_]);
    return slot_ != kNone;
  }

 private:
  static constexpr int kSlots = 5003;
  static constexpr int kNone = -1;

  static int homeOf(std::uint32_t key) { return static_cast<int>(key >> kLargestCodeSize << 4 ^ (key & (kCodes - 1))); }

  void add(std::uint32_t key) {
    // The slots of a search are multiples of the first one. The second is looked at in any case: that is cheaper than a
    // branch that nothing foretells.
    const int home = homeOf(key);
    const int step = home == 0 ? kSlots - 1 : home;
    int slot = home + taken_[home] * step;
    slot -= slot < kSlots ? 0 : kSlots;
    while (taken_[slot] && slot != slot_) {
      slot += step;
      if (slot >= kSlots) slot -= kSlots;
    }
    taken_[slot] = true;
    if (key == 0) {
      slot_ = slot;
    } else if (slot == slot_) {
      slot_ = kNone;
    }
  }

  bool safe_ = false;
  std::size_t filled_ = 0;
  int slot_ = kNone;
  bool taken_[kSlots];
};

// The key of a string is its last pixel and the code of the string before it. That code goes out at the moment when the
// string is added, so the keys in order are also the codes to write, up to the next clear code.
class Encoder {
 public:
  Encoder(ByteWriter& out, int initBits) : bits_(out), initBits_(initBits), clear_(1U << (initBits - 1)) {
    keys_[0] = kNoKey;
  }

  std::int64_t run(const raster::Surface& surface, bool interlaced) {
    restart();
    bits_.put(clear_, initBits_);
    GifLines lines(surface.height(), interlaced);
    const std::uint8_t* row = surface.pictureRow(lines.line());
    unsigned string = row[0];
    int x = 1;
    for (int left = surface.height();;) {
      for (; x < surface.width(); ++x) string = extend(string, row[x]);
      if (--left == 0) break;
      lines.advance();
      row = surface.pictureRow(lines.line());
      x = 0;
    }
    keys_[next_] = string;
    const int width = writeCodes();
    bits_.put(clear_ + 1, width);
    return bits_.finish();
  }

 private:
  static constexpr std::uint32_t kNoKey = 0xFFFFFFFF;
  static constexpr int kTableBits = 16;
  static constexpr std::uint32_t kTableSize = 1U << kTableBits;

  // The code of the string with one more pixel when there is one. Otherwise the longer one is added, and the next one
  // begins with the pixel.
  unsigned extend(unsigned string, std::uint8_t pixel) {
    const std::uint32_t key = static_cast<std::uint32_t>(pixel) << kLargestCodeSize | string;
    std::uint32_t at = (pixel * 0x9E3779B1U >> (32 - kTableBits)) ^ string;
    unsigned code = table_[at];
    for (; keys_[code] != key; code = table_[at]) {
      if (code == 0) return add(pixel, key, at);
      at = (at + 1) % kTableSize;
    }
    return code;
  }

  unsigned add(std::uint8_t pixel, std::uint32_t key, std::uint32_t at) {
    // The two zeros are not in the table, so that the pixels of all other strings need not ask for them.
    if (key == 0 && zeroCode_ != 0 && zeros_.found({keys_ + clear_ + 2, keys_ + next_})) return zeroCode_;
    keys_[next_] = key;
    if (next_ < kCodes) {
      (key == 0 ? zeroCode_ : table_[at]) = static_cast<std::uint16_t>(next_++);
    } else {
      const int width = writeCodes();
      bits_.put(clear_, width);
      restart();
    }
    return pixel;
  }

  void restart() {
    std::fill_n(table_, kTableSize, std::uint16_t{0});
    next_ = clear_ + 2;
    zeroCode_ = 0;
    zeros_.restart();
  }

  // Up to that of keys_[next_]. Answers the width of the code after them.
  int writeCodes() {
    int width = initBits_;
    for (unsigned free = clear_ + 2; free <= next_; ++free) {
      bits_.put(keys_[free] & (kCodes - 1), width);
      if (free == 1U << width && width < kLargestCodeSize) ++width;
    }
    return width;
  }

  BlockWriter bits_;
  const int initBits_;
  const unsigned clear_;
  unsigned next_ = 0;
  std::uint16_t zeroCode_ = 0;
  ZeroString zeros_;
  std::uint32_t keys_[kCodes + 1];  // from clear_ + 2 up to below next_
  std::uint16_t table_[kTableSize];
};

}  // namespace

std::int64_t Encode(ByteWriter& out, const clsDIB& Dib, int InitBits, bool Interlaced) {
  const raster::Surface& surface = Dib.surface();
  if (surface.empty() || surface.depth() != 8 || InitBits < 3 || InitBits > 9) return 0;
  return Encoder(out, InitBits).run(surface, Interlaced);
}

}  // namespace ruvo::basGIFLZWEnc
