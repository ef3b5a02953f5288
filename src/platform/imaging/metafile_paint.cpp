#include "platform/imaging/metafile_paint.h"

#include <functional>

#include "platform/imaging/metafile_wide_pen.h"
#include "platform/raster/painter.h"
#include "platform/raster/shape_rows.h"
#include "platform/raster/stroke.h"

namespace ruvo::imaging::meta {
namespace {

// More crossings or spans than this are not kept at one time.
constexpr std::int64_t kBatch = 2000000;

using SpanSink = std::function<void(std::span<const raster::Span>)>;

// One ring round all figures: each one closed, and a way back along the first points that cancels the way there.
std::vector<Point> ringOf(const Outline& outline) {
  std::vector<Point> ring;
  for (const Subpath& part : outline) {
    if (part.points.empty()) continue;
    ring.insert(ring.end(), part.points.begin(), part.points.end());
    ring.push_back(part.points.front());
  }
  if (outline.size() < 2) return ring;
  for (auto part = outline.rbegin(); part != outline.rend(); ++part) {
    if (!part->points.empty()) ring.push_back(part->points.front());
  }
  return ring;
}

std::int64_t crossingsOf(std::span<const Point> ring, int top, int bottom) {
  std::int64_t count = 0;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point a = ring[i], b = ring[(i + 1) % ring.size()];
    count += std::max(0, std::min(std::max(a.y, b.y), bottom) - std::max(std::min(a.y, b.y), top));
  }
  return count;
}

// Hands over the spans in bands of rows, so that a polygon of very many edges needs no more memory than others.
void fillBands(Device& device, const Outline& outline, raster::FillMode mode, double pixelCost, const SpanSink& sink) {
  const std::vector<Point> ring = ringOf(outline);
  const Rect box = boundsOf(outline).intersected(device.clipBox());
  if (ring.size() < 2 || box.empty()) return;
  const std::int64_t crossings = crossingsOf(ring, box.top, box.bottom);
  constexpr double kPerCrossing = 60;
  if (!device.charge(kPerCrossing * static_cast<double>(crossings) + static_cast<double>(ring.size()) +
                     pixelCost * box.width() * box.height())) {
    return;
  }
  const auto edges = static_cast<std::int64_t>(ring.size());
  const int band = crossings <= kBatch ? box.height() : static_cast<int>(std::max<std::int64_t>(1, kBatch / edges));
  for (int y = box.top; y < box.bottom; y += band) {
    if (band < box.height() && !device.charge(2 * static_cast<double>(edges))) return;
    sink(raster::polygonSpans(ring, mode, y, std::min(y + band, box.bottom)));
  }
}

double lengthOf(Point a, Point b) {
  return std::max(std::abs(a.x - b.x), std::abs(a.y - b.y));
}

// What a stroke of the surface's part costs at most, segment by segment.
bool chargeStroke(Device& device, const Subpath& part, double width) {
  const Rect& clip = device.clipBox();
  const double longest = clip.width() + clip.height();
  double units = 0;
  for (std::size_t i = 0; i < part.points.size(); ++i) {
    const double length = std::min(lengthOf(part.points[i], part.points[(i + 1) % part.points.size()]), longest);
    const double rows = std::min<double>(clip.height(), length + width);
    units += width <= 1 ? 40 + 40 * length : 300 + 10 * width + 250 * rows;
  }
  if (width > 1) {
    // Each piece paints what it covers once.
    const int reach = static_cast<int>(width);
    Rect box = boundsOf({part});
    box = Rect{box.left - reach, box.top - reach, box.right + reach, box.bottom + reach}.intersected(clip);
    const double pieces = 1 + static_cast<double>(part.points.size()) * 2 * clip.height() / kBatch;
    if (!box.empty()) units += pieces * box.width() * box.height();
  }
  return device.charge(units);
}

// A wide pen of round caps and joins, in pieces of a bounded number of spans.
void wideRound(Device& device, const Subpath& part, int width, const SpanSink& sink) {
  const Rect& clip = device.clipBox();
  const std::int64_t rows = std::max(1, 2 * clip.height());
  const auto piece = static_cast<std::size_t>(std::max<std::int64_t>(1, kBatch / rows));
  std::vector<Point> points = part.points;
  if (part.closed && points.size() > 1) points.push_back(points.front());
  for (std::size_t at = 0; at + 1 < points.size(); at += piece) {
    const std::size_t count = std::min(piece + 1, points.size() - at);
    sink(raster::strokeSpans(clip, std::span(points).subspan(at, count), false, width));
  }
}

void strokeWide(Device& device, const Outline& outline, int width, const SpanSink& sink) {
  const PenSpec& pen = *device.now().pen;
  // The raster's own wide lines are exact, in products of a width and a length that must not grow too large.
  constexpr int kWidestExact = 1500;
  const bool round = pen.cap == Cap::Round && pen.join == Join::Round && width <= kWidestExact;
  for (const Subpath& part : outline) {
    if (part.points.size() < 2 || !chargeStroke(device, part, width)) continue;
    if (round) {
      wideRound(device, part, width, sink);
    } else {
      widePenSpans(part, {static_cast<double>(width), pen.cap, pen.join, device.now().miterLimit}, device.clipBox(),
                   sink);
    }
  }
}

// On and off lengths in pixels, empty for a pen that the raster breaks by itself or not at all.
std::vector<double> dashesOf(const Device& device, double width) {
  const PenSpec& pen = *device.now().pen;
  const double scale = pen.cosmetic ? 1 : device.toPixels().scale();
  std::vector<double> dashes;
  if (!pen.dashes.empty()) {
    for (const double d : pen.dashes) dashes.push_back(std::max(1.0, d * scale));
  } else if (pen.geometric && width > 1) {
    static constexpr std::array<std::array<int, 6>, 4> kByStyle = {
        {{3, 1, 3, 1, 3, 1}, {1, 1, 1, 1, 1, 1}, {3, 1, 1, 1, 3, 1}, {3, 1, 1, 1, 1, 1}}};
    const int style = static_cast<int>(pen.style) - static_cast<int>(raster::PenStyle::Dash);
    if (style < 0 || style >= static_cast<int>(kByStyle.size())) return {};
    const std::size_t count = style == 2 ? 4 : 6;
    for (std::size_t i = 0; i < count; ++i) {
      dashes.push_back(kByStyle[static_cast<std::size_t>(style)][i] * width);
    }
  }
  if (dashes.size() % 2 == 1) dashes.insert(dashes.end(), dashes.begin(), dashes.end());
  return dashes;
}

Outline brokenUp(Device& device, const Outline& outline, double width) {
  const std::vector<double> dashes = dashesOf(device, width);
  if (dashes.empty()) return outline;
  double period = 0, length = 0;
  for (const double d : dashes) period += d;
  for (const Subpath& part : outline) {
    for (std::size_t i = 0; i + 1 < part.points.size() + (part.closed ? 1 : 0); ++i) {
      length += lengthOf(part.points[i], part.points[(i + 1) % part.points.size()]);
    }
  }
  constexpr double kMostDashes = 50000;
  const double pieces = length / period * static_cast<double>(dashes.size());
  // So fine or so long that only a solid line is of use.
  if (pieces > kMostDashes || !device.charge(100 * pieces)) return outline;
  return dashed(outline, dashes);
}

}  // namespace

void fillOutline(Device& device, const Outline& outline) {
  if (!device.now().brush->draws()) return;
  const raster::DrawContext context = device.context();
  raster::Painter painter(context, context.brush);
  fillBands(device, outline, device.now().fillMode, device.pixelCost(*device.now().brush),
            [&](std::span<const raster::Span> s) { painter.spans(s); });
}

void strokeOutline(Device& device, const Outline& whole) {
  if (device.now().pen->style == raster::PenStyle::Null) return;
  const double width = device.penPixels();
  raster::DrawContext context = device.context();
  const Outline outline = brokenUp(device, whole, width);
  if (width > 1) {
    raster::Painter painter(context, context.pen.colour);
    strokeWide(device, outline, static_cast<int>(width), [&](std::span<const raster::Span> s) { painter.spans(s); });
    return;
  }
  context.pen.width = 1;
  if (!device.now().pen->dashes.empty()) context.pen.style = raster::PenStyle::Solid;
  for (const Subpath& part : outline) {
    if (part.points.size() < 2 || !chargeStroke(device, part, 1)) continue;
    raster::strokePolyline(context, part.points, part.closed);
  }
}

void drawOutline(Device& device, const Outline& outline, bool fill, bool stroke) {
  if (device.path().open()) {
    device.path().add(outline);
    return;
  }
  if (fill) fillOutline(device, outline);
  if (stroke) strokeOutline(device, outline);
}

namespace {

// Keeps what comes in order, merged whenever it has grown by a batch.
struct SpanStore {
  std::vector<raster::Span> spans;
  std::int64_t sorted = 0;

  void take(std::span<const raster::Span> more) {
    spans.insert(spans.end(), more.begin(), more.end());
    if (static_cast<std::int64_t>(spans.size()) - sorted < kBatch) return;
    raster::normalise(spans);
    sorted = static_cast<std::int64_t>(spans.size());
    if (sorted > kBatch) spans.resize(static_cast<std::size_t>(kBatch));
  }
};

}  // namespace

raster::Region filledRegion(Device& device, const Outline& outline, raster::FillMode mode) {
  SpanStore store;
  constexpr double kOnlySpans = 0.1;
  fillBands(device, outline, mode, kOnlySpans, [&](std::span<const raster::Span> s) { store.take(s); });
  return raster::Region::ofSpans(std::move(store.spans));
}

raster::Region strokedRegion(Device& device, const Outline& whole) {
  SpanStore store;
  const double width = device.penPixels();
  const Outline outline = brokenUp(device, whole, width);
  const auto sink = [&](std::span<const raster::Span> s) { store.take(s); };
  if (width > 1) {
    strokeWide(device, outline, static_cast<int>(width), sink);
  } else {
    for (const Subpath& part : outline) {
      if (!chargeStroke(device, part, 1)) continue;
      sink(raster::strokeSpans(device.clipBox(), part.points, part.closed, 1));
    }
  }
  return raster::Region::ofSpans(std::move(store.spans));
}

void paintRegion(Device& device, const raster::Region& region, const BrushSpec& brush) {
  const Rect box = region.bounds().intersected(device.clipBox());
  if (box.empty() || !device.charge(device.pixelCost(brush) * box.width() * box.height() +
                                    20.0 * static_cast<double>(region.spans().size()))) {
    return;
  }
  const raster::DrawContext context = device.context(brush);
  raster::Painter(context, context.brush).spans(region.spans());
}

}  // namespace ruvo::imaging::meta
