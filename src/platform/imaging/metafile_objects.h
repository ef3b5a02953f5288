// The objects that records make and select, and the table that numbers them.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "base/colour.h"
#include "base/geometry.h"
#include "platform/raster/brush.h"
#include "platform/raster/pen.h"

namespace ruvo::imaging::meta {

enum class Cap { Round, Square, Flat };
enum class Join { Round, Bevel, Miter };

struct PenSpec {
  raster::PenStyle style = raster::PenStyle::Solid;
  double width = 0;  // logical units; below one pixel it is one pixel
  Colour colour = kBlack;
  bool cosmetic = false;  // one pixel wide whatever the mapping
  // Of the geometric kind, whose broken styles are broken at every width.
  bool geometric = false;
  Cap cap = Cap::Round;
  Join join = Join::Round;
  std::vector<double> dashes{};  // on, off, ... in logical units (pixels when cosmetic); empty: by the style
};

// A packed or split bitmap inside the file's bytes, decoded when it is drawn.
struct DibRef {
  std::span<const std::uint8_t> info;  // header and colour table
  std::span<const std::uint8_t> bits;  // empty: they follow the table inside `info`
  bool paletteIndices = false;         // the table holds 16-bit numbers of palette entries
  std::uint32_t scans = 0;             // rows that the bits hold when they are fewer than the height; 0: all
  explicit operator bool() const { return !info.empty(); }
};

struct BrushSpec {
  raster::Brush::Kind kind = raster::Brush::Kind::Solid;
  Colour colour = kWhite;
  raster::HatchStyle hatch = raster::HatchStyle::Horizontal;
  DibRef pattern{};
  bool mono = false;  // pattern bits 0 and 1 take the text and the back colour
  bool draws() const { return kind != raster::Brush::Kind::Null; }
};

struct FontSpec {
  double height = 0;   // logical units: negative the em, positive the line, zero a default
  double width = 0;    // of an average character; zero by the height
  int escapement = 0;  // of the line, in tenths of a degree, counter-clockwise
  int weight = 400;
  bool italic = false;
  bool underline = false;
  bool strikeOut = false;
  int charset = 0;
  int pitchAndFamily = 0;
  std::string face;  // UTF-8
};

using PaletteSpec = std::vector<Colour>;

struct RegionSpec {
  std::vector<Rect> boxes;
};

using Object = std::variant<std::monostate, std::shared_ptr<const PenSpec>, std::shared_ptr<const BrushSpec>,
                            std::shared_ptr<const FontSpec>, std::shared_ptr<const PaletteSpec>,
                            std::shared_ptr<const RegionSpec>>;

template <typename T>
Object object(T spec) {
  return std::make_shared<const T>(std::move(spec));
}

// Numbers from 0. What lies beyond kMost is not kept.
class ObjectTable {
 public:
  static constexpr std::size_t kMost = 65536;

  void put(std::size_t number, Object object);
  // Takes the lowest free number, as WMF files count.
  void add(Object object);
  void remove(std::size_t number);
  // Holds nothing for numbers that were never put.
  const Object& at(std::size_t number) const;

 private:
  std::vector<Object> objects_;
  std::size_t lowestFree_ = 0;  // none below is free
};

// The sixteen and more objects that exist without being made ([MS-EMF] 2.1.31), by their number without the high bit.
Object stockObject(std::uint32_t number);

// A pen from the style bits that pens of both formats share.
PenSpec penOf(std::uint32_t style, double width, Colour colour);
// A brush that needs no bitmap; other styles give a null brush.
BrushSpec brushOf(std::uint32_t style, Colour colour, std::uint32_t hatch);

// A COLORREF as red, green and blue; indices into a palette are looked up there.
Colour colourOf(std::uint32_t colorRef, const PaletteSpec* palette);

}  // namespace ruvo::imaging::meta
