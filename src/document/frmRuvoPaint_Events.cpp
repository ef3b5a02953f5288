// What the canvas tells and what the document makes of it.
#include <QTimer>

#include "document/frmRuvoPaint_Private.h"
#include "document/model/status_texts.h"

namespace ruvo {

void frmRuvoPaint::Private::connectCanvas() {
  QObject::connect(canvas, &ucCanvas::NotifyToPrepareUndo, &self, [this] {
    setChanged(true);
    pushState();
    refreshPanoramic();
  });
  // A region that is still moving is no edit yet; the state is pushed when it is put down.
  QObject::connect(canvas, &ucCanvas::NotifyRegionMoved, &self, [this] {
    setChanged(true);
    refreshPanoramic();
  });
  // Later, when the click is over.
  QObject::connect(canvas, &ucCanvas::NotifyRightClickOnPastedText, &self,
                   [this] { QTimer::singleShot(0, &self, [this] { changeText(); }); });
  QObject::connect(canvas, &ucCanvas::NotifyPolygonCrop, &self, [this] { takeCrop(std::move(canvas->DIBregion())); });
  QObject::connect(canvas, &ucCanvas::NotifyRegionStatus, &self, [this] {
    self.updateEditButtons();
    // The view mode has no tool but for what floats in it. Later, because the tool itself is telling this.
    if (link.toolbox().viewMode) QTimer::singleShot(0, &self, [this] { returnToOperationOfMode(); });
  });
  QObject::connect(canvas, &ucCanvas::NotifyDragResizeProforma, &self,
                   [this](int width, int height) { link.setStatusPanel(kPanelNetSize, qt(sizeText(width, height))); });
  QObject::connect(canvas, &ucCanvas::NotifyDragResize, &self, [this](bool sizeChanged) {
    if (sizeChanged) {
      setChanged(true);
      pushState();
    }
    showPicture();
  });
  QObject::connect(canvas, &ucCanvas::NotifyClickData, &self,
                   [this](int button, Colour colour, int, int) { link.colorPicked(colour, button == 2); });
  QObject::connect(canvas, &ucCanvas::NotifyCancelGlassOp, &self, [this] { self.OnOffQuickScroll(); });
  QObject::connect(canvas, &ucCanvas::NoStamp, &self, [this] { tell(tr("No stamp loaded yet.")); });
  QObject::connect(canvas, &ucCanvas::DIBProgress, &self, [this](int percent) { link.setProgress(percent); });
  QObject::connect(canvas, &ucCanvas::DIBProgressEnd, &self, [this] { link.endProgress(); });
  QObject::connect(canvas, &ucCanvas::zoomRequested, &self, [this](int steps) { zoomBySteps(steps); });
  QObject::connect(canvas, &ucCanvas::doLoadFileByDragDrop, &self, [this](const QString& path) {
    dropped.push_back(path);
    // Later, so that the program that the file comes from is not kept waiting.
    QTimer::singleShot(0, &self, [this] { openDropped(); });
  });
}

void frmRuvoPaint::Private::connectMeasures() {
  QObject::connect(canvas, &ucCanvas::DispMeasureClear, &self, [this] { setPixelPanel(""); });
  QObject::connect(canvas, &ucCanvas::DispPointOfClick, &self,
                   [this](int x, int y, Colour colour) { setPixelPanel(clickText(x, y, colour)); });
  QObject::connect(canvas, &ucCanvas::DispMeasureRectangle, &self,
                   [this](int x, int y, int width, int height) { setPixelPanel(rectangleText(x, y, width, height)); });
  QObject::connect(canvas, &ucCanvas::DispMeasureLine, &self, [this](int x1, int y1, int x2, int y2, double angle) {
    setPixelPanel(lineText(x1, y1, x2, y2, angle));
  });
  QObject::connect(canvas, &ucCanvas::DispMeasureArc, &self,
                   [this](int x1, int y1, int x2, int y2, int cx, int cy, double radius) {
                     setPixelPanel(arcText(x1, y1, x2, y2, cx, cy, radius));
                   });
  QObject::connect(canvas, &ucCanvas::DispMeasureOval, &self,
                   [this](int x, int y, double measure, int width, int height) {
                     setPixelPanel(ovalText(x, y, measure, width, height));
                   });
}

}  // namespace ruvo
