// A canvas core with a window that only takes notes: events in order as text, repainted rectangles, pointer, tool tip.
#pragma once

#include <sstream>

#include "canvas/engine/canvas_core.h"
#include "support/pictures.h"

namespace ruvo::test {

struct RecordedCanvas : CanvasEvents, CanvasWindow {
  CanvasCore core{*this, *this};
  std::vector<std::string> events;
  std::vector<Rect> repainted;
  CursorWord cursor = CursorWord::Arrow;
  std::string toolTip;
  int waits = 0;
  bool ticking = false;
  clsDIB cutOut;     // the last polygon's
  clsDIB clipboard;  // what the canvas itself put there

  // Bars are 10 thick.
  explicit RecordedCanvas(Size client = {100, 100}) { core.setClient(client, {10, 10}); }
  // With a white picture in editor mode.
  RecordedCanvas(int width, int height) : RecordedCanvas() { showBlank(width, height); }

  void show(clsDIB&& dib) {
    core.bitmaps.DIB = std::move(dib);
    core.CanvasResize();
    clear();
  }
  // A white picture in editor mode.
  void showBlank(int width, int height) {
    core.setCanvasScreenMode(1);
    show(plainDib(width, height, kWhite));
  }
  void clear() {
    events.clear();
    repainted.clear();
  }
  std::vector<std::string> taken() { return std::exchange(events, {}); }

  // Display points, as a person sees them.
  Point control(Point display) const {
    return {display.x + core.view().picDisp.left, display.y + core.view().picDisp.top};
  }
  void press(Point at, MouseButton button = MouseButton::Left, KeyModifiers keys = {}) {
    core.mousePress(control(at), button, keys);
  }
  void move(Point at, KeyModifiers keys = {}) { core.mouseMove(control(at), keys); }
  void release(Point at, MouseButton button = MouseButton::Left, KeyModifiers keys = {}) {
    core.mouseRelease(control(at), button, keys);
  }
  // A press, one move and a release.
  void drag(Point from, Point to, KeyModifiers keys = {}) {
    press(from, MouseButton::Left, keys);
    move(to, keys);
    release(to, MouseButton::Left, keys);
  }
  void click(Point at, MouseButton button = MouseButton::Left) {
    press(at, button);
    release(at, button);
  }
  // The display as a person sees it, with what is drawn over the picture.
  clsDIB seen() {
    const Size size = core.view().displaySize();
    clsDIB shown;
    shown.CreateBlankDIB(size.width, size.height, 32, kWhite, true);
    core.render({0, 0, size.width, size.height}, {shown.surface().bits(), shown.surface().stride()});
    return shown;
  }
  Rows picture(const Ink& ink = blackAndWhite()) const { return rowsOf(core.bitmaps.DIB, ink); }
  Rect repaintedInAll() const {
    Rect all;
    for (const Rect& r : repainted) all = all.united(r);
    return all;
  }

  template <typename... Values>
  void note(const char* name, Values... values) {
    std::ostringstream text;
    text << name;
    ((text << ' ' << values), ...);
    events.push_back(text.str());
  }
  void NotifyScroll() override { note("NotifyScroll"); }
  void NotifyClickData(int button, Colour c, int x, int y) override { note("NotifyClickData", button, c, x, y); }
  void NotifyRightClickOnPastedText() override { note("NotifyRightClickOnPastedText"); }
  void NotifyRegionMoved() override { note("NotifyRegionMoved"); }
  void NotifyToPrepareUndo() override { note("NotifyToPrepareUndo"); }
  void NotifyDragResize(bool sizeChanged) override { note("NotifyDragResize", sizeChanged); }
  void NotifyDragResizeProforma(int w, int h) override { note("NotifyDragResizeProforma", w, h); }
  void NotifyCancelGlassOp() override { note("NotifyCancelGlassOp"); }
  void NotifyRegionStatus() override { note("NotifyRegionStatus"); }
  void NotifyPolygonCrop() override {
    note("NotifyPolygonCrop");
    clsDIB::CloneDIB(core.bitmaps.DIBregion, cutOut, kWhite, false);
  }
  void NotifyBezierStatus() override { note("NotifyBezierStatus"); }
  void NotifyCanvasMouseClick() override { note("NotifyCanvasMouseClick"); }
  void NotifyCanvasMouseMove() override { note("NotifyCanvasMouseMove"); }
  void MonitorXYdata(int x, int y) override { note("MonitorXYdata", x, y); }
  void NoStamp() override { note("NoStamp"); }
  void DispPointOfClick(int x, int y, Colour c) override { note("DispPointOfClick", x, y, c); }
  void DispMeasureRectangle(int x, int y, int w, int h) override { note("DispMeasureRectangle", x, y, w, h); }
  void DispMeasureLine(int x1, int y1, int x2, int y2, double angle) override {
    note("DispMeasureLine", x1, y1, x2, y2, angle);
  }
  void DispMeasureArc(int x1, int y1, int x2, int y2, int cx, int cy, double radius) override {
    note("DispMeasureArc", x1, y1, x2, y2, cx, cy, radius);
  }
  void DispMeasureOval(int x, int y, double measure, int w, int h) override {
    note("DispMeasureOval", x, y, measure, w, h);
  }
  void DispMeasureClear() override { note("DispMeasureClear"); }
  void DIBProgress(int percent) override { note("DIBProgress", percent); }
  void DIBProgressEnd() override { note("DIBProgressEnd"); }
  void repaint(const Rect& control) override { repainted.push_back(control); }
  void arrange() override {}
  void setCursor(CursorWord word) override {
    if (word != CursorWord::Unchanged) cursor = word;
  }
  void setToolTip(const std::string& text) override { toolTip = text; }
  void setWaiting(bool waiting) override { waits += waiting; }
  void hideLoadingMsg() override {}
  void setTicking(bool on) override { ticking = on; }
  void copyToClipboard(const clsDIB& picture) override { clsDIB::CloneDIB(picture, clipboard, kWhite, false); }
};

using Events = std::vector<std::string>;

}  // namespace ruvo::test
