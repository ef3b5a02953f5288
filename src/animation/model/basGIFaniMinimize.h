// The palette and frame reductions that make an animated GIF smaller. Each works on the model in place; what is shown
// stays as it is (a slack trim may crop the whole animation). Masks are stale afterwards unless it says otherwise:
// Remask_All_Frames ends a chain of them.
#pragma once

#include <cstdint>
#include <string>

#include "animation/model/palette_maps.h"
#include "base/progress.h"
#include "formats/clsGIF.h"

namespace ruvo {

// Repairs inconsistent data; it runs before every cleaning. True when something was changed.
bool RectifyGIFData(clsGIF& Gif);

// Entries that no pixel uses go; transparent and background index follow. False when the frame has no table of its own
// (local form). A global table that no frame uses vanishes.
bool RemoveUnusedGlobal(clsGIF& Gif);
bool RemoveUnusedLocal(clsGIF& Gif, int Frame);
// Equal entries become one; a transparent entry never joins an opaque one. The number of entries that were merged.
int RemoveDuplicateGlobal(clsGIF& Gif);
int RemoveDuplicateLocal(clsGIF& Gif, int Frame);

// A frame's own table goes into the global one (which is made when there is none). A frame stays local when the global
// table would pass 256 entries. The form for all frames answers how many moved.
bool LocalToGlobalOneFrame(clsGIF& Gif, int Frame);
int LocalToGlobalAllFrames(clsGIF& Gif);

// Crops frames to the box of their opaque pixels, and the screen when the first frame covers it. The shown animation is
// only cropped. False when no frame is transparent or nothing was cropped.
bool RemoveSlackTransparentAreas(clsGIF& Gif);

// The size of a GIF colour table for a number of entries: the next power of two, 2 to 256.
int PaletteSizeForEntries(int Entries);

// RectifyGIFData, then unused and duplicate entries of the global table and of each local one. True when something was
// changed; masks are then left stale.
bool cleanPalettes(clsGIF& Gif);

// --- The whole run

struct MinimizeOptions {
  bool localToGlobal = false;
  bool removeUnused = false;
  bool removeInterlace = false;
  bool removeSlack = false;

  bool any() const { return localToGlobal || removeUnused || removeInterlace || removeSlack; }
  friend MinimizeOptions operator&(const MinimizeOptions& a, const MinimizeOptions& b) {
    return {a.localToGlobal && b.localToGlobal, a.removeUnused && b.removeUnused,
            a.removeInterlace && b.removeInterlace, a.removeSlack && b.removeSlack};
  }
};

// The steps that the animation has something for.
MinimizeOptions minimizeOffers(const clsGIF& Gif);

struct MinimizeResult {
  bool endedEarly = false;  // some local frame could not become global: the later steps were not done
  int localFrames = 0;      // before the step that makes them global
  int converted = 0;
  // The model differs from what it was, or may: masks are made anew, and the window's flag is to be set.
  bool changed = false;
};

// Runs the chosen steps, those that are offered, in their fixed order and remasks. A full run also empties the comment;
// one that ended early does not.
MinimizeResult minimizeGif(clsGIF& Gif, const MinimizeOptions& Options, const Progress& progress = {});
// What is told of a run that ended early; empty for any other.
std::string minimizeMessage(const MinimizeResult& Result);
// "Orig file size:  " ... of the panel.
std::string minimizedSizeText(std::int64_t original, std::int64_t now);

}  // namespace ruvo
