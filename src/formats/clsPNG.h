// A PNG file (ISO 15948): a reader of every colour type, depth and interlace with an inflate of its own, and a writer of
// 8, 24 and 32 bits through zlib. The picture arrives as a surface; settings that steer it are set before opening and
// survive ClearUp.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "image/clsDIB.h"

namespace ruvo {

enum PngOpenCode {
  kPngOpened = 0,
  kPngNotFound = 1,
  kPngTooShort = 2,
  kPngBadSignature = 3,
  kPngBadChunkName = 4,
  kPngPastEnd = 5,
  kPngBadSum = 6,
  kPngBadHeader = 7,
  kPngChunksMissing = 8,
  kPngChunksRepeated = 9,
  kPngInflateFailed = 11,
  kPngZlibFailed = 12,
};
enum PngSaveCode { kPngSaved = 0, kPngNotThisDepth = 1, kPngReadOnly = 2, kPngNot8Bit = 3, kPngNotWritten = 4 };

class clsPNG {
 public:
  // --- Settings
  int BitmapBPP = 0;                 // depth of the surface to build; 0 lets the file decide, which fills it in
  bool AlphaSet = false;             // keep alpha: a 32-bit surface
  bool setOwnerBkgd = false;         // blend on BKGDColorToUse rather than the file's own
  bool setOwnerBkgdPattern = false;  // blend on the stored pattern, tiled
  Colour BKGDColorToUse = 0;
  bool HonorFilter = false;
  int ZLib_To_Use_On_Load = 0;      // stored only
  int ZLib_To_Use_On_Save = 1;      // stored only
  int IDATchunkSplitSize = 204800;  // bytes of the compressed stream a chunk
  int Interlacing = 0;              // as read; for saving 1 is Adam7 (from 5 x 5 on)
  std::string CommentText;          // tEXt, keyword and text together; written on save
  // Of a save: one transparent colour (at 8 bits its index), and a background colour chunk.
  bool HasTranspColor = false;
  Colour TranspColor = 0;
  bool HasBKGDChunk = false;
  // The alpha plane of a 32-bit save, picture order; used when it has width x height bytes.
  void SetAlphaBytes(std::vector<std::uint8_t> bytes);
  void storePattern(const clsDIB& Dib);

  clsPNG();
  ~clsPNG();

  // --- Reading. Answers a PngOpenCode. A size that is refused is still in Width() and Height().
  int OpenPNG(const std::filesystem::path& FileName);
  // Header and texts only, no pixels. `chunkLines` receives one line a chunk (position, name, length, stored sum).
  int OpenPNG_GetTagData(const std::filesystem::path& FileName, std::vector<std::string>* chunkLines = nullptr);
  int ErrorNum() const;
  // The picture; empty before a successful OpenPNG.
  const clsDIB& dib() const;
  clsDIB takeDib();
  // W or H below 1 means the picture's own.
  void DrawPNG(raster::Surface& Target, int X, int Y, int W = 0, int H = 0) const;

  int Width() const;
  int Height() const;
  int BitDepth() const;
  int ColorType() const;
  int Compression() const;
  int Filter() const;
  int getTranspColorPos() const;  // palette position, -1 for none
  Colour BKGDchunkColorPerFile() const;
  const std::string& zText() const;
  const std::string& ModiTime() const;  // "yyyy-mm-dd hh:mm:ss"
  double Gama() const;
  static int BytesPerPixel(int Type, int Depth);
  int BitsPerPixel() const;
  const std::vector<std::uint8_t>& getPNGpalette() const;  // R, G, B

  // --- Writing, from the top left Width x Height of a surface. Answers a PngSaveCode; the file is replaced whole.
  int SavePNG(const std::filesystem::path& FileName, const raster::Surface& Source, int Width, int Height, int Bpp);
  // Reduced to 8 bits first.
  int SavePNG_008(const std::filesystem::path& FileName, const raster::Surface& Source, int Width, int Height, int Bpp);

  static void InterlaceStartPosAndIntervals(int Pass, int& StartX, int& StartY, int& StepX, int& StepY);
  static std::string FlagErrMsgOpen(int Code);
  static std::string FlagErrMsgSave(int Code);
  static std::uint32_t SwapBytesLong(std::uint32_t Value);
  void ClearUp();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace ruvo
