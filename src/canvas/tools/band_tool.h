// What the line, the rectangles and the ovals have in common: a band is drawn out from press to release, on the display
// only, and the figure lands in the picture where it stood.
#pragma once

#include "canvas/engine/canvas_tool.h"
#include "canvas/engine/stroke_picture.h"

namespace ruvo {

class BandTool : public CanvasTool {
 public:
  void press(ToolContext& context, const ToolPoint& at) override;
  void move(ToolContext& context, const ToolPoint& at) override;
  void release(ToolContext& context, const ToolPoint& at) override;
  void abort(ToolContext& context) override;
  void drop() override { picture_.end(); }
  bool abandon(ToolContext& context) override;
  OverlayFigures overlay(const ToolContext& context) override;

 protected:
  // Both ends in image pixels, as the pointer went.
  struct Band {
    Point from;
    Point to;
    // The pixels between both ends, which belong to it.
    Rect box() const;
  };
  // Where the keys hold the far end: see constrainedBox and constrainedLine, which take the same values.
  virtual Point constrained(Point anchor, Point end, Size display, int magnify) const = 0;
  // The band between two display points in the middle of image pixels.
  virtual OverlayFigure figure(Point from, Point to) const = 0;
  virtual void measure(CanvasEvents& events, const Band& band) const = 0;
  // Draws the figure; returns the changed rectangle. When that is empty nothing has happened, and nothing is told.
  virtual Rect draw(clsDIB& picture, const CanvasSettings& settings, const Band& band) const = 0;

 private:
  void follow(ToolContext& context, const ToolPoint& at);
  void showBand(ToolContext& context);
  void takeAway(ToolContext& context);

  StrokePicture picture_;
  Band band_;
  Point pointer_;  // of the last move
};

}  // namespace ruvo
