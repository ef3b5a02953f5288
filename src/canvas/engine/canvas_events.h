// What the canvas tells its host (CanvasEvents) and what it asks of the window that carries it (CanvasWindow).
#pragma once

#include <string>

#include "base/colour.h"
#include "base/geometry.h"

namespace ruvo {

class clsDIB;

// Keys into the list of pointers that the application holds.
enum class CursorWord {
  Arrow,
  Paint,
  Erase,
  Fill,
  Poligon,
  Line,
  Arc,
  BezierStart,
  Bezier,
  Rectangle,
  Oval,
  Region,
  RegionDrag,
  PasteDrag,
  Stamp,
  Spray,
  Replace,
  ColorPicker,
  HandOff,
  HandOn,
  SizeVertical,    // over an upper or lower edge that can be dragged
  SizeHorizontal,  // over a left or right one
  Unchanged        // whatever pointer is shown stays
};
// "PAINT", "POLIGON", ...; empty for the arrow and the unchanged pointer.
const char* cursorWordText(CursorWord word);

// The events, in the order in which hosts know them. x and y are image pixels unless said otherwise.
class CanvasEvents {
 public:
  virtual ~CanvasEvents() = default;
  virtual void NotifyScroll() = 0;
  virtual void NotifyClickData(int button, Colour colour, int x, int y) = 0;  // button 1 left, 2 right
  virtual void NotifyRightClickOnPastedText() = 0;
  virtual void NotifyRegionMoved() = 0;
  // A drawing has just landed in DIB; in spite of the name it comes after the change.
  virtual void NotifyToPrepareUndo() = 0;
  virtual void NotifyDragResize(bool sizeChanged) = 0;
  virtual void NotifyDragResizeProforma(int width, int height) = 0;
  virtual void NotifyCancelGlassOp() = 0;   // the lens was put down on the picture
  virtual void NotifyRegionStatus() = 0;    // a region came into being or went
  virtual void NotifyPolygonCrop() = 0;     // the cut-out lies in DIBregion until the call returns
  virtual void NotifyBezierStatus() = 0;    // a curve started or ended
  virtual void NotifyCanvasMouseClick() = 0;
  virtual void NotifyCanvasMouseMove() = 0;
  virtual void MonitorXYdata(int x, int y) = 0;
  virtual void NoStamp() = 0;
  virtual void DispPointOfClick(int x, int y, Colour colour) = 0;
  virtual void DispMeasureRectangle(int x1, int y1, int width, int height) = 0;
  virtual void DispMeasureLine(int x1, int y1, int x2, int y2, double angle) = 0;  // degrees, 0 up to below 180
  virtual void DispMeasureArc(int x1, int y1, int x2, int y2, int cx, int cy, double radius) = 0;
  virtual void DispMeasureOval(int x, int y, double measure, int width, int height) = 0;
  virtual void DispMeasureClear() = 0;
  virtual void DIBProgress(int percent) = 0;
  virtual void DIBProgressEnd() = 0;
};

class CanvasWindow {
 public:
  virtual ~CanvasWindow() = default;
  // Pixels of the control that must be painted again.
  virtual void repaint(const Rect& control) = 0;
  // Bars (shown or not, place, range, position), handles or guides changed: take them over from the core.
  virtual void arrange() = 0;
  virtual void setCursor(CursorWord word) = 0;
  virtual void setToolTip(const std::string& text) = 0;
  // The hourglass while a tool works.
  virtual void setWaiting(bool waiting) = 0;
  virtual void hideLoadingMsg() = 0;
  // Calls CanvasCore::tick every kToolTick milliseconds, or no longer.
  virtual void setTicking(bool on) = 0;
  virtual void copyToClipboard(const clsDIB& picture) = 0;
};

}  // namespace ruvo
