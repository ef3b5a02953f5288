// The one pixel container of the program: every picture, layer, frame, mask, brush and codec result is a clsDIB. It
// owns a raster surface; drawing calls and pixel algorithms work on the same pixels.
//
// Unless an operation says otherwise: coordinates are picture coordinates (x right, y down from the top line), colours
// are packed 0x00BBGGRR, an empty surface makes an operation do nothing and answer false or zero, and no operation
// throws. "Memory row" is raster::Surface's term: bottom line first unless the surface was created with BottomUp true
// (the flag's name says the opposite of the memory order and is kept).
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "base/colour.h"
#include "base/geometry.h"
#include "base/progress.h"
#include "platform/imaging/picture.h"
#include "platform/raster/surface.h"

namespace ruvo {

class clsPal;
class clsPalDither;

class clsDIB {
 public:
  clsDIB() = default;
  // The one moved from is empty afterwards.
  clsDIB(clsDIB&& other) noexcept;
  clsDIB& operator=(clsDIB&& other) noexcept;

  // --- What the surface is
  bool empty() const { return surface_.empty(); }
  int DIBWidth() const { return surface_.width(); }
  int DIBHeight() const { return surface_.height(); }
  Size size() const { return surface_.size(); }
  // The depth asked for at creation: 1, 4, 8, 24 or 32.
  int DIBbpp() const { return bpp_; }
  // ((width x DIBbpp + 31) \ 32) x 4. Equal to the surface's stride but for 24 bits made with Force32.
  int BytesPerScanline() const { return bytesPerScanline_; }
  std::int64_t DIBSize() const { return static_cast<std::int64_t>(bytesPerScanline_) * surface_.height(); }
  std::uint8_t* DIBBitsPtr() { return surface_.bits(); }
  const std::uint8_t* DIBBitsPtr() const { return surface_.bits(); }
  Colour DIBBackColor() const { return backColour_; }
  bool BottomUp() const { return bottomUp_; }
  // Byte 3 of 32-bit pixels holds real alpha.
  bool DIBhasAlpha() const { return hasAlpha_; }
  void setDIBhasAlpha(bool has) { hasAlpha_ = has; }

  // The pixels themselves, for the raster calls and for pixel walks.
  raster::Surface& surface() { return surface_; }
  const raster::Surface& surface() const { return surface_; }

  // --- Creation
  // Drops any content first. Depth 8 or fewer: the bits are index 0, the table is black but for entry 1 = BackColor.
  // Deeper: filled with BackColor (byte 3 zero). Force32 makes the section 32 bits while DIBbpp and BytesPerScanline
  // keep the depth asked for. False leaves the instance empty.
  bool CreateBlankDIB(int Width, int Height, int Bpp, Colour BackColor, bool BottomUp = false, bool Force32 = false);
  // From a loaded bitmap or a metafile, which is drawn at its own size on white; false for a null picture. Force32Bit
  // true gives 32 bits, false the picture's own depth with its table (24 for a metafile). Byte 3 of a 32-bit bitmap is
  // copied; DIBhasAlpha stays false.
  bool CreateDIBFromPic(const imaging::Picture& Picture, bool Force32Bit);
  // Takes over a loaded surface with no copy (a loader's result that becomes a picture).
  void adopt(raster::Surface&& surface, bool hasAlpha);
  // Reads a BMP file at its own depth (16-bit files as 24). 32-bit files set DIBhasAlpha when any alpha byte is not
  // zero. FlipVertical turns a picture without alpha upside down. False, leaving the instance empty, for anything that
  // is not a whole BMP (imaging::readBmpFile also gives what there is of a truncated one).
  bool CreateDIBFromFile(const std::filesystem::path& FileName, bool FlipVertical = false);
  // Reads .bmp, .gif, .jpg, .jpeg through the platform's picture loader into Bpp 24 or 32 (anything else is 32);
  // Straight false turns the picture upside down.
  bool CreateDIBFromFile2(const std::filesystem::path& FileName, bool Straight, int Bpp);
  // Fills a 32-bit surface from icon arrays indexed [x + y * width] in picture order: mask 0 takes colour and alpha,
  // any other mask byte makes the pixel FF FF FF FF. The arrays hold width x height elements.
  static void Post_Icon_Arrays_To_DIB(clsDIB& Dib, std::span<const Colour> ColourArray,
                                      std::span<const std::uint8_t> MaskArray,
                                      std::span<const std::uint8_t> AlphaArray);
  // A Dst of Src's size and depth with its table, its bits as they lie in memory and its DIBhasAlpha. False for an
  // empty Src, with Dst as it was.
  static bool CloneDIB(const clsDIB& Src, clsDIB& Dst, Colour BackColor, bool BottomUp);
  // Back to empty; the memory is released at once.
  void ClearUp();

  // --- Painting (source copy)
  // Width or Height below 1 means that of Src. Parts outside either surface are left out.
  static void PaintFromDIBtoDIB(const clsDIB& Src, clsDIB& Dst, int DestX = 0, int DestY = 0, int Width = 0,
                                int Height = 0, int SrcX = 0, int SrcY = 0);
  // Halftone averages when shrinking and interpolates when growing; otherwise pixels are picked. DestW, DestH below 1
  // mean those of Dst, SrcW, SrcH below 1 those of Src.
  static void StretchPaintFromDIBtoDIB(const clsDIB& Src, clsDIB& Dst, bool Halftone = false, int DestX = 0,
                                       int DestY = 0, int DestW = 0, int DestH = 0, int SrcX = 0, int SrcY = 0,
                                       int SrcW = 0, int SrcH = 0);
  // The same against a picture control's surface (the target of a display or the source of a scratch picture).
  void FillDIBFromPic(const imaging::Picture& Picture);
  static void PaintFromPicToDIB(const raster::Surface& Picture, clsDIB& Dst, int DestX = 0, int DestY = 0,
                                int Width = 0, int Height = 0, int SrcX = 0, int SrcY = 0);
  static void PaintFromDIBToPic(const clsDIB& Src, raster::Surface& Picture, int DestX = 0, int DestY = 0,
                                int Width = 0, int Height = 0, int SrcX = 0, int SrcY = 0);
  static void StretchPaintFromDIBToPic(const clsDIB& Src, raster::Surface& Picture, bool Halftone, const Rect& Dest,
                                       const Rect& Source);
  // A window's picture is a surface like any other.
  static void StretchPaintFromDIBToForm(const clsDIB& Src, raster::Surface& Form, bool Halftone, const Rect& Dest,
                                        const Rect& Source) {
    StretchPaintFromDIBToPic(Src, Form, Halftone, Dest, Source);
  }
  static void StretchPaintFromPicToDIB(const raster::Surface& Picture, clsDIB& Dst, bool Halftone, const Rect& Dest,
                                       const Rect& Source);
  // Bilinear resample of Src onto the whole of Dst, both 32 bits; alpha is not written.
  static void StretchPaintFromDIBtoDIB_Antialias_NativeDB(const clsDIB& Src, clsDIB& Dst);
  static void TileDIB(const clsDIB& Src, clsDIB& Dst);
  // Fills the whole surface and notes the colour as DIBBackColor.
  static void ColorBackGroundDIB(clsDIB& Dib, Colour colour);
  // Size and place at which the picture fits a box: its own size when it fits and Force is false, else scaled, the free
  // side at least 1. Place is (box - size) \ 2; an empty surface gives 0, 0.
  void GetBestFitPointAndSize(int MaxW, int MaxH, int& X, int& Y, int& W, int& H, bool Force) const;

  // --- Alpha and masks
  // Where Mask is black the pixel's alpha takes AlphaArray (picture order), elsewhere all four bytes become 255.
  static void Fill_DIB_With_AlphaValues(clsDIB& Dib32, const raster::Surface& Mask,
                                        std::span<const std::uint8_t> AlphaArray);
  // Composes on a plain background into a 32-bit target at 0, 0: t = round(alpha / 255 x 100), each channel
  // round(((100 - t) x back + t x pixel) / 100). Without alpha the pixels are copied. Flip turns it upside down.
  static void Display_DIB_With_Alpha(const clsDIB& Dib32, raster::Surface& Target, Colour BackColor, bool Flip = false);
  // Byte 3 of every pixel becomes zero and DIBhasAlpha false.
  static void CreateMask_viaDC(clsDIB& Dib);
  // Splits a 32-bit image into the AND mask (white = see-through) and the XOR image (black there). TransparentColor
  // below 0 takes the colour of the picture's top left. Mask is remade when its size differs.
  static void Create_ImageMask_Pair(clsDIB& Image, clsDIB& Mask, std::int64_t TransparentColor);

  // --- Colour inquiry (byte 3 never counts)
  // Number of distinct colours; stops early, below the true number, past 32767 distinct blue-red pairs.
  static int CountColorsDIB(const clsDIB& Dib);
  // kMultiColor as soon as a second colour appears, else the single colour.
  static constexpr std::int64_t kMultiColor = -1;
  static std::int64_t IsMultiColorDIB(const clsDIB& Dib);
  // Colour of column 0 in memory row 0 (Flipped false) or the last memory row (Flipped true). "Per top pixel" means the
  // picture's top left: callers pass Flipped true for usual surfaces and false for those created with BottomUp true.
  static Colour GetTopPixelColor(const clsDIB& Dib, bool Flipped);
  static int BPPperActualPic(const imaging::Picture& Picture);
  // The smallest depth that holds the picture: 32 with alpha, 1 for black and white only, 4 for the sixteen colours, 8
  // for at most 256, else 24.
  static int BPPperActualDIB(const clsDIB& Dib);
  // The sixteen colours of depth 4.
  static const std::array<Colour, 16>& sixteenColours();
  // Bounding box (inclusive, memory rows) of the pixels that differ from colour; false when there is none. With Flip,
  // Top and Bottom are height minus their value, the smaller one in Top.
  static bool DIBNetPaintedArea(const clsDIB& Dib, int& Left, int& Top, int& Right, int& Bottom, Colour colour,
                                bool Flip);

  // --- Geometry and blending
  // 0 mirrors left to right, 1 top to bottom, 2 turns a quarter anticlockwise, 3 clockwise; above 3 nothing.
  static void RotateDIB(clsDIB& Dib, int Mode);
  // Dst = (1 - f) x Dst + f x Src over the smaller of both sizes from the top left, f = Percent / 100 held as a 32-bit
  // float, sums in double, rounded once. Colour of 0 or above: pixels of Src in that colour are skipped.
  static void BlendIn(clsDIB& Dst, const clsDIB& Src, int Percent, std::int64_t colour, const Progress& progress = {});
  // The same where Mask is black. All three surfaces are 32 bits.
  static void BlendIn_Masked(clsDIB& Dst, const clsDIB& Src, const clsDIB& Mask, int Percent,
                             const Progress& progress = {});

  // --- Palette and 8 bits
  // Colour tables as bytes, 4 an entry (B, G, R, 0).
  void GetDIBPalette(std::span<std::uint8_t> Array) const;
  void SetPaletteToDIB8BPP(std::span<const std::uint8_t> Array);
  void GetPaletteFromDIB8BPP(std::vector<std::uint8_t>& Array) const;
  // The byte at column X of memory row Y of an 8-bit surface; 0 outside.
  static int PaletteIndex_In_DIB_XY(const clsDIB& Dib, int X, int Y);

  // --- Files
  // Writes a BMP: 32 bits when this object is a 32-bit one with alpha, else 24. The size field of the file header
  // leaves the 14 bytes of that header out; readers of older versions expect it so. The file is replaced whole; false,
  // with the old file as it was, when it can not be written; `reason` then says why in the system's words.
  bool Save_DIB_To_File(const std::filesystem::path& FileName, const clsDIB& Dib, std::string* reason = nullptr) const;
  // Writes a BMP at Bpp 1, 4, 8 (rows from Dither, which must be of Dib's size and that depth, table from Pal) or 24
  // (rows from Dib). Here the size field counts every byte.
  static bool Save_DIB_To_File_Paletted(const std::filesystem::path& FileName, const clsDIB& Dib, const clsPal& Pal,
                                        const clsPalDither& Dither, int Bpp, std::string* reason = nullptr);
  // Src reduced to at most 256 colours as an 8-bit Dst, by way of "tmpGIFPal.bmp" in `tempFolder`. A picture that has
  // no more keeps its colours exactly; otherwise Src too becomes the dithered picture. Pal and Dither hold table and
  // rows.
  static bool ConvertDIB_To_DIB8BPP(clsDIB& Src, clsDIB& Dst, clsPal& Pal, clsPalDither& Dither,
                                    const std::filesystem::path& tempFolder);

 private:
  raster::Surface surface_;
  int bpp_ = 0;
  int bytesPerScanline_ = 0;
  Colour backColour_ = 0;
  bool bottomUp_ = false;
  bool hasAlpha_ = false;
};

}  // namespace ruvo
