// The magnifying glass: a round lens over the display that shows the picture beneath it enlarged. Pure arithmetic on the
// picture and the view; nothing is ever written into the picture.
#pragma once

#include <cstdint>
#include <vector>

#include "canvas/engine/view_geometry.h"
#include "image/clsDIB.h"

namespace ruvo::glass {

// Width and height of the lens on an ordinary screen, display pixels. Even, so that its middle is a corner of pixels.
inline constexpr int kSide = 160;

// A lens is shown only on pictures that are at least a fifth of its size in both axes.
bool allowedOn(Size image);

// The lens's box with its middle at `middle`, moved so that it lies within a display of this size; in an axis in which it
// is larger than the display it is centred there.
Rect placed(Point middle, int side, Size display);

// Which part of the picture is seen at a distance from the lens's middle, both as fractions (0 to 1) of its radius. The
// flat lens divides by the factor; the convex one rises smoothly from that in the middle to 1 at the rim, where the
// picture goes on without a step.
double sourceDistance(double distance, int factor, bool convex);

struct Manner {
  int factor = 2;  // 1 or more
  bool convex = false;
  int scale = 1;  // of the lens's size, for fine screens
  int side() const { return kSide * scale; }
  friend bool operator==(const Manner&, const Manner&) = default;
};

// What the lens shows.
class Lens {
 public:
  // Composes the contents for a lens whose box begins at `corner` of the display: whole pixels in the flat lens,
  // smoothed ones in the convex one. Beyond the picture's edge the edge itself goes on. False without a picture of 32
  // bits, or without memory.
  bool compose(const clsDIB& picture, const ViewGeometry& view, Point corner, const Manner& manner);

  // 32 bits, manner.side() square; white in the mask is outside the lens. Empty before the first compose().
  const raster::Surface& contents() const { return contents_; }
  const raster::Surface& mask() const { return mask_; }

 private:
  // A place in the lens's box, from its corner, whose picture is seen at a pixel.
  struct Place {
    std::int16_t x, y;
  };
  // A pixel of the rim: how much of the light and the dark ring lies over the picture, and how much of all that over
  // what is beneath the lens; 0 to 255.
  struct RimPixel {
    int x, y;
    std::uint8_t light, dark, cover;
  };

  bool prepare(const Manner& manner);
  void addPlace(double right, double down);
  void addRim(int x, int y, double distance);
  void paintRim(const clsDIB& picture);
  Pixel32 seenAt(const clsDIB& picture, Place place) const;
  Pixel32 meanAt(const clsDIB& picture, const Place* places) const;

  Manner manner_;
  raster::Surface contents_;
  raster::Surface mask_;
  std::vector<Place> places_;  // row by row; one for each pixel of the flat lens, four of the convex one
  std::vector<RimPixel> rim_;
  // The picture's column and row that the display shows beneath each column and row of the box.
  std::vector<int> columns_;
  std::vector<const Pixel32*> rows_;
};

}  // namespace ruvo::glass
