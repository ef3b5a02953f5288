// The canvas properties whose write only stores a value. The host sets them and repaints by CanvasResize or
// CanvasPicPaint. Names and defaults are fixed.
#pragma once

#include <cstdint>
#include <string>

#include "base/colour.h"

namespace ruvo {

struct CanvasSettings {
  int Magnify = 1;  // whole factor, at least 1
  bool FitInView = false;
  bool FitInEvenIfSmaller = false;
  Colour ColorToUse = kWhite;
  Colour TransparentColor = kWhite;  // see-through colour; what the eraser paints
  Colour BezierFillColor = kBlack;
  int BrushSize = 3;
  int BrushStyle = 0;
  int CustomBrushShape = 0;        // 0 as oval, 1 rectangle
  int CustomBrushApplyManner = 0;  // 0 normal, 1 overlap
  int PaintBrushTranslucencyPercent = 100;
  int SprayDensity = 2;
  int SprayTranslucencyPercent = 100;
  int FillPattern = 0;
  int StampStyle = 0;
  float StampTextureWeight = 1.0f;
  int LineType = 0;
  int RectangleCornerShape = 0;
  int OvalEnhancement = 0;
  int BezierType = 0;
  int PolygonOperationType = 0;
  int PolygonNumPoints = 3;
  int PolygonRadius = 50;
  float PolygonConcaveFactor = 1.0f;
  int PolygonAngle = 0;
  bool AllowAntialiasing = true;
  bool HandScrollEnabled = true;
  bool TurnOnXYlines = false;
  bool SuspendRegionResizeByEdgeDragging = false;
  bool UseAlternativeRegionMarquee = false;
  bool UseConvexGlass = false;
  int MagnifyGlassFactor = 2;
  std::string FileExtAllowed;  // slash-separated extensions that a dropped file may have

  // Which families of events are raised.
  bool ToNotifyCanvasMouseClick = false;
  bool ToNotifyCanvasMouseMove = false;
  bool ToReportRightClickDataInScrollMode = false;
  bool ToMonitorXYdata = false;
  bool ToShowXYlines = false;
};

}  // namespace ruvo
