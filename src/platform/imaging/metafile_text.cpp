#include "platform/imaging/metafile_text.h"

#include <uemf.h>
#include <numbers>

#include "platform/imaging/metafile_fonts.h"
#include "platform/imaging/metafile_glyphs.h"
#include "platform/imaging/metafile_paint.h"

namespace ruvo::imaging::meta {
namespace {

PointF along(PointF from, PointF direction, double distance) {
  return {from.x + direction.x * distance, from.y + direction.y * distance};
}

// The directions of a line of text in pixels, for one logical unit each.
struct Axes {
  PointF right;
  PointF down;
};

Axes axesOf(const Device& device, int escapement) {
  // Letters stand upright whichever way the units of the page grow; only a world transform turns them over.
  const Affine page = device.now().mapping.toDevice();
  Affine map = device.now().world.then(Affine::scaling(std::abs(page.a), std::abs(page.d))).then(device.base());
  const double angle = escapement % 3600 * std::numbers::pi / 1800;
  return {map.mapVector({std::cos(angle), -std::sin(angle)}), map.mapVector({std::sin(angle), std::cos(angle)})};
}

// How far the letters of another family are made narrower or wider to fit.
double fit(double ratio) {
  return std::clamp(ratio, 0.6, 1.3);
}

struct Glyph {
  FontMatch font;
  unsigned number = 0;
  PointF place;      // from the start of the base line, logical
  double width = 0;  // natural, in ems
};

class Setter {
 public:
  Setter(Device& device, const TextLine& line, const FontMatch& font)
      : device_(device), line_(line), spec_(*device.now().font), font_(font) {
    axes_ = axesOf(device, spec_.escapement);
    const Face& face = *font.face;
    em_ = spec_.height < 0 ? -spec_.height : spec_.height / std::max(0.1, face.ascent() + face.descent());
    constexpr double kDefaultPixels = 12;
    const double scale = std::hypot(axes_.down.x, axes_.down.y);
    if (em_ == 0) em_ = kDefaultPixels / std::max(1e-9, scale);
    // An average character of a record is a little narrower than a small letter.
    constexpr double kAverageToLetters = 0.9;
    stretch_ = usualStretch();
    if (spec_.width > 0)
      stretch_ = std::clamp(spec_.width / (em_ * (kAverageToLetters * face.letterWidth())), 0.05, 20.0);
  }

  void draw();

 private:
  void setGlyphs();
  void fitSubstitute();
  double usualStretch() const;
  char32_t letterOf(char32_t code) const;
  PointF origin() const;
  void fillBack(PointF start);
  void rule(PointF start, double below, double thickness);
  Outline quad(PointF start, double top, double bottom) const;

  Device& device_;
  const TextLine& line_;
  const FontSpec& spec_;
  FontMatch font_;
  Axes axes_;
  double em_ = 0;       // logical
  double stretch_ = 1;  // of the letters' width
  double length_ = 0;   // of the line, logical
  std::vector<Glyph> glyphs_;
};

char32_t Setter::letterOf(char32_t code) const {
  const char32_t letter = font_.substitute || spec_.face == "Symbol" ? symbolLetter(spec_.face, code) : 0;
  return letter != 0 ? letter : code;
}

void Setter::setGlyphs() {
  constexpr double kPerLetter = 2000;
  constexpr std::size_t kMostLetters = 100000;
  PointF pen;
  std::size_t unit = 0;
  for (const Character& c : std::span(line_.characters).first(std::min(line_.characters.size(), kMostLetters))) {
    if (!device_.charge(kPerLetter)) break;
    Glyph glyph;
    glyph.font = font_;
    const char32_t letter = letterOf(c.code);
    glyph.number = line_.glyphNumbers ? static_cast<unsigned>(c.code) : font_.face->glyphOf(letter);
    // A font of marks may keep them in the private range.
    if (glyph.number == 0 && letter < 0x100) glyph.number = font_.face->glyphOf(0xF000 + letter);
    if (glyph.number == 0 && !line_.glyphNumbers && letter > ' ') {
      if (const FontMatch other = device_.fonts().match(spec_, letter)) {
        glyph.font = other;
        glyph.number = other.face->glyphOf(letter);
      }
    }
    glyph.place = pen;
    glyph.width = glyph.font.face->advanceOf(glyph.number);
    glyphs_.push_back(glyph);
    if (line_.steps.empty()) {
      pen.x += glyph.width * em_ * stretch_ + device_.now().charExtra;
      if (c.code == ' ') pen.x += device_.now().breakExtra;
    } else {
      for (int i = 0; i < c.units && unit < line_.steps.size(); ++i, ++unit) {
        pen = {pen.x + line_.steps[unit].x, pen.y + line_.steps[unit].y};
      }
    }
  }
  length_ = pen.x;
}

// Records were laid out for narrower letters than those of the fonts that usually stand in.
double Setter::usualStretch() const {
  constexpr double kSans = 0.490, kSansBold = 0.539, kSerif = 0.459, kSerifBold = 0.489;
  if (!font_.substitute) return 1;
  const bool bold = spec_.weight >= kBoldFrom;
  const double average = font_.face->letterWidth();
  if (spec_.face.starts_with("Arial") || spec_.face.starts_with("Helv"))
    return fit((bold ? kSansBold : kSans) / average);
  if (spec_.face.starts_with("Times")) return fit((bold ? kSerifBold : kSerif) / average);
  return 1;
}

// The record's steps tell how wide the letters of the missing family were; those that stand in for them are made as
// wide, so that they neither overlap nor fall apart.
void Setter::fitSubstitute() {
  if (!font_.substitute || line_.steps.empty() || spec_.width > 0) return;
  double natural = 0;
  for (const Glyph& g : glyphs_) natural += g.width * em_;
  if (natural > 0 && length_ > 0) stretch_ = fit(length_ / natural);
}

PointF Setter::origin() const {
  const State& now = device_.now();
  const bool fromPosition = (now.textAlign & U_TA_UPDATECP) != 0;
  PointF start = device_.toPixels().map(fromPosition ? now.position : line_.at);
  const unsigned across = now.textAlign & U_TA_CENTER;
  if (across == U_TA_CENTER) start = along(start, axes_.right, -length_ / 2);
  if (across == U_TA_RIGHT) start = along(start, axes_.right, -length_);
  const unsigned down = now.textAlign & U_TA_BASELINE;
  if (down == U_TA_TOP) start = along(start, axes_.down, font_.face->ascent() * em_);
  if (down == U_TA_BOTTOM) start = along(start, axes_.down, -font_.face->descent() * em_);
  return start;
}

Outline Setter::quad(PointF start, double top, double bottom) const {
  const PointF a = along(start, axes_.down, top), b = along(start, axes_.down, bottom);
  return {{{toPixel(a), toPixel(along(a, axes_.right, length_)), toPixel(along(b, axes_.right, length_)), toPixel(b)},
           true}};
}

void Setter::fillBack(PointF start) {
  const Outline back = quad(start, -font_.face->ascent() * em_, font_.face->descent() * em_);
  paintRegion(device_, filledRegion(device_, back, raster::FillMode::Winding),
              BrushSpec{.colour = device_.now().backColour});
}

void Setter::rule(PointF start, double below, double thickness) {
  const double pixel = 1 / std::max(1e-9, std::hypot(axes_.down.x, axes_.down.y));
  const Outline bar = quad(start, below, below + std::max(thickness, pixel));
  if (device_.path().open()) return device_.path().add(bar);
  paintRegion(device_, filledRegion(device_, bar, raster::FillMode::Winding),
              BrushSpec{.colour = device_.now().textColour});
}

void Setter::draw() {
  setGlyphs();
  fitSubstitute();
  const raster::Rop2 kept = std::exchange(device_.now().rop2, raster::Rop2::CopyPen);
  const PointF start = origin();
  if (device_.now().backMode == raster::BackMode::Opaque && !device_.path().open()) fillBack(start);
  for (const Glyph& g : glyphs_) {
    const PointF place = along(along(start, axes_.right, g.place.x), axes_.down, -g.place.y);
    const double unit = em_ / g.font.face->unitsPerEm();
    const double slant = g.font.slant ? 0.21 : 0;
    // Font units grow upwards.
    const PointF x{axes_.right.x * unit * stretch_, axes_.right.y * unit * stretch_};
    const PointF y{axes_.right.x * unit * slant - axes_.down.x * unit,
                   axes_.right.y * unit * slant - axes_.down.y * unit};
    drawGlyph(device_, *g.font.face, g.number, {x.x, x.y, y.x, y.y, place.x, place.y}, g.font.embolden);
  }
  const Face& face = *font_.face;
  if (spec_.underline) rule(start, face.underlinePosition() * em_, face.underlineThickness() * em_);
  if (spec_.strikeOut) rule(start, -0.3 * em_, face.underlineThickness() * em_);
  device_.now().rop2 = kept;
  if ((device_.now().textAlign & U_TA_UPDATECP) != 0) {
    const std::optional<Affine> back = device_.toPixels().inverse();
    const PointF at = device_.toPixels().map(device_.now().position);
    if (back) device_.now().position = back->map(along(at, axes_.right, length_));
  }
}

}  // namespace

void drawText(Device& device, const TextLine& line) {
  if (line.box && line.opaqueBox && !device.path().open()) {
    paintRegion(device,
                filledRegion(device, boxOutline(device, {line.box->from, line.box->to}), raster::FillMode::Winding),
                BrushSpec{.colour = device.now().backColour});
  }
  if (line.characters.empty()) return;
  constexpr double kPerSearch = 3e6;
  const int before = device.fonts().searches();
  const FontMatch font = device.fonts().match(*device.now().font);
  if (!font) return;
  Clip kept = device.now().clip;
  if (line.box && line.clipped) intersectClipRect(device, *line.box);
  Setter(device, line, font).draw();
  device.now().clip = std::move(kept);
  device.charge(kPerSearch * (device.fonts().searches() - before));
}

}  // namespace ruvo::imaging::meta
