// Draws the visible part of a picture as 32-bit pixels. Any rectangle of the display can be asked for and costs only
// itself: at magnify 1 rows are copied, above it each row is spread once and repeated. A stretched view (fitted, or the
// viewer's smooth magnification) is worked out once and kept until the picture or the view changes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "canvas/engine/view_geometry.h"
#include "image/clsDIB.h"

namespace ruvo {

// Where the pixels of the rendered area go: top row first, B, G, R, 255 each. The stride counts bytes; rows start on
// four-byte boundaries.
struct RenderTarget {
  std::uint8_t* pixels = nullptr;
  std::ptrdiff_t stride = 0;
};

// The colour that is seen at a point of a 32-bit picture (over white where it is see-through); none outside.
std::optional<Colour> seenColour(const clsDIB& picture, Point image);
// "RGB(1, 2, 3)"
std::string rgbText(Colour colour);

// Inverts the row and the column of a display point in pixels that show `area`.
void invertCrossHair(Point at, const Rect& area, RenderTarget target);

// Where a picture that is fitted into a control of this size lies in it (ViewLayout::fitted). Small pictures keep their
// size unless they are to be enlarged.
Rect fittedPlace(const clsDIB& picture, Size client, bool enlarge);

class ViewRenderer {
 public:
  // The picture's pixels changed, or another picture stands in its place.
  void pictureChanged() { stretchedValid_ = false; }

  // Renders `area` (display pixels); parts outside the view or the picture are left as they are. smooth: stretches
  // average or interpolate, as a viewer wants it; otherwise pixels stay squares. Transparent pictures are shown over
  // white. A picture of another depth than 32 is not rendered.
  void render(const clsDIB& picture, const ViewGeometry& view, bool smooth, const Rect& area, RenderTarget target);

 private:
  bool prepareStretched(const clsDIB& picture, const ViewGeometry& view, bool smooth);

  raster::Surface stretched_;  // the whole display
  bool stretchedValid_ = false;
  bool stretchedSmooth_ = false;
  Rect stretchedPlace_;  // where the whole picture lay on the display
  std::vector<Pixel32> row_;
};

}  // namespace ruvo
