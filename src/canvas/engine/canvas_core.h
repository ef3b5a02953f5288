// The canvas without its window: pictures, settings, layout, the tool in use, and what the mouse does to them. The
// window side hands in events in device pixels of the control, paints by render(), and passes the events on to the
// host.
#pragma once

#include <array>
#include <memory>
#include <string_view>

#include "canvas/engine/canvas_tool.h"
#include "canvas/engine/edge_drag.h"
#include "canvas/engine/region_engine.h"
#include "canvas/engine/view_render.h"

namespace ruvo {

struct ToolRow;

class CanvasCore final : private ToolContext {
 public:
  CanvasCore(CanvasEvents& events, CanvasWindow& window);
  ~CanvasCore() override;
  CanvasCore(const CanvasCore&) = delete;

  using ToolContext::bitmaps;
  using ToolContext::settings;
  const ViewGeometry& view() const override { return view_; }
  bool blank() const { return bitmaps.DIB.empty(); }
  bool Busy() const { return scalars.Busy; }
  // A tool or the hand holds the mouse button.
  bool held() const { return heldButton_ != MouseButton::None; }
  // Random dots from a test's source; null gives the engines' own back.
  void setRandomSource(RandomSource* source) { random_ = source; }

  // --- Properties whose write acts
  int CanvasOp() const { return op_; }
  void setCanvasOp(int op);  // 0 to 18, else nothing
  int CanvasScreenMode() const { return screenMode_; }
  void setCanvasScreenMode(int mode);
  bool SuspendCanvasResizeByEdgeDragging() const { return edgesSuspended_; }
  void setSuspendCanvasResizeByEdgeDragging(bool suspend);
  void setToShowPixelRGB(bool show);
  int PolygonDrawMethod() const override { return polygonDrawMethod_; }
  void setPolygonDrawMethod(int method);  // ends a polygon being built
  bool toolInProgress(int op) const;

  // --- Members

  // Size of the control, thickness of its bars (width of the vertical, height of the horizontal one), and how many
  // times as large as on an ordinary screen handles are.
  void setClient(Size client, Size bars, int scale = 1);
  void CanvasResize();
  void CanvasPicPaint();
  void CanvasCleanse();
  // Forgets a polygon that is being built.
  void PolygonAbort();
  void SetScrollValues(int x, int y, bool repaint, bool syncBars);
  DisplayLine GetLineInfo() const { return scalars.LineRect; }
  Size grossSize() const;  // by the present settings
  // The selection. Its commit() leaves a stroke of another tool alone.
  RegionEngine& region() override { return region_; }
  const RegionEngine& region() const override { return region_; }
  // Lets what floats land in DIB with NotifyToPrepareUndo, and says true when something did; a bare marquee goes. A
  // stroke under way ends first, with its own event.
  bool commitFloating();
  // Ends the stroke under way as if the button had been let go.
  void finishStroke();
  // Takes away what floats, and forgets the stroke under way; what that has painted stays for the host to take back.
  void dropFloating();
  // Commits what floats, then lets the picture float: see RegionEngine::startPaste.
  bool startPaste(const clsDIB& picture, const PasteManner& manner);

  // --- Mouse, in control pixels
  void mousePress(Point at, MouseButton button, KeyModifiers keys);
  void mouseMove(Point at, KeyModifiers keys);
  void mouseRelease(Point at, MouseButton button, KeyModifiers keys);
  void mouseLeave();  // the pointer left the control
  // The held button counts as let go where the pointer was last: its release went elsewhere, or a command comes between.
  void letGo();

  // --- Keys and time
  // True when the key meant something to what is under way; hosts give other keys their usual sense.
  bool keyPress(CanvasKey key, KeyModifiers keys);
  void tick();

  // --- Resizing the canvas by its edges
  bool edgeHandlesShown() const;
  const EdgeDrag& edgeDrag() const { return edgeDrag_; }
  void edgePress(CanvasEdge edge, Point at);
  void edgeMove(Point at);
  void edgeRelease();

  // --- Painting and files

  // A setting of what the tool shows over the picture changed.
  void overlayChanged() override;
  // Renders `area` of the display with what is drawn over the picture. See ViewRenderer::render.
  void render(const Rect& area, RenderTarget target);
  // A dropped file's name has one of the extensions of FileExtAllowed.
  bool dropAllowed(std::string_view fileName) const;

 private:
  // ToolContext
  void changed(const Rect& imageRect) override;
  void scrollTo(int x, int y) override;
  void setCursor(CursorWord word) override { window_.setCursor(word); }
  std::optional<Colour> seenColour(Point image) const override { return ruvo::seenColour(bitmaps.DIB, image); }
  void setWorking(bool working) override;
  RandomSource* random() override { return random_; }
  int scale() const override { return scale_; }
  void selectTool(int op) override { setCanvasOp(op); }
  void copyToClipboard(const clsDIB& picture) override { window_.copyToClipboard(picture); }
  void setTicking(bool on) override { window_.setTicking(on); }

  const ToolRow& row() const;
  CanvasTool* tool() const { return tools_[static_cast<std::size_t>(op_)].get(); }
  ToolPoint toolPoint(Point display, MouseButton button, KeyModifiers keys) const;
  Point toDisplay(Point control) const { return {control.x - view_.picDisp.left, control.y - view_.picDisp.top}; }
  void layoutView();
  void resetStroke();
  void repaintAll();
  void repaintDisplay(const Rect& display);
  OverlayFigures overlayNow();
  bool smooth() const { return screenMode_ <= 0; }
  void chooseCursor(Point display);
  void showXYlines(Point display);
  void wipeXYlines();
  void showPixel(Point image);
  void leavePicture();
  bool edgesFree() const;
  bool takeNewSize(Size size, Point oldAt);

  CanvasWindow& window_;
  ViewGeometry view_;
  ViewRenderer renderer_;
  OverlayFigures overlay_;  // as shown
  EdgeDrag edgeDrag_;
  RegionEngine region_{*this};
  std::array<std::unique_ptr<CanvasTool>, kScrollOp + 1> tools_;
  RandomSource* random_ = nullptr;
  Size client_;
  Size bars_;
  int scale_ = 1;
  int op_ = kScrollOp;
  int screenMode_ = 0;
  int polygonDrawMethod_ = 0;
  bool edgesSuspended_ = false;
  bool showPixelRgb_ = false;
  bool backgroundPressed_ = false;
  MouseButton heldButton_ = MouseButton::None;  // whose press was taken; a release acts only for it
  Point heldAt_;                                // of its press or last move, in the control
  KeyModifiers heldKeys_;
  Point xyLines_;
};

}  // namespace ruvo
