// The interface between the canvas and its tools. A tool sees the picture, the view arithmetic and the settings through
// its context, and never a window.
#pragma once

#include <optional>

#include "base/random_source.h"
#include "canvas/engine/canvas_events.h"
#include "canvas/engine/canvas_settings.h"
#include "canvas/engine/overlay.h"
#include "canvas/engine/view_geometry.h"
#include "image/clsDIB.h"

namespace ruvo {

class RegionEngine;

// Values of CanvasOp that more than the tool's own file must know.
inline constexpr int kPolygonOp = 3;
inline constexpr int kBezierOp = 6;
inline constexpr int kRectangleRegionOp = 11;
inline constexpr int kGlassOp = 17;
inline constexpr int kScrollOp = 18;  // no tool: scroll mode

// The working pictures, all 32 bits. DIB is the picture itself: every committed change lands there.
struct CanvasBitmaps {
  clsDIB DIB;
  clsDIB DIBsnap;    // the picture before a figure of several clicks
  clsDIB DIBregion;  // floating pixels; empty again after any use as scratch
  clsDIB DIBmask;
  clsDIB DIBCustomBrush, DIBCustomBrushMask;
  clsDIB DIBCustomPattern;
  clsDIB DIBStamp, DIBStampMask;
};

// In display pixels.
struct DisplayLine {
  Point from;
  Point to;
};

// What the tools share while they work.
struct CanvasScalars {
  int CurX = 0, CurY = 0;  // the stroke's current image point
  DisplayLine LineRect;    // the last rubber band
  // The button is held for that family of tools.
  bool StrokeDown = false, EraseDown = false, RegionDown = false, BezierDown = false, GlassDown = false,
       HandDown = false;
  bool Busy = false;       // the canvas changes its own bars, or a tool works: scroll and resize requests do nothing
  bool MouseOver = false;  // the pointer is on the picture
  bool XYlinesShown = false;
};

enum class MouseButton { None, Left, Right };

// The keys that act on what a tool has under way.
enum class CanvasKey { Escape, Left, Right, Up, Down };

struct KeyModifiers {
  bool shift = false;
  bool ctrl = false;
  bool alt = false;
  bool any() const { return shift || ctrl || alt; }
};

// A mouse event as a tool sees it.
struct ToolPoint {
  Point display;
  Point image;  // outside the picture when the pointer is
  MouseButton button = MouseButton::None;
  KeyModifiers keys;
};

// What the tools share with the canvas, and what they may ask of it.
class ToolContext {
 public:
  explicit ToolContext(CanvasEvents& e) : events(e) {}
  virtual ~ToolContext() = default;

  CanvasBitmaps bitmaps;
  CanvasSettings settings;
  CanvasScalars scalars;
  CanvasEvents& events;

  virtual const ViewGeometry& view() const = 0;
  // How polygons are drawn: 0 vertex by vertex, 1 whole by one press.
  virtual int PolygonDrawMethod() const = 0;
  // Pixels of DIB changed: the part of the view that shows them is painted again.
  virtual void changed(const Rect& imageRect) = 0;
  // What the tool shows over the picture changed: its figures are asked for again.
  virtual void overlayChanged() = 0;
  // Moves the view with bars and NotifyScroll.
  virtual void scrollTo(int x, int y) = 0;
  virtual void setCursor(CursorWord word) = 0;
  // The colour that is seen at an image pixel (over white where the picture is see-through); none outside.
  virtual std::optional<Colour> seenColour(Point image) const = 0;
  // Busy and the hourglass, for work over the whole picture.
  virtual void setWorking(bool working) = 0;
  // Source of random dots; null means that the engines use their own.
  virtual RandomSource* random() = 0;
  // How many times as large as on an ordinary screen handles and markers are; 1 or more.
  virtual int scale() const = 0;
  // Leaves the tool in hand for another one. The tool's abort() runs within the call; it must touch nothing afterwards.
  virtual void selectTool(int op) = 0;
  // Puts a copy of the picture on the clipboard.
  virtual void copyToClipboard(const clsDIB& picture) = 0;
  // Calls the tool's tick() every kToolTick milliseconds until told otherwise.
  virtual void setTicking(bool on) = 0;
  // The selection, whichever tool is in hand.
  virtual RegionEngine& region() = 0;
  virtual const RegionEngine& region() const = 0;
};

inline constexpr int kToolTick = 200;

class CanvasTool {
 public:
  virtual ~CanvasTool() = default;
  // The tool was chosen, or the picture that it works on was replaced.
  virtual void enter(ToolContext&) {}
  virtual void press(ToolContext&, const ToolPoint&) {}
  // While the button is held, and always while inProgress().
  virtual void move(ToolContext&, const ToolPoint&) {}
  virtual void release(ToolContext&, const ToolPoint&) {}
  // The tool is left, or the view changes under a figure in progress. A stroke under way ends as if released.
  virtual void abort(ToolContext&) {}
  // The picture is about to go: forget what is under way and touch nothing.
  virtual void drop() {}
  // Escape: takes back what is in progress, the button held or not, and leaves the picture as it was before. True when
  // there was something. The canvas forgets the held button afterwards.
  virtual bool abandon(ToolContext&) { return false; }
  // An arrow key; true when the tool used it.
  virtual bool arrow(ToolContext&, CanvasKey, KeyModifiers) { return false; }
  virtual void tick(ToolContext&) {}
  // What is shown over the picture now, for the present view.
  virtual OverlayFigures overlay(const ToolContext&) { return {}; }
  // A right button press reaches the tool though its row of the table says no.
  virtual bool takesRightPress() const { return false; }
  // A figure of several clicks has begun.
  virtual bool inProgress() const { return false; }
  // The pointer at a display point, when the table's word is not enough.
  virtual CursorWord cursor(const ToolContext&, Point /*display*/, CursorWord tableWord) const { return tableWord; }
};

}  // namespace ruvo
