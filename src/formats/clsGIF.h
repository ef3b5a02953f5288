// A GIF file (GIF87a, GIF89a) read into frames and written back: the file's fields, and for each frame a pair of
// surfaces, its control record and its colour table. Animation windows edit this model; saving rebuilds the whole
// stream from it.
//
// Frames are numbered from 1. Colour tables are 256 entries of B, G, R, 0. Operations on a frame that does not exist do
// nothing and answer false, 0 or an empty surface; the same goes for an index outside 0 to 255. Numbers that a field of
// the file can not hold are brought into its range (16 bits for sizes, places, delays and loops). One that was moved
// from may only be assigned to or destroyed.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "image/clsDIB.h"
#include "image/clsPal.h"

namespace ruvo {

using GifTable = std::array<raster::TableEntry, 256>;

// A colour table is stored with 2^bits entries: the least number of bits, from 1 up, that holds this many.
int gifTableBits(int entries);

// What a load or a test answers. `kGifOther` stands for every failure without a number of its own.
enum GifCode {
  kGifOk = 0,
  kGifNotFound = 1,
  kGifNotGif = 2,
  kGifNoSignature = 3,
  kGifUnknownVersion = 4,
  kGifNoTrailer = 5,
  kGifBadSize = 6,
  kGifOpenFailed = 7,
  kGifUnknownError = 8,
  kGifOutOfBounds = 11,
  kGifTooManyFrames = 12,
  kGifNoFrame = 13,
  kGifOther = 99,
};

// What becomes of a frame before the next one is drawn (GIF89a, section 23). Files hold 4 to 7 too.
enum GifDisposal {
  kDisposalUnspecified = 0,
  kDisposalKeep = 1,
  kDisposalToBackground = 2,
  kDisposalToPrevious = 3,
};

struct GifControl {
  bool UseTransparentColor = false;
  std::uint8_t TransparentColorIndex = 0;
  std::uint16_t Delay = 0;  // hundredths of a second
  bool UserInput = false;
  std::uint8_t DisposalMethod = 0;  // 0 to 7
};

// The surfaces are shared between copies of a frame; clsGIF makes a shared one its own before it changes a pixel or an
// entry of it.
struct GifImage {
  std::shared_ptr<clsDIB> XOR;  // 8 bits, indices; table with the transparent entry black
  std::shared_ptr<clsDIB> AND;  // 1 bit, white where see-through
  std::uint16_t Left = 0;
  std::uint16_t Top = 0;
  bool Interlaced = false;
  bool LocalPaletteUsed = false;
  bool LocalPaletteSorted = false;
  int LocalPaletteEntries = 0;
  GifTable LocalPalette{};  // the file's values; a copy of the global one when the frame has none
};

// Settings for a frame that comes in; an absent one means the value of the file (or the usual one for a picture).
struct GifFrameSettings {
  std::optional<int> Delay;
  std::optional<int> DisposalMethod;
  std::optional<bool> UseTransparentColor;
  std::optional<int> TransparentColorIndex;
  std::optional<int> Left;
  std::optional<int> Top;
  std::optional<bool> Interlaced;
};

class clsGIF {
 public:
  static constexpr int kMostFrames = 120;
  static constexpr int kMostLaterSide = 2000;  // of the second and later frames
  static constexpr std::int64_t kMostLaterPixels = 3000000;
  static constexpr std::int64_t kSmallestFile = 101;  // bytes
  static constexpr int kMostCommentBytes = 255;       // of one that is typed; longer ones come with files

  clsGIF();
  ~clsGIF();
  clsGIF(clsGIF&&) noexcept;
  clsGIF& operator=(clsGIF&&) noexcept;
  // A second model with the same content. Frames share their surfaces until one of them changes a pixel, so it costs
  // little more than the tables. Throws std::bad_alloc when there is no memory.
  clsGIF clone() const;

  // --- Reading. All answer a GifCode; a failing load leaves the model empty. After every load statedWidth() and
  // statedHeight() are the file's logical screen; when the screen's or the first frame's size was refused, that size.
  static int PreliminaryTest(const std::filesystem::path& FileName, std::vector<std::uint8_t>& Data);
  int LoadFromGIFFile(const std::filesystem::path& FileName);
  // A complete GIF; the array is emptied when done (its bytes are moved about while it is read).
  int LoadStream(std::vector<std::uint8_t>& Data);
  // Puts the file's first image in as frame FrameNo (1 to FramesCount + 1); FrameNo 1 starts anew with that file's
  // screen, loops, comment and global table. In front of or behind other frames the model keeps its own, and the frame
  // brings its table as a local one unless both global tables are the same. A failure leaves the model as it was.
  int LoadFromGIFFileAddOn(const std::filesystem::path& FileName, int FrameNo, const GifFrameSettings& Settings = {});
  // The words of a code (of its message box): its line, and after an empty line the file name when one is given.
  static std::string FlagErrMessage(int Code, const std::string& FileName = {});
  int statedWidth() const;
  int statedHeight() const;

  // --- Writing. The file is replaced whole; false leaves the old one. OnlyFrame 0 writes all frames. A comment goes
  // out whole as Latin-1 (others as "?"); absent, none is written.
  bool Save(const std::filesystem::path& FileName, int OnlyFrame = 0,
            const std::optional<std::string>& CommentText = {}) const;
  // The same as bytes; empty for an OnlyFrame that does not exist, for a frame whose XOR surface was remade with other
  // than 8 bits, or when there is no memory.
  std::vector<std::uint8_t> saveBytes(int OnlyFrame = 0, const std::optional<std::string>& CommentText = {}) const;
  // One picture without a model: global table of 2^BitsPerPixel entries from Pal, version 89a, a control extension
  // always, no loop block. Transparent: the colour's first index among MaxCount entries; a colour that is in none is
  // not transparent.
  // False unless Dib has 8 bits (and at most 65,535 a side) and BitsPerPixel is 1 to 8.
  static bool SaveGIFFrom_BPP8_DIB(const std::filesystem::path& FileName, const clsDIB& Dib, const clsPal& Pal,
                                   int BitsPerPixel, bool Interlaced = false, bool Transparent = false,
                                   Colour TransparentColor = 0, const std::optional<std::string>& CommentText = {});

  void ClearUp();

  // --- The file's fields
  std::string GIFVersion() const;  // "87a", "89a"
  int BgdWidth() const;
  int BgdHeight() const;
  void setBgdWidth(int width);
  void setBgdHeight(int height);
  int BgdColorIndex() const;
  void setBgdColorIndex(int index);
  double PixelAspectRatio() const;  // byte / 64, 0 for none
  void setPixelAspectRatio(double ratio);
  int NetscapeLoops() const;  // 0 to 65535
  void setNetscapeLoops(int loops);
  bool hasComment() const;
  const std::string& CommentText() const;
  void setCommentText(const std::string& text);
  int FramesCount() const;

  // --- Global colour table
  bool GlobalPaletteExists() const;
  void setGlobalPaletteExists(bool exists);
  bool GlobalPaletteSorted() const;
  void setGlobalPaletteSorted(bool sorted);
  int GlobalPaletteEntries() const;
  void setGlobalPaletteEntries(int entries);
  const GifTable& getGlobalPalette() const;
  raster::TableEntry* GlobalPalettePtr();
  void CopyToGlobalPalette(const GifTable& Table);
  Colour GlobalPaletteColor(int Index) const;
  void GlobalPaletteR_G_B_Get(int Index, int& R, int& G, int& B) const;
  void GlobalPaletteR_G_B_Change(int Index, int R, int G, int B);
  int GlobalPaletteR_G_B_Find(int R, int G, int B) const;  // the first, -1 for none
  // The index that every transparent frame without a table of its own shares; -1 when there is none or they disagree.
  int GlobalTransparentColorIndex() const;

  // --- One frame
  int FrameWidth(int Frame) const;
  int FrameHeight(int Frame) const;
  const clsDIB& FrameDIBXOR(int Frame) const;  // an empty surface when there is no such frame
  const clsDIB& FrameDIBAND(int Frame) const;
  // For changes of pixels: a surface that another frame shares is copied first.
  clsDIB* ownFrameDIBXOR(int Frame);
  clsDIB* ownFrameDIBAND(int Frame);
  int FrameLeft(int Frame) const;
  int FrameTop(int Frame) const;
  void setFrameLeft(int Frame, int left);
  void setFrameTop(int Frame, int top);
  bool FrameInterlaced(int Frame) const;
  void setFrameInterlaced(int Frame, bool interlaced);
  bool FrameUseTransparentColor(int Frame) const;
  void setFrameUseTransparentColor(int Frame, bool use);  // does not remask, nor does the next setter
  int FrameTransparentColorIndex(int Frame) const;
  void setFrameTransparentColorIndex(int Frame, int index);
  Colour FrameTransparentColor(int Frame) const;  // the file's colour at that index
  int FrameDelay(int Frame) const;
  void setFrameDelay(int Frame, int delay);
  bool hasUserInput(int Frame) const;
  int FrameDisposalMethod(int Frame) const;
  void setFrameDisposalMethod(int Frame, int method);
  bool LocalPaletteUsed(int Frame) const;
  void setLocalPaletteUsed(int Frame, bool used);
  bool LocalPaletteSorted(int Frame) const;
  void setLocalPaletteSorted(int Frame, bool sorted);
  int LocalPaletteEntries(int Frame) const;
  void setLocalPaletteEntries(int Frame, int entries);
  const GifTable& getLocalPalette(int Frame) const;
  raster::TableEntry* LocalPalettePtr(int Frame);  // null when there is no such frame
  Colour LocalPaletteColor(int Frame, int Index) const;
  void LocalPaletteR_G_B_Get(int Frame, int Index, int& R, int& G, int& B) const;
  void LocalPaletteR_G_B_Change(int Frame, int Index, int R, int G, int B);
  int PaletteIndex_In_DIB_XY(int Frame, int X, int Y) const;

  // The frame takes the global table (and LocalPaletteUsed becomes false) or goes on with its own: either goes to the
  // XOR surface, and the frame is masked again.
  void UpdateLocalPalettePerGlobal(int Frame);
  void UpdateLocalPalettePerLocal(int Frame);
  // Makes both surfaces anew from the indices: pixels of that index become white in AND and black in XOR. Without
  // FrameUseTransparentColor the mask is all black and XOR shows the frame's colours. Neither flag nor index of the
  // control record change.
  void FrameMask(int Frame, int TransparentIndex);
  void Remask_All_Frames();
  // Draws with the mask. FillBackground first fills the frame's rectangle with its transparent colour (at 0, 0 with
  // AtOrigin). The frame lands at (Left + X, Top + Y).
  void FrameDraw(raster::Surface& Target, int Frame, int X, int Y, bool FillBackground = false,
                 bool AtOrigin = false) const;

  // --- The list of frames
  // An operation answers false, and changes nothing, when it would put a frame of more than kMostLaterSide or
  // kMostLaterPixels behind the first place, where no reader of this program takes it back.
  //
  // To becomes a copy of From; pixels are shared until one of them is changed.
  bool FrameCopy(int From, int To);
  // The first image of a GIF file takes the frame's picture and table; delay, disposal, place, user input, transparent
  // flag and index stay, and so do version, global table and screen. In frame 1 the place becomes 0, 0; the screen
  // grows to hold the picture, or takes its size when there is no other frame. Answers a GifCode.
  int FrameReplaceImage(const std::filesystem::path& FileName, int Frame);
  // In front of Frame (FramesCount + 1 appends). A GIF file brings its first image; any other picture that the
  // platform's loaders read is reduced to 256 colours. In front of frame 1 the place is 0, 0 and the screen grows to
  // hold the picture; a GIF file that comes into an empty model brings its screen too. Answers a GifCode.
  int FrameInsertImage(const std::filesystem::path& FileName, int Frame, const GifFrameSettings& Settings = {});
  // The same from a surface. 8 bits keep indices and table, other depths become an exact table or a dithered one of
  // 256; the table is a local one.
  bool FrameInsertImage(const clsDIB& Picture, int Frame, const GifFrameSettings& Settings = {});
  // One colour all over. It uses the global table when the colour stands there.
  bool FrameInsertBlank(int Frame, int Width, int Height, Colour Color, const GifFrameSettings& Settings = {});
  bool FrameDelete(int Frame);
  // One place towards the front or the back.
  bool FrameMoveUp(int Frame);
  bool FrameMoveDown(int Frame);
  bool FrameMoveTo(int From, int To);
  bool FrameSwap(int First, int Second);

 private:
  std::unique_ptr<struct GifModel> model_;
};

}  // namespace ruvo
