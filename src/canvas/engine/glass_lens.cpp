#include "canvas/engine/glass_lens.h"

#include <cmath>

#include "canvas/engine/brush_mix.h"

namespace ruvo::glass {
namespace {

// Rings of the rim from the outside, in pixels of an ordinary screen; both together stand out on any picture.
constexpr double kDarkRing = 1.25;
constexpr double kLightRing = 1.25;
constexpr int kSmooth = 4;  // places whose mean a smoothed pixel is
constexpr Colour kDark = rgb(70, 72, 78);
constexpr Colour kLight = rgb(236, 238, 242);

std::uint8_t share(double part) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
}

std::uint8_t mix(int below, int above, int part) {
  return static_cast<std::uint8_t>((below * (255 - part) + above * part + 127) / 255);
}
Pixel32 mix(Pixel32 below, Pixel32 above, int part) {
  return {mix(below.blue, above.blue, part), mix(below.green, above.green, part), mix(below.red, above.red, part), 0};
}

}  // namespace

bool allowedOn(Size image) {
  return kSide <= 5 * image.width && kSide <= 5 * image.height;
}

Rect placed(Point middle, int side, Size display) {
  const auto start = [side](int mid, int length) {
    return side >= length ? (length - side) / 2 : std::clamp(mid - side / 2, 0, length - side);
  };
  return Rect::fromSize(start(middle.x, display.width), start(middle.y, display.height), side, side);
}

double sourceDistance(double distance, int factor, bool convex) {
  const double inner = 1.0 / factor;
  return convex ? distance * (inner + (1 - inner) * distance * distance) : distance * inner;
}

bool Lens::prepare(const Manner& manner) {
  const int side = manner.side();
  if (!contents_.empty() && manner == manner_) return true;
  if (contents_.width() != side) {
    if (!contents_.create(side, side, 32, raster::RowOrder::TopDown) ||
        !mask_.create(side, side, 32, raster::RowOrder::TopDown)) {
      contents_.clear();
      return false;
    }
  }
  manner_ = manner;
  places_.clear();
  rim_.clear();
  const double radius = side / 2.0;
  for (int y = 0; y < side; ++y) {
    auto* maskRow = reinterpret_cast<Pixel32*>(mask_.pictureRow(y));
    for (int x = 0; x < side; ++x) {
      const double right = x + 0.5 - radius, down = y + 0.5 - radius;
      const double distance = std::hypot(right, down);
      const bool inside = distance < radius;
      maskRow[x] = Pixel32::plain(inside ? kBlack : kWhite);
      if (manner.convex) {
        // Towards the rim the picture is pressed together: a single pixel in place of several would tear lines.
        for (const double below : {-0.25, 0.25}) {
          for (const double beside : {-0.25, 0.25}) addPlace(right + beside, down + below);
        }
      } else {
        addPlace(right, down);
      }
      if (inside) addRim(x, y, distance);
    }
  }
  return true;
}

void Lens::addPlace(double right, double down) {
  const double radius = manner_.side() / 2.0;
  const double distance = std::hypot(right, down);
  double toSource = 1;
  if (distance > 0 && distance < radius)
    toSource = sourceDistance(distance / radius, manner_.factor, manner_.convex) * radius / distance;
  places_.push_back({static_cast<std::int16_t>(std::floor(radius + right * toSource)),
                     static_cast<std::int16_t>(std::floor(radius + down * toSource))});
}

void Lens::addRim(int x, int y, double distance) {
  // Half a pixel within the box, so that the soft outer edge has room.
  const double outer = manner_.side() / 2.0 - 0.5;
  const double dark = outer - kDarkRing * manner_.scale;
  const double light = dark - kLightRing * manner_.scale;
  const RimPixel pixel{x, y, share(distance - light + 0.5), share(distance - dark + 0.5),
                       share(outer - distance + 0.5)};
  if (pixel.light > 0 || pixel.dark > 0 || pixel.cover < 255) rim_.push_back(pixel);
}

Pixel32 Lens::seenAt(const clsDIB& picture, Place place) const {
  const auto x = static_cast<std::size_t>(place.x), y = static_cast<std::size_t>(place.y);
  return brush::seen(picture, rows_[y][columns_[x]]);
}

Pixel32 Lens::meanAt(const clsDIB& picture, const Place* places) const {
  int blue = 2, green = 2, red = 2;
  for (int i = 0; i < kSmooth; ++i) {
    const Pixel32 pixel = seenAt(picture, places[i]);
    blue += pixel.blue, green += pixel.green, red += pixel.red;
  }
  const auto mean = [](int sum) { return static_cast<std::uint8_t>(sum / kSmooth); };
  return {mean(blue), mean(green), mean(red), 0};
}

bool Lens::compose(const clsDIB& picture, const ViewGeometry& view, Point corner, const Manner& manner) {
  const raster::Surface& surface = picture.surface();
  if (picture.empty() || surface.depth() != 32 || !prepare(manner)) return false;
  const int side = manner.side();
  columns_.resize(static_cast<std::size_t>(side));
  rows_.resize(static_cast<std::size_t>(side));
  for (int i = 0; i < side; ++i) {
    const Point at = view.toImage({corner.x + i, corner.y + i});
    columns_[static_cast<std::size_t>(i)] = std::clamp(at.x, 0, surface.width() - 1);
    rows_[static_cast<std::size_t>(i)] =
        reinterpret_cast<const Pixel32*>(surface.pictureRow(std::clamp(at.y, 0, surface.height() - 1)));
  }
  const Place* place = places_.data();
  for (int y = 0; y < side; ++y) {
    auto* to = reinterpret_cast<Pixel32*>(contents_.pictureRow(y));
    for (int x = 0; x < side; ++x) {
      *to++ = manner.convex ? meanAt(picture, place) : seenAt(picture, *place);
      place += manner.convex ? kSmooth : 1;
    }
  }
  paintRim(picture);
  return true;
}

void Lens::paintRim(const clsDIB& picture) {
  for (const RimPixel& rim : rim_) {
    Pixel32& pixel = reinterpret_cast<Pixel32*>(contents_.pictureRow(rim.y))[rim.x];
    const Pixel32 ring = mix(mix(pixel, Pixel32::plain(kLight), rim.light), Pixel32::plain(kDark), rim.dark);
    const Pixel32 beneath = seenAt(picture, {static_cast<std::int16_t>(rim.x), static_cast<std::int16_t>(rim.y)});
    pixel = mix(beneath, ring, rim.cover);
  }
}

}  // namespace ruvo::glass
