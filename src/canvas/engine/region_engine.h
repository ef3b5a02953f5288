// The selection of the canvas: a marquee drawn by hand, and the picture that floats in it once it was lifted or pasted.
// Tools 11 and 12 hand their events on to it, hosts use it for their commands.
//
// The image rectangle (box) is the truth; RegionRect is derived from it, the scroll and Magnify. While pixels float,
// DIBregion holds them, DIBmask says which of them cover the picture (see region_compose.h), DIBsnap is the picture as if
// they were not there, and DIB shows them composed. A marquee that was not lifted holds nothing but its rectangle.
//
// A region belongs to the picture that it was made on: when the host puts another one in its place, it is forgotten.
#pragma once

#include <optional>

#include "canvas/engine/canvas_tool.h"
#include "canvas/engine/edge_drag.h"
#include "canvas/engine/stroke_picture.h"

namespace ruvo {

// How a picture is pasted.
struct PasteManner {
  bool transparent = false;  // pixels of the picture's top left colour leave what is below
  bool translucent = false;  // blended at `percent`; with `transparent` too the top left colour stays out as well
  bool text = false;         // right clicks on it ask the host for its menu (PasteOnText instead of PasteOn)
  int percent = 100;
  bool soft = false;  // byte 3 of a picture with alpha says how far each pixel covers; else it is taken as on white
};

// How what floats is laid over the picture. With RegionTranslucent the colour TransparentColor only stays out when
// TranslucentTransparent is set, whatever RegionTransparent says.
struct RegionFlags {
  bool RegionTransparent = false;
  bool RegionTranslucent = false;
  bool TranslucentTransparent = false;
  int TranslucentPercent = 100;  // of the region's strength; 0 to 100
};

// What turns and flips have made of a picture: mirrored left to right or not, then so many quarters to the left.
struct TurnsMade {
  bool mirrored = false;
  int quarters = 0;  // 0 to 3
  void add(int kind);
  // False without memory.
  bool redo(clsDIB& picture) const;
};

class RegionEngine {
 public:
  explicit RegionEngine(ToolContext& context) : context_(context) {}

  // --- State
  bool HasRegion() const { return stage_ != Stage::None; }  // a marquee stands, lifted or not
  bool floats() const { return stage_ == Stage::Floating; }
  bool PasteOn() const { return pasteOn_; }
  bool PasteOnText() const { return pasteOnText_; }
  // False while a paste floats commits it and leaves the tool; true stores.
  void setPasteOn(bool on) { setPaste(pasteOn_, on); }
  void setPasteOnText(bool on) { setPaste(pasteOnText_, on); }
  const RegionFlags& flags() const { return flags_; }
  // What floats is composed anew.
  void setFlags(const RegionFlags& flags);
  bool SuspendAntsMarching() const { return antsSuspended_; }
  void setSuspendAntsMarching(bool suspend);
  int MarqueePhase() const { return marqueePhase_; }
  bool TranslucencyPending() const { return pending_; }
  // What floats covers the picture by its alpha.
  bool soft() const { return soft_; }
  // First and last image pixels, which may lie outside the picture. False without a region.
  bool GetRegionData(int& x1, int& y1, int& x2, int& y2) const;
  // The marquee on the display, half-open; it may reach outside the view.
  Rect RegionRect() const;

  // --- What hosts do with it
  // Lifts what the marquee holds, so that the place beneath shows TransparentColor; true when pixels float afterwards.
  // Without memory the marquee stays as it is.
  bool PrepareRegionDragging();
  // Mirrors what floats left to right (0) or top to bottom (1), or turns it a quarter to the left (2) or right (3) around
  // its middle; a marquee is lifted for it. False, with nothing turned, without a region or memory.
  bool turn(int kind);
  // Composes what floats anew at its place: flat while a translucent region is dragged, with the blend to follow.
  void UpdateRegionDragging();
  // The blend that was put off.
  void UpdateRegionDragging_Process_Translucent();
  // Lets what floats land, raises NotifyToPrepareUndo and says true; a bare marquee just goes.
  bool commit();
  // The picture as before the lift or the paste; copies that earlier drags left behind stay. No event. True when there
  // were such copies.
  bool drop();
  // Away with the region, and the picture untouched: it is another one, or it goes, too.
  void forget();
  // forget() when DIB is no longer the picture of the region.
  void checkPicture();
  // A floating paste is dropped; lifted pixels vanish, and their place stays empty; what a bare marquee holds becomes
  // white. The region goes, without an event. True when the picture changed.
  bool erase();
  // The region's own pixels, white where the shape or transparency leaves them out; a soft region has its alpha. False
  // without region or memory.
  bool copy(clsDIB& out) const;
  // The other way round: what the region covers takes the pixels of a picture of its size, byte 3 included. Where it
  // floats they float on; a bare marquee's land at once, with NotifyToPrepareUndo. False, with nothing changed, without a
  // region or memory, or for another size.
  bool replace(const clsDIB& pixels);
  // The region's own pixels as copy() gives them, but with alpha: 0 where the shape or transparency leaves them out.
  bool copyCovered(clsDIB& out) const;
  // Lays a picture with alpha where the region is, its top left at `corner`: what the region held, with more around it.
  // What floats becomes that picture, as a soft one; under a bare marquee it lands at once, with NotifyToPrepareUndo.
  // False, with nothing changed, without a region, alpha or memory.
  bool grow(const clsDIB& pixels, Point corner);
  // Lets a picture of any depth float at the top left of what is seen, in tool 11. What floated was committed before.
  // False, with nothing changed, when there is no picture to paste on or to paste, or no memory.
  bool startPaste(const clsDIB& picture, const PasteManner& manner);
  // Another picture in the place of a paste that floats: the corner, the turns and the manner stay. False, with nothing
  // changed, when no paste floats, or without memory.
  bool replacePaste(const clsDIB& picture);

  // --- What the tools hand on
  void press(const ToolPoint& at, bool oval);
  void move(const ToolPoint& at);
  void release(const ToolPoint& at);
  // The button does not count any more: a rubber band goes, a drag ends where it is.
  void endGesture();
  bool abandon();
  bool arrow(CanvasKey key, KeyModifiers keys);
  void tick();
  OverlayFigures overlay() const;
  CursorWord cursor(Point display, CursorWord noRegion) const;

 private:
  enum class Stage { None, Standing, Floating };
  enum class Gesture { None, Band, Edge, Drag };

  CanvasBitmaps& bitmaps() const { return context_.bitmaps; }
  Rect onDisplay(const Rect& box) const;
  Point heldInPicture(Point image) const;
  bool isPaste() const { return pasteOn_ || pasteOnText_; }
  bool contains(Point image) const;
  CanvasEdge catchableEdge(Point display) const;
  std::optional<Colour> keyColour() const;
  void setPaste(bool& flag, bool on);

  void begin(Gesture gesture, const ToolPoint& at);
  void pressRight(const ToolPoint& at);
  void moveBand(Point image, bool equalSides);
  void endBand();
  void moveEdge(const ToolPoint& at);
  bool readyToMove();
  void moveTo(Point corner);
  void abandonDrag();
  void abandonFloat();

  bool takeHeld(clsDIB& out) const;
  const clsDIB* coverMask(const clsDIB& pixels, clsDIB& made) const;
  bool replaceFloating(const clsDIB& pixels);
  bool growFloating(const clsDIB& pixels, Point corner);
  bool makeMask(const clsDIB& region, clsDIB& mask) const;
  bool refreshMask();
  void compose(const Rect& before, bool blended);
  bool leaveCopy();
  void restoreUnder(const Rect& box);
  void takeBack();
  void clearBitmaps();
  void settle(Stage stage, const Rect& box);
  void end();
  void showMarquee();
  void measure() const;

  ToolContext& context_;
  Stage stage_ = Stage::None;
  Gesture gesture_ = Gesture::None;
  bool oval_ = false;
  bool liftedOval_ = false;  // the shape as it was lifted; one that has grown is a rectangle
  Rect box_;                 // image pixels; of the rubber band, too
  Rect home_;                // where it was lifted
  clsDIB lifted_;            // the pixels as they were lifted, once they have been turned
  RegionFlags flags_;
  bool pasteOn_ = false, pasteOnText_ = false;
  bool soft_ = false;
  TurnsMade turns_;
  std::optional<Colour> maskKey_;   // the colour that DIBmask leaves out
  std::optional<Colour> pasteKey_;  // TransparentColor as a paste has set it
  Colour colourBeforePaste_ = 0;
  StrokePicture picture_;
  bool copiesLeft_ = false;  // by drags that have ended or by this one

  // Of the gesture under way.
  ToolPoint pressed_;
  Rect boxAtPress_;
  CanvasEdge edge_ = CanvasEdge::None;
  bool copyWanted_ = false;  // Shift or Ctrl: the first move leaves a copy behind
  bool liftedInGesture_ = false;
  bool copiesBefore_ = false;
  clsDIB beneathCopy_;  // DIBsnap where this drag has left its copy

  bool pending_ = false;
  bool movedSinceTick_ = false;
  bool antsSuspended_ = false;
  int marqueePhase_ = 0;
};

}  // namespace ruvo
