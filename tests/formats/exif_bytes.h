// A JPEG skeleton with an Exif block, built field by field. Nothing in it is a picture: the Exif code never decodes
// one.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/byte_writer.h"

namespace ruvo::test {

using Bytes = std::vector<std::uint8_t>;

inline Bytes joined(std::initializer_list<Bytes> parts) {
  Bytes all;
  for (const Bytes& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}
inline Bytes bytesOf(std::string_view text) {
  return {text.begin(), text.end()};
}
inline Bytes segment(std::uint8_t marker, const Bytes& body) {
  ByteWriter out;
  out.u16be(static_cast<std::uint16_t>(0xFF00 | marker));
  out.u16be(static_cast<std::uint16_t>(body.size() + 2));
  out.append(body);
  return out.take();
}

inline const Bytes kStart = {0xFF, 0xD8};
inline const Bytes kEnd = {0xFF, 0xD9};
// Stands for quantisers, frame and scan.
inline const Bytes kPictureBytes = segment(0xDB, {0, 1, 2, 3, 4, 5});
inline const Bytes kJfif = segment(0xE0, {'J', 'F', 'I', 'F', 0, 1, 1, 0, 0, 1, 0, 1, 0, 0});

class TiffBuilder {
 public:
  struct Field {
    int tag;
    int type;
    std::uint32_t count;
    Bytes value;         // longer than 4 bytes: placed behind the directories
    int directory = -1;  // the value is this directory's offset
  };

  explicit TiffBuilder(bool intel) : intel_(intel) {}

  Bytes u16(unsigned v) const {
    const auto low = static_cast<std::uint8_t>(v), high = static_cast<std::uint8_t>(v >> 8);
    return intel_ ? Bytes{low, high} : Bytes{high, low};
  }
  Bytes u32(std::uint32_t v) const {
    return intel_ ? joined({u16(v & 0xFFFF), u16(v >> 16)}) : joined({u16(v >> 16), u16(v & 0xFFFF)});
  }
  void begin() { directories_.emplace_back(); }
  void text(int tag, const std::string& value) {
    Bytes bytes = bytesOf(value);
    bytes.push_back(0);
    add({tag, 2, static_cast<std::uint32_t>(bytes.size()), bytes});
  }
  // Of the types 3 (two bytes), 4 and 9 (four), 5 and 10 (two numbers each), 7 (a byte).
  void numbers(int tag, int type, const std::vector<int>& values) {
    Bytes bytes;
    for (const int v : values) {
      const auto bits = static_cast<std::uint32_t>(v);
      const Bytes one = type == 7 ? Bytes{static_cast<std::uint8_t>(v)} : type == 3 ? u16(bits & 0xFFFF) : u32(bits);
      bytes = joined({bytes, one});
    }
    const bool pairs = type == 5 || type == 10;
    add({tag, type, static_cast<std::uint32_t>(values.size() / (pairs ? 2 : 1)), bytes});
  }
  void number(int tag, int value) { numbers(tag, 4, {value}); }
  void shorts(int tag, const std::vector<int>& values) { numbers(tag, 3, values); }
  void directory(int tag, int which) { add({tag, 4, 1, u32(0), which}); }
  void add(Field field) { directories_.back().push_back(std::move(field)); }

  Bytes build() const {
    std::vector<std::uint32_t> offsets;
    std::uint32_t end = 8;
    for (const auto& fields : directories_) {
      offsets.push_back(end);
      end += 2 + 12 * static_cast<std::uint32_t>(fields.size()) + 4;
    }
    Bytes out = joined({bytesOf(intel_ ? "II" : "MM"), u16(42), u32(8)}), tail;
    for (const auto& fields : directories_) {
      out = joined({out, u16(static_cast<unsigned>(fields.size()))});
      for (const Field& field : fields) {
        Bytes value = field.directory >= 0 ? u32(offsets.at(static_cast<std::size_t>(field.directory))) : field.value;
        if (value.size() > 4) {
          const Bytes place = u32(end + static_cast<std::uint32_t>(tail.size()));
          tail = joined({tail, value});
          value = place;
        }
        value.resize(4);
        out = joined({out, u16(static_cast<unsigned>(field.tag)), u16(static_cast<unsigned>(field.type)),
                      u32(field.count), value});
      }
      out = joined({out, u32(0)});
    }
    return joined({out, tail});
  }

 private:
  bool intel_;
  std::vector<std::vector<Field>> directories_;
};

inline Bytes exifSegment(const Bytes& tiff) {
  return segment(0xE1, joined({bytesOf("Exif"), {0, 0}, tiff}));
}
inline Bytes jpegWith(const Bytes& tiff, const Bytes& before = {}) {
  return joined({kStart, before, exifSegment(tiff), kPictureBytes, kEnd});
}

}  // namespace ruvo::test
