// The document's menus: what each row does, and when it is enabled.
#include <QAction>
#include <QDateTime>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QMenu>

#include "base/paths.h"
#include "document/frmRuvoPaint_Private.h"
#include "document/model/inquiry_texts.h"
#include "document/option_rows.h"

namespace ruvo {
namespace {

void closeWindow(frmRuvoPaint& document) {
  auto* frame = qobject_cast<QMdiSubWindow*>(document.parentWidget());
  if (frame)
    frame->close();
  else
    document.close();
}

}  // namespace

// False for a row that this document has no action for.
bool frmRuvoPaint::Private::runMenu(const QString& control, int index) {
  if (const SaveItem* item = saveItemOf(control.toStdString(), index))
    saveAs(*item);
  else if (control == QLatin1String("mnuFileSub") && index == 0)
    commandNew();
  else if (control == QLatin1String("mnuFileSub") && index <= 2)
    commandOpen(index == 2);
  else if (control == QLatin1String("mnuFileSub") && index == 6)
    saveAs(saveItemForType(record.type));
  else if (control == QLatin1String("mnuFileHistory"))
    link.openFromHistory(index - 1);
  else if (control == QLatin1String("mnuFileCloseCurrent"))
    closeWindow(self);
  else if (control == QLatin1String("mnuFileCloseAll"))
    link.closeAllDocuments();
  else if (control == QLatin1String("mnuFileExit"))
    link.mnuFileExit_Click();
  else if (control == QLatin1String("mnuEditUndo"))
    self.mnuEditUndo_Click();
  else if (control == QLatin1String("mnuEditRedo"))
    self.mnuEditRedo_Click();
  else if (control == QLatin1String("mnuEditUndoAll"))
    self.mnuEditUndoAll_Click();
  else if (control == QLatin1String("mnuRotateSub"))
    self.Do_mnuRotateSubClick(index);
  else if (control.startsWith(QLatin1String("mnuInquiry")))
    runInquiry(control);
  else if (control.startsWith(QLatin1String("mnuOptions")) || control == QLatin1String("mnuSubMonitorRAM"))
    runOption(control, index);
  else if (control == QLatin1String("mnuWindowsSub"))
    link.arrangeWindows(index);
  else if (control == QLatin1String("mnuHelpSub"))
    link.mnuHelpSub_Click(index);
  else
    return false;
  return true;
}

bool frmRuvoPaint::triggerMenu(const QString& control, int index) {
  QAction* action = d_->menus->action(control, index);
  if (!action || !action->isEnabled()) return false;
  action->trigger();
  return true;
}

// The quarter turns and flips; 0 mirrors left to right, 1 top to bottom, 2 turns left, 3 right.
void frmRuvoPaint::Do_mnuRotateSubClick(int index) {
  if (index < 0 || index > 3) return;
  d_->changePicture([index](clsDIB& picture) {
    const WaitCursor wait;
    clsDIB::RotateDIB(picture, index);
    return true;
  });
}

// Regions have no commands yet; the buttons are shown as what they are.
void frmRuvoPaint::Do_cmdRegionOperation(int) {
  updateEditButtons();
}

// --- Options

void frmRuvoPaint::Private::runOption(const QString& control, int index) {
  if (control == QLatin1String("mnuSubMonitorRAM")) {
    link.mnuSubMonitorRAM_Click(index);
  } else if (control == QLatin1String("mnuOptionsSessionOnlySub")) {
    if (canvas->RegionMoveReady()) {
      tell(tr("Cannot reset this option when there is a region currently."));
    } else {
      link.mnuOptionsSessionOnlySub_Click(index);
    }
  } else if (index == kOptionSdi && !session().options.sdiOnly && link.documentCount() > 1) {
    tell(tr("Cannot change to SDI when there are more than one documents currently."));
  } else {
    link.mnuOptionsSub_Click(index);
  }
  // A menu item checks itself when it is clicked, whatever came of it.
  self.updateOptionMenus();
}

void frmRuvoPaint::updateOptionMenus() {
  showOptions(*d_->menus, d_->session().options);
}

void frmRuvoPaint::rebuildFileHistoryMenu() {
  QStringList shortened;
  QStringList whole;
  for (const auto& path : d_->session().fileHistory) {
    if (path.empty()) continue;
    const std::string text = utf8Of(path);
    shortened << qt(shortenPath(text));
    whole << qt(text);
  }
  d_->menus->setHistory(QStringLiteral("mnuFileHistory"), shortened, whole);
}

// --- What is enabled

void frmRuvoPaint::Private::updateMenus() {
  unsigned have = 0;
  if (hasPicture()) {
    have |= kNeedPicture;
    if (canvas->RegionMoveReady()) have |= kNeedRegion;
    if (history.canUndo()) have |= kNeedUndo;
    if (history.canRedo()) have |= kNeedRedo;
  }
  if (session().gdiPlusUsable) have |= kNeedImaging;
  if (desktop::desktop().clipboardHasPicture()) have |= kNeedClipboard;
  menus->setHave(have);
}

// The toolbar follows the menu rows of the same commands; in the view mode only the history can be walked.
void frmRuvoPaint::updateEditButtons() {
  d_->updateMenus();
  const auto enabled = [this](const char* control, int index = -1) {
    return d_->menus->action(QString::fromLatin1(control), index)->isEnabled();
  };
  const bool paint = !d_->link.toolbox().viewMode;
  EditButtonState state;
  state.undo = enabled("mnuEditUndo");
  state.redo = enabled("mnuEditRedo");
  state.region = paint && enabled("mnuEditCut");
  state.paste = paint && enabled("mnuEditPaste");
  state.picture = paint && enabled("mnuRotateSub", 0);
  d_->link.setEditButtons(state);
}

void frmRuvoPaint::UpdateAllowableMenusForScreenMode() {
  const bool paint = !d_->link.toolbox().viewMode;
  for (const char* name : {"mnuText", "mnuLayer", "mnuResize", "mnuBPP"}) {
    d_->menus->action(QString::fromLatin1(name))->setVisible(paint);
  }
}

// --- Inquiry

void frmRuvoPaint::Private::runInquiry(const QString& control) {
  const clsDIB& picture = canvas->DIB();
  std::string text;
  if (control == QLatin1String("mnuInquiryOriginal")) {
    const WaitCursor wait;
    PictureFacts facts;
    facts.size = picture.size();
    facts.bitsPerPixel = clsDIB::BPPperActualDIB(picture);
    facts.changed = hasUnsavedChanges();
    const QFileInfo file(qt(record.name));
    if (!record.untitled() && file.exists())
      facts.fileDate = file.lastModified().toString("yyyy-MM-dd  HH:mm:ss").toStdString();
    text = generalPropertiesText(record, facts);
  } else if (control == QLatin1String("mnuInquiryColorCount")) {
    const WaitCursor wait;
    text = colourCountText(clsDIB::CountColorsDIB(picture));
  } else if (control == QLatin1String("mnuInquiryStartPosCurrentScreen")) {
    Point first;
    Point last;
    canvas->GetVisibleInfo(first.x, first.y, last.x, last.y);
    if (canvas->settings().FitInView) {
      first = {0, 0};
      last = {picture.DIBWidth() - 1, picture.DIBHeight() - 1};
    }
    const Size shown = {std::min(last.x, picture.DIBWidth() - 1) - first.x + 1,
                        std::min(last.y, picture.DIBHeight() - 1) - first.y + 1};
    const qreal ratio = self.devicePixelRatioF();
    text =
        currentScreenText(picture.size(), first, shown, {qRound(self.width() * ratio), qRound(self.height() * ratio)});
  } else {
    text = record.name;
  }
  tell(qt(text), desktop::Icon::Information);
}

}  // namespace ruvo
