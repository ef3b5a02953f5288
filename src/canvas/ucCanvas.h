// The painting control: shows its DIB at a whole magnification inside a scrolled view, turns the mouse into drawing by
// CanvasOp, and tells its host what happened by signals. The host never draws. All display arithmetic is in device
// pixels.
//
// This class is the window side only (events in, pixels out, child controls); state, layout, tools and drawing live in
// CanvasCore, which knows no window.
#pragma once

#include <QWidget>
#include <memory>

#include "canvas/engine/canvas_settings.h"
#include "image/clsDIB.h"

namespace ruvo {

class CanvasCore;
struct PasteManner;

class ucCanvas : public QWidget {
  Q_OBJECT

 public:
  struct Private;  // shared with the child controls

  explicit ucCanvas(QWidget* parent = nullptr);
  ~ucCanvas() override;

  // The picture at real size, 32 bits. Hosts may remake it; then call CanvasResize.
  clsDIB& DIB();
  const clsDIB& DIB() const;
  // Where a polygon's cut-out lies while NotifyPolygonCrop is told; the host may take it away.
  clsDIB& DIBregion();
  // What custom tools use: loaded brush, pattern and stamp with their masks.
  clsDIB& DIBCustomBrush();
  clsDIB& DIBCustomBrushMask();
  clsDIB& DIBCustomPattern();
  clsDIB& DIBStamp();
  clsDIB& DIBStampMask();
  bool CustomBrushPresent() const;
  bool CustomPatternPresent() const;
  bool StampPresent() const;

  // Properties whose write only stores.
  CanvasSettings& settings();
  const CanvasSettings& settings() const;

  // Properties whose write acts at once.
  int CanvasOp() const;
  void setCanvasOp(int op);  // 0 paint to 18 none
  int CanvasScreenMode() const;
  void setCanvasScreenMode(int mode);  // 0 viewer, else editor
  int PolygonDrawMethod() const;
  void setPolygonDrawMethod(int method);
  void setCanvasBackColor(const QColor& color);
  bool SuspendCanvasResizeByEdgeDragging() const;
  void setSuspendCanvasResizeByEdgeDragging(bool suspend);
  void setToShowPixelRGB(bool show);
  // A tool or the hand holds the mouse button.
  bool held() const;
  // A held button counts as let go where the pointer was last; hosts say so before a command that comes between.
  void letGo();
  // Ends the stroke under way as if the button had been let go; NotifyToPrepareUndo comes before the return.
  void finishStroke();

  bool PolygonInProgress() const;
  bool BezierInProgress() const;

  // The region; see RegionEngine for what each call does.
  bool HasRegion() const;               // a marquee stands, lifted or not: what menus and commands ask
  bool RegionMoveReady() const;         // its pixels float above the picture
  void setRegionMoveReady(bool ready);  // false commits, true does nothing
  bool PasteOn() const;
  bool PasteOnText() const;
  // False while a paste floats commits it and selects tool 18; true stores.
  void setPasteOn(bool on);
  void setPasteOnText(bool on);
  bool RegionTransparent() const;
  bool RegionTranslucent() const;
  bool TranslucentTransparent() const;
  int TranslucentPercent() const;
  bool TranslucencyPending() const;
  bool RegionSoft() const;  // what floats covers the picture by its alpha
  // A write composes what floats anew.
  void setRegionTransparent(bool on);
  void setRegionTranslucent(bool on);
  void setTranslucentTransparent(bool on);
  void setTranslucentPercent(int percent);
  bool SuspendAntsMarching() const;
  void setSuspendAntsMarching(bool suspend);
  const clsDIB& DIBregion() const;
  const clsDIB& DIBmask() const;
  const clsDIB& DIBsnap() const;
  // First and last image pixels, which may lie outside the picture. False without a region.
  bool GetRegionData(int& x1, int& y1, int& x2, int& y2) const;
  // Lifts what the marquee holds; true when pixels float afterwards.
  bool PrepareRegionDragging();
  void UpdateRegionDragging();
  void UpdateRegionDragging_Process_Translucent();
  // Mirrors left to right (0) or top to bottom (1), or turns a quarter to the left (2) or right (3): what the region
  // holds, else the whole picture. Any other kind does nothing.
  void doRotateOperation(int kind);
  // Commits what floats, selects tool 11 and lets the picture float at the top left of what is seen. False, with nothing
  // changed but that commit, when there is no picture yet or no memory.
  bool startPaste(const clsDIB& picture, const PasteManner& manner);
  // Another picture in the place of a paste that floats, at its corner and with its turns. False, with nothing changed,
  // when none floats, or without memory.
  bool replacePaste(const clsDIB& picture);
  // The region's own pixels, white where its shape or transparency leaves them out; with its alpha when it is soft.
  // False without one.
  bool copyRegion(clsDIB& out);
  // The region's own pixels become those of a picture of its size; see RegionEngine::replace.
  bool replaceRegion(const clsDIB& pixels);
  // The same with alpha, and with more around it; see RegionEngine::copyCovered and grow.
  bool copyCoveredRegion(clsDIB& out);
  bool growRegion(const clsDIB& pixels, Point corner);
  // Takes what the region holds out of the picture, and the region with it; without an event. A floating paste is only
  // dropped. True when the picture changed.
  bool eraseRegion();
  // Ends what floats into the DIB, by NotifyToPrepareUndo before the return; true when something did.
  bool commitFloating();
  // Takes the floating picture or the marquee away without a trace.
  void dropFloating();
  void BezierAbort();  // ends an open Bezier curve without drawing

  // Members.
  void CanvasResize();
  void CanvasPicPaint();
  void CanvasCleanse();
  void GetScrollValues(int& x, int& y) const;
  void SetScrollValues(int x, int y, bool repaint = true, bool syncBars = true);
  void GetScrollMaxInfo(int& x, int& y) const;
  void GetScrollBarVisibilityInfo(bool& horizontal, bool& vertical) const;
  bool HasScrollBarVisible() const;
  void GetCurrentGrossImageSize(int& width, int& height) const;
  void GetPicdispStartPos(int& left, int& top) const;
  void GetVisibleStartInfo(int& x, int& y) const;
  void GetVisibleInfo(int& x1, int& y1, int& x2, int& y2) const;
  // The last rubber band in display pixels, from where it began.
  void GetLineInfo(int& x1, int& y1, int& x2, int& y2) const;
  void ShowLoadingMsg();
  void RemoveLoadingMsg();
  void AdjustRegionDispPosition_After_FormMax();
  void updateGlass();  // shows the magnifying glass anew, if it is out, after its settings changed
  void GetMagnifyGlassSizeInfo(int& width, int& height) const;  // device pixels of the display

 Q_SIGNALS:
  void doLoadFileByDragDrop(const QString& path);
  void NotifyScroll();
  void NotifyClickData(int button, ruvo::Colour colour, int x, int y);  // button 1 left, 2 right
  void NotifyRightClickOnPastedText();
  void NotifyRegionMoved();
  // A drawing has just landed in DIB; in spite of the name it comes after the change.
  void NotifyToPrepareUndo();
  void NotifyDragResize(bool sizeChanged);
  void NotifyDragResizeProforma(int width, int height);
  void NotifyCancelGlassOp();
  void NotifyRegionStatus();
  void NotifyPolygonCrop();
  void NotifyBezierStatus();
  void NotifyCanvasMouseClick();
  void NotifyCanvasMouseMove();
  void MonitorXYdata(int x, int y);
  void NoStamp();
  void DispPointOfClick(int x, int y, ruvo::Colour colour);
  void DispMeasureRectangle(int x1, int y1, int width, int height);
  void DispMeasureLine(int x1, int y1, int x2, int y2, double angle);
  void DispMeasureArc(int x1, int y1, int x2, int y2, int cx, int cy, double radius);
  void DispMeasureOval(int x, int y, double measure, int width, int height);
  void DispMeasureClear();
  void DIBProgress(int percent);
  void DIBProgressEnd();
  // Ctrl and the wheel: steps above zero ask for a larger picture. A magnification that the host sets before it returns
  // keeps the point under the pointer in its place.
  void zoomRequested(int steps);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  std::unique_ptr<Private> d_;
};

}  // namespace ruvo
