// Changes of index numbers: one map from old to new goes over a frame's pixels.
#pragma once

#include <array>
#include <cstdint>

#include "formats/clsGIF.h"

namespace ruvo {

using IndexMap = std::array<std::uint8_t, 256>;

// Every index stays.
IndexMap identityMap();
// All pixels of the frame's picture go through the map, once; a picture that another frame shares becomes its own
// first. False when there is no memory; nothing has changed then.
bool mapFramePixels(clsGIF& gif, int frame, const IndexMap& map);
// The same for every frame that uses the global table: all of them or, without memory, none.
bool mapGlobalPixels(clsGIF& gif, const IndexMap& map);
// The table and the number of its entries that the frame holds: its own one or its copy of the global one. The picture
// takes the colours, without new masks (Remask_All_Frames makes those).
void setFrameTable(clsGIF& gif, int frame, const GifTable& table, int entries);
// The same for the global table, and for every frame that uses it.
void setGlobalTable(clsGIF& gif, const GifTable& table, int entries);
// The indices that pixels of the frame use are set in `used`.
using IndexSet = std::array<bool, 256>;
void markUsed(const clsGIF& gif, int frame, IndexSet& used);
// How many entries the frame needs in its table: those it says, and more when its pixels or its see-through index lie
// past them.
int entriesNeeded(const clsGIF& gif, int frame);
bool anyFrameUsesGlobal(const clsGIF& gif);
bool anyFrameUsesLocal(const clsGIF& gif);
bool sameColour(const raster::TableEntry& a, const raster::TableEntry& b);

}  // namespace ruvo
