// Letters on the surface, with grey edges.
#pragma once

#include "platform/imaging/metafile_device.h"
#include "platform/imaging/metafile_fonts.h"

namespace ruvo::imaging::meta {

// `place` leads from font units, y upwards, to pixels. In the text colour, or into an open path.
void drawGlyph(Device& device, const Face& face, unsigned glyph, const Affine& place, bool embolden);

}  // namespace ruvo::imaging::meta
