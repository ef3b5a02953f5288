// What a metafile is played on: the state that its records set, the clip, and the surface.
//
// A file can ask for far more work than its length suggests, so everything that paints first charges what it will cost
// (one unit is about a nanosecond). When the allowance is spent nothing more is drawn.
#pragma once

#include <memory>
#include <vector>

#include "platform/imaging/metafile_geometry.h"
#include "platform/imaging/metafile_mapping.h"
#include "platform/imaging/metafile_objects.h"
#include "platform/imaging/metafile_path.h"
#include "platform/raster/draw_context.h"
#include "platform/raster/region.h"
#include "platform/raster/stretch.h"

namespace ruvo::imaging::meta {

class Fonts;

// The pixels inside the box and, with one, inside the region.
struct Clip {
  Rect box;
  std::shared_ptr<const raster::Region> region;
};

struct State {
  Mapping mapping;
  Affine world;
  std::shared_ptr<const PenSpec> pen = std::make_shared<const PenSpec>();
  std::shared_ptr<const BrushSpec> brush = std::make_shared<const BrushSpec>();
  std::shared_ptr<const FontSpec> font = std::make_shared<const FontSpec>();
  std::shared_ptr<const PaletteSpec> palette;
  Colour textColour = kBlack;
  Colour backColour = kWhite;
  raster::BackMode backMode = raster::BackMode::Opaque;
  raster::Rop2 rop2 = raster::Rop2::CopyPen;
  raster::FillMode fillMode = raster::FillMode::Alternate;
  raster::StretchMode stretchMode = raster::StretchMode::BlackOnWhite;
  unsigned textAlign = 0;
  double charExtra = 0;   // logical units behind every character
  double breakExtra = 0;  // logical units behind every space
  double miterLimit = 10;
  bool clockwiseArcs = false;
  PointF position;    // logical
  Point brushOrigin;  // pixels of the device that the file was made for
  Clip clip;
};

class Device {
 public:
  // `base` leads from the pixels of the device that the file was made for to those of the target (32 bits); nothing is
  // drawn outside `frame`.
  Device(raster::Surface& target, const Rect& frame, const Affine& base);

  State& now() { return state_; }
  const State& now() const { return state_; }
  raster::Surface& surface() { return surface_; }
  PathRecorder& path() { return path_; }
  const PathRecorder& path() const { return path_; }
  Fonts& fonts();

  bool charge(double units);
  bool exhausted() const { return allowance_ <= 0; }

  void save();
  // A positive number names a saved state, the first one 1; a negative one counts back from the last.
  void restore(int which);

  void select(const Object& object);

  // From logical units to pixels of the target.
  Affine toPixels() const { return state_.world.then(state_.mapping.toDevice()).then(base_); }
  // From pixels of the device that the file was made for.
  const Affine& base() const { return base_; }
  Point pixel(PointF logical) const { return toPixel(toPixels().map(logical)); }
  // A logical box whose corners may come in any order, in pixels. The mapping must be upright.
  Rect pixelBox(PointF a, PointF b) const;
  double penPixels() const;

  // What one pixel of an area costs with a brush.
  double pixelCost(const BrushSpec& brush) const;
  // With the selected pen and brush (null pen and brush where they are not simple ones), and the clip.
  raster::DrawContext context();
  // The same for a brush that need not be the selected one.
  raster::DrawContext context(const BrushSpec& brush);

  // --- The clip, in pixels
  const Rect& clipBox() const { return state_.clip.box; }
  void intersectClip(const Rect& box);
  // Copy, as `std::nullopt`, replaces it.
  void combineClip(const raster::Region& region, std::optional<raster::RegionOp> op);
  void offsetClip(int dx, int dy);
  void resetClip() { state_.clip = {frame_, nullptr}; }
  // The same; answers what was there, to be put back.
  Clip openClip() {
    Clip kept = state_.clip;
    resetClip();
    return kept;
  }
  // Makes the present clip the widest that the records behind it can ask for.
  void narrowFrame();
  raster::Region clipRegion() const;

 private:
  const raster::Surface* tileOf(const BrushSpec& brush);
  void setClip(raster::Region region);

  raster::Surface& surface_;
  Rect frame_;
  Affine base_;
  double allowance_;
  State state_;
  std::vector<State> saved_;
  PathRecorder path_;
  Fonts* fonts_ = nullptr;
  // The pattern that was drawn with last.
  raster::Surface tile_;
  const std::uint8_t* tileSource_ = nullptr;
  Colour tileText_ = kBlack;
  Colour tileBack_ = kWhite;
  std::shared_ptr<long> clipSpans_ = std::make_shared<long>(0);  // of all regions that are held
};

}  // namespace ruvo::imaging::meta
