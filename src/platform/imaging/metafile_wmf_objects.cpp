#include <uwmf.h>

#include "platform/imaging/metafile_text.h"
#include "platform/imaging/metafile_wmf.h"

namespace ruvo::imaging::meta::wmf {
namespace {

double word(ByteReader& r) {
  return static_cast<std::int16_t>(r.u16());
}

// What can not be read still takes a number, so that the ones behind it stay right.
void createPen(Player& p, ByteReader& r) {
  const std::uint32_t style = r.u16();
  const double width = word(r);
  r.skip(2);
  p.objects.add(object(penOf(style, width, p.colour(r.u32()))));
}

void createBrush(Player& p, ByteReader& r) {
  const std::uint32_t style = r.u16();
  const Colour colour = p.colour(r.u32());
  p.objects.add(object(brushOf(style, colour, r.u16())));
}

void createDibBrush(Player& p, ByteReader& r) {
  BrushSpec brush{.kind = raster::Brush::Kind::Pattern};
  brush.mono = r.u16() == U_BS_PATTERN;
  brush.pattern.paletteIndices = r.u16() == U_DIB_PAL_COLORS;
  brush.pattern.info = r.take(r.left());
  p.objects.add(object(std::move(brush)));
}

void createFont(Player& p, ByteReader& r) {
  FontSpec font;
  font.height = word(r);
  font.width = std::abs(word(r));
  font.escapement = static_cast<std::int16_t>(r.u16());
  r.skip(2);
  font.weight = static_cast<std::int16_t>(r.u16());
  font.italic = r.u8() != 0;
  font.underline = r.u8() != 0;
  font.strikeOut = r.u8() != 0;
  font.charset = r.u8();
  r.skip(3);
  font.pitchAndFamily = r.u8();
  constexpr std::size_t kLongestFace = 32;
  const auto face = r.take(std::min(r.left(), kLongestFace));
  font.face = utf8Of(
      charactersOf(face.first(static_cast<std::size_t>(std::find(face.begin(), face.end(), 0) - face.begin())), 0));
  p.objects.add(object(std::move(font)));
}

// Start, count, then red, green, blue and flags of each entry.
void readPalette(ByteReader& r, PaletteSpec& palette, std::size_t first) {
  constexpr std::size_t kMostEntries = 1024;
  const std::size_t count = std::min<std::size_t>(r.u16(), kMostEntries);
  for (std::size_t i = 0; i < count && r.left() >= 4; ++i) {
    const std::uint32_t entry = r.u32() & kWhite;
    if (first + i >= kMostEntries) return;
    if (first + i >= palette.size()) palette.resize(first + i + 1);
    palette[first + i] = entry;
  }
}

void createPalette(Player& p, ByteReader& r) {
  PaletteSpec palette;
  r.skip(2);
  readPalette(r, palette, 0);
  p.objects.add(object(std::move(palette)));
}

void setPaletteEntries(Player& p, ByteReader& r) {
  if (!p.now().palette) return;
  PaletteSpec palette = *p.now().palette;
  const std::size_t first = r.u16();
  readPalette(r, palette, first);
  p.now().palette = std::make_shared<const PaletteSpec>(std::move(palette));
}

// Scans of rows: count, top, bottom, then pairs of left and right, then the count again ([MS-WMF] 2.2.1.5).
void createRegion(Player& p, ByteReader& r) {
  r.skip(10);
  const std::size_t scans = r.u16();
  r.skip(10);
  RegionSpec region;
  for (std::size_t i = 0; i < scans && r.ok(); ++i) {
    const std::size_t edges = r.u16();
    const int top = static_cast<std::int16_t>(r.u16()), bottom = static_cast<std::int16_t>(r.u16());
    if (edges > r.left() / 2) break;
    for (std::size_t k = 0; k + 1 < edges; k += 2) {
      const int left = static_cast<std::int16_t>(r.u16()), right = static_cast<std::int16_t>(r.u16());
      region.boxes.push_back({left, top, right, bottom});
    }
    r.skip(2);
  }
  p.objects.add(object(std::move(region)));
}

void selectObject(Player& p, ByteReader& r) {
  const std::size_t number = r.u16();
  // A region that is selected becomes the clip.
  if (const auto region = p.find<RegionSpec>(number)) {
    p.device.combineClip(regionOf(p.device, region->boxes, p.device.base()), std::nullopt);
  } else {
    p.device.select(p.objects.at(number));
  }
}

constexpr Row kRows[] = {
    {U_WMR_CREATEPENINDIRECT, createPen},
    {U_WMR_CREATEBRUSHINDIRECT, createBrush},
    {U_WMR_DIBCREATEPATTERNBRUSH, createDibBrush},
    {U_WMR_CREATEPATTERNBRUSH,
     [](Player& p, ByteReader&) { p.objects.add(object(BrushSpec{.colour = rgb(128, 128, 128)})); }},
    {U_WMR_CREATEFONTINDIRECT, createFont},
    {U_WMR_CREATEPALETTE, createPalette},
    {U_WMR_SETPALENTRIES, setPaletteEntries},
    {U_WMR_ANIMATEPALETTE, setPaletteEntries},
    {U_WMR_CREATEREGION, createRegion},
    {U_WMR_SELECTOBJECT, selectObject},
    {U_WMR_SELECTPALETTE, [](Player& p, ByteReader& r) { p.device.select(p.objects.at(r.u16())); }},
    {U_WMR_DELETEOBJECT, [](Player& p, ByteReader& r) { p.objects.remove(r.u16()); }},
};

}  // namespace

std::span<const Row> objectRows() {
  return kRows;
}

}  // namespace ruvo::imaging::meta::wmf
