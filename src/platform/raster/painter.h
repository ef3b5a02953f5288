// Puts runs of pixels of one pen colour or brush on a surface; the common end of all figures.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "platform/raster/draw_context.h"
#include "platform/raster/pixel_rows.h"
#include "platform/raster/region.h"

namespace ruvo::raster {

class Painter {
 public:
  // `op` stands for the context's ROP2 where a call ignores it.
  Painter(const DrawContext& context, const Brush& brush, Rop2 op);
  Painter(const DrawContext& context, const Brush& brush) : Painter(context, brush, context.rop2) {}
  Painter(const DrawContext& context, Colour colour) : Painter(context, Brush::solid(colour)) {}

  const Rect& area() const { return area_; }
  // The pixels left .. right - 1 of row y, cut at the clip.
  void run(int y, int left, int right);
  void pixel(int x, int y) { run(y, x, x + 1); }
  void spans(std::span<const Span> spans) {
    for (const Span& s : spans) run(s.y, s.left, s.right);
  }

 private:
  void paint(int y, int left, int right);
  void hatchRun(int y, int left, int right);
  void patternRun(int y, int left, int right);
  std::uint8_t* buffer(int count);

  Brush brush_;
  Rect area_;
  const Region* region_;
  Point origin_;
  RowStore store_;
  int bytes_;
  bool opaqueGaps_;
  std::array<std::uint8_t, 4> ink_{};
  std::array<std::uint8_t, 4> gap_{};
  std::vector<std::uint8_t> row_;
  int inked_ = 0;  // pixels of row_ that hold the solid colour
  std::unique_ptr<RowConverter> tileConverter_;
  std::vector<std::uint8_t> tileLoose_;
  std::vector<std::uint8_t> tileRow_;
  int tileRowHeld_ = -1;
};

}  // namespace ruvo::raster
