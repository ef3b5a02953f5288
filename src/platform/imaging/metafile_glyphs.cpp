#include "platform/imaging/metafile_glyphs.h"

#include FT_OUTLINE_H

#include "base/colour.h"
#include "platform/imaging/metafile_paint.h"
#include "platform/imaging/pixel_rows.h"
#include "platform/raster/bezier.h"

namespace ruvo::imaging::meta {
namespace {

// Larger letters are filled as polygons: their edges are smooth enough, and the coverage of a large glyph is as large
// as a picture.
constexpr double kLargestGrey = 400;  // pixels of a side

// A glyph's contours through a placement, flattened.
class Flattener {
 public:
  explicit Flattener(const Affine& place) : place_(place) {}

  Outline flatten(FT_Outline& outline) {
    static constexpr FT_Outline_Funcs kFuncs = {
        [](const FT_Vector* to, void* self) { return static_cast<Flattener*>(self)->move(*to); },
        [](const FT_Vector* to, void* self) { return static_cast<Flattener*>(self)->line(*to); },
        [](const FT_Vector* c, const FT_Vector* to, void* self) {
          auto* f = static_cast<Flattener*>(self);
          const PointF p = f->last_, q = f->at(*c), r = f->at(*to);
          return f->curve({p.x + (q.x - p.x) * 2 / 3, p.y + (q.y - p.y) * 2 / 3},
                          {r.x + (q.x - r.x) * 2 / 3, r.y + (q.y - r.y) * 2 / 3}, r);
        },
        [](const FT_Vector* c, const FT_Vector* d, const FT_Vector* to, void* self) {
          auto* f = static_cast<Flattener*>(self);
          return f->curve(f->at(*c), f->at(*d), f->at(*to));
        },
        0,
        0};
    FT_Outline_Decompose(&outline, &kFuncs, this);
    return std::move(result_);
  }

 private:
  PointF at(const FT_Vector& v) const { return place_.map({static_cast<double>(v.x), static_cast<double>(v.y)}); }
  int move(const FT_Vector& to) {
    last_ = at(to);
    result_.push_back({{toPixel(last_)}, true});
    return 0;
  }
  int line(const FT_Vector& to) {
    last_ = at(to);
    result_.back().points.push_back(toPixel(last_));
    return 0;
  }
  int curve(PointF c, PointF d, PointF to) {
    const Point control[] = {toPixel(last_), toPixel(c), toPixel(d), toPixel(to)};
    const std::vector<Point> points = raster::bezierPoints(control);
    result_.back().points.insert(result_.back().points.end(), points.begin() + 1, points.end());
    last_ = to;
    return 0;
  }

  Affine place_;
  PointF last_;
  Outline result_;
};

// Mixes the text colour in by coverage, inside the clip.
void blend(Device& device, const FT_Bitmap& coverage, Point corner) {
  const Rect box = Rect::fromSize(corner.x, corner.y, static_cast<int>(coverage.width), static_cast<int>(coverage.rows))
                       .intersected(device.clipBox());
  const Pixel32 ink = Pixel32::plain(device.now().textColour);
  const raster::Region* region = device.now().clip.region.get();
  for (int y = box.top; y < box.bottom; ++y) {
    const std::uint8_t* from = coverage.buffer + static_cast<std::ptrdiff_t>(y - corner.y) * coverage.pitch;
    auto* row = reinterpret_cast<Pixel32*>(device.surface().pictureRow(y));
    const auto run = [&](int left, int right) {
      for (int x = left; x < right; ++x) {
        const int share = from[x - corner.x], rest = 255 - share;
        row[x].blue = static_cast<std::uint8_t>(multiplyBytes(ink.blue, share) + multiplyBytes(row[x].blue, rest));
        row[x].green = static_cast<std::uint8_t>(multiplyBytes(ink.green, share) + multiplyBytes(row[x].green, rest));
        row[x].red = static_cast<std::uint8_t>(multiplyBytes(ink.red, share) + multiplyBytes(row[x].red, rest));
      }
    };
    if (!region) {
      run(box.left, box.right);
      continue;
    }
    for (const raster::Span& s : region->row(y)) run(std::max(box.left, s.left), std::min(box.right, s.right));
  }
}

// The outline is in 26.6 pixels, y upwards.
void drawGrey(Device& device, FT_Outline& outline) {
  FT_BBox box;
  FT_Outline_Get_CBox(&outline, &box);
  const auto floor64 = [](FT_Pos v) { return v >> 6; };
  const FT_Pos left = floor64(box.xMin), right = floor64(box.xMax + 63);
  const FT_Pos low = floor64(box.yMin), high = floor64(box.yMax + 63);
  if (left >= right || low >= high) return;
  constexpr double kPerPixel = 10;
  if (!device.charge(kPerPixel * static_cast<double>(right - left) * static_cast<double>(high - low))) return;
  FT_Outline_Translate(&outline, -left * 64, -low * 64);
  FT_Bitmap coverage{};
  coverage.rows = static_cast<unsigned>(high - low);
  coverage.width = static_cast<unsigned>(right - left);
  coverage.pitch = static_cast<int>(coverage.width);
  coverage.num_grays = 256;
  coverage.pixel_mode = FT_PIXEL_MODE_GRAY;
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(coverage.rows) * coverage.width);
  coverage.buffer = bytes.data();
  if (FT_Outline_Get_Bitmap(device.fonts().library(), &outline, &coverage) != 0) return;
  blend(device, coverage, {static_cast<int>(left), static_cast<int>(-high)});
}

// Half the weight that a bold letter has more.
constexpr double kBolder = 1.0 / 28;  // of an em

}  // namespace

void drawGlyph(Device& device, const Face& face, unsigned glyph, const Affine& place, bool embolden) {
  const double size = std::max(std::hypot(place.a, place.b), std::hypot(place.c, place.d)) * face.unitsPerEm();
  if (!place.sane() || !(size > 0.2)) return;
  const double reach = 3 * size;
  const Rect& clip = device.clipBox();
  const bool path = device.path().open();
  if (!path && (place.e + reach < clip.left || place.e - reach > clip.right || place.f + reach < clip.top ||
                place.f - reach > clip.bottom)) {
    return;
  }
  FT_Outline* outline = face.outlineOf(glyph);
  if (!outline || outline->n_points == 0) return;
  if (embolden) FT_Outline_Embolden(outline, static_cast<FT_Pos>(face.unitsPerEm() * kBolder));
  if (path || size > kLargestGrey) {
    if (!device.charge(2000.0 * outline->n_points)) return;
    const Outline shape = Flattener(place).flatten(*outline);
    if (path) return device.path().add(shape);
    paintRegion(device, filledRegion(device, shape, raster::FillMode::Winding),
                BrushSpec{.colour = device.now().textColour});
    return;
  }
  // To 26.6 with y upwards.
  constexpr double kFixed = 65536 * 64;
  const FT_Matrix matrix{std::lround(place.a * kFixed), std::lround(place.c * kFixed), std::lround(-place.b * kFixed),
                         std::lround(-place.d * kFixed)};
  FT_Outline_Transform(outline, &matrix);
  FT_Outline_Translate(outline, std::lround(place.e * 64), std::lround(-place.f * 64));
  drawGrey(device, *outline);
}

}  // namespace ruvo::imaging::meta
