// A bounded reader over bytes that came from a file. A read past the end gives zero and turns the reader bad for good,
// so a caller checks ok() once after each structure instead of after each field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ruvo {

class ByteReader {
 public:
  explicit ByteReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  bool ok() const { return ok_; }
  std::size_t position() const { return position_; }
  std::size_t size() const { return bytes_.size(); }
  std::size_t left() const { return bytes_.size() - position_; }

  // Moves to an absolute offset; one past the end is allowed, anything beyond turns the reader bad.
  void seek(std::size_t offset) {
    if (offset > bytes_.size()) {
      fail();
    } else {
      position_ = offset;
    }
  }
  void skip(std::size_t count) { take(count); }

  std::uint8_t u8() {
    const auto b = take(1);
    return b.empty() ? 0 : b[0];
  }
  std::uint16_t u16() {
    const auto b = take(2);
    return b.empty() ? 0 : static_cast<std::uint16_t>(b[0] | b[1] << 8);
  }
  std::uint32_t u32() {
    const auto b = take(4);
    return b.empty() ? 0 : b[0] | b[1] << 8 | b[2] << 16 | static_cast<std::uint32_t>(b[3]) << 24;
  }
  std::int32_t i32() { return static_cast<std::int32_t>(u32()); }
  std::uint16_t u16be() {
    const auto b = take(2);
    return b.empty() ? 0 : static_cast<std::uint16_t>(b[0] << 8 | b[1]);
  }
  std::uint32_t u32be() {
    const auto b = take(4);
    return b.empty() ? 0 : static_cast<std::uint32_t>(b[0]) << 24 | b[1] << 16 | b[2] << 8 | b[3];
  }
  // The next `count` bytes, or an empty span (and a bad reader) when fewer are left.
  std::span<const std::uint8_t> take(std::size_t count) {
    if (!ok_ || count > left()) {
      fail();
      return {};
    }
    const auto part = bytes_.subspan(position_, count);
    position_ += count;
    return part;
  }
  // The bytes [offset, offset + length) of the whole input, or an empty span when they are not all there. Does not
  // move the reader or turn it bad.
  std::span<const std::uint8_t> slice(std::size_t offset, std::size_t length) const {
    if (offset > bytes_.size() || length > bytes_.size() - offset) return {};
    return bytes_.subspan(offset, length);
  }

 private:
  void fail() { ok_ = false; }

  std::span<const std::uint8_t> bytes_;
  std::size_t position_ = 0;
  bool ok_ = true;
};

}  // namespace ruvo
