// The layout of a canvas: which scroll bars it needs, where the picture's visible part (picDisp) lies in the control,
// and how points map between the control, the display and the picture. Plain arithmetic on device pixels; no window.
//
// Three spaces: *control* (pixels of the whole control), *display* (control less picDisp's corner) and *image* (pixels
// of the picture). Magnified pixels are display plus scroll.
#pragma once

#include "base/geometry.h"

namespace ruvo {

// Scroll bars end here; a picture that is longer when magnified can not be scrolled to its end.
inline constexpr int kScrollBarLimit = 32767;

struct ViewLayout {
  Size client;             // the whole control
  Size image;              // an empty one means that nothing is loaded
  int magnify = 1;         // at least 1
  bool fitInView = false;  // the whole picture is stretched into `fitted`, and bars are never used
  Rect fitted;             // with fitInView: place and size within fitRoom(client)
  Size bars;               // thickness: width of the vertical bar, height of the horizontal one
};

struct ViewGeometry {
  Size client;
  Size image;
  int Magnify = 1;
  bool FitInView = false;
  bool horizontalBar = false;
  bool verticalBar = false;
  // View position in magnified pixels, and its limits. Maxima equal the hidden length, at most kScrollBarLimit.
  int ScrollX = 0, ScrollY = 0;
  int ScrollMaxX = 0, ScrollMaxY = 0;
  Rect picDisp;                                           // in the control
  Rect horizontalBarRect, verticalBarRect, junctionRect;  // empty when not shown
  // First visible image pixel.
  int VisStartX = 0, VisStartY = 0;
  // Destination on the display and source in the picture: the whole source pixels that fit. What is painted goes on in
  // the same grid until the view is covered.
  int DstX = 0, DstY = 0, DstW = 0, DstH = 0;
  int SrcX = 0, SrcY = 0, SrcW = 0, SrcH = 0;

  bool blank() const { return image.empty(); }
  bool anyBar() const { return horizontalBar || verticalBar; }
  // The part of the control in which a fitted picture may lie: one pixel stays free on each side.
  static Size fitRoom(Size client) { return {client.width - 2, client.height - 2}; }

  // Lays everything out; the scroll position is kept when it is still possible, else it returns to 0.
  void layout(const ViewLayout& in);
  // Moves the view; values out of range are clamped. False when the position was that already.
  bool setScroll(int x, int y);

  Size displaySize() const { return {picDisp.width(), picDisp.height()}; }
  // The picture as shown, hidden parts included.
  Size gross() const;
  // The image point under a display point. Points outside the picture give points outside the image.
  Point toImage(Point display) const;
  // The display point of an image pixel's top left corner.
  Point toDisplay(Point imagePoint) const;
  // The display rectangle that an image rectangle touches, clipped to the view; in a fitted view it may be a pixel too
  // large on each side.
  Rect toDisplay(const Rect& imageRect) const;
  // Every image pixel that is seen, wholly or in part.
  Rect visibleImage() const;
  // First and last (inclusive) image pixel of the view as the hosts are told: whole pixels only, and the whole image
  // when fitted.
  void visibleInfo(int& x1, int& y1, int& x2, int& y2) const;

 private:
  void updatePaintRects();
};

}  // namespace ruvo
