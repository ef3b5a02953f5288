// A white picture with a tool that draws in black with one pixel.
#pragma once

#include "canvas/engine/recorded_canvas.h"

namespace ruvo::test {

struct ShapeCanvas : RecordedCanvas {
  explicit ShapeCanvas(int op, int side = 7, int magnify = 1) : RecordedCanvas(side, side) {
    core.settings.ColorToUse = kBlack;
    core.settings.BrushSize = 1;
    core.settings.Magnify = magnify;
    core.CanvasResize();
    core.setCanvasOp(op);
    clear();
  }
  Rows shown() { return rowsOf(seen()); }
  bool inProgress() const { return core.toolInProgress(core.CanvasOp()); }
  // How many pixels of the picture are not white.
  std::ptrdiff_t inked() const {
    std::ptrdiff_t count = 0;
    for (const std::string& row : picture({{'.', kWhite}})) count += std::count(row.begin(), row.end(), '?');
    return count;
  }
};

inline constexpr KeyModifiers kShift{true, false, false};
inline const Rows kNothing(7, ".......");

}  // namespace ruvo::test
