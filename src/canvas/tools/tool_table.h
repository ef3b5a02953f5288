// The tools by their number. One row says what a tool is for the canvas.
#pragma once

#include <array>
#include <memory>

#include "canvas/engine/canvas_tool.h"

namespace ruvo {

struct ToolRow {
  int op;
  CursorWord cursor;
  bool rightPress;    // a right button press reaches it
  bool rightRelease;  // it acts when the right button is let go
  bool crossHair;     // cross hair lines follow the pointer while no button is held
  bool pixelReadout;  // the tool tip shows the colour under the pointer
  std::unique_ptr<CanvasTool> (*make)();
};

const std::array<ToolRow, 19>& toolTable();

std::unique_ptr<CanvasTool> makePaintTool();
std::unique_ptr<CanvasTool> makeEraseTool();
std::unique_ptr<CanvasTool> makeFillTool();
std::unique_ptr<CanvasTool> makeReplaceTool();
std::unique_ptr<CanvasTool> makePolygonTool();
std::unique_ptr<CanvasTool> makeLineTool();
std::unique_ptr<CanvasTool> makeRectangleTool();
std::unique_ptr<CanvasTool> makeFilledRectangleTool();
std::unique_ptr<CanvasTool> makeArcTool();
std::unique_ptr<CanvasTool> makeBezierTool();
std::unique_ptr<CanvasTool> makeOvalTool();
std::unique_ptr<CanvasTool> makeFilledOvalTool();
std::unique_ptr<CanvasTool> makeStampTool();
std::unique_ptr<CanvasTool> makeSprayTool();
std::unique_ptr<CanvasTool> makeColorPickerTool();
std::unique_ptr<CanvasTool> makeGlassTool();
std::unique_ptr<CanvasTool> makeScrollTool();
std::unique_ptr<CanvasTool> makeRegionTool();
std::unique_ptr<CanvasTool> makeOvalRegionTool();

}  // namespace ruvo
