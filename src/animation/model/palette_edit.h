// What the palette windows do to colours: brighter and darker, one entry's colour, who is transparent.
#pragma once

#include <vector>

#include "formats/clsGIF.h"

namespace ruvo {

// All tables of a GIF, to put back later.
class SavedPalettes {
 public:
  bool saved() const { return !local_.empty(); }
  void save(const clsGIF& Gif);
  void drop();
  // Writes all 256 entries of every table back where the frame still stands; masks are made anew.
  void putBack(clsGIF& Gif) const;

 private:
  GifTable global_{};
  std::vector<GifTable> local_;
};

// True when the frame takes its colours from the global table.
bool frameUsesGlobalPalette(const clsGIF& Gif, int Frame);
// Each channel of each entry in use becomes channel x Percent \ 100, at most 255 (110 brightens, 90 darkens), in the
// table that the frame uses. Copies and pictures follow.
void scalePalette(clsGIF& Gif, int Frame, int Percent);
// One entry of the table that the frame uses. False for an index outside the entries.
bool changePaletteColor(clsGIF& Gif, int Frame, int Index, Colour Color);

enum class PaletteScope { AllFrames = 0, GlobalOnly = 1, AllLocal = 2, CurrentLocalOnly = 3 };
// True when the scope, as seen from the current frame, holds the frame.
bool inPaletteScope(const clsGIF& Gif, int Frame, int Current, PaletteScope Scope);
// Transparency on at that index, or off (-1), for each frame of the scope whose table holds the index; masks follow.
// The number of frames that were set.
int setTransparentIndex(clsGIF& Gif, int Frame, PaletteScope Scope, int Index);

}  // namespace ruvo
