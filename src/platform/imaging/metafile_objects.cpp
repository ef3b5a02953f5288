#include "platform/imaging/metafile_objects.h"

#include <uemf.h>

#include <algorithm>

namespace ruvo::imaging::meta {
namespace {

const Object kNothing;

bool isFree(const Object& object) {
  return std::holds_alternative<std::monostate>(object);
}

Object stockFont(const char* face, double height, int weight, int pitch) {
  FontSpec font;
  font.face = face;
  font.height = height;
  font.weight = weight;
  font.pitchAndFamily = pitch;
  return object(std::move(font));
}

constexpr int kFixedPitch = 1;
constexpr int kSwiss = 0x20;

}  // namespace

void ObjectTable::put(std::size_t number, Object object) {
  if (number >= kMost) return;
  if (objects_.size() <= number) objects_.resize(number + 1);
  objects_[number] = std::move(object);
}

void ObjectTable::add(Object object) {
  while (lowestFree_ < objects_.size() && !isFree(objects_[lowestFree_])) ++lowestFree_;
  put(lowestFree_, std::move(object));
}

void ObjectTable::remove(std::size_t number) {
  if (number >= objects_.size()) return;
  objects_[number] = {};
  lowestFree_ = std::min(lowestFree_, number);
}

const Object& ObjectTable::at(std::size_t number) const {
  return number < objects_.size() ? objects_[number] : kNothing;
}

Object stockObject(std::uint32_t number) {
  const auto brush = [](Colour colour) { return object(BrushSpec{.colour = colour}); };
  switch (number | U_STOCK_OBJECT) {
    case U_WHITE_BRUSH:
      return brush(kWhite);
    case U_LTGRAY_BRUSH:
      return brush(rgb(192, 192, 192));
    case U_GRAY_BRUSH:
      return brush(rgb(128, 128, 128));
    case U_DKGRAY_BRUSH:
      return brush(rgb(64, 64, 64));
    case U_BLACK_BRUSH:
      return brush(kBlack);
    case U_NULL_BRUSH:
      return object(BrushSpec{.kind = raster::Brush::Kind::Null});
    case U_WHITE_PEN:
      return object(PenSpec{.colour = kWhite, .cosmetic = true});
    case U_BLACK_PEN:
      return object(PenSpec{.cosmetic = true});
    case U_NULL_PEN:
      return object(PenSpec{.style = raster::PenStyle::Null});
    case U_OEM_FIXED_FONT:
    case U_ANSI_FIXED_FONT:
    case U_SYSTEM_FIXED_FONT:
      return stockFont("Courier New", 12, 400, kFixedPitch);
    case U_ANSI_VAR_FONT:
    case U_DEFAULT_GUI_FONT:
      return stockFont("Arial", 12, 400, kSwiss);
    case U_SYSTEM_FONT:
    case U_DEVICE_DEFAULT_FONT:
      return stockFont("Arial", 16, 700, kSwiss);
    default:
      return {};
  }
}

PenSpec penOf(std::uint32_t style, double width, Colour colour) {
  PenSpec pen;
  const std::uint32_t line = style & U_PS_STYLE_MASK;
  pen.style =
      line <= U_PS_ALTERNATE && line != U_PS_USERSTYLE ? static_cast<raster::PenStyle>(line) : raster::PenStyle::Solid;
  pen.width = std::abs(width);
  pen.colour = colour;
  switch (style & U_PS_ENDCAP_MASK) {
    case U_PS_ENDCAP_SQUARE:
      pen.cap = Cap::Square;
      break;
    case U_PS_ENDCAP_FLAT:
      pen.cap = Cap::Flat;
      break;
    default:
      break;
  }
  switch (style & U_PS_JOIN_MASK) {
    case U_PS_JOIN_BEVEL:
      pen.join = Join::Bevel;
      break;
    case U_PS_JOIN_MITER:
      pen.join = Join::Miter;
      break;
    default:
      break;
  }
  return pen;
}

BrushSpec brushOf(std::uint32_t style, Colour colour, std::uint32_t hatch) {
  BrushSpec brush;
  brush.colour = colour;
  if (style == U_BS_SOLID) return brush;
  brush.kind = raster::Brush::Kind::Null;
  if (style != U_BS_HATCHED) return brush;
  if (hatch <= U_HS_DIAGCROSS) {
    brush.kind = raster::Brush::Kind::Hatch;
    brush.hatch = static_cast<raster::HatchStyle>(hatch);
  } else {
    // The later numbers all stand for a plain colour.
    brush.kind = raster::Brush::Kind::Solid;
  }
  return brush;
}

Colour colourOf(std::uint32_t colorRef, const PaletteSpec* palette) {
  constexpr std::uint32_t kIndexed = 1;
  if (colorRef >> 24 == kIndexed && palette) {
    const std::uint32_t index = colorRef & 0xFFFF;
    return index < palette->size() ? (*palette)[index] : kBlack;
  }
  return colorRef & kWhite;
}

}  // namespace ruvo::imaging::meta
