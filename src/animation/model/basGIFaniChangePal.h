// Changes of what the palettes of an animated GIF hold: fewer entries, one palette for all, moved, removed and added
// entries. Pixels, transparent and background index follow; frames that use the global table keep a copy of it in step
// and are masked anew, so nothing is stale afterwards. Where one answers false, nothing has changed.
#pragma once

#include "formats/clsGIF.h"
#include "image/clsPal.h"

namespace ruvo {

// --- Fewer entries. Entries is the target (brought within 2 to 256); the transparent entry is one of them. False when
// there is no table of that kind, no frame that uses it, or no memory. A table whose only colour is the transparent one
// stays as it is, and that is no failure.
bool ReduceGlobalPalette(clsGIF& Gif, int Entries);
bool ReduceLocalPalette(clsGIF& Gif, int Frame, int Entries);
// One palette for the opaque entries of all frames. When any frame is transparent its last entry is a free place for
// the transparent colour. MaxCount 0 when there is no opaque entry anywhere.
bool BuildCommonPalette(const clsGIF& Gif, clsPal& Palette, int Entries);

// Each opaque entry goes to the nearest of the palette's, never to the one that becomes transparent. When any of the
// frames is transparent, the palette's last entry has to be a free place: it takes the transparent colour; or, when
// the palette has that colour already and no opaque entry needs it, that one becomes transparent and MaxCount drops by
// one. All frames have as many entries as the palette then, and one common transparent index. False when the palette
// has no place for an opaque colour.
bool ApplyReducedGlobal(clsGIF& Gif, clsPal& Palette);
bool ApplyReducedLocal(clsGIF& Gif, int Frame, clsPal& Palette);
// The same for all frames, which use the global table afterwards.
bool ApplyCommonPalette(clsGIF& Gif, clsPal& Palette);

// --- The transparent entry goes to another place (the last one for a Target behind it), those between move by one.
// True when it moved. The global one only moves when all frames that use that table and are transparent agree on it.
bool MoveGlobalTransparentIndex(clsGIF& Gif, int Target);
bool MoveLocalTransparentIndex(clsGIF& Gif, int Frame, int Target);

// --- Single entries. False for an index outside the entries, for Replacement = Index, for the last entry of a table,
// and for a full table.
//
// Pixels of the entry take the replacement. When it was the transparent one, its frames are not transparent any more.
bool DeleteGlobalEntry(clsGIF& Gif, int Index, int Replacement);
bool DeleteLocalEntry(clsGIF& Gif, int Frame, int Index, int Replacement);
// At the end; further behind when a damaged file's pixels or transparency use that index already.
bool AddGlobalEntry(clsGIF& Gif, Colour Color);
bool AddLocalEntry(clsGIF& Gif, int Frame, Colour Color);

}  // namespace ruvo
