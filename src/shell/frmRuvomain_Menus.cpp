// The main window's own menus, the options, the file histories and what menus of a document ask of it.
#include <QAction>
#include <QMenuBar>
#include <algorithm>

#include "base/paths.h"
#include "document/frmRuvoPaint.h"
#include "document/option_rows.h"
#include "platform/desktop/desktop.h"
#include "shell/frmRuvoAbout.h"
#include "shell/frmRuvomain_Private.h"
#include "shell/session/session_texts.h"

namespace ruvo {
namespace {

constexpr const char* kHelpFile = "Ruvopaint.chm";

}  // namespace

void frmRuvomain::buildMenus() {
  d_->menus = std::make_unique<MenuSet>(kScopeMain, this,
                                        [this](const QString& control, int index) { menuTriggered(control, index); });
  if (QMenu* edit = d_->menus->menu("mnuEdit")) connect(edit, &QMenu::aboutToShow, this, [this] { updateMainMenu(); });
  desktop::desktop().watchClipboard(this, [this] { clipboardChanged(); });
  showMenusOf(nullptr);
  updateMainMenu();
}

// What can be pasted follows what other programs copy.
void frmRuvomain::clipboardChanged() {
  updateMainMenu();
  tell(&frmRuvoPaint::updateEditButtons);
}

// What the main window's own menus allow: there is no picture, but there may be one on the clipboard.
void frmRuvomain::updateMainMenu() {
  d_->menus->setHave(desktop::desktop().clipboardHasPicture() ? kNeedClipboard : kNeedNothing);
}

void frmRuvomain::showMenusOf(frmRuvoPaint* document) {
  d_->menusShownOf = document;
  menuBar()->clear();
  for (QMenu* menu : document != nullptr ? document->menus() : d_->menus->menus()) menuBar()->addMenu(menu);
}

void frmRuvomain::menuTriggered(const QString& control, int index) {
  if (control == "mnuFileSub" && index == 0) return newClicked();
  if (control == "mnuFileSub" && index == 1) return openClicked();
  if (control == "mnuFileHistory") return historyClicked(index - 1);
  if (control == "mnuAnimatedGIFNew") return mnuAnimatedGIFNew_Click(index);
  if (control == "mnuFileHistoryGIFani") return mnuFileHistoryGIFani_Click(index);
  if (control == "mnuFileExit") return mnuFileExit_Click();
  if (control == "mnuEditPaste") return openDocument(PendingOpen::Paste, QString());
  if (control == "mnuEditClearClipboard") return desktop::desktop().clearClipboard();
  if (control == "mnuOptionsSub") return mnuOptionsSub_Click(index);
  if (control == "mnuSubMonitorRAM") return mnuSubMonitorRAM_Click(index);
  if (control == "mnuOptionsSessionOnlySub") return mnuOptionsSessionOnlySub_Click(index);
  if (control == "mnuHelpSub") return mnuHelpSub_Click(index);
}

// --- Options

void frmRuvomain::MDI_UpdateOptionMenus() {
  showOptions(*d_->menus, session().options);
  for (frmRuvoPaint* document : d_->documents)
    if (document != nullptr) document->updateOptionMenus();
}

// A document refuses what its windows or its region do not allow before it asks for a change here.
void frmRuvomain::mnuOptionsSub_Click(int index) {
  toggleOption("mnuOptionsSub", index);
  if (index == kOptionSdi) d_->status->showSdi(session().options.sdiOnly);
}

void frmRuvomain::mnuOptionsSessionOnlySub_Click(int index) {
  toggleOption("mnuOptionsSessionOnlySub", index);
}

void frmRuvomain::toggleOption(const QString& control, int index) {
  bool OptionFlags::*flag = optionFlagOf(control, index);
  if (flag == nullptr) return;
  OptionFlags& options = session().options;
  options.*flag = !(options.*flag);
  MDI_UpdateOptionMenus();
  tell(&frmRuvoPaint::Notify_SessionOptions_FromMDI);
}

void frmRuvomain::mnuSubMonitorRAM_Click(int index) {
  session().options.watchRam = index;
  MDI_UpdateOptionMenus();
}

void frmRuvomain::ramReminder() {
  const auto text = ramReminderText(session().options.watchRam, desktop::desktop().freeRamKb());
  if (text) desktop::desktop().message(this, QString::fromStdString(*text), desktop::Icon::Information);
}

void frmRuvomain::gdiPlusMissingMessage(const QString& prefix) {
  const ImagingState state{.failedToStart = session().gdiPlusFailedToStart, .versionCode = session().versionCode};
  desktop::desktop().message(this, QString::fromStdString(gdiPlusMissingText(state, prefix.toStdString())),
                             desktop::Icon::Exclamation);
}

// --- Histories

void frmRuvomain::MDI_List_File_History() {
  listHistory("mnuFileHistory", d_->services.fileHistory, session().fileHistory);
}

void frmRuvomain::MDI_List_File_History_GIFani() {
  listHistory("mnuFileHistoryGIFani", d_->services.fileHistoryGifAni, session().fileHistoryGifAni);
}

// Without a settings file the menus are left as they are.
void frmRuvomain::listHistory(const QString& control, const FileHistory& history, HistoryPaths& paths) {
  const auto stored = history.list();
  if (!stored) return;
  paths.fill({});
  std::ranges::copy(*stored, paths.begin());
  d_->menus->setHistory(control, paths);
  for (frmRuvoPaint* document : d_->documents)
    if (document != nullptr) document->rebuildFileHistoryMenu();
}

void frmRuvomain::addToFileHistory(const QString& path) {
  d_->services.fileHistory.add(toPath(path));
  MDI_List_File_History();
}

// An item of the main window's own menu: every other window is closed first.
void frmRuvomain::historyClicked(int index) {
  if (index < 0 || index >= static_cast<int>(kHistoryLength)) return;
  const std::filesystem::path path = session().fileHistory[static_cast<std::size_t>(index)];
  unloadToolWindows(false);
  if (!closeDocuments()) return;
  if (!fileExists(path)) {
    desktop::desktop().message(this, QString::fromStdString(historyFileMissingText(utf8Of(path))));
    return;
  }
  openDocument(PendingOpen::FileOpen, toText(path));
}

// An item of a document's menu acts as Open does.
void frmRuvomain::openFromHistory(int index) {
  if (index < 0 || index >= static_cast<int>(kHistoryLength)) return;
  const std::filesystem::path path = session().fileHistory[static_cast<std::size_t>(index)];
  if (!fileExists(path)) {
    desktop::desktop().message(this, QString::fromStdString(historyFileMissingText(utf8Of(path))));
  } else if (session().options.sdiOnly) {
    openInActiveDocument(PendingOpen::FileOpen, toText(path));
  } else {
    openDocument(PendingOpen::FileOpen, toText(path));
  }
}

// --- The rest

void frmRuvomain::mnuFileExit_Click() {
  close();
}

void frmRuvomain::mnuHelpSub_Click(int index) {
  if (index == 1) {
    frmRuvoAbout(frmRuvoAbout::Use::About, this).exec();
    return;
  }
  std::error_code error;
  const auto help = std::filesystem::current_path(error) / kHelpFile;
  if (!fileExists(help) || !desktop::desktop().open(toText(help)))
    desktop::desktop().message(this, QString("%1 missing in current folder.").arg(kHelpFile),
                               desktop::Icon::Exclamation);
}

}  // namespace ruvo
