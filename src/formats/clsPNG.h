// A PNG file (ISO 15948): a reader of every colour type, depth and interlace with an inflate of its own, and a writer of
// 8, 24 and 32 bits through zlib. The picture arrives as a surface; settings that steer it are set before opening and
// survive ClearUp. What a file says about itself is forgotten by ClearUp and by the next opening.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "image/clsDIB.h"

namespace ruvo {

class ByteWriter;

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
  // Depth of the surface to build; 0 lets the file decide, and the depth that came of it stands here until the next
  // opening. A depth that is too small for the file gives way to the file's.
  int BitmapBPP = 0;
  // Alpha (a channel, or a tRNS chunk) counts: a 32-bit surface that keeps it, or one on which it was blended. Without,
  // byte 3 of a file with an alpha channel still holds it, but DIBhasAlpha is false. Of a save: 32 bits.
  bool AlphaSet = false;
  bool setOwnerBkgd = false;         // blend on BKGDColorToUse rather than the file's own
  bool setOwnerBkgdPattern = false;  // blend on the stored pattern, tiled over white
  Colour BKGDColorToUse = 0;         // the file's own after an opening, unless setOwnerBkgd
  bool HonorFilter = false;
  int ZLib_To_Use_On_Load = 0;      // stored only
  int ZLib_To_Use_On_Save = 1;      // stored only
  int IDATchunkSplitSize = 204800;  // bytes of the compressed stream a chunk
  int Interlacing = 0;              // as read; for saving 1 is Adam7 (from 5 x 5 on)
  std::string CommentText;          // tEXt, keyword and text together; written on save
  // As read, and of a save: one transparent colour, and a background colour chunk of BKGDColorToUse (at 8 bits the
  // nearest entry). A save at 8 bits takes TranspColor as an index, unless TranspPixel names a pixel (column and row
  // from the top left): then the index that it came to have.
  bool HasTranspColor = false;
  Colour TranspColor = 0;
  std::optional<Point> TranspPixel;
  bool HasBKGDChunk = false;
  // The alpha plane of a 32-bit save, picture order; used when it has width x height bytes.
  void SetAlphaBytes(std::vector<std::uint8_t> bytes);
  void storePattern(const clsDIB& Dib);

  clsPNG();
  ~clsPNG();

  // --- Reading. Answers a PngOpenCode. A size that is refused is still in Width() and Height(), which do not pass the
  // largest int.
  int OpenPNG(const std::filesystem::path& FileName);
  // PNG data from elsewhere: an entry of an icon file. The bytes are not needed afterwards. Unlike a file they may be
  // shorter than 100 bytes.
  int openBytes(std::span<const std::uint8_t> Bytes);
  // Header and texts only, no pixels. `chunkLines` receives one line a chunk: its position in the file, name, length of
  // its data and stored sum (hexadecimal), with two blanks between.
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

  // --- Writing, from the top left Width x Height of a surface, Bpp 8, 24 or 32. Answers a PngSaveCode; the file is
  // replaced whole. What the surface's byte 3 holds is alpha only when SourceHasAlpha says so; alpha bytes that were
  // set go before it, and without both every pixel is opaque. At 32 bits the transparent colour becomes alpha 0.
  // Width and height of at least 5 are needed for Interlacing.
  int SavePNG(const std::filesystem::path& FileName, const raster::Surface& Source, int Width, int Height, int Bpp,
              bool SourceHasAlpha = false);
  int SavePNG(const std::filesystem::path& FileName, const clsDIB& Source, int Bpp) {
    return SavePNG(FileName, Source.surface(), Source.DIBWidth(), Source.DIBHeight(), Bpp, Source.DIBhasAlpha());
  }
  // Reduced to 8 bits first: the exact colours when there are at most 256, else dithered. The source stays as it is.
  int SavePNG_008(const std::filesystem::path& FileName, const raster::Surface& Source, int Width, int Height, int Bpp);

  // Adam7: Pass is 1 to 7; another one gives zeros.
  static void InterlaceStartPosAndIntervals(int Pass, int& StartX, int& StartY, int& StepX, int& StepY);
  // The words of a code, three blanks and the code; empty for success.
  static std::string FlagErrMsgOpen(int Code);
  static std::string FlagErrMsgSave(int Code);
  static std::uint32_t SwapBytesLong(std::uint32_t Value);
  void ClearUp();

 private:
  struct State;
  void forgetFile();
  int openFile(const std::filesystem::path& file, std::vector<std::string>* chunkLines, bool pixels);
  int readAll(std::span<const std::uint8_t> bytes, std::vector<std::string>* chunkLines, bool pixels);
  int ReadChunks(std::span<const std::uint8_t> bytes, std::vector<std::string>* chunkLines);
  int takeChunk(std::string_view name, std::span<const std::uint8_t> data);
  void takeText(std::string_view name, std::span<const std::uint8_t> data);
  void settleColours();
  void settleDepth();
  bool alphaCounts() const;
  int ProcessImageData();
  struct Outgoing;
  int write(const std::filesystem::path& file, Outgoing& picture);
  void writeColours(ByteWriter& file, const Outgoing& picture) const;
  std::size_t transparentIndex(const Outgoing& picture) const;
  std::unique_ptr<State> state_;
};

}  // namespace ruvo
