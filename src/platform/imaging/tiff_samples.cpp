#include "platform/imaging/tiff_samples.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

#include "platform/imaging/pixel_rows.h"

namespace ruvo::imaging {
namespace {

template <typename T>
std::uint8_t floatToByte(const std::uint8_t* at) {
  T value = 0;
  std::memcpy(&value, at, sizeof value);
  if (!(value > 0)) return 0;  // NaN too
  return static_cast<std::uint8_t>(std::lrint(std::min(value, T{1}) * 255));
}

std::uint8_t wholeBytesSample(const TiffPixelFormat& format, const std::uint8_t* at) {
  const int flip = format.kind == SampleKind::Signed ? 0x80 : 0;
  switch (format.bits) {
    case 8:
      return static_cast<std::uint8_t>(at[0] ^ flip);
    case 16: {
      std::uint16_t v = 0;
      std::memcpy(&v, at, 2);
      v = static_cast<std::uint16_t>(v ^ flip << 8);
      return static_cast<std::uint8_t>((v * 255u + 32767u) / 65535u);
    }
    case 24:
      return static_cast<std::uint8_t>(at[2] ^ flip);
    case 64:
      return floatToByte<double>(at);
    default: {
      if (format.kind == SampleKind::Float) return floatToByte<float>(at);
      std::uint32_t v = 0;
      std::memcpy(&v, at, 4);
      return static_cast<std::uint8_t>(v >> 24 ^ static_cast<std::uint32_t>(flip));
    }
  }
}

// Samples that do not fill whole bytes follow each other from the high bit down.
void unpackBits(const TiffPixelFormat& format, const std::uint8_t* row, int count, std::uint8_t* out, int step) {
  const std::uint64_t most = (std::uint64_t{1} << format.bits) - 1;
  const std::uint64_t flip = format.kind == SampleKind::Signed ? std::uint64_t{1} << (format.bits - 1) : 0;
  const bool raw = format.colours == TiffColours::Palette;
  std::uint64_t held = 0;
  int heldBits = 0;
  for (int i = 0; i < count; ++i, out += step) {
    while (heldBits < format.bits) {
      held = held << 8 | *row++;
      heldBits += 8;
    }
    heldBits -= format.bits;
    const std::uint64_t v = (held >> heldBits & most) ^ flip;
    *out = static_cast<std::uint8_t>(raw ? v : (v * 255 + most / 2) / most);
  }
}

void greyToPixels(const std::uint8_t* s, int step, int flip, Pixel32* out, int width) {
  for (int x = 0; x < width; ++x, s += step) {
    const auto v = static_cast<std::uint8_t>(*s ^ flip);
    out[x] = {v, v, v, 0};
  }
}

// Pixels of three or more samples read with one load of four bytes, which the last pixel of a row must not do.
void rgbToPixels(const std::uint8_t* s, int step, Pixel32* out, int width) {
  int x = 0;
  if constexpr (std::endian::native == std::endian::little) {
    for (; x < width - 1; ++x, s += step) {
      std::uint32_t v = 0;
      std::memcpy(&v, s, 4);
      v = __builtin_bswap32(v) >> 8;
      std::memcpy(static_cast<void*>(out + x), &v, 4);
    }
  }
  for (; x < width; ++x, s += step) out[x] = {s[2], s[1], s[0], 0};
}

void inksToPixels(const std::uint8_t* s, int step, bool black, Pixel32* out, int width) {
  for (int x = 0; x < width; ++x, s += step) {
    const int key = black ? 255 - s[3] : 255;
    out[x] = {multiplyBytes(255 - s[2], key), multiplyBytes(255 - s[1], key), multiplyBytes(255 - s[0], key), 0};
  }
}

}  // namespace

void unpackSamples(const TiffPixelFormat& format, const std::uint8_t* row, int count, std::uint8_t* out, int step) {
  if (format.bits % 8 != 0) {
    unpackBits(format, row, count, out, step);
    return;
  }
  const int bytes = format.bits / 8;
  for (int i = 0; i < count; ++i, row += bytes, out += step) *out = wholeBytesSample(format, row);
}

void samplesToPixels(const TiffPixelFormat& format, const std::uint8_t* samples, int step, Pixel32* out, int width) {
  switch (format.colours) {
    case TiffColours::WhiteIsZero:
      greyToPixels(samples, step, 255, out, width);
      break;
    case TiffColours::BlackIsZero:
      greyToPixels(samples, step, 0, out, width);
      break;
    case TiffColours::Rgb:
      rgbToPixels(samples, step, out, width);
      break;
    case TiffColours::Inks:
      inksToPixels(samples, step, format.colourSamples == 4, out, width);
      break;
    case TiffColours::Palette:
      for (int x = 0; x < width; ++x) out[x] = format.table[samples[static_cast<std::ptrdiff_t>(x) * step]];
      break;
  }
  if (format.alpha == TiffAlpha::None) return;
  const std::uint8_t* alpha = samples + format.colourSamples;
  for (int x = 0; x < width; ++x, alpha += step) out[x].alpha = *alpha;
  if (format.alpha == TiffAlpha::Multiplied) unmultiplyAlpha(out, width);
}

}  // namespace ruvo::imaging
