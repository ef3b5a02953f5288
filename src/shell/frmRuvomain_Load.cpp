// What the window does at its start and what it leaves behind at its end.
#include <QApplication>
#include <QScreen>

#include "base/paths.h"
#include "document/frmRuvoPaint.h"
#include "platform/desktop/desktop.h"
#include "platform/imaging/imaging_service.h"
#include "shell/frmRuvomain_Private.h"
#include "shell/session/session_texts.h"

namespace ruvo {
namespace {

SettingsContext settingsContext(const SessionState& state) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QSize size = screen != nullptr ? screen->size() : QSize(1024, 768);
  return {.screen = {size.width() * kTwipsPerPixel, size.height() * kTwipsPerPixel},
          .programFolder = state.programFolder};
}

// Windows that belong to what is shown and go when something else is. The browser may be spared.
constexpr const char* kToolWindows[] = {"frmRuvoPanoramic", "frmRuvoColorChart", "frmRuvoFileSaveGIForPNG"};
constexpr const char* kBrowserWindow = "frmRuvoFileBrowser";

}  // namespace

void frmRuvomain::startImaging() {
  SessionState& state = session();
  if (!state.gdiPlusUsable) return;
  state.gdiPlusUsable = imaging::startImagingService();
  state.gdiPlusFailedToStart = !state.gdiPlusUsable;
}

void frmRuvomain::loadSettings() {
  SessionState& state = session();
  d_->stored = readSettings(d_->services.settingsFile, settingsContext(state));
  state.options = d_->stored.options;
  d_->colors->setBrushSizeIndex(d_->stored.brushSizeIndex);
  d_->status->showSdi(state.options.sdiOnly);
  MDI_UpdateOptionMenus();
  MDI_List_File_History();
  MDI_List_File_History_GIFani();
}

void frmRuvomain::storeSettings() {
  d_->stored.options = session().options;
  d_->stored.brushSizeIndex = d_->colors->brushSizeIndex();
  // Written when they were chosen, and perhaps since this window read them.
  d_->stored.palFolder = toPath(lastFolder(kFolderPal));
  d_->stored.fileBrowseFolder = toPath(lastFolder(kFolderFileBrowse));
  writeSettings(d_->services.settingsFile, d_->stored, settingsContext(session()));
}

QString frmRuvomain::lastFolder(const QString& key) const {
  return toText(ruvo::lastFolder(d_->services.settingsFile, key.toStdString(), d_->services.state.programFolder));
}

void frmRuvomain::setLastFolder(const QString& key, const QString& folder) {
  rememberLastFolder(d_->services.settingsFile, key.toStdString(), toPath(folder));
}

void frmRuvomain::unloadToolWindows(bool spareBrowser) {
  for (QWidget* top : QApplication::topLevelWidgets()) {
    const QString name = top->objectName();
    bool goes = !spareBrowser && name == kBrowserWindow;
    for (const char* tool : kToolWindows) goes = goes || name == tool;
    if (goes) top->close();
  }
}

}  // namespace ruvo
