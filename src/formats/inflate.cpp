#include "formats/inflate.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <memory>

#include "formats/inflate_tables.h"

namespace ruvo {
namespace inflate {
namespace {

constexpr std::size_t kWindow = 32768;     // how far back a distance reaches
constexpr std::size_t kPiece = 65536;      // handed over at about this size
constexpr std::size_t kLongestCopy = 258;  // of one length and distance
constexpr std::size_t kOvershoot = 40;     // of a copy in whole words
// The fast loop writes at most this much before it looks at its end again: literals, then one copy.
constexpr std::ptrdiff_t kFastRoom = 8 + kLongestCopy + kOvershoot;
constexpr std::ptrdiff_t kFastInput = 16;  // and reads at most this much

enum class Step { More, BlockDone, Stopped, TooLong, Bad };

std::uint64_t word(const std::uint8_t* at) {
  std::uint64_t w;
  std::memcpy(&w, at, 8);
  if constexpr (std::endian::native == std::endian::big) w = __builtin_bswap64(w);
  return w;
}
void copyWord(std::uint8_t* to, const std::uint8_t* from) {
  std::uint64_t w;
  std::memcpy(&w, from, 8);
  std::memcpy(to, &w, 8);
}

// Copies what was written `distance` bytes ago, a byte after the other in effect: an overlap repeats. May write up to
// kOvershoot bytes more.
inline void copyBack(std::uint8_t* to, std::size_t distance, std::size_t length) {
  const std::uint8_t* from = to - distance;
  std::uint8_t* const end = to + length;
  if (distance >= 8) {
    // Most copies are short: the first words go without asking.
    copyWord(to, from);
    copyWord(to + 8, from + 8);
    for (to += 16, from += 16; to < end; to += 16, from += 16) {
      copyWord(to, from);
      copyWord(to + 8, from + 8);
    }
  } else if (distance == 1) {
    std::memset(to, *from, length);
  } else {
    while (to < end) *to++ = *from++;
  }
}

// The bits of a stream that lies in several parts, lowest first.
struct Bits {
  std::uint64_t held = 0;  // the low `count` bits are next; those above may already show what follows
  int count = 0;
  const std::uint8_t* at = nullptr;  // next byte that is not counted
  const std::uint8_t* end = nullptr;
  std::span<const std::span<const std::uint8_t>> later;

  bool nextPart() {
    while (at == end) {
      if (later.empty()) return false;
      at = later.front().data();
      end = at + later.front().size();
      later = later.subspan(1);
    }
    return true;
  }
  // Holds at least 56 bits, or all that there are.
  void fill() {
    while (count < 56 && nextPart()) {
      held &= (std::uint64_t{1} << count) - 1;
      held |= static_cast<std::uint64_t>(*at++) << count;
      count += 8;
    }
  }
  void drop(int bits) {
    held >>= bits;
    count -= bits;
  }
  std::uint32_t low(int bits) const { return static_cast<std::uint32_t>(held & ((std::uint64_t{1} << bits) - 1)); }
  // False when the stream ends before them.
  bool take(int bits, std::uint32_t& value) {
    if (count < bits) fill();
    if (count < bits) return false;
    value = low(bits);
    drop(bits);
    return true;
  }
};

class Decoder {
 public:
  Decoder(std::span<const std::span<const std::uint8_t>> parts, std::int64_t limit, const InflateTake& take)
      : buffer_(std::make_unique_for_overwrite<std::uint8_t[]>(kWindow + kPiece + kLongestCopy + kOvershoot)),
        out_(buffer_.get()),
        handed_(out_),
        boundary_(out_ + kWindow + kPiece),
        left_(limit),
        take_(take) {
    bits_.later = parts;
  }

  InflateResult run() {
    Step step = Step::BlockDone;
    for (bool last = false; step == Step::BlockDone && !last;) step = block(last);
    if (step == Step::Stopped || !handOver() || step == Step::BlockDone) return InflateResult::Done;
    return step == Step::TooLong ? InflateResult::TooLong : InflateResult::Bad;
  }

 private:
  Step block(bool& last) {
    std::uint32_t header = 0;
    if (!bits_.take(3, header)) return Step::Bad;
    last = (header & 1) != 0;
    switch (header >> 1) {
      case 0:
        return stored();
      case 1:
        return coded(fixedTables());
      case 2:
        if (!own_) own_ = std::make_unique_for_overwrite<BlockTables>();
        return readTables() ? coded(*own_) : Step::Bad;
      default:
        return Step::Bad;
    }
  }

  // 3.2.4
  Step stored() {
    bits_.drop(bits_.count % 8);
    std::uint32_t length = 0, complement = 0;
    if (!bits_.take(16, length) || !bits_.take(16, complement) || (length ^ complement) != 0xFFFF) return Step::Bad;
    // Whole bytes that are held already come first.
    for (; length > 0 && bits_.count >= 8; --length) {
      const auto byte = static_cast<std::uint8_t>(bits_.low(8));
      bits_.drop(8);
      if (const Step step = put({&byte, 1}); step != Step::More) return step;
    }
    if (length > 0) bits_.held = 0;
    while (length > 0) {
      if (!bits_.nextPart()) return Step::Bad;
      const auto count = std::min<std::size_t>(length, static_cast<std::size_t>(bits_.end - bits_.at));
      const std::span<const std::uint8_t> run(bits_.at, count);
      bits_.at += count;
      length -= static_cast<std::uint32_t>(count);
      if (const Step step = put(run); step != Step::More) return step;
    }
    return Step::BlockDone;
  }

  // 3.2.7
  bool readTables() {
    std::uint32_t counts = 0;
    if (!bits_.take(14, counts)) return false;
    const std::uint32_t literals = (counts & 31) + 257, distances = (counts >> 5 & 31) + 1, codes = (counts >> 10) + 4;
    static constexpr std::uint8_t kOrder[] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    std::array<std::uint8_t, kPrecodeSymbols> precode{};
    for (std::uint32_t i = 0; i < codes; ++i) {
      std::uint32_t length = 0;
      if (!bits_.take(3, length)) return false;
      precode[kOrder[i]] = static_cast<std::uint8_t>(length);
    }
    std::array<Entry, 1u << kPrecodeRoot> table;
    std::array<std::uint8_t, kLiteralSymbols + kDistanceSymbols> lengths{};
    if (!build(table, kPrecodeRoot, precode, Meaning::Plain) ||
        !readLengths(table, std::span(lengths).first(literals + distances))) {
      return false;
    }
    const std::span<const std::uint8_t> all(lengths);
    if (!build(own_->literals, kLiteralRoot, all.first(literals), Meaning::LiteralOrLength) ||
        !build(own_->distances, kDistanceRoot, all.subspan(literals, distances), Meaning::Distance)) {
      return false;
    }
    pairLiterals(*own_);
    return true;
  }

  bool readLengths(std::span<const Entry> table, std::span<std::uint8_t> lengths) {
    for (std::size_t i = 0; i < lengths.size();) {
      bits_.fill();
      const Entry entry = table[bits_.low(kPrecodeRoot)];
      if ((entry & kSpecial) != 0 || dropBits(entry) > bits_.count) return false;
      bits_.drop(dropBits(entry));
      const auto symbol = static_cast<std::uint8_t>(valueOf(entry));
      if (symbol < 16) {
        lengths[i++] = symbol;
        continue;
      }
      std::uint32_t more = 0;
      if (symbol == 16 && i == 0) return false;
      if (!bits_.take(symbol == 16 ? 2 : symbol == 17 ? 3 : 7, more)) return false;
      const std::size_t repeat = more + (symbol == 18 ? 11u : 3u);
      if (repeat > lengths.size() - i) return false;
      std::fill_n(lengths.begin() + static_cast<std::ptrdiff_t>(i), repeat,
                  symbol == 16 ? lengths[i - 1] : std::uint8_t{0});
      i += repeat;
    }
    return true;
  }

  // A block with codes: the fast loop as far as input and room go, a careful symbol where they do not.
  Step coded(const BlockTables& tables) {
    Step step = Step::More;
    while (step == Step::More) {
      step = out_ < boundary_ ? fast(tables) : handOverAndSlide();
      if (step == Step::More && out_ < boundary_) step = careful(tables);
    }
    return step;
  }

  // One symbol with every bound looked at.
  Step careful(const BlockTables& tables) {
    Entry entry = 0;
    if (!decode(tables.literals, kLiteralRoot, entry)) return Step::Bad;
    if ((entry & kLiteral) != 0) {
      const auto byte = static_cast<std::uint8_t>(valueOf(entry));
      return put({&byte, 1});
    }
    if ((entry & kSpecial) != 0) return (entry & kBlockEnd) != 0 ? Step::BlockDone : Step::Bad;
    std::size_t length = valueOf(entry) + extra_;
    if (!decode(tables.distances, kDistanceRoot, entry) || (entry & kSpecial) != 0) return Step::Bad;
    const std::size_t distance = valueOf(entry) + extra_;
    if (distance > written()) return Step::Bad;
    const std::size_t room = static_cast<std::size_t>(std::min<std::int64_t>(left_, kLongestCopy));
    const bool tooLong = length > room;
    length = std::min(length, room);
    for (std::size_t i = 0; i < length; ++i) out_[i] = out_[static_cast<std::ptrdiff_t>(i - distance)];
    out_ += length;
    left_ -= static_cast<std::int64_t>(length);
    return tooLong ? Step::TooLong : Step::More;
  }

  // The next symbol's entry, and its extra bits in extra_. False where the stream ends or no code fits.
  bool decode(std::span<const Entry> table, int rootBits, Entry& entry) {
    bits_.fill();
    entry = table[bits_.low(rootBits)];
    if ((entry & kSecondTable) != 0) {
      if (rootBits > bits_.count) return false;
      bits_.drop(rootBits);
      entry = table[valueOf(entry) + bits_.low(codeBits(entry))];
    }
    if (entry == kNoCode || dropBits(entry) > bits_.count) return false;
    if ((entry & (kLiteral | kSpecial)) == 0) extra_ = bits_.low(dropBits(entry)) >> codeBits(entry);
    bits_.drop(dropBits(entry));
    return true;
  }

  Step fast(const BlockTables& tables);

  // Bytes that a distance may reach back to; after the first piece always a whole window.
  std::size_t written() const { return static_cast<std::size_t>(out_ - buffer_.get()); }

  Step put(std::span<const std::uint8_t> run) {
    while (!run.empty()) {
      if (left_ == 0) return Step::TooLong;
      if (out_ >= boundary_) {
        if (const Step step = handOverAndSlide(); step != Step::More) return step;
      }
      const auto count = static_cast<std::size_t>(
          std::min({static_cast<std::int64_t>(run.size()), left_, static_cast<std::int64_t>(boundary_ - out_)}));
      std::memcpy(out_, run.data(), count);
      out_ += count;
      left_ -= static_cast<std::int64_t>(count);
      run = run.subspan(count);
    }
    return Step::More;
  }

  bool handOver() {
    const std::span<const std::uint8_t> piece(handed_, out_);
    handed_ = out_;
    return piece.empty() || take_(piece);
  }
  Step handOverAndSlide() {
    if (!handOver()) return Step::Stopped;
    std::memcpy(buffer_.get(), out_ - kWindow, kWindow);
    out_ = handed_ = buffer_.get() + kWindow;
    return Step::More;
  }

  Bits bits_;
  std::unique_ptr<std::uint8_t[]> buffer_;
  std::uint8_t* out_;       // where the next byte goes
  std::uint8_t* handed_;    // up to here it was handed over
  std::uint8_t* boundary_;  // from here on it is time to
  std::int64_t left_;       // bytes that may still come out
  std::uint32_t extra_ = 0;
  const InflateTake& take_;
  std::unique_ptr<BlockTables> own_;
};

// The state of the fast loop, small enough to stay in registers.
struct FastLane {
  std::uint64_t held;
  std::uint32_t count;
  const std::uint8_t* in;
  std::uint8_t* out;
  const BlockTables& tables;

  // To 56 bits or more.
  void refill() {
    held |= word(in) << count;
    in += (63 - count) >> 3;
    count |= 56;
  }
  void drop(Entry entry) {
    held >>= entry & 63;
    count -= entry & 63;
  }
  Entry next() const { return tables.pairs[held & ((1u << kLiteralRoot) - 1)]; }
  // One literal or two: always writes two, as that is as quick.
  void putLiterals(Entry entry) {
    drop(entry);
    out[0] = static_cast<std::uint8_t>(entry >> 8);
    out[1] = static_cast<std::uint8_t>(entry >> 16);
    out += 1 + ((entry & kTwoLiterals) != 0 ? 1 : 0);
  }
  template <typename Table>
  Entry second(const Table& table, Entry entry) {
    drop(entry);
    return table[valueOf(entry) + (held & ((1u << codeBits(entry)) - 1))];
  }
  // The base value with its extra bits.
  std::size_t amount(Entry entry) {
    const std::uint64_t own = held & ((std::uint64_t{1} << (entry & 63)) - 1);
    drop(entry);
    return valueOf(entry) + static_cast<std::size_t>(own >> codeBits(entry));
  }
  // The distance that belongs to `length`, and the copy.
  bool copy(std::size_t length, const std::uint8_t* begin) {
    Entry entry = tables.distances[held & ((1u << kDistanceRoot) - 1)];
    if ((entry & kSecondTable) != 0) entry = second(tables.distances, entry);
    if ((entry & kSpecial) != 0) return false;
    const std::size_t distance = amount(entry);
    if (distance > static_cast<std::size_t>(out - begin)) return false;
    copyBack(out, distance, length);
    out += length;
    return true;
  }
  // A symbol that `pairs` did not give as literals. With its distance it takes at most 48 bits.
  Step other(Entry entry, const std::uint8_t* begin) {
    if ((entry & kSecondTable) != 0) entry = second(tables.literals, entry);
    if ((entry & (kLiteral | kSpecial)) == 0) return copy(amount(entry), begin) ? Step::More : Step::Bad;
    drop(entry);
    if ((entry & kLiteral) != 0) {
      *out++ = static_cast<std::uint8_t>(valueOf(entry));
      return Step::More;
    }
    return (entry & kBlockEnd) != 0 ? Step::BlockDone : Step::Bad;
  }
  // Up to four times literals (44 of the 56 bits), or fewer and then one other symbol, for which the bits are filled up
  // again.
  Step round(const std::uint8_t* begin) {
    refill();
    Entry entry = next();
    if ((entry & kLiteral) == 0) return other(entry, begin);
    putLiterals(entry);
    for (int i = 1; i < 4; ++i) {
      entry = next();
      if ((entry & kLiteral) == 0) {
        refill();
        return other(entry, begin);
      }
      putLiterals(entry);
    }
    return Step::More;
  }
};

// Bounds are looked at once a round: as far as there are input and room for the most that a round can take.
Step Decoder::fast(const BlockTables& tables) {
  const std::int64_t room = std::min<std::int64_t>(boundary_ - out_, left_ - kFastRoom);
  if (room <= 0 || bits_.end - bits_.at <= kFastInput) return Step::More;
  const std::uint8_t* const inStop = bits_.end - kFastInput;
  const std::uint8_t* const outStop = out_ + room;
  const std::uint8_t* const begin = buffer_.get();
  FastLane lane{bits_.held, static_cast<std::uint32_t>(bits_.count), bits_.at, out_, tables};
  Step step = Step::More;
  while (step == Step::More && lane.in < inStop && lane.out < outStop) step = lane.round(begin);
  bits_.held = lane.held;
  bits_.count = static_cast<int>(lane.count);
  bits_.at = lane.in;
  left_ -= lane.out - out_;
  out_ = lane.out;
  return step;
}

}  // namespace
}  // namespace inflate

InflateResult inflateTo(std::span<const std::span<const std::uint8_t>> parts, std::int64_t limit,
                        const InflateTake& take) {
  return inflate::Decoder(parts, std::max<std::int64_t>(limit, 0), take).run();
}

InflateResult inflateTo(std::span<const std::uint8_t> deflated, std::int64_t limit, const InflateTake& take) {
  return inflateTo(std::span(&deflated, 1), limit, take);
}

InflateResult inflateAll(std::span<const std::uint8_t> deflated, std::int64_t limit, std::vector<std::uint8_t>& out) {
  out.clear();
  return inflateTo(deflated, limit, [&](std::span<const std::uint8_t> piece) {
    out.insert(out.end(), piece.begin(), piece.end());
    return true;
  });
}

}  // namespace ruvo
