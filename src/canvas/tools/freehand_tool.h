// What the paint brush and the eraser have in common: a stroke from press to release in one of the brush styles.
#pragma once

#include <optional>

#include "canvas/engine/brush_custom.h"
#include "canvas/engine/brush_dab.h"
#include "canvas/engine/canvas_tool.h"
#include "canvas/engine/stroke_picture.h"

namespace ruvo {

class FreehandTool : public CanvasTool {
 public:
  void press(ToolContext& context, const ToolPoint& at) override;
  void move(ToolContext& context, const ToolPoint& at) override;
  void release(ToolContext& context, const ToolPoint& at) override;
  void abort(ToolContext& context) override;
  void drop() override;

 protected:
  virtual Colour ink(const CanvasSettings& settings) const = 0;
  virtual int style(const CanvasSettings& settings) const = 0;
  virtual bool& heldFlag(CanvasScalars& scalars) const = 0;

 private:
  Rect mark(ToolContext& context, Point at);
  void finish(ToolContext& context);

  // Taken at press: what a host changes in between counts for the next stroke.
  Colour colour_ = 0;
  int size_ = 1;
  int style_ = 0;
  int percent_ = 100;
  StrokePicture picture_;
  brush::BrushStroke dabs_;
  std::optional<brush::CustomBrushStroke> custom_;
};

}  // namespace ruvo
