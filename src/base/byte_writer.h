// Builds the bytes of a file in memory, little-endian unless the name says otherwise.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace ruvo {

class ByteWriter {
 public:
  void u8(std::uint8_t v) { bytes_.push_back(v); }
  void u16(std::uint16_t v) {
    u8(static_cast<std::uint8_t>(v));
    u8(static_cast<std::uint8_t>(v >> 8));
  }
  void u32(std::uint32_t v) {
    u16(static_cast<std::uint16_t>(v));
    u16(static_cast<std::uint16_t>(v >> 16));
  }
  void i32(std::int32_t v) { u32(static_cast<std::uint32_t>(v)); }
  void u16be(std::uint16_t v) {
    u8(static_cast<std::uint8_t>(v >> 8));
    u8(static_cast<std::uint8_t>(v));
  }
  void u32be(std::uint32_t v) {
    u16be(static_cast<std::uint16_t>(v >> 16));
    u16be(static_cast<std::uint16_t>(v));
  }
  void zeros(std::size_t count) { bytes_.resize(bytes_.size() + count); }
  void append(std::span<const std::uint8_t> part) { bytes_.insert(bytes_.end(), part.begin(), part.end()); }
  void append(std::string_view text) { bytes_.insert(bytes_.end(), text.begin(), text.end()); }

  std::size_t size() const { return bytes_.size(); }
  const std::vector<std::uint8_t>& bytes() const { return bytes_; }
  std::vector<std::uint8_t> take() { return std::move(bytes_); }

 private:
  std::vector<std::uint8_t> bytes_;
};

}  // namespace ruvo
