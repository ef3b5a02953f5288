// How new pixels are combined with those that are there. Both lists are the sixteen bitwise functions of two operands
// under one numbering (1 to 16), so that one routine serves blits, pens and brushes.
#pragma once

#include <cstdint>

namespace ruvo::raster {

// For blits: source S and destination D. An indexed destination combines the bits of its indices, a 32-bit one all
// four bytes.
enum class RasterOp : std::uint8_t {
  Blackness = 1,    // 0
  NotSrcErase = 2,  // ~(S | D)
  NotSrcAnd = 3,    // ~S & D
  NotSrcCopy = 4,   // ~S
  SrcErase = 5,     // S & ~D
  DstInvert = 6,    // ~D
  SrcInvert = 7,    // S ^ D
  SrcAnd = 9,       // S & D
  MergePaint = 12,  // ~S | D
  SrcCopy = 13,     // S
  SrcPaint = 15,    // S | D
  Whiteness = 16,   // all ones; index 255 at 8 bits
};

// For pens and brushes: pen P and destination D.
enum class Rop2 : std::uint8_t {
  Black = 1,
  NotMergePen,  // ~(P | D)
  MaskNotPen,   // ~P & D
  NotCopyPen,   // ~P
  MaskPenNot,   // P & ~D
  Not,          // ~D
  XorPen,       // P ^ D
  NotMaskPen,   // ~(P & D)
  MaskPen,      // P & D
  NotXorPen,    // ~(P ^ D)
  Nop,          // D
  MergeNotPen,  // ~P | D
  CopyPen,      // P
  MergePenNot,  // P | ~D
  MergePen,     // P | D
  White,
};

constexpr Rop2 rop2Of(RasterOp op) {
  return static_cast<Rop2>(op);
}

}  // namespace ruvo::raster
