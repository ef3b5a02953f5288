// Reduces a picture to packed rows of 1, 4 or 8 bits, as BMP, GIF and PNG files take them. The dithers change the
// source surface too, so that it shows what the reduced picture looks like; ExactRows leaves it alone.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "image/clsDIB.h"
#include "image/clsPal.h"

namespace ruvo {

class clsPalDither {
 public:
  static constexpr int kUsualScale = 15;

  // After each row (0 to 100; DitherToTrueColor tells the row number) and at the end of each pass.
  std::function<void(int percent)> cPalDither_Progress;
  std::function<void()> cPalDither_ProgressEnd;

  // --- The packed rows
  // Row i belongs to memory row i of the surface that was reduced. Empty until an operation filled it.
  const std::vector<std::uint8_t>& TableEntry() const { return table_; }
  std::uint8_t* TableEntryPtr() { return table_.empty() ? nullptr : table_.data(); }
  std::span<const std::uint8_t> row(int memoryRow) const;
  int width() const { return width_; }
  int height() const { return height_; }
  int bits() const { return bits_; }
  int stride() const { return stride_; }
  // Zeroed rows of ((Bits x Width + 31) \ 32) x 4 bytes; the first byte, or null for a size below 1 or other bits than
  // 1, 4 and 8.
  std::uint8_t* CreateBlankPaletteTable(int Width, int Height, int Bits);

  // --- No loss
  // When the picture has at most 2^Bits colours (Bits 1, 4 or 8; byte 3 does not count): Pal becomes an exact table
  // (black and white, the sixteen, or the colours as they come) and the rows hold exact indices. Otherwise false, and
  // nothing has changed. Every save that needs a table asks this first and dithers only when it says no.
  bool ExactRows(const clsDIB& Dib, clsPal& Pal, int Bits);

  // --- Black and white (index 1 is white)
  // The threshold is the picture's mean grey. Scale divides the carried error, which is first multiplied by 10; below
  // 1 it is taken as 15.
  void DitherToBW_Stucki(clsDIB& Dib, int Scale = kUsualScale);
  void DitherToBW_FloydSteinberg(clsDIB& Dib, int Scale = kUsualScale);
  void DitherToBW_Burke(clsDIB& Dib, int Scale = kUsualScale);
  void DitherToBW_Ordered(clsDIB& Dib);

  // --- Colour
  // Nearest entry by cells of 17 levels a channel, error diffused; a picture that has only colours of the palette keeps
  // them, of equal entries by the lowest. An empty palette does nothing.
  void DitherToPalette16(clsDIB& Dib, const clsPal& Pal);
  void DitherToPalette256(clsDIB& Dib, const clsPal& Pal);
  // Changes nothing and tells progress, so that callers can treat all depths alike.
  void DitherToTrueColor(const clsDIB& Dib);

 private:
  struct Diffusion;
  void diffuseToBlackAndWhite(clsDIB& Dib, const Diffusion& diffusion, int Scale);
  void diffuseToPalette(clsDIB& Dib, const clsPal& Pal, int Bits);
  bool placeExactly(raster::Surface& surface, std::span<const raster::TableEntry> entries, int Bits);
  void tell(int percent) const {
    if (cPalDither_Progress) cPalDither_Progress(percent);
  }
  void tellEnd() const {
    if (cPalDither_ProgressEnd) cPalDither_ProgressEnd();
  }

  std::vector<std::uint8_t> table_;
  int width_ = 0;
  int height_ = 0;
  int bits_ = 0;
  int stride_ = 0;
};

}  // namespace ruvo
