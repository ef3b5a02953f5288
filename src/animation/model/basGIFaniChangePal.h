// Changes of what the palettes of an animated GIF hold: fewer entries, one palette for all, moved, removed and added
// entries. Pixels, transparent and background index follow; frames that use the global table keep a copy of it in step
// and are masked anew, so nothing is stale afterwards.
#pragma once

#include "formats/clsGIF.h"
#include "image/clsPal.h"

namespace ruvo {

// --- Fewer entries. Entries is the target, 2 to 256. False when there is nothing to do it on, or no memory.
bool ReduceGlobalPalette(clsGIF& Gif, int Entries);
bool ApplyReducedGlobal(clsGIF& Gif, clsPal& Palette, int Entries);
bool ReduceLocalPalette(clsGIF& Gif, int Frame, int Entries);
bool ApplyReducedLocal(clsGIF& Gif, int Frame, clsPal& Palette, int Entries);
bool BuildCommonPalette(const clsGIF& Gif, clsPal& Palette, int Entries);
bool ApplyCommonPalette(clsGIF& Gif, clsPal& Palette);

// --- The transparent entry goes to another place, those between move by one. True when it moved.
bool MoveGlobalTransparentIndex(clsGIF& Gif, int Target);
bool MoveLocalTransparentIndex(clsGIF& Gif, int Frame, int Target);

// --- Single entries. False for an index outside the entries, for Replacement = Index, for the last entry of a table,
// and for a full table.
bool DeleteGlobalEntry(clsGIF& Gif, int Index, int Replacement);
bool DeleteLocalEntry(clsGIF& Gif, int Frame, int Index, int Replacement);
bool AddGlobalEntry(clsGIF& Gif, Colour Color);
bool AddLocalEntry(clsGIF& Gif, int Frame, Colour Color);

}  // namespace ruvo
