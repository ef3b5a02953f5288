// What hosts ask of the region: each call goes to the engine.
#include "canvas/ucCanvas.h"
#include "canvas/ucCanvas_Private.h"

namespace ruvo {
namespace {

// Writes one of the flags.
template <typename T>
void setFlag(RegionEngine& region, T RegionFlags::*flag, T value) {
  RegionFlags flags = region.flags();
  flags.*flag = value;
  region.setFlags(flags);
}

}  // namespace

bool ucCanvas::HasRegion() const {
  return d_->core.region().HasRegion();
}
bool ucCanvas::RegionMoveReady() const {
  return d_->core.region().floats();
}
void ucCanvas::setRegionMoveReady(bool ready) {
  if (!ready) d_->core.commitFloating();
}
bool ucCanvas::PasteOn() const {
  return d_->core.region().PasteOn();
}
bool ucCanvas::PasteOnText() const {
  return d_->core.region().PasteOnText();
}
void ucCanvas::setPasteOn(bool on) {
  d_->core.region().setPasteOn(on);
}
void ucCanvas::setPasteOnText(bool on) {
  d_->core.region().setPasteOnText(on);
}

bool ucCanvas::RegionTransparent() const {
  return d_->core.region().flags().RegionTransparent;
}
bool ucCanvas::RegionTranslucent() const {
  return d_->core.region().flags().RegionTranslucent;
}
bool ucCanvas::TranslucentTransparent() const {
  return d_->core.region().flags().TranslucentTransparent;
}
int ucCanvas::TranslucentPercent() const {
  return d_->core.region().flags().TranslucentPercent;
}
bool ucCanvas::TranslucencyPending() const {
  return d_->core.region().TranslucencyPending();
}
bool ucCanvas::RegionSoft() const {
  return d_->core.region().soft();
}
void ucCanvas::setRegionTransparent(bool on) {
  setFlag(d_->core.region(), &RegionFlags::RegionTransparent, on);
}
void ucCanvas::setRegionTranslucent(bool on) {
  setFlag(d_->core.region(), &RegionFlags::RegionTranslucent, on);
}
void ucCanvas::setTranslucentTransparent(bool on) {
  setFlag(d_->core.region(), &RegionFlags::TranslucentTransparent, on);
}
void ucCanvas::setTranslucentPercent(int percent) {
  setFlag(d_->core.region(), &RegionFlags::TranslucentPercent, percent);
}
bool ucCanvas::SuspendAntsMarching() const {
  return d_->core.region().SuspendAntsMarching();
}
void ucCanvas::setSuspendAntsMarching(bool suspend) {
  d_->core.region().setSuspendAntsMarching(suspend);
}

const clsDIB& ucCanvas::DIBregion() const {
  return d_->core.bitmaps.DIBregion;
}
const clsDIB& ucCanvas::DIBmask() const {
  return d_->core.bitmaps.DIBmask;
}
const clsDIB& ucCanvas::DIBsnap() const {
  return d_->core.bitmaps.DIBsnap;
}

bool ucCanvas::GetRegionData(int& x1, int& y1, int& x2, int& y2) const {
  return d_->core.region().GetRegionData(x1, y1, x2, y2);
}
bool ucCanvas::PrepareRegionDragging() {
  return d_->core.region().PrepareRegionDragging();
}
void ucCanvas::UpdateRegionDragging() {
  d_->core.region().UpdateRegionDragging();
}
void ucCanvas::UpdateRegionDragging_Process_Translucent() {
  d_->core.region().UpdateRegionDragging_Process_Translucent();
}
void ucCanvas::doRotateOperation(int kind) {
  if (kind < 0 || kind > 3) return;
  if (HasRegion()) {
    d_->core.region().turn(kind);
  } else {
    clsDIB::RotateDIB(DIB(), kind);
    CanvasResize();
  }
}
bool ucCanvas::startPaste(const clsDIB& picture, const PasteManner& manner) {
  return d_->core.startPaste(picture, manner);
}
bool ucCanvas::replacePaste(const clsDIB& picture) {
  return d_->core.region().replacePaste(picture);
}
bool ucCanvas::copyRegion(clsDIB& out) {
  return d_->core.region().copy(out);
}
bool ucCanvas::replaceRegion(const clsDIB& pixels) {
  return d_->core.region().replace(pixels);
}
bool ucCanvas::copyCoveredRegion(clsDIB& out) {
  return d_->core.region().copyCovered(out);
}
bool ucCanvas::growRegion(const clsDIB& pixels, Point corner) {
  return d_->core.region().grow(pixels, corner);
}
bool ucCanvas::eraseRegion() {
  d_->core.finishStroke();
  return d_->core.region().erase();
}
bool ucCanvas::commitFloating() {
  return d_->core.commitFloating();
}
void ucCanvas::dropFloating() {
  d_->core.dropFloating();
}

// The region keeps its place in the picture; where that lies on the display is worked out anew.
void ucCanvas::AdjustRegionDispPosition_After_FormMax() {
  CanvasPicPaint();
}

}  // namespace ruvo
