// The history of the picture, and the commands that walk in it.
#include <optional>

#include "document/frmRuvoPaint_Private.h"

namespace ruvo {
namespace {
// From this many pixels on the writing of a state can be felt.
constexpr std::int64_t kSlowStatePixels = 10'000'000;
}  // namespace

bool frmRuvoPaint::Private::commitFloatingAndPush() {
  // What lands is pushed by the event that it raises.
  if (!canvas->commitFloating()) return false;
  canvas->CanvasPicPaint();
  return true;
}

void frmRuvoPaint::Private::pushState() {
  if (!hasPicture()) return;
  const Size size = canvas->DIB().size();
  if (iconMask.dib.size() != size) iconMask = {};
  std::optional<WaitCursor> wait;
  if (static_cast<std::int64_t>(size.width) * size.height >= kSlowStatePixels) wait.emplace();
  const bool written = history.push();
  wait.reset();
  self.updateEditButtons();
  // Told once until a state can be written again, or every stroke on a full disk would bring the message back.
  const bool tellNow = !written && !historyGapTold;
  historyGapTold = !written;
  if (tellNow) {
    tell(tr("The picture could not be written for Undo in folder\n%1").arg(qt(history.folder().string())));
  }
}

void frmRuvoPaint::Private::restartHistory() {
  history.reset();
  pushState();
  self.updateEditButtons();
}

// Runs one step of the history and shows what it brought, at the same place and with the mode's tool.
template <typename Step>
void frmRuvoPaint::Private::restoreState(Step step) {
  busy = true;
  if (!glassOut()) endRunningOperation();
  int x = 0;
  int y = 0;
  canvas->GetScrollValues(x, y);
  {
    const WaitCursor wait;
    step();
  }
  if (iconMask.turned || iconMask.dib.size() != canvas->DIB().size()) iconMask = {};
  showPicture();
  returnToOperationOfMode();
  canvas->SetScrollValues(x, y, true, true);
  canvas->updateGlass();
  setChanged(true);
  busy = false;
  self.updateEditButtons();
}

void frmRuvoPaint::mnuEditUndo_Click() {
  if (!d_->history.canUndo()) {
    updateEditButtons();
    return;
  }
  if (d_->busy) return;
  d_->setPixelPanel("");
  // What floats becomes a state first, so that Redo can come back to it.
  d_->commitFloatingAndPush();
  d_->restoreState([this] { d_->history.undo(); });
}

void frmRuvoPaint::mnuEditRedo_Click() {
  if (!d_->history.canRedo() || d_->busy) return;
  d_->setPixelPanel("");
  // What floats is a new edit, and a new edit ends the Redo chain.
  if (d_->commitFloatingAndPush()) return;
  d_->restoreState([this] { d_->history.redo(); });
}

void frmRuvoPaint::mnuEditUndoAll_Click() {
  if (!d_->history.canUndo() || d_->busy) return;
  if (!d_->ask(tr("There will not be Redo after Undo All.  Sure to Undo All?"))) return;
  d_->setPixelPanel("");
  d_->canvas->dropFloating();
  d_->restoreState([this] { d_->history.undoAll(); });
}

}  // namespace ruvo
