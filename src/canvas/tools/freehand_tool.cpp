#include "canvas/tools/freehand_tool.h"

#include "canvas/engine/brush_pen.h"
#include "canvas/engine/brush_styles.h"

namespace ruvo {

void FreehandTool::press(ToolContext& context, const ToolPoint& at) {
  const CanvasSettings& settings = context.settings;
  clsDIB& dib = context.bitmaps.DIB;
  colour_ = ink(settings);
  size_ = std::max(1, settings.BrushSize);
  style_ = style(settings);
  percent_ = settings.PaintBrushTranslucencyPercent;
  picture_.begin(dib);
  heldFlag(context.scalars) = true;
  context.scalars.CurX = at.image.x;
  context.scalars.CurY = at.image.y;
  if (brush::isDabStyle(style_)) {
    dabs_.setRandomSource(context.random());
    dabs_.BrushStrokeBegin(dib, colour_);
  } else if (style_ == brush::kCustom && !context.bitmaps.DIBCustomBrush.empty()) {
    custom_.emplace(
        dib, context.bitmaps.DIBCustomBrush, context.bitmaps.DIBCustomBrushMask,
        brush::CustomBrushStroke::Manner{percent_, settings.CustomBrushShape, settings.CustomBrushApplyManner});
  }
  context.changed(mark(context, at.image));
}

Rect FreehandTool::mark(ToolContext& context, Point at) {
  clsDIB& dib = context.bitmaps.DIB;
  if (brush::isPenStyle(style_))
    return brush::paintPenMark(dib, at, size_, style_, colour_, context.view().visibleImage());
  if (custom_) return custom_->press(at);
  return dabs_.active() ? dabs_.BrushDab(at.x, at.y, size_, percent_, style_) : Rect{};
}

void FreehandTool::move(ToolContext& context, const ToolPoint& at) {
  clsDIB& dib = context.bitmaps.DIB;
  if (!picture_.isStill(dib)) return drop();
  const Point last{context.scalars.CurX, context.scalars.CurY};
  const Point next = brush::straightened(last, at.image, at.keys.shift, at.keys.ctrl);
  if (next == last) return;
  if (brush::isPenStyle(style_)) {
    context.changed(brush::paintPenSegment(dib, last, next, size_, colour_, context.view().visibleImage()));
  } else if (custom_) {
    context.changed(custom_->move(next));
  } else if (dabs_.active()) {
    context.changed(dabs_.walk(last, next, size_, percent_, style_));
  }
  context.scalars.CurX = next.x;
  context.scalars.CurY = next.y;
}

void FreehandTool::release(ToolContext& context, const ToolPoint&) {
  finish(context);
}

void FreehandTool::abort(ToolContext& context) {
  finish(context);
}

void FreehandTool::finish(ToolContext& context) {
  const bool ours = picture_.isStill(context.bitmaps.DIB);
  heldFlag(context.scalars) = false;
  if (ours && brush::isPenStyle(style_) && brush::marksAtRelease(size_)) {
    context.changed(mark(context, {context.scalars.CurX, context.scalars.CurY}));
  }
  drop();
  if (ours) context.events.NotifyToPrepareUndo();
}

void FreehandTool::drop() {
  picture_.end();
  custom_.reset();
  if (dabs_.active()) dabs_.BrushStrokeEnd();
}

}  // namespace ruvo
