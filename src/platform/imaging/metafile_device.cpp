#include "platform/imaging/metafile_device.h"

#include "platform/imaging/metafile_dib.h"
#include "platform/imaging/metafile_fonts.h"

namespace ruvo::imaging::meta {
namespace {

// About a second and a half of painting, and some more for files that are long themselves.
constexpr double kAllowance = 1.5e9;
constexpr std::size_t kMostSaved = 512;
// In all clip regions that are in use at once: 24 bytes a span while one is made.
constexpr long kMostClipSpans = 2000000;

}  // namespace

Device::Device(raster::Surface& target, const Rect& frame, const Affine& base)
    : surface_(target), frame_(frame.intersected(target.bounds())), base_(base), allowance_(kAllowance) {
  if (frame_.empty()) frame_ = {};
  resetClip();
}

Fonts& Device::fonts() {
  if (!fonts_) {
    fonts_ = &Fonts::ofThread();
    fonts_->trim();
  }
  return *fonts_;
}

bool Device::charge(double units) {
  allowance_ -= units;
  return allowance_ > 0;
}

void Device::save() {
  if (saved_.size() < kMostSaved) saved_.push_back(state_);
}

void Device::restore(int which) {
  const auto count = static_cast<std::int64_t>(saved_.size());
  const std::int64_t index = which < 0 ? count + which : static_cast<std::int64_t>(which) - 1;
  if (which == 0 || index < 0 || index >= count) return;
  state_ = std::move(saved_[static_cast<std::size_t>(index)]);
  saved_.resize(static_cast<std::size_t>(index));
}

void Device::select(const Object& object) {
  if (const auto* pen = std::get_if<std::shared_ptr<const PenSpec>>(&object)) {
    state_.pen = *pen;
  } else if (const auto* brush = std::get_if<std::shared_ptr<const BrushSpec>>(&object)) {
    state_.brush = *brush;
  } else if (const auto* font = std::get_if<std::shared_ptr<const FontSpec>>(&object)) {
    state_.font = *font;
  } else if (const auto* palette = std::get_if<std::shared_ptr<const PaletteSpec>>(&object)) {
    state_.palette = *palette;
  }
}

Rect Device::pixelBox(PointF a, PointF b) const {
  const Point p = pixel(a), q = pixel(b);
  return {std::min(p.x, q.x), std::min(p.y, q.y), std::max(p.x, q.x), std::max(p.y, q.y)};
}

double Device::penPixels() const {
  constexpr double kWidest = 30000;
  const PenSpec& pen = *state_.pen;
  const double scale = pen.cosmetic ? 1 : toPixels().scale();
  return std::clamp(std::floor(pen.width * scale + 0.5), 1.0, kWidest);
}

double Device::pixelCost(const BrushSpec& brush) const {
  const double combining = state_.rop2 == raster::Rop2::CopyPen ? 0 : 1;
  switch (brush.kind) {
    case raster::Brush::Kind::Null:
      return 0;
    case raster::Brush::Kind::Solid:
      return 1 + combining;
    case raster::Brush::Kind::Hatch:
      return 8 + combining;
    case raster::Brush::Kind::Pattern:
      return 3 + combining;
  }
  return 1;
}

raster::DrawContext Device::context() {
  raster::DrawContext context = this->context(*state_.brush);
  context.pen = {state_.pen->style, static_cast<int>(penPixels()), state_.pen->colour};
  return context;
}

raster::DrawContext Device::context(const BrushSpec& brush) {
  raster::DrawContext context(surface_);
  context.clip = state_.clip.box;
  context.clipRegion = state_.clip.region.get();
  context.pen = raster::Pen::null();
  context.rop2 = state_.rop2;
  context.backColour = state_.backColour;
  context.backMode = state_.backMode;
  context.fillMode = state_.fillMode;
  context.brushOrigin =
      toPixel(base_.map({static_cast<double>(state_.brushOrigin.x), static_cast<double>(state_.brushOrigin.y)}));
  if (brush.kind == raster::Brush::Kind::Pattern) {
    const raster::Surface* tile = tileOf(brush);
    context.brush = tile ? raster::Brush::pattern(*tile) : raster::Brush::null();
  } else {
    context.brush = {brush.kind, brush.colour, brush.hatch, nullptr};
  }
  return context;
}

const raster::Surface* Device::tileOf(const BrushSpec& brush) {
  const bool coloured = brush.mono;
  const bool held = tileSource_ == brush.pattern.info.data() &&
                    (!coloured || (tileText_ == state_.textColour && tileBack_ == state_.backColour));
  if (!held) {
    tileSource_ = brush.pattern.info.data();
    tileText_ = state_.textColour;
    tileBack_ = state_.backColour;
    tile_ = decodeDib(*this, brush.pattern, kMostPatternPixels);
    if (coloured && tile_.depth() == 1) {
      tile_.table()[0] = raster::TableEntry::of(tileText_);
      tile_.table()[1] = raster::TableEntry::of(tileBack_);
    }
  }
  return tile_.empty() ? nullptr : &tile_;
}

void Device::intersectClip(const Rect& box) {
  Rect both = state_.clip.box.intersected(box);
  if (both.empty()) both = {};
  state_.clip.box = both;
}

raster::Region Device::clipRegion() const {
  const Clip& clip = state_.clip;
  raster::Region box = raster::Region::rect(clip.box);
  return clip.region ? raster::Region::combined(*clip.region, box, raster::RegionOp::And) : box;
}

void Device::combineClip(const raster::Region& region, std::optional<raster::RegionOp> op) {
  const auto count = static_cast<double>(region.spans().size() + static_cast<std::size_t>(frame_.height()));
  if (!charge(100 * count)) return;
  raster::Region result = op ? raster::Region::combined(clipRegion(), region, *op) : region;
  setClip(raster::Region::combined(result, raster::Region::rect(frame_), raster::RegionOp::And));
}

void Device::offsetClip(int dx, int dy) {
  if (!charge(100.0 * frame_.height())) return;
  raster::Region moved = clipRegion();
  moved.offset(dx, dy);
  setClip(raster::Region::combined(moved, raster::Region::rect(frame_), raster::RegionOp::And));
}

void Device::setClip(raster::Region region) {
  const Rect box = region.bounds();
  const auto spans = static_cast<long>(region.spans().size());
  const bool plain = spans == box.height() &&
                     std::all_of(region.spans().begin(), region.spans().end(),
                                 [&](const raster::Span& s) { return s.left == box.left && s.right == box.right; });
  if (plain) {
    state_.clip = {box, nullptr};
    return;
  }
  if (!charge(100.0 * static_cast<double>(spans)) || *clipSpans_ + spans > kMostClipSpans) return;
  *clipSpans_ += spans;
  auto* held = new raster::Region(std::move(region));
  std::shared_ptr<const raster::Region> shared(held, [total = clipSpans_, spans](const raster::Region* r) {
    *total -= spans;
    delete r;
  });
  state_.clip = {box, std::move(shared)};
}

void Device::narrowFrame() {
  frame_ = state_.clip.box;
}

}  // namespace ruvo::imaging::meta
