// The fields of an Exif directory as words: names of tags, and values as the listing shows them.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "base/byte_reader.h"

namespace ruvo::exif {

enum FieldType : std::uint8_t {
  kByte = 1,
  kAscii = 2,
  kShort = 3,
  kLong = 4,
  kRational = 5,
  kSignedByte = 6,
  kUndefined = 7,
  kSignedShort = 8,
  kSignedLong = 9,
  kSignedRational = 10
};

// The tags that the walk itself looks for.
inline constexpr int kExifOffset = 34665;
inline constexpr int kInteroperabilityOffset = 40965;
inline constexpr int kDateTimeOriginal = 36867;
inline constexpr int kOriginalWidth = 40962;
inline constexpr int kOriginalHeight = 40963;

// Numbers in the byte order of the block.
class FieldReader {
 public:
  FieldReader(std::span<const std::uint8_t> bytes, bool intel) : reader_(bytes), intel_(intel) {}

  bool ok() const { return reader_.ok(); }
  void seek(std::size_t offset) { reader_.seek(offset); }
  std::uint8_t u8() { return reader_.u8(); }
  std::uint16_t u16() { return intel_ ? reader_.u16() : reader_.u16be(); }
  std::uint32_t u32() { return intel_ ? reader_.u32() : reader_.u32be(); }
  std::span<const std::uint8_t> take(std::size_t count) { return reader_.take(count); }
  std::size_t position() const { return reader_.position(); }
  std::size_t left() const { return reader_.left(); }

 private:
  ByteReader reader_;
  bool intel_;
};

// Bytes of one component; 0 for a type that is none of 1 to 10.
int componentSize(int type);
// "TAG #" and the number when it is in no table.
std::string tagName(int number);
// False for the tags that a listing leaves out.
bool isListed(int number);

// The text of a field whose components are exactly `bytes`: texts up to their zero byte, numbers by the words of their
// tag. The components of a field with several are parted by ", ", and no more than 16 of them are shown.
std::string valueText(int number, int type, std::span<const std::uint8_t> bytes, bool intel);

}  // namespace ruvo::exif
