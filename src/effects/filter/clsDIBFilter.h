// Whole-picture pixel operations, in place, on 32-bit surfaces. Byte 3 of a pixel is never changed. Rows are memory rows:
// with the usual surfaces row 0 is the picture's bottom line. Empty surfaces and other depths are left alone, silently.
//
// Rounding is to nearest, ties to even, and a clamp takes values to 0..255. A multiplier said to be a 32-bit float is
// held as one, while products and sums are made in double and rounded once.
//
// Where an operation takes an exclude colour, a pixel that equals it stays as it is; below 0 means none. Each operation
// reports once a row, unless there is only one, and at its end. True when it is done; false when it was told to stop
// after a row, or when there is no memory: then what is left of the target is of no use.
#pragma once

#include <cstdint>

#include "base/progress.h"
#include "base/random_source.h"
#include "image/clsDIB.h"

namespace ruvo {

inline constexpr std::int64_t kExcludeNone = -1;

class clsDIBFilter {
 public:
  explicit clsDIBFilter(Progress progress = {}) : progress_(std::move(progress)) {}

  // Repeats the tile's colours over the target from the picture's top left.
  bool Tile(clsDIB& Target, const clsDIB& TileBitmap);
  // Lays a grey relief over the target, repeated from row 0, column 0 where it is smaller: with t the relief's blue byte,
  // each channel becomes c x round(t / 128) + t - 128, clamped.
  bool Texturize(clsDIB& Target, const clsDIB& Relief);

  // Turns the target into a grey relief of itself. Each pixel is compared with its neighbour at column - 1 (column 0
  // with itself) and row + 1 (the last row with row 0): e = |weight x (pixel - neighbour) + level|, rounded and clamped,
  // and the three are joined to grey by 0.2 red, 0.7 green, 0.1 blue. Levels are for blue, green, red.
  bool Emboss(clsDIB& Target, float Weight, int LevelB, int LevelG, int LevelR);
  // The same with neighbour - pixel.
  bool Engrave(clsDIB& Target, float Weight, int LevelB, int LevelG, int LevelR);

  // c x (1 + amount), the multiplier a 32-bit float; below 0 darkens. Amount 0 does nothing and reports nothing.
  bool BrightenDarken(clsDIB& Target, float Amount, std::int64_t ExcludeColor = kExcludeNone);
  // Towards white by 0 to 100 percent; below 0 towards black. More than 100 counts as 100.
  bool Fade(clsDIB& Target, int Percent, std::int64_t ExcludeColor = kExcludeNone);
  // (c - 128) x factor + 128, rounded, and then the offset is added.
  bool Contrast(clsDIB& Target, float Factor, int BrightnessOffset, std::int64_t ExcludeColor = kExcludeNone);
  // 255 x (c / 255)^(1 / gamma). A gamma of 0 or below does nothing.
  bool Gamma(clsDIB& Target, double Value, std::int64_t ExcludeColor = kExcludeNone);
  // The mean of each pixel and its four neighbours, its fraction dropped. The outer ring stays as it was.
  bool Soften(clsDIB& Target, std::int64_t ExcludeColor = kExcludeNone);
  // c + round((c - n) / 2 x (weight + 1)), n being the left neighbour; the outer ring stays as it was.
  bool Sharpen(clsDIB& Target, float Weight, std::int64_t ExcludeColor = kExcludeNone);
  // 0.3 red + 0.59 green + 0.11 blue in all three channels.
  bool Grayscale(clsDIB& Target, std::int64_t ExcludeColor = kExcludeNone);
  bool Negative(clsDIB& Target, std::int64_t ExcludeColor = kExcludeNone);

  // What a theme adds to the mean of a pixel's channels, which then are the sums, clamped.
  struct RGBTheme {
    int Red = 0, Green = 0, Blue = 0;  // -255 to 255
    bool SkipGreys = false;            // pixels with R = G = B stay as they are
  };
  bool ColorTheme_RGB(clsDIB& Target, const RGBTheme& Theme);

  // What a theme makes of each pixel's hue, lumination and saturation; a value below 0 keeps the pixel's own.
  struct HLSTheme {
    double Hue = -1;         // degrees, 0 to 360
    double Lumination = -1;  // 0 to 240
    double Saturation = -1;  // 0 to 240
    bool SkipGreys = false;
  };
  bool ColorTheme_HLS(clsDIB& Target, const HLSTheme& Theme);

  // Hue in sixths of a turn from 0 (red) up to but not at 6, lumination and saturation from 0 to 1.
  struct HLS {
    double h = 0, l = 0, s = 0;
  };
  // Channels from 0 to 255; those of HLSToRGB are not rounded. Any hue is taken into the range first.
  struct Channels {
    double r = 0, g = 0, b = 0;
  };
  static Channels HLSToRGB(double h, double l, double s);
  static HLS RGBToHLS(int r, int g, int b);

  // The colour, each of its channels scaled by the pixel's brightness (R + G + B) / 765.
  bool Colorize(clsDIB& Target, Colour color);
  // |c - n + level|, n being the neighbour at column + 1, row + 1; |level| on the last column and row. Only the low byte
  // is stored: a value above 255 wraps round, which is meant. Levels are for red, green, blue.
  bool Cast(clsDIB& Target, int LevelR, int LevelG, int LevelB);

  enum class Element { Red, Green, Blue };
  // Adds -255 to 255 to one channel, clamped.
  bool AdjustElement(clsDIB& Target, Element Which, int Amount, std::int64_t ExcludeColor = kExcludeNone);
  // Which channels become red, green and blue.
  enum class Order { RBG, GRB, GBR, BRG, BGR };
  bool SwapElements(clsDIB& Target, Order NewOrder);

  // Turn the source around its middle into the target, whose size says how much of it is seen (rotation_size.h has the
  // size that shows all). Rows count from the picture's top here, and a positive angle, in degrees, turns anticlockwise.
  // With w, h the source's size, the target's point (x, y) shows the source at
  //   u = x - (target width + 1) \ 2, v = y - (target height + 1) \ 2,
  //   sx = cos u - sin v + (w + 1) \ 2, sy = sin u + cos v + (h + 1) \ 2,
  // or the fill colour with byte 3 zero where these, rounded, lie outside it. Without antialias it is the rounded pixel,
  // with antialias the mix of the four around the point, those beyond the edge replaced by the nearest inside; byte 3
  // comes along, and where it is a DIB's alpha, a colour has as much part in the mix as is seen of it. A rounded pixel of
  // the transparent colour (below 0: none) gives the fill colour; another of the four in that colour counts as the
  // rounded one. The target is a made surface of 32 bits other than the source.
  bool RotateDIB_To_DIB(const clsDIB& Source, clsDIB& Target, double Angle, bool Antialias,
                        std::int64_t TransparentColor = -1, Colour FillColor = kWhite);
  bool RotatePic_To_DIB(const raster::Surface& Source, clsDIB& Target, double Angle, bool Antialias,
                        std::int64_t TransparentColor = -1, Colour FillColor = kWhite);
  bool RotatePic_To_Pic(const raster::Surface& Source, raster::Surface& Target, double Angle, bool Antialias,
                        std::int64_t TransparentColor = -1, Colour FillColor = kWhite);

  // Smooths the steps of sharp edges, at a strength of 0 to 100 percent: a pixel beside a step takes on of the one across
  // the edge as much as a straight edge through the steps would cover. What has no edge stays as it is, and of a pixel
  // that is less seen, by the DIB's alpha, less is taken on.
  bool doAntiAliasing(clsDIB& Target, int Strength);
  // Squares of block + 1 pixels, each in the colour of its pixel at the lowest row and column; the next square starts
  // block pixels on and covers the last line of the one before. Below 1, and on a picture of one row or column, nothing.
  bool Pixelate(clsDIB& Target, int Block);
  // Each pixel's channels times random x strength + 1, clamped.
  bool Grainize(clsDIB& Target, float Strength, RandomSource& Random, std::int64_t ExcludeColor = kExcludeNone);
  // Pixels in the colour of the picture's top left are its background, everything else is the image. The image's shadow
  // falls on the background, moved right and down, softened over `Softness` pixels (0: sharp).
  bool AddShadow(clsDIB& Target, int OffsetX, int OffsetY, int Softness, Colour ShadowColor);

 private:
  class ToneTables;
  bool tone(clsDIB& Target, const ToneTables& tables, std::int64_t ExcludeColor);
  bool relief(clsDIB& Target, float Weight, int LevelB, int LevelG, int LevelR);
  bool turn(const raster::Surface& Source, bool HasAlpha, raster::Surface& Target, double Angle, bool Antialias,
            std::int64_t TransparentColor, Colour FillColor);
  // Calls act(memory row) for each row and reports it; every operation's frame.
  template <typename Act>
  bool forRows(int height, const Act& act) {
    for (int y = 0; y < height; ++y) {
      act(y);
      if (height > 1) Filtertemp_Progress(y, height);
      if (progress_.stopped()) return Filtertemp_ProgressEnd(), false;
    }
    return Filtertemp_ProgressEnd(), true;
  }
  void Filtertemp_Progress(int row, int height) const;
  void Filtertemp_ProgressEnd() const;

  Progress progress_;
};

}  // namespace ruvo
