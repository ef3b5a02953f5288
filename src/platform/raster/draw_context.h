// Where and how a figure is drawn: a small value that a caller makes for each job.
#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "platform/raster/brush.h"
#include "platform/raster/pen.h"
#include "platform/raster/raster_op.h"
#include "platform/raster/surface.h"

namespace ruvo::raster {

class Region;

enum class BackMode { Transparent = 1, Opaque = 2 };
// Which parts of a polygon that crosses itself are inside: every second one, or all that it winds round.
enum class FillMode { Alternate = 1, Winding = 2 };

// The surface must outlive the context. Pens and brushes take the exact nearest table entry of an indexed surface and
// write byte 3 of 32 bits as 0, or as 255 with alphaFill.
struct DrawContext {
  explicit DrawContext(Surface& target) : surface(target), clip(target.bounds()) {}

  Surface& surface;
  Rect clip;  // picture coordinates; may reach outside the surface
  // With one, only what lies in it too is touched. Must live while the context is used.
  const Region* clipRegion = nullptr;
  Pen pen;
  Brush brush;
  Rop2 rop2 = Rop2::CopyPen;
  // Gaps of hatches and broken pens when the mode is Opaque.
  Colour backColour = kWhite;
  BackMode backMode = BackMode::Opaque;
  Point brushOrigin;
  FillMode fillMode = FillMode::Alternate;
  bool alphaFill = false;

  Rect area() const { return clip.intersected(surface.bounds()); }
};

}  // namespace ruvo::raster
