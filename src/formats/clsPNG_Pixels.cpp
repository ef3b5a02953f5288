// From the compressed rows of a PNG file to a surface: unfiltered, put in place pass by pass, and turned into the
// surface's kind of pixel. No more than a few rows are held beside the surface.
#include <algorithm>
#include <array>
#include <cstring>

#include "base/colour.h"
#include "formats/clsPNG_Private.h"
#include "formats/clsPNG_Unfilter.h"
#include "formats/inflate.h"
#include "platform/imaging/pixel_rows.h"

namespace ruvo::png {
namespace {

using Bytes = std::span<const std::uint8_t>;
using Alpha = PixelRequest::Alpha;

// No deflate stream grows to more than this many times its size: 258 bytes for two bits.
constexpr std::int64_t kMostGrowth = 1032;

// Samples as the file has them to 32-bit pixels or to table indices.
class Samples {
 public:
  Samples(const PixelRequest& request, int surfaceDepth)
      : header_(request.header),
        keyed_(request.alpha != Alpha::Dropped && !request.transparency.empty()),
        opaque_(request.alpha != Alpha::Dropped ? 255 : 0),
        // Two-bit greys take their places among 256; all other indices stay what they are.
        indexFactor_(header_.type == kGrey && header_.depth == 2 && surfaceDepth == 8 ? 85 : 1) {
    for (int i = 0; i < 3; ++i) key_[i] = sampleAt(request.transparency, i);
    if (header_.indexed()) fillLookup(request);
  }

  int indexFactor() const { return indexFactor_; }
  const std::array<Pixel32, 256>& lookup() const { return lookup_; }

  void toIndices(const std::uint8_t* row, int count, std::uint8_t* out) const {
    switch (header_.depth) {
      case 1:
        return unpack<1>(row, count, out);
      case 2:
        return unpack<2>(row, count, out);
      case 4:
        return unpack<4>(row, count, out);
      default:
        std::memcpy(out, row, static_cast<std::size_t>(count));
    }
  }

  void toPixels(const std::uint8_t* row, int count, Pixel32* out) const {
    if (header_.indexed()) {
      for (int x = 0; x < count; ++x) out[x] = lookup_[indexOf(row, x)];
    } else if (header_.depth == 8) {
      deep<1>(row, count, out);
    } else {
      deep<2>(row, count, out);
    }
  }

 private:
  void fillLookup(const PixelRequest& request) {
    const int last = (1 << header_.depth) - 1;
    for (int i = 0; i <= last; ++i) {
      Pixel32& p = lookup_[i];
      const std::size_t at = 3 * static_cast<std::size_t>(i);
      if (header_.type == kGrey) {
        p.blue = p.green = p.red = static_cast<std::uint8_t>(i * 255 / last);
      } else if (at + 2 < request.palette.size()) {
        p = {request.palette[at + 2], request.palette[at + 1], request.palette[at], 0};
      }
      p.alpha = opaque_;
      if (!keyed_) continue;
      const bool listed = static_cast<std::size_t>(i) < request.transparency.size();
      if (header_.type == kPalette && listed) p.alpha = request.transparency[i];
      if (header_.type == kGrey && i == key_[0]) p.alpha = 0;
    }
  }

  int indexOf(const std::uint8_t* row, int x) const {
    if (header_.depth == 2) return row[x >> 2] >> (6 - 2 * (x & 3)) & 3;
    return imaging::indexAt(row, x, header_.depth);
  }

  template <int Depth>
  void unpack(const std::uint8_t* row, int count, std::uint8_t* out) const {
    constexpr int kPerByte = 8 / Depth;
    for (int x = 0; x < count; ++x) {
      const int shift = 8 - Depth - Depth * (x % kPerByte);
      out[x] = static_cast<std::uint8_t>((row[x / kPerByte] >> shift & ((1 << Depth) - 1)) * indexFactor_);
    }
  }

  // Samples of one or two bytes, of which the first counts; a transparent colour is looked for at full depth.
  template <int SampleBytes>
  void deep(const std::uint8_t* row, int count, Pixel32* out) const {
    const auto full = [&](int i) { return SampleBytes == 1 ? row[i] : row[2 * i] << 8 | row[2 * i + 1]; };
    switch (header_.type) {
      case kGrey:
        for (int x = 0; x < count; ++x, row += SampleBytes) {
          const bool clear = keyed_ && full(0) == key_[0];
          out[x] = {row[0], row[0], row[0], clear ? std::uint8_t{0} : opaque_};
        }
        break;
      case kColour:
        for (int x = 0; x < count; ++x, row += 3 * SampleBytes) {
          const bool clear = keyed_ && full(0) == key_[0] && full(1) == key_[1] && full(2) == key_[2];
          out[x] = {row[2 * SampleBytes], row[SampleBytes], row[0], clear ? std::uint8_t{0} : opaque_};
        }
        break;
      case kGreyAlpha:
        for (int x = 0; x < count; ++x, row += 2 * SampleBytes) out[x] = {row[0], row[0], row[0], row[SampleBytes]};
        break;
      default:
        for (int x = 0; x < count; ++x, row += 4 * SampleBytes) {
          out[x] = {row[2 * SampleBytes], row[SampleBytes], row[0], row[3 * SampleBytes]};
        }
    }
  }

  const Header& header_;
  bool keyed_;
  std::uint8_t opaque_;
  int indexFactor_;
  int key_[3] = {};
  std::array<Pixel32, 256> lookup_{};
};

Pixel32 blended(Pixel32 over, Pixel32 under) {
  const auto mix = [&](int a, int b) {
    const int t = a * over.alpha + b * (255 - over.alpha) + 128;
    return static_cast<std::uint8_t>((t + (t >> 8)) >> 8);
  };
  return {mix(over.blue, under.blue), mix(over.green, under.green), mix(over.red, under.red), 0};
}

// Puts rows of samples where they belong on the surface.
class Placer {
 public:
  Placer(const PixelRequest& request, raster::Surface& surface)
      : request_(request), samples_(request, surface.depth()), surface_(surface) {
    if (surface.depth() <= 8) {
      fillTable();
      indices_.resize(static_cast<std::size_t>(surface.width()));
    } else {
      pixels_.resize(static_cast<std::size_t>(surface.width()));
    }
  }

  // The file's rows are the surface's, but for the order of red and blue: no row needs to be held beside it.
  bool direct() const {
    const Header& h = request_.header;
    if (h.interlace != 0) return false;
    if (h.indexed()) return h.depth == surface_.depth();
    const bool blends = request_.alpha == Alpha::OnColour || request_.alpha == Alpha::OnPattern;
    return h.depth == 8 && !blends &&
           ((h.type == kColour && surface_.depth() == 24) || (h.type == kColourAlpha && surface_.depth() == 32));
  }

  void place(const std::uint8_t* row, const Pass& pass, int passRow) {
    const int y = pass.startY + passRow * pass.stepY;
    if (surface_.depth() <= 8) {
      placeIndices(row, pass, surface_.pictureRow(y));
    } else {
      placePixels(row, pass, surface_.pictureRow(y));
    }
  }

 private:
  void fillTable() {
    const auto table = surface_.table();
    const std::size_t used = std::size_t{1} << request_.header.depth;
    const std::size_t factor = static_cast<std::size_t>(samples_.indexFactor());
    for (std::size_t i = 0; i < table.size(); ++i) {
      const bool grey = request_.header.type == kGrey;
      if (grey && factor > 1) {
        const auto v = static_cast<std::uint8_t>(i);
        table[i] = {v, v, v, 0};
      } else {
        table[i] = raster::TableEntry::of(i < used ? samples_.lookup()[i].colour() : kBlack);
      }
    }
  }

  void placeIndices(const std::uint8_t* row, const Pass& pass, std::uint8_t* to) {
    const int depth = surface_.depth();
    if (depth == 8 && pass.stepX == 1) return samples_.toIndices(row, pass.columns, to);
    samples_.toIndices(row, pass.columns, indices_.data());
    int x = pass.startX;
    for (int i = 0; i < pass.columns; ++i, x += pass.stepX) imaging::placeIndex(to, x, depth, indices_[i]);
  }

  void placePixels(const std::uint8_t* row, const Pass& pass, std::uint8_t* to) {
    auto* deep = reinterpret_cast<Pixel32*>(to);
    const bool blends = request_.alpha == Alpha::OnColour || request_.alpha == Alpha::OnPattern;
    if (surface_.depth() == 32 && pass.stepX == 1 && !blends) return samples_.toPixels(row, pass.columns, deep);
    samples_.toPixels(row, pass.columns, pixels_.data());
    int x = pass.startX;
    for (int i = 0; i < pass.columns; ++i, x += pass.stepX) {
      const Pixel32 p = pixels_[i];
      if (surface_.depth() == 24) {
        to[3 * x] = p.blue;
        to[3 * x + 1] = p.green;
        to[3 * x + 2] = p.red;
      } else {
        deep[x] = blends ? blended(p, deep[x]) : p;
      }
    }
  }

  const PixelRequest& request_;
  Samples samples_;
  raster::Surface& surface_;
  std::vector<std::uint8_t> indices_;
  std::vector<Pixel32> pixels_;
};

// Cuts what comes out of the stream into rows, and undoes their filters.
class Rows {
 public:
  Rows(const PixelRequest& request, const std::vector<Pass>& passes, raster::Surface& surface)
      : passes_(passes),
        placer_(request, surface),
        surface_(surface),
        pixelBytes_(clsPNG::BytesPerPixel(request.header.type, request.header.depth)),
        exchange_(placer_.direct() && pixelBytes_ >= 3) {
    std::size_t longest = 0;
    for (const Pass& pass : passes) longest = std::max(longest, pass.rowBytes);
    split_.reserve(longest + 1);
    if (!placer_.direct()) {
      for (auto& row : held_) row.resize(longest);
    }
  }

  bool complete() const { return pass_ == passes_.size(); }

  // False when all rows are there.
  bool take(Bytes piece) {
    while (!piece.empty() && !complete()) {
      const std::size_t whole = passes_[pass_].rowBytes + 1;
      if (split_.empty() && piece.size() >= whole) {
        finish(piece.data());
        piece = piece.subspan(whole);
        continue;
      }
      const std::size_t part = std::min(piece.size(), whole - split_.size());
      split_.insert(split_.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(part));
      piece = piece.subspan(part);
      if (split_.size() < whole) break;
      finish(split_.data());
      split_.clear();
    }
    return !complete();
  }

 private:
  // A whole row, its filter's number first.
  void finish(const std::uint8_t* row) {
    const Pass& pass = passes_[pass_];
    const Order order = exchange_ ? Order::RedBlueExchanged : Order::AsIs;
    std::uint8_t* to = placer_.direct() ? surface_.pictureRow(row_) : held_[row_ % 2].data();
    const std::uint8_t* prior = row_ == 0          ? nullptr
                                : placer_.direct() ? surface_.pictureRow(row_ - 1)
                                                   : held_[(row_ + 1) % 2].data();
    unfilter(row[0], row + 1, prior, to, pass.rowBytes, pixelBytes_, order);
    if (!placer_.direct()) placer_.place(to, pass, row_);
    if (++row_ < pass.rows) return;
    row_ = 0;
    ++pass_;
  }

  const std::vector<Pass>& passes_;
  Placer placer_;
  raster::Surface& surface_;
  int pixelBytes_;
  bool exchange_;
  std::size_t pass_ = 0;
  int row_ = 0;
  std::array<std::vector<std::uint8_t>, 2> held_;
  std::vector<std::uint8_t> split_;  // a row that lies in several pieces
};

bool createSurface(const PixelRequest& request, clsDIB& dib) {
  const Colour back = request.alpha == Alpha::OnColour ? request.background : kWhite;
  const bool blends = request.alpha == Alpha::OnColour || request.alpha == Alpha::OnPattern;
  const auto width = static_cast<int>(request.header.width), height = static_cast<int>(request.header.height);
  if (!dib.CreateBlankDIB(width, height, request.depth, blends ? back : kBlack)) return false;
  if (request.alpha == Alpha::OnPattern && !request.pattern->empty()) clsDIB::TileDIB(*request.pattern, dib);
  dib.setDIBhasAlpha(request.alpha == Alpha::Kept);
  return true;
}

// Files may have anything in the bits behind a row's last pixel, and the filters need it while rows are read.
void clearPadding(raster::Surface& surface) {
  const int used = surface.width() * surface.depth() % 8;
  if (surface.depth() >= 8 || used == 0) return;
  const int last = surface.width() * surface.depth() / 8;
  for (int y = 0; y < surface.height(); ++y) surface.memoryRow(y)[last] &= static_cast<std::uint8_t>(0xFF00 >> used);
}

// Whether the parts, without the two bytes in front, can hold that much at all.
bool mayHold(std::span<const Bytes> parts, std::int64_t growth, std::int64_t bytes) {
  std::int64_t stored = -2;
  for (const Bytes part : parts) stored += static_cast<std::int64_t>(part.size());
  return stored > 0 && stored * growth >= bytes;
}

std::vector<Bytes> withoutFirstTwo(std::span<const Bytes> parts) {
  std::vector<Bytes> rest(parts.begin(), parts.end());
  std::size_t drop = 2;
  for (Bytes& part : rest) {
    const std::size_t here = std::min(drop, part.size());
    part = part.subspan(here);
    drop -= here;
  }
  return rest;
}

}  // namespace

bool readPixels(const PixelRequest& request, std::span<const Bytes> parts, clsDIB& dib) {
  const std::vector<Pass> passes = passesOf(request.header);
  const std::int64_t wanted = bytesOf(passes);
  const bool packed = request.header.compression == 0;
  if (!mayHold(parts, packed ? kMostGrowth : 1, wanted) || !createSurface(request, dib)) return false;
  Rows rows(request, passes, dib.surface());
  const std::vector<Bytes> stream = withoutFirstTwo(parts);
  if (packed) {
    inflateTo(stream, wanted, [&](Bytes piece) { return rows.take(piece); });
  } else {
    for (const Bytes part : stream) rows.take(part);
  }
  // A stream that goes wrong, or on, behind the last row does no harm.
  if (rows.complete()) {
    clearPadding(dib.surface());
    return true;
  }
  dib.ClearUp();
  return false;
}

}  // namespace ruvo::png
