#include "image/clsPal.h"

#include <algorithm>
#include <cstring>

#include "image/colour_list.h"
#include "platform/raster/palette_match.h"

namespace ruvo {

using raster::TableEntry;

void clsPal::setMaxCount(int count) {
  maxCount_ = std::clamp(count, 0, kMostEntries);
}

void clsPal::setRgbR(int Index, std::uint8_t value) {
  if (Index >= 0 && Index < kMostEntries) entries_[static_cast<std::size_t>(Index)].red = value;
}
void clsPal::setRgbG(int Index, std::uint8_t value) {
  if (Index >= 0 && Index < kMostEntries) entries_[static_cast<std::size_t>(Index)].green = value;
}
void clsPal::setRgbB(int Index, std::uint8_t value) {
  if (Index >= 0 && Index < kMostEntries) entries_[static_cast<std::size_t>(Index)].blue = value;
}

void clsPal::GetPaletteFromPAL(std::span<std::uint8_t> Bytes) const {
  static_assert(sizeof(TableEntry) == 4);
  std::memcpy(Bytes.data(), entries_.data(), std::min(Bytes.size(), sizeof entries_));
}

bool clsPal::IsGreyScale() const {
  const auto used = entriesInUse();
  return !used.empty() && std::all_of(used.begin(), used.end(),
                                      [](const TableEntry& e) { return e.red == e.green && e.green == e.blue; });
}

void clsPal::ClearUp() {
  entries_ = {};
  maxCount_ = 0;
  rebuildMatch();
}

void clsPal::rebuildMatch() {
  matched_ = entries_;
  matchedCount_ = maxCount_;
}

int clsPal::NearestPaletteIndex(int R, int G, int B) const {
  return raster::nearestPaletteIndex(matchTable(), rgb(R, G, B));
}

void clsPal::NearestPaletteColor(int R, int G, int B, int& outR, int& outG, int& outB) const {
  const int index = NearestPaletteIndex(R, G, B);
  outR = rgbR(index);
  outG = rgbG(index);
  outB = rgbB(index);
}

void clsPal::tellRow(int row, int rows) const {
  if (cPAL_Progress) cPAL_Progress(rows == 1 ? 100 : static_cast<int>(100LL * row / (rows - 1)));
}

void clsPal::tellEnd() const {
  if (cPAL_ProgressEnd) cPAL_ProgressEnd();
}

void clsPal::append(Colour colour) {
  entries_[static_cast<std::size_t>(maxCount_++)] = TableEntry::of(colour);
}

void clsPal::CreateBlankPalette(int Count) {
  ClearUp();
  maxCount_ = std::clamp(Count, 2, kMostEntries);
  rebuildMatch();
}

void clsPal::CreatePalette2() {
  ClearUp();
  append(kBlack);
  append(kWhite);
  rebuildMatch();
}

void clsPal::CreatePalette16() {
  ClearUp();
  // The low half at half strength, entry 7 light grey; the high half at full strength, entry 8 dark grey.
  for (int i = 0; i < 16; ++i) {
    const int full = i < 8 ? 128 : 255;
    append(i == 7   ? rgb(192, 192, 192)
           : i == 8 ? rgb(128, 128, 128)
                    : rgb(i & 1 ? full : 0, i & 2 ? full : 0, i & 4 ? full : 0));
  }
  rebuildMatch();
}

void clsPal::CreateGrays(int Count) {
  ClearUp();
  if (Count == 2 || Count == 16 || Count == 256) {
    for (int i = 0; i < Count; ++i) append(rgb(i * 255 / (Count - 1), i * 255 / (Count - 1), i * 255 / (Count - 1)));
  }
  rebuildMatch();
}

void clsPal::CreateHalftone(int Level) {
  constexpr std::array<int, 5> kSteps = {256, 128, 85, 64, 51};
  ClearUp();
  if (Level < 0 || Level >= static_cast<int>(kSteps.size())) return;
  const int step = kSteps[static_cast<std::size_t>(Level)];
  for (int b = 0; b <= 256; b += step) {
    for (int g = 0; g <= 256; g += step) {
      for (int r = 0; r <= 256; r += step) append(rgb(std::min(r, 255), std::min(g, 255), std::min(b, 255)));
    }
  }
  rebuildMatch();
}

// Six steps of 51 a channel, which is the finest halftone.
void clsPal::CreateWebsafe() {
  CreateHalftone(4);
}

bool clsPal::CreatePalette256(const clsDIB& Dib) {
  ClearUp();
  ColourList list;
  const auto rowDone = [&](int row) { tellRow(row, Dib.DIBHeight()); };
  if (Dib.empty()) return false;
  const bool all = list.collect(Dib.surface(), kMostEntries, rowDone);
  tellEnd();
  for (const Colour c : list.colours()) append(c);
  rebuildMatch();
  tellEnd();
  return all;
}

}  // namespace ruvo
