// Handlers of WMF records ([MS-WMF] 2.3), by topic. Parameters lie in the records last one first.
#pragma once

#include "platform/imaging/metafile_player.h"

namespace ruvo::imaging::meta {

// A pair of 16-bit numbers, y before x.
inline PointF wmfPoint(ByteReader& r) {
  const double y = static_cast<std::int16_t>(r.u16());
  const double x = static_cast<std::int16_t>(r.u16());
  return {x, y};
}
// Bottom, right, top, left.
inline Box wmfBox(ByteReader& r) {
  const PointF to = wmfPoint(r);
  return {wmfPoint(r), to};
}

namespace wmf {

struct Row {
  std::uint32_t type;
  RecordHandler handler;
};
std::span<const Row> stateRows();
std::span<const Row> objectRows();
std::span<const Row> figureRows();
std::span<const Row> textRows();
std::span<const Row> bitmapRows();

}  // namespace wmf
}  // namespace ruvo::imaging::meta
