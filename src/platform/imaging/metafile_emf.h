// Handlers of EMF records ([MS-EMF] 2.3), by topic.
#pragma once

#include "platform/imaging/metafile_player.h"

namespace ruvo::imaging::meta {

// x before y, 32 bits each.
inline PointF emfPoint(ByteReader& r) {
  const double x = r.i32();
  return {x, static_cast<double>(r.i32())};
}
// Left, top, right, bottom.
inline Box emfBox(ByteReader& r) {
  const PointF from = emfPoint(r);
  return {from, emfPoint(r)};
}
// The same 32-bit numbers as a rectangle, limited to what can be added and subtracted.
Rect emfRect(ByteReader& r);
// Not a number and infinite become zero.
double emfFloat(ByteReader& r);
// Six of them.
Affine emfTransform(ByteReader& r);

namespace emf {

struct Row {
  std::uint32_t type;
  RecordHandler handler;
};
std::span<const Row> stateRows();
std::span<const Row> objectRows();
std::span<const Row> figureRows();
std::span<const Row> regionRows();
std::span<const Row> textRows();
std::span<const Row> bitmapRows();

}  // namespace emf
}  // namespace ruvo::imaging::meta
