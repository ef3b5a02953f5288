#include "canvas/tools/tool_table.h"

namespace ruvo {

// clang-format off
const std::array<ToolRow, 19>& toolTable() {
  using W = CursorWord;
  static const std::array<ToolRow, 19> table = {{
      //                     right  right  cross  pixel
      // op cursor           press  release hair  readout
      {0, W::Paint,          false, false, true,  false, makePaintTool},
      {1, W::Erase,          false, false, true,  false, makeEraseTool},
      {2, W::Fill,           false, false, false, true,  makeFillTool},
      {3, W::Poligon,        true,  true,  false, false, makePolygonTool},
      {4, W::Line,           false, false, false, false, makeLineTool},
      {5, W::Arc,            false, false, false, false, makeArcTool},
      {6, W::BezierStart,    true,  true,  false, false, makeBezierTool},
      {7, W::Rectangle,      false, false, false, false, makeRectangleTool},
      {8, W::Rectangle,      false, false, false, false, makeFilledRectangleTool},
      {9, W::Oval,           false, false, true,  false, makeOvalTool},
      {10, W::Oval,          false, false, true,  false, makeFilledOvalTool},
      {11, W::Region,        false, false, true,  false, makeRegionTool},
      {12, W::Region,        false, false, true,  false, makeOvalRegionTool},
      {13, W::Stamp,         false, false, false, false, makeStampTool},
      {14, W::Spray,         false, false, false, false, makeSprayTool},
      {15, W::Replace,       false, false, false, true,  makeReplaceTool},
      {16, W::ColorPicker,   false, true,  false, false, makeColorPickerTool},
      {17, W::Unchanged,     true,  true,  false, false, makeGlassTool},
      {18, W::HandOff,       true,  true,  false, false, makeScrollTool},
  }};
  return table;
}
// clang-format on

}  // namespace ruvo
