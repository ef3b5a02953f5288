// From the first activation to the unload, and the New command.
#include <QCloseEvent>

#include "base/paths.h"
#include "document/frmRuvoPaint_Private.h"
#include "document/frmRuvoSizeOfNew.h"

namespace ruvo {

bool frmRuvoPaint::firstActivation(PendingOpen command, const QString& file) {
  d_->awaitsFirstActivation = false;
  d_->session().pendingOpen = PendingOpen::None;
  activated();
  const int openMode = static_cast<int>(command);
  switch (command) {
    case PendingOpen::None:
      return true;
    case PendingOpen::Paste:
      return d_->makeFromClipboard();
    case PendingOpen::New: {
      const bool alone = d_->link.documentCount() <= 1;
      return d_->makeNew(alone ? kFirstUntitledName : untitledName(d_->slot), d_->session().newImageWidth,
                         d_->session().newImageHeight);
    }
    case PendingOpen::FirstFrame:
      return openFirstFrame(file);
    case PendingOpen::CommandLine:
    case PendingOpen::FileOpen:
    case PendingOpen::Browser:
    case PendingOpen::DigiPhoto:
      return LoadOpenFile(file, openMode, true);
  }
  return false;
}

bool frmRuvoPaint::openFirstFrame(const QString& file) {
  if (!LoadOpenFile(file, static_cast<int>(PendingOpen::FirstFrame), false)) return false;
  d_->record.name = untitledFrameName(d_->slot);
  d_->setTitle(d_->record.name);
  d_->updatePanels();
  return true;
}

void frmRuvoPaint::activated() {
  d_->link.unloadToolWindows(true);
  rebuildFileHistoryMenu();
  updateOptionMenus();
  // What the panel told was of the picture before.
  d_->setPixelPanel("");
  d_->readSession();
  d_->readToolbox();
  UpdateAllowableMenusForScreenMode();
  updateEditButtons();
  AllowOrDisallowQuickScroll();
  OnOffQuickScroll();
  Do_UpdateZoomButtons();
  Do_UpdateGlassButton();
  d_->updatePanels();
}

bool frmRuvoPaint::hasUnsavedChanges() const {
  return d_->hasUnsavedChanges();
}

bool frmRuvoPaint::AskSaveCurr() {
  return d_->ask(tr("Current picture not saved yet.  Proceed still?"));
}

bool frmRuvoPaint::mayReplacePicture() {
  d_->canvas->letGo();
  return !hasUnsavedChanges() || AskSaveCurr();
}

bool frmRuvoPaint::queryUnload() {
  return d_->session().closingConfirmed || mayReplacePicture();
}

void frmRuvoPaint::closeEvent(QCloseEvent* event) {
  if (!queryUnload()) {
    event->ignore();
    return;
  }
  event->accept();
  d_->releaseEverything();
}

void frmRuvoPaint::Private::releaseEverything() {
  link.unloadToolWindows(true);
  canvas->CanvasCleanse();
  history.reset();
  // The main window may let go of this window in the next call, so nothing of it is touched afterwards.
  MainWindowLink& mainWindow = link;
  mainWindow.releaseDocument(&self);
  if (mainWindow.documentCount() > 0) return;
  for (const int panel : {kPanelMessage, kPanelPixel, kPanelScreenSize, kPanelNetSize}) {
    mainWindow.setStatusPanel(panel, QString());
  }
  mainWindow.MDI_disableAllButtonsOnToolBar();
}

void frmRuvoPaint::Private::setTitle(const std::string& name) {
  link.setDocumentCaption(&self, qt(shortenPath(name)), qt(name));
  Q_EMIT self.captionChanged();
}

bool frmRuvoPaint::Private::makeNew(const std::string& name, int width, int height) {
  clsDIB blank;
  if (!blank.CreateBlankDIB(width, height, 32, kWhite)) {
    tell(qt(openFaultText(OpenFault::NoImage, name)));
    return false;
  }
  takeAsNew(name, std::move(blank));
  return true;
}

// Of no file yet, with a history of its own.
void frmRuvoPaint::Private::takeAsNew(const std::string& name, clsDIB&& picture) {
  canvas->dropFloating();
  endRunningOperation();
  record = untitledRecord(name, picture.DIBWidth(), picture.DIBHeight());
  canvas->DIB() = std::move(picture);
  iconMask = {};
  restartHistory();
  setChanged(false);
  setTitle(name);
  canvas->SetScrollValues(0, 0, false, true);
  returnToOperationOfMode();
  showPicture();
}

void frmRuvoPaint::Private::commandNew() {
  link.ramReminder();
  SessionState& state = session();
  const Size current = hasPicture() ? canvas->DIB().size() : Size{640, 480};
  state.newImageWidth = current.width;
  state.newImageHeight = current.height;
  if (!frmRuvoSizeOfNew::ask(state, link.window())) return;
  if (!state.options.sdiOnly) {
    link.openDocument(PendingOpen::New, QString());
  } else if (self.mayReplacePicture()) {
    makeNew(untitledName(slot), state.newImageWidth, state.newImageHeight);
  }
}

void frmRuvoPaint::Do_cmdFileNewClick() {
  d_->commandNew();
}

}  // namespace ruvo
