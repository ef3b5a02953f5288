// The document's menus: what each row does, and when it is enabled.
#include <QAction>
#include <QHash>
#include <QMdiSubWindow>
#include <QMenu>

#include "base/paths.h"
#include "document/frmRuvoPaint_Private.h"
#include "document/model/colour_reduction.h"
#include "document/model/paste_rules.h"
#include "document/option_rows.h"
#include "effects/model/effect_table.h"

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

// A row with no entry here is one that is not built, and disabled.
void frmRuvoPaint::Private::runMenu(const QString& control, int index) {
  using Run = void (*)(Private & document, int index);
  static const QHash<QString, Run> kCommands = {
      {"mnuFileSub", [](Private& d, int i) { d.runFileMenu(i); }},
      {"mnuFileHistory", [](Private& d, int i) { d.link.openFromHistory(i - 1); }},
      {"mnuAnimatedGIFNew", [](Private& d, int i) { d.link.mnuAnimatedGIFNew_Click(i); }},
      {"mnuFileHistoryGIFani", [](Private& d, int i) { d.link.mnuFileHistoryGIFani_Click(i); }},
      {"mnuFileCloseCurrent", [](Private& d, int) { closeWindow(d.self); }},
      {"mnuFileCloseAll", [](Private& d, int) { d.link.closeAllDocuments(); }},
      {"mnuFileExit", [](Private& d, int) { d.link.mnuFileExit_Click(); }},
      {"mnuEditUndo", [](Private& d, int) { d.self.mnuEditUndo_Click(); }},
      {"mnuEditRedo", [](Private& d, int) { d.self.mnuEditRedo_Click(); }},
      {"mnuEditUndoAll", [](Private& d, int) { d.self.mnuEditUndoAll_Click(); }},
      {"mnuEditCut", [](Private& d, int) { d.self.mnuEditCut_Click(); }},
      {"mnuEditCutAndCopy", [](Private& d, int) { d.cutAndCopy(); }},
      {"mnuEditCopy", [](Private& d, int) { d.self.mnuEditCopy_Click(); }},
      {"mnuEditCrop", [](Private& d, int) { d.cropPerRegion(); }},
      {"mnuEditCropPerImageInsideRegion", [](Private& d, int) { d.cropPerImageInsideRegion(); }},
      {"mnuEditCleansePaintSub", [](Private& d, int i) { d.cleanse(i == 1); }},
      {"mnuEditClearClipboard", [](Private& d, int) { d.clearClipboard(); }},
      {"mnuRotateSub", [](Private& d, int i) { d.self.Do_mnuRotateSubClick(i); }},
      {"mnuResizeSub", [](Private& d, int i) { d.runResizeMenu(i); }},
      {"mnuTextSub", [](Private& d, int) { d.addText(); }},
      {"mnuInquiryOriginal", [](Private& d, int) { d.tellProperties(); }},
      {"mnuInquiryColorCount", [](Private& d, int) { d.tellColourCount(); }},
      {"mnuInquiryStartPosCurrentScreen", [](Private& d, int) { d.tellCurrentScreen(); }},
      {"mnuInquiryFullFileSpec", [](Private& d, int) { d.tell(qt(d.record.name), desktop::Icon::Information); }},
      {"mnuOptionsSub", [](Private& d, int i) { d.runOption("mnuOptionsSub", i); }},
      {"mnuOptionsSessionOnlySub", [](Private& d, int i) { d.runOption("mnuOptionsSessionOnlySub", i); }},
      {"mnuSubMonitorRAM", [](Private& d, int i) { d.runOption("mnuSubMonitorRAM", i); }},
      {"mnuWindowsSub", [](Private& d, int i) { d.link.arrangeWindows(i); }},
      {"mnuHelpSub", [](Private& d, int i) { d.link.mnuHelpSub_Click(i); }},
  };
  canvas->letGo();
  if (const SaveItem* item = saveItemOf(control.toStdString(), index)) return saveAs(*item);
  if (const ReductionItem* item = reductionItemOf(control.toStdString(), index)) return reduceColours(*item);
  if (const auto manner = pasteMannerOf(control.toStdString(), index)) return paste(*manner);
  if (const EffectItem* item = effectItemOf(control.toStdString(), index)) return runEffect(*item);
  if (const Run run = kCommands.value(control)) run(*this, index);
}

void frmRuvoPaint::Private::runFileMenu(int index) {
  switch (index) {
    case 0:
      return commandNew();
    case 1:
    case 2:
      return commandOpen(index == 2);
    case 6:
      return save();
    default:
      return;
  }
}

bool frmRuvoPaint::triggerMenu(const QString& control, int index) {
  QAction* action = d_->menus->action(control, index);
  if (!action || !action->isEnabled()) return false;
  action->trigger();
  return true;
}

// The quarter turns and flips; 0 mirrors left to right, 1 top to bottom, 2 turns left, 3 right. 5 is any angle.
void frmRuvoPaint::Do_mnuRotateSubClick(int index) {
  if (index == 5) return d_->rotateByAngle();
  if (index < 0 || index > 3) return;
  // What a region holds floats on; it becomes a state when it is put down.
  if (d_->canvas->HasRegion()) return d_->canvas->doRotateOperation(index);
  d_->changePicture([this, index](clsDIB&) {
    const WaitCursor wait;
    d_->canvas->doRotateOperation(index);
    clsDIB::RotateDIB(d_->iconMask.dib, index);
    d_->iconMask.turned = true;
    return true;
  });
}

// --- Options

void frmRuvoPaint::Private::runOption(const QString& control, int index) {
  if (control == QLatin1String("mnuSubMonitorRAM")) {
    link.mnuSubMonitorRAM_Click(index);
  } else if (control == QLatin1String("mnuOptionsSessionOnlySub")) {
    if (canvas->HasRegion()) {
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
  d_->menus->setHistory(QStringLiteral("mnuFileHistory"), d_->session().fileHistory);
  d_->menus->setHistory(QStringLiteral("mnuFileHistoryGIFani"), d_->session().fileHistoryGifAni);
}

// --- What is enabled

void frmRuvoPaint::Private::updateMenus() {
  unsigned have = 0;
  if (hasPicture()) {
    have |= kNeedPicture;
    if (canvas->HasRegion()) have |= kNeedRegion;
    if (history.canUndo()) have |= kNeedUndo;
    if (history.canRedo()) have |= kNeedRedo;
  }
  if (!link.toolbox().viewMode) have |= kNeedPaintMode;
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

}  // namespace ruvo
