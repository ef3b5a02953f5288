// The main window's tool state written to the canvas: one document reads it whole when it becomes active, and one value
// at a time while it is.
#include "document/frmRuvoPaint_Private.h"

namespace ruvo {

// The tool that the mode calls for; the view mode has none.
int frmRuvoPaint::Private::operationOfMode() const {
  const ToolboxState tools = link.toolbox();
  return tools.viewMode ? kNoTool : kToolCanvasOp[static_cast<std::size_t>(tools.tool)];
}

void frmRuvoPaint::Private::returnToOperationOfMode() {
  const int wanted = operationOfMode();
  // The lens stays out while pictures come and go beneath it, but not when a tool was chosen in another document.
  if (canvas->HasRegion() || (glassOut() && wanted == kNoTool)) return;
  canvas->setCanvasOp(wanted);
  self.OnOffQuickScroll();
}

// A region that stands in this picture stays when the toolbox was changed over another one; the toolbox shows its tool
// then.
void frmRuvoPaint::Private::showRegionTool() {
  constexpr int kOvalRegionOp = 12;
  constexpr int kRegionTools[] = {14, 15};  // tool images: rectangle, oval
  const ToolboxState tools = link.toolbox();
  if (tools.viewMode || !canvas->HasRegion()) return;
  const int standing = kRegionTools[canvas->CanvasOp() == kOvalRegionOp];
  if (standing != tools.tool) link.selectTool(standing);
}

// The two curve tools share one operation; an open curve of the one must not go on as one of the other.
void frmRuvoPaint::Private::takeBezierType(int tool) {
  const int type = tool == kFilledCurveTool ? 1 : 0;
  if (canvas->settings().BezierType != type) canvas->BezierAbort();
  canvas->settings().BezierType = type;
}

// The antialiased line has a size of its own; every other tool takes the box.
int frmRuvoPaint::Private::effectiveBrushSize() const {
  const ToolboxState tools = link.toolbox();
  const bool antialiasedLine = tools.lineType == kAntialiasedLine && canvas->CanvasOp() == kLineTool;
  return antialiasedLine ? kAntialiasedLineSize : tools.brushSize;
}

void frmRuvoPaint::Private::readToolbox() {
  showRegionTool();
  const ToolboxState tools = link.toolbox();
  CanvasSettings& settings = canvas->settings();
  settings.ColorToUse = tools.firstColor;
  settings.BezierFillColor = tools.bezierFillColor;
  settings.BrushStyle = tools.brushStyle;
  settings.PaintBrushTranslucencyPercent = tools.paintBrushTranslucencyPercent;
  settings.CustomBrushShape = tools.customBrushShape;
  settings.CustomBrushApplyManner = tools.customBrushApplyManner;
  settings.FillPattern = tools.fillPattern;
  settings.LineType = tools.lineType;
  settings.AllowAntialiasing = tools.lineAntialias;
  settings.RectangleCornerShape = tools.rectangleCornerShape;
  settings.OvalEnhancement = tools.ovalEnhancement;
  settings.StampStyle = tools.stampStyle;
  settings.StampTextureWeight = tools.stampTextureWeight;
  settings.SprayDensity = tools.sprayDensity;
  settings.SprayTranslucencyPercent = tools.sprayTranslucencyPercent;
  settings.MagnifyGlassFactor = tools.glassFactor;
  takeBezierType(tools.tool);
  settings.UseConvexGlass = tools.convexGlass;
  self.Notify_PolygonSetting_FromMDI();
  self.Notify_PolygonOperationType_FromMDI();
  if (canvas->PolygonDrawMethod() != tools.polygonDrawMethod) canvas->setPolygonDrawMethod(tools.polygonDrawMethod);
  if ((canvas->CanvasScreenMode() == 0) != tools.viewMode) {
    self.Do_UpdateModeChange();
  } else {
    returnToOperationOfMode();
  }
  settings.BrushSize = effectiveBrushSize();
  canvas->updateGlass();
  // The two scales are the document's own; the controls only show them.
  if (tools.viewMode) {
    link.setZoomScale(settings.Magnify);
  } else {
    link.setMagnify(settings.Magnify);
  }
}

void frmRuvoPaint::Private::readSession() {
  const OptionFlags& options = session().options;
  CanvasSettings& settings = canvas->settings();
  settings.UseAlternativeRegionMarquee = options.alternativeMarquee;
  settings.SuspendRegionResizeByEdgeDragging = options.suspendRegionResize;
  settings.TurnOnXYlines = options.axisLines;
  settings.FitInEvenIfSmaller = options.fitInEvenIfSmaller;
  canvas->setSuspendCanvasResizeByEdgeDragging(options.suspendCanvasResize);
  canvas->setToShowPixelRGB(options.showPixelRgb);
}

void frmRuvoPaint::Do_imgToolsClick(int index) {
  if (index < 0 || index > Private::kClearAllTools || d_->link.toolbox().viewMode) return;
  if (d_->commitFloatingAndPush()) {
    d_->endRunningOperation();
    d_->canvas->CanvasPicPaint();
  }
  if (index == Private::kClearAllTools) {
    d_->link.FlatAllToolsImages();
    d_->endRunningOperation();
  } else {
    d_->link.selectTool(index);
    d_->canvas->BezierAbort();
    d_->takeBezierType(index);
    d_->canvas->setCanvasOp(kToolCanvasOp[static_cast<std::size_t>(index)]);
  }
  d_->canvas->settings().BrushSize = d_->effectiveBrushSize();
  d_->setPixelPanel("");
  AllowOrDisallowQuickScroll();
  OnOffQuickScroll();
}

void frmRuvoPaint::Notify_SetScrollOp_FromMDI() {
  d_->commitFloatingAndPush();
  d_->endRunningOperation();
  OnOffQuickScroll();
}

void frmRuvoPaint::Notify_BrushSize_FromMDI() {
  d_->canvas->settings().BrushSize = d_->effectiveBrushSize();
}
void frmRuvoPaint::Notify_BrushStyle_FromMDI() {
  d_->take(&CanvasSettings::BrushStyle, &ToolboxState::brushStyle);
}
void frmRuvoPaint::Notify_CustomBrushShape_FromMDI() {
  d_->take(&CanvasSettings::CustomBrushShape, &ToolboxState::customBrushShape);
}
void frmRuvoPaint::Notify_CustomBrushApplyManner_FromMDI() {
  d_->take(&CanvasSettings::CustomBrushApplyManner, &ToolboxState::customBrushApplyManner);
}
void frmRuvoPaint::Notify_PaintBrushTranslucencyPercent_FromMDI() {
  d_->take(&CanvasSettings::PaintBrushTranslucencyPercent, &ToolboxState::paintBrushTranslucencyPercent);
}
void frmRuvoPaint::Notify_SprayDensity_FromMDI() {
  d_->take(&CanvasSettings::SprayDensity, &ToolboxState::sprayDensity);
}
void frmRuvoPaint::Notify_SprayTranslucencyPercent_FromMDI() {
  d_->take(&CanvasSettings::SprayTranslucencyPercent, &ToolboxState::sprayTranslucencyPercent);
}
void frmRuvoPaint::Notify_FillPattern_FromMDI() {
  d_->take(&CanvasSettings::FillPattern, &ToolboxState::fillPattern);
}
void frmRuvoPaint::Notify_LineType_FromMDI() {
  d_->take(&CanvasSettings::LineType, &ToolboxState::lineType);
  d_->take(&CanvasSettings::AllowAntialiasing, &ToolboxState::lineAntialias);
  Notify_BrushSize_FromMDI();
}
void frmRuvoPaint::Notify_RectangleCornerShape_FromMDI() {
  d_->take(&CanvasSettings::RectangleCornerShape, &ToolboxState::rectangleCornerShape);
}
void frmRuvoPaint::Notify_PolygonOperationType_FromMDI() {
  d_->take(&CanvasSettings::PolygonOperationType, &ToolboxState::polygonOperationType);
}
void frmRuvoPaint::Notify_PolygonDrawMethod_FromMDI() {
  d_->canvas->setPolygonDrawMethod(d_->link.toolbox().polygonDrawMethod);
}
void frmRuvoPaint::Notify_PolygonSetting_FromMDI() {
  d_->take(&CanvasSettings::PolygonNumPoints, &ToolboxState::polygonNumPoints);
  d_->take(&CanvasSettings::PolygonRadius, &ToolboxState::polygonRadius);
  d_->take(&CanvasSettings::PolygonConcaveFactor, &ToolboxState::polygonConcaveFactor);
  d_->take(&CanvasSettings::PolygonAngle, &ToolboxState::polygonAngle);
}
void frmRuvoPaint::Notify_OvalEnhancement_FromMDI() {
  d_->take(&CanvasSettings::OvalEnhancement, &ToolboxState::ovalEnhancement);
}
void frmRuvoPaint::Notify_StampStyle_FromMDI() {
  d_->take(&CanvasSettings::StampStyle, &ToolboxState::stampStyle);
}
void frmRuvoPaint::Notify_StampTextureWeight_FromMDI() {
  d_->take(&CanvasSettings::StampTextureWeight, &ToolboxState::stampTextureWeight);
}
void frmRuvoPaint::Notify_ColorToUse_FromMDI() {
  d_->take(&CanvasSettings::ColorToUse, &ToolboxState::firstColor);
}
void frmRuvoPaint::Notify_BezierFillColor_FromMDI() {
  d_->take(&CanvasSettings::BezierFillColor, &ToolboxState::bezierFillColor);
}
void frmRuvoPaint::Notify_BezierOp_FromMDI() {
  d_->canvas->BezierAbort();
}

void frmRuvoPaint::Notify_SessionOptions_FromMDI() {
  d_->readSession();
  if (d_->canvas->settings().FitInView) {
    d_->showPicture();
  } else {
    d_->canvas->CanvasPicPaint();
  }
}

}  // namespace ruvo
