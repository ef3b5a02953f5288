// Copy, Cut, the ways to paste, and Clear Clipboard.
#include "base/limits.h"
#include "document/frmRuvoPaint_Private.h"
#include "document/model/crop_rules.h"
#include "document/model/paste_rules.h"
#include "platform/desktop/clipboard_picture.h"

namespace ruvo {
namespace {
// What Paste makes when the clipboard holds no picture.
constexpr Size kEmptyPasteSize = {320, 200};
}  // namespace

// The whole picture, or the region when there is one. False when it could not be put there.
bool frmRuvoPaint::Private::copyToClipboard() {
  const WaitCursor wait;
  canvas->UpdateRegionDragging_Process_Translucent();
  clsDIB region;
  if (canvas->HasRegion() && !canvas->copyRegion(region)) return false;
  const clsDIB& copied = region.empty() ? canvas->DIB() : region;
  const bool put = desktop::putOnClipboard(copied.surface(), copied.DIBhasAlpha());
  self.updateEditButtons();
  return put;
}

void frmRuvoPaint::mnuEditCopy_Click() {
  if (d_->hasPicture()) d_->copyToClipboard();
}

void frmRuvoPaint::mnuEditCut_Click() {
  if (!d_->hasPicture() || !d_->canvas->HasRegion()) return;
  d_->setPixelPanel("");
  const bool changed = d_->canvas->eraseRegion();
  d_->returnToOperationOfMode();
  if (changed) {
    d_->pushState();
    d_->setChanged(true);
  }
  d_->showPicture();
  updateEditButtons();
}

// Nothing is cut that was not copied.
void frmRuvoPaint::Private::cutAndCopy() {
  if (hasPicture() && canvas->HasRegion() && copyToClipboard()) self.mnuEditCut_Click();
}

// --- Paste

// A picture floats at its own size only. False when the fitted view is to stay.
bool frmRuvoPaint::Private::leaveFitIn() {
  if (!canvas->settings().FitInView) return true;
  if (!ask(kFitInQuestion, desktop::Buttons::YesNo)) return false;
  link.setFitIn(false);
  canvas->settings().FitInView = false;
  showPicture();
  return true;
}

// What the clipboard gave as pixels; false, in words, when it gave no picture.
bool frmRuvoPaint::Private::takeFromClipboard(const imaging::LoadResult& fetched, clsDIB& picture) {
  std::string fault = fetchFaultText(fetched);
  if (fault.empty()) {
    const WaitCursor wait;
    if (!takeFetched(fetched.picture, picture)) fault = kFetchFailed;
  }
  if (!fault.empty()) tell(qt(fault));
  return fault.empty();
}

// Room for the larger one of two pictures; true when the user wants it, false when not. Nothing when it can not be.
std::optional<bool> frmRuvoPaint::Private::askToEnlarge(Size incoming) {
  const Size wanted = enlargedSize(canvas->DIB().size(), incoming);
  if (wanted == canvas->DIB().size() || !ask(qt(enlargeQuestion(incoming)), desktop::Buttons::YesNo)) return false;
  if (pictureSizeAllowed(wanted.width, wanted.height)) return true;
  tell(qt(openFaultText(OpenFault::TooLarge, {})));
  return std::nullopt;
}

bool frmRuvoPaint::Private::enlargeFor(Size incoming) {
  return changePicture([&](clsDIB& picture) {
    const WaitCursor wait;
    clsDIB sheet;
    if (!whiteSheetWith(picture, {0, 0}, enlargedSize(picture.size(), incoming), sheet)) return false;
    picture = std::move(sheet);
    return true;
  });
}

// In the region tool, which the toolbox then shows as well.
bool frmRuvoPaint::Private::floatPasted(const clsDIB& picture, const PasteManner& manner) {
  const WaitCursor wait;
  if (!link.toolbox().viewMode) link.selectTool(kRegionTool);
  const bool floats = canvas->startPaste(picture, manner);
  if (!floats) returnToOperationOfMode();
  self.OnOffQuickScroll();
  return floats;
}

void frmRuvoPaint::Private::paste(const PasteManner& manner) {
  if (!hasPicture() || !leaveFitIn()) return;
  link.unloadToolWindows(true);
  setPixelPanel("");
  clsDIB incoming;
  if (!takeFromClipboard(desktop::desktop().clipboardPicture(kLargePicturePixels), incoming)) return;
  const std::optional<bool> enlarge = askToEnlarge(incoming.size());
  if (!enlarge) return;
  commitFloatingAndPush();
  if (*enlarge && !enlargeFor(incoming.size())) return tell(kFetchFailed);
  if (!floatPasted(incoming, manner)) return tell(kFetchFailed);
  // What floats is not in any file yet.
  setChanged(true);
  self.updateEditButtons();
}

void frmRuvoPaint::mnuEditPaste_Click() {
  d_->paste(PasteManner{});
}

void frmRuvoPaint::mnuEditPasteTransparent_Click() {
  d_->paste(PasteManner{.transparent = true});
}

// A new document of the clipboard's picture, or an empty one when there is none.
bool frmRuvoPaint::Private::makeFromClipboard() {
  const imaging::LoadResult fetched = desktop::desktop().clipboardPicture(kLargePicturePixels);
  if (fetched.error == imaging::LoadError::Missing)
    return makeNew(untitledName(slot), kEmptyPasteSize.width, kEmptyPasteSize.height);
  clsDIB picture;
  if (!takeFromClipboard(fetched, picture)) return false;
  takeAsNew(untitledName(slot), std::move(picture));
  // It is not in any file yet.
  setChanged(true);
  return true;
}

void frmRuvoPaint::Private::clearClipboard() {
  desktop::desktop().clearClipboard();
  self.updateEditButtons();
}

}  // namespace ruvo
