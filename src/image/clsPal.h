// A colour table of up to 256 entries: the standard tables, the exact table of a picture with few colours and an
// optimised one (octree) of a picture with many. Nearest-colour questions are answered from the colours of the last
// creating operation, whatever was written to single entries since.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>

#include "base/colour.h"
#include "image/clsDIB.h"
#include "platform/raster/surface.h"

namespace ruvo {

class clsPal {
 public:
  static constexpr int kMostEntries = 256;

  // After each row of a picture walk (0 to 100), and at the end of the walk and of the whole operation.
  std::function<void(int percent)> cPAL_Progress;
  std::function<void()> cPAL_ProgressEnd;

  // --- Entries
  // Entries in use. Room is always for 256; an index outside 0 to 255 reads as 0 and writes nothing.
  int MaxCount() const { return maxCount_; }
  void setMaxCount(int count);
  std::uint8_t rgbR(int Index) const { return entry(Index).red; }
  std::uint8_t rgbG(int Index) const { return entry(Index).green; }
  std::uint8_t rgbB(int Index) const { return entry(Index).blue; }
  void setRgbR(int Index, std::uint8_t value);
  void setRgbG(int Index, std::uint8_t value);
  void setRgbB(int Index, std::uint8_t value);
  // All 256 entries, B, G, R, 0 each; those above MaxCount are zero unless somebody wrote them.
  const raster::TableEntry* PalettePtr() const { return entries_.data(); }
  raster::TableEntry* PalettePtr() { return entries_.data(); }
  std::span<const raster::TableEntry> entriesInUse() const {
    return {entries_.data(), static_cast<std::size_t>(maxCount_)};
  }
  // Copies the smaller of both sizes, 4 bytes an entry.
  void GetPaletteFromPAL(std::span<std::uint8_t> Bytes) const;
  // False for an empty palette.
  bool IsGreyScale() const;
  void ClearUp();

  // --- Nearest colour
  // Least squared distance, of equals the lowest index; 0 for an empty palette.
  int NearestPaletteIndex(int R, int G, int B) const;
  void NearestPaletteColor(int R, int G, int B, int& outR, int& outG, int& outB) const;
  // The table that those two look in: what the last creating operation made.
  std::span<const raster::TableEntry> matchTable() const {
    return {matched_.data(), static_cast<std::size_t>(matchedCount_)};
  }

  // --- Creating operations (each starts from an empty palette)
  // Count is brought within 2 to 256; all entries zero.
  void CreateBlankPalette(int Count);
  void CreatePalette2();   // black, white
  void CreatePalette16();  // the sixteen of depth 4
  // Count 2, 16 or 256; another one leaves the palette empty.
  void CreateGrays(int Count);
  // Level 0 to 4: 2, 3, 4, 5 or 6 steps a channel, red fastest; another one leaves the palette empty.
  void CreateHalftone(int Level);
  void CreateWebsafe();
  // The picture's colours in the order of its memory rows. False for more than 256 of them (the first 256 are then in
  // the palette) or an empty surface.
  bool CreatePalette256(const clsDIB& Dib);
  // At most Colours entries (1 to 256) that suit the picture. Depth is that of the tree, brought within 2 to 8. A small
  // Colours may give up to 8 entries, for the tree's first level is never merged.
  void CreateOptimal(const clsDIB& Dib, int Colours, int Depth = 8);

 private:
  raster::TableEntry entry(int index) const {
    return index >= 0 && index < kMostEntries ? entries_[static_cast<std::size_t>(index)] : raster::TableEntry{};
  }
  void append(Colour colour);
  void tellRow(int row, int rows) const;
  void tellEnd() const;
  // Takes the entries as they are now for the nearest-colour questions.
  void rebuildMatch();

  std::array<raster::TableEntry, kMostEntries> entries_{};
  std::array<raster::TableEntry, kMostEntries> matched_{};
  int maxCount_ = 0;
  int matchedCount_ = 0;
};

}  // namespace ruvo
