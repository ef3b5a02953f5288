// GIF files built field by field, and the pictures in them as digits: "012" is three pixels of indices 0, 1 and 2.
#pragma once

#include <string>
#include <vector>

#include "base/byte_writer.h"
#include "formats/basGIFLZWEnc.h"
#include "formats/clsGIF.h"
#include "support/pictures.h"

namespace ruvo::test {

using Bytes = std::vector<std::uint8_t>;

inline clsDIB indexed(const Rows& rows) {
  clsDIB dib = plainDib(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), kWhite, 8, true);
  for (int y = 0; y < dib.DIBHeight(); ++y) {
    for (int x = 0; x < dib.DIBWidth(); ++x) {
      dib.surface().pictureRow(y)[x] = static_cast<std::uint8_t>(rows[y][x] - '0');
    }
  }
  return dib;
}
inline Rows digits(const clsDIB& dib) {
  Rows rows;
  for (int y = 0; y < dib.DIBHeight(); ++y) {
    rows.emplace_back();
    for (int x = 0; x < dib.DIBWidth(); ++x) rows.back() += static_cast<char>('0' + dib.surface().pictureRow(y)[x]);
  }
  return rows;
}

inline const std::vector<Colour> kFourColours = {rgb(1, 2, 3), rgb(255, 0, 0), rgb(0, 255, 0), rgb(0, 0, 255)};

class GifBytes {
 public:
  explicit GifBytes(int width, int height, const std::string& version = "89a", int packed = 0x81,
                    const std::vector<Colour>& table = kFourColours) {
    for (const char c : "GIF" + version) raw({byte(c)});
    out_.u16(static_cast<std::uint16_t>(width));
    out_.u16(static_cast<std::uint16_t>(height));
    out_.u8(static_cast<std::uint8_t>(packed));
    out_.u8(2);   // background
    out_.u8(32);  // aspect
    colours(table);
  }
  GifBytes& raw(const Bytes& bytes) {
    out_.append(bytes);
    return *this;
  }
  GifBytes& control(int packed, int delay = 0, int index = 0) {
    return raw({0x21, 0xF9, 4, byte(packed), byte(delay), byte(delay >> 8), byte(index), 0});
  }
  GifBytes& extension(int label, const std::vector<std::string>& blocks) {
    raw({0x21, byte(label)});
    for (const std::string& block : blocks) {
      out_.u8(byte(static_cast<int>(block.size())));
      out_.append(block);
    }
    return raw({0});
  }
  GifBytes& descriptor(int left, int top, int width, int height, int packed = 0) {
    out_.u8(0x2C);
    for (const int v : {left, top, width, height}) out_.u16(static_cast<std::uint16_t>(v));
    return raw({byte(packed)});
  }
  GifBytes& image(const Rows& rows, int left = 0, int top = 0, int packed = 0, const std::vector<Colour>& table = {}) {
    const clsDIB dib = indexed(rows);
    descriptor(left, top, dib.DIBWidth(), dib.DIBHeight(), packed);
    colours(table);
    out_.u8(2);
    basGIFLZWEnc::Encode(out_, dib, 3, (packed & 64) != 0);
    return raw({0});
  }
  std::size_t size() const { return out_.size(); }
  Bytes open() const { return out_.bytes(); }  // no trailer
  Bytes bytes() const {
    GifBytes whole = *this;
    return whole.raw({0x3B}).open();
  }

 private:
  static std::uint8_t byte(int value) { return static_cast<std::uint8_t>(value); }
  void colours(const std::vector<Colour>& table) {
    for (const Colour c : table) raw({redOf(c), greenOf(c), blueOf(c)});
  }

  ByteWriter out_;
};

inline int load(clsGIF& gif, Bytes bytes) {
  return gif.LoadStream(bytes);
}
// Frames of 2 x 1 told apart by their delays 1, 2, 3..., and those delays in a row.
inline clsGIF framesOf(int count, Size screen = {2, 1}) {
  GifBytes bytes(screen.width, screen.height);
  for (int i = 1; i <= count; ++i) bytes.control(0, i).image({"01"});
  clsGIF gif;
  EXPECT_EQ(load(gif, bytes.bytes()), kGifOk);
  return gif;
}
inline std::string delays(const clsGIF& gif) {
  std::string all;
  for (int i = 1; i <= gif.FramesCount(); ++i) all += std::to_string(gif.FrameDelay(i));
  return all;
}
inline int codeOf(Bytes bytes) {
  clsGIF gif;
  return gif.LoadStream(bytes);
}

}  // namespace ruvo::test
