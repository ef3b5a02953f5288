#include <uemf.h>

#include "platform/imaging/metafile_emf.h"
#include "platform/imaging/metafile_text.h"

namespace ruvo::imaging::meta::emf {
namespace {

void createPen(Player& p, ByteReader& r) {
  const std::uint32_t number = r.u32(), style = r.u32();
  const double width = r.i32();
  r.skip(4);
  const Colour colour = p.colour(r.u32());
  if (r.ok()) p.objects.put(number, object(penOf(style, width, colour)));
}

void extCreatePen(Player& p, ByteReader& r) {
  const std::uint32_t number = r.u32();
  r.skip(16);  // where a pattern's bitmap lies
  const std::uint32_t style = r.u32();
  const double width = r.u32();
  const std::uint32_t brushStyle = r.u32();
  const Colour colour = p.colour(r.u32());
  r.skip(4);
  const std::size_t dashes = r.u32();
  if (!r.ok()) return;
  PenSpec pen = penOf(style, width, colour);
  pen.geometric = (style & U_PS_TYPE_MASK) == U_PS_GEOMETRIC;
  pen.cosmetic = !pen.geometric;
  if (brushStyle == U_BS_NULL) pen.style = raster::PenStyle::Null;
  constexpr std::size_t kMostDashes = 16;
  if ((style & U_PS_STYLE_MASK) == U_PS_USERSTYLE && dashes <= kMostDashes) {
    for (std::size_t i = 0; i < dashes; ++i) pen.dashes.push_back(r.u32());
    if (!r.ok()) pen.dashes.clear();
  }
  p.objects.put(number, object(std::move(pen)));
}

void createBrush(Player& p, ByteReader& r) {
  const std::uint32_t number = r.u32(), style = r.u32();
  const Colour colour = p.colour(r.u32());
  const std::uint32_t hatch = r.u32();
  if (r.ok()) p.objects.put(number, object(brushOf(style, colour, hatch)));
}

template <bool mono>
void createPatternBrush(Player& p, ByteReader& r) {
  const std::uint32_t number = r.u32();
  BrushSpec brush{.kind = raster::Brush::Kind::Pattern, .mono = mono};
  brush.pattern.paletteIndices = r.u32() == U_DIB_PAL_COLORS;
  const std::size_t infoAt = r.u32(), infoSize = r.u32(), bitsAt = r.u32(), bitsSize = r.u32();
  brush.pattern.info = r.slice(infoAt, infoSize);
  brush.pattern.bits = r.slice(bitsAt, bitsSize);
  if (r.ok()) p.objects.put(number, object(std::move(brush)));
}

void createFont(Player& p, ByteReader& r) {
  const std::uint32_t number = r.u32();
  FontSpec font;
  font.height = r.i32();
  font.width = std::abs(static_cast<double>(r.i32()));
  font.escapement = r.i32();
  r.skip(4);
  font.weight = r.i32();
  font.italic = r.u8() != 0;
  font.underline = r.u8() != 0;
  font.strikeOut = r.u8() != 0;
  font.charset = r.u8();
  r.skip(3);
  font.pitchAndFamily = r.u8();
  constexpr int kFaceLetters = 32;
  std::vector<Character> face;
  for (int i = 0; i < kFaceLetters; ++i) {
    const char32_t letter = r.u16();
    if (letter == 0) break;
    face.push_back({letter, 1});
  }
  font.face = utf8Of(face);
  p.objects.put(number, object(std::move(font)));
}

void createPalette(Player& p, ByteReader& r) {
  const std::uint32_t number = r.u32();
  r.skip(2);
  const std::size_t count = r.u16();
  if (!r.ok() || count > r.left() / 4) return;
  PaletteSpec palette;
  for (std::size_t i = 0; i < count; ++i) palette.push_back(r.u32() & kWhite);
  p.objects.put(number, object(std::move(palette)));
}

void selectObject(Player& p, ByteReader& r) {
  const std::uint32_t number = r.u32();
  if (!r.ok()) return;
  p.device.select((number & U_STOCK_OBJECT) != 0 ? stockObject(number) : p.objects.at(number));
}

constexpr Row kRows[] = {
    {U_EMR_CREATEPEN, createPen},
    {U_EMR_EXTCREATEPEN, extCreatePen},
    {U_EMR_CREATEBRUSHINDIRECT, createBrush},
    {U_EMR_CREATEMONOBRUSH, createPatternBrush<true>},
    {U_EMR_CREATEDIBPATTERNBRUSHPT, createPatternBrush<false>},
    {U_EMR_EXTCREATEFONTINDIRECTW, createFont},
    {U_EMR_CREATEPALETTE, createPalette},
    {U_EMR_SELECTPALETTE, selectObject},
    {U_EMR_SELECTOBJECT, selectObject},
    {U_EMR_DELETEOBJECT, [](Player& p, ByteReader& r) { p.objects.remove(r.u32()); }},
};

}  // namespace

std::span<const Row> objectRows() {
  return kRows;
}

}  // namespace ruvo::imaging::meta::emf
