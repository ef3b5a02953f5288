#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "base/rounding.h"
#include "image/clsPalDither.h"
#include "image/work_pixels.h"

namespace ruvo {

// Which share of an error goes to which later cell.
struct clsPalDither::Diffusion {
  struct Cell {
    int dx, dy, weight;
  };
  int divisor;
  std::span<const Cell> cells;
};

namespace {

constexpr int kErrorRows = 3;
constexpr int kErrors = 511;  // -255 to 255

int greyOf(Pixel32 p) {
  return (p.blue + p.green + p.red) / 3;
}

// At least 1: a few white dots on black have a mean of 0, which would turn every pixel white.
int meanGrey(const raster::View32& view) {
  std::int64_t sum = 0;
  for (int y = 0; y < view.height(); ++y) {
    const Pixel32* row = view.row(y);
    for (int x = 0; x < view.width(); ++x) sum += greyOf(row[x]);
  }
  return std::max(1, static_cast<int>(sum / (static_cast<std::int64_t>(view.width()) * view.height())));
}

void setBlackOrWhite(Pixel32& pixel, bool white) {
  pixel.blue = pixel.green = pixel.red = white ? 255 : 0;
}

// The errors that wait for the row at hand and the two after it. Two columns on either side take what falls outside, so
// that spreading needs no test.
class WaitingErrors {
 public:
  static constexpr int kMargin = 2;

  explicit WaitingErrors(int width) {
    for (auto& row : rows_) row.assign(static_cast<std::size_t>(width) + 2 * kMargin, 0);
  }
  int* row(int dy) { return rows_[static_cast<std::size_t>(dy)].data() + kMargin; }
  void nextRow() {
    std::rotate(rows_.begin(), rows_.begin() + 1, rows_.end());
    std::fill(rows_.back().begin(), rows_.back().end(), 0);
  }

 private:
  std::array<std::vector<int>, kErrorRows> rows_;
};

}  // namespace

void clsPalDither::diffuseToBlackAndWhite(clsDIB& Dib, const Diffusion& diffusion, int Scale) {
  std::uint8_t* out = CreateBlankPaletteTable(Dib.DIBWidth(), Dib.DIBHeight(), 1);
  if (!out) return;
  WorkPixels work(Dib);
  if (work.surface().empty()) return;
  const int scale = Scale < 1 ? kUsualScale : Scale;
  const raster::View32 view = work.surface().view32();
  const int threshold = meanGrey(view);
  for (int y = 0; y < height_; ++y) tell(static_cast<int>(100LL * (y + 1) / height_));
  tellEnd();

  // One row of shares an error, each cut towards zero once.
  const std::size_t cellCount = diffusion.cells.size();
  std::vector<int> shares(kErrors * cellCount);
  for (int e = -255; e <= 255; ++e) {
    for (std::size_t c = 0; c < cellCount; ++c) {
      shares[static_cast<std::size_t>(e + 255) * cellCount + c] = e * diffusion.cells[c].weight / diffusion.divisor;
    }
  }
  WaitingErrors errors(width_);
  for (int y = 0; y < height_; ++y, out += stride_) {
    Pixel32* pixels = view.row(y);
    std::array<int*, kErrorRows> rows = {errors.row(0), errors.row(1), errors.row(2)};
    for (int x = 0; x < width_; ++x) {
      const int value = std::clamp(greyOf(pixels[x]) + rows[0][x] * 10 / scale, 0, 255);
      const bool white = threshold <= value;
      setBlackOrWhite(pixels[x], white);
      if (white) out[x / 8] |= static_cast<std::uint8_t>(0x80 >> x % 8);
      const int* share = shares.data() + static_cast<std::size_t>(value - (white ? 255 : 0) + 255) * cellCount;
      for (std::size_t c = 0; c < cellCount; ++c) {
        const Diffusion::Cell& cell = diffusion.cells[c];
        rows[static_cast<std::size_t>(cell.dy)][x + cell.dx] += share[c];
      }
    }
    errors.nextRow();
    tell(static_cast<int>(100LL * (y + 1) / height_));
  }
  tellEnd();
}

void clsPalDither::DitherToBW_Stucki(clsDIB& Dib, int Scale) {
  static constexpr Diffusion::Cell kCells[] = {{1, 0, 8}, {2, 0, 4},  {-2, 1, 2}, {-1, 1, 4}, {0, 1, 8}, {1, 1, 4},
                                               {2, 1, 2}, {-2, 2, 1}, {-1, 2, 2}, {0, 2, 4},  {1, 2, 2}, {2, 2, 1}};
  diffuseToBlackAndWhite(Dib, {42, kCells}, Scale);
}

// Not the published weights: a quarter of each error is dropped, which keeps light and dark areas clean.
void clsPalDither::DitherToBW_FloydSteinberg(clsDIB& Dib, int Scale) {
  static constexpr Diffusion::Cell kCells[] = {{1, 0, 6}, {-1, 1, 2}, {0, 1, 4}};
  diffuseToBlackAndWhite(Dib, {16, kCells}, Scale);
}

void clsPalDither::DitherToBW_Burke(clsDIB& Dib, int Scale) {
  static constexpr Diffusion::Cell kCells[] = {{1, 0, 8}, {2, 0, 4}, {-2, 1, 2}, {-1, 1, 4},
                                               {0, 1, 8}, {1, 1, 4}, {2, 1, 2}};
  diffuseToBlackAndWhite(Dib, {32, kCells}, Scale);
}

void clsPalDither::DitherToBW_Ordered(clsDIB& Dib) {
  static constexpr int kMatrix[4][4] = {{1, 13, 4, 16}, {9, 5, 12, 8}, {3, 15, 2, 14}, {11, 7, 10, 6}};
  std::uint8_t* out = CreateBlankPaletteTable(Dib.DIBWidth(), Dib.DIBHeight(), 1);
  if (!out) return;
  WorkPixels work(Dib);
  if (work.surface().empty()) return;
  const raster::View32 view = work.surface().view32();
  for (int y = 0; y < height_; ++y, out += stride_) {
    Pixel32* pixels = view.row(y);
    for (int x = 0; x < width_; ++x) {
      const bool white = greyOf(pixels[x]) / 16 + 1 >= kMatrix[y & 3][x & 3];
      setBlackOrWhite(pixels[x], white);
      if (white) out[x / 8] |= static_cast<std::uint8_t>(0x80 >> x % 8);
    }
    tell(static_cast<int>(100LL * (y + 1) / height_));
  }
  tellEnd();
}

}  // namespace ruvo
