// The animation window: at most one, opened from menus, toolbar and command line, and what comes back from it.
#include <QDir>
#include <QTimer>

#include "animation/frmRuvoGIFani.h"
#include "document/frmRuvoPaint.h"
#include "platform/desktop/desktop.h"
#include "shell/frmRuvomain_Private.h"
#include "shell/session/session_texts.h"

namespace ruvo {
namespace {

// In front of the other windows, whatever it was.
void bringForward(QWidget& window) {
  window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace

QWidget* frmRuvomain::animationWindow() const {
  return d_->animation.get();
}

void frmRuvomain::openAnimation(const QString& file) {
  if (d_->animation) {
    bringForward(*d_->animation);
    d_->animation->openFile(file);
    return;
  }
  auto window = std::make_unique<frmRuvoGIFani>(*this);
  if (!window->openFile(file, true)) return;
  connect(window.get(), &frmRuvoGIFani::sessionEnded, this, &frmRuvomain::animationEnded);
  d_->animation = std::move(window);
  bringForward(*d_->animation);
}

// The window is within its own closing: it goes from the event loop, or with this window.
void frmRuvomain::animationEnded(const QString& selectedFrameFile) {
  d_->endedAnimation = std::move(d_->animation);
  QTimer::singleShot(0, this, [this] { d_->endedAnimation.reset(); });
  if (selectedFrameFile.isEmpty()) return;
  if (session().options.sdiOnly && documentCount() > 0)
    openInActiveDocument(PendingOpen::FirstFrame, selectedFrameFile);
  else
    openDocument(PendingOpen::FirstFrame, selectedFrameFile);
  deleteIfPossible(toPath(selectedFrameFile));
  bringForward(*this);
}

// Its question decides whether the program may end.
bool frmRuvomain::closeAnimation() {
  if (!d_->animation) return true;
  if (d_->animation->isMinimized()) bringForward(*d_->animation);
  return d_->animation->close();
}

// --- Menus

void frmRuvomain::mnuAnimatedGIFNew_Click(int index) {
  if (index != kOpenAnimation) return;
  ramReminder();
  const std::filesystem::path last = session().fileHistoryGifAni[0].parent_path();
  const QString folder = folderExists(last) ? toText(last) : QDir::homePath();
  const QString file = frmRuvoGIFani::pickFile(this, folder);
  if (!file.isEmpty()) openAnimation(file);
}

void frmRuvomain::mnuFileHistoryGIFani_Click(int index) {
  if (index < 1 || index > static_cast<int>(kHistoryLength)) return;
  const std::filesystem::path file = session().fileHistoryGifAni[static_cast<std::size_t>(index - 1)];
  if (fileExists(file)) return openAnimation(toText(file));
  desktop::desktop().message(this, QString::fromStdString(historyFileMissingText(utf8Of(file))));
}

void frmRuvomain::addToAnimationHistory(const QString& path) {
  d_->services.fileHistoryGifAni.add(toPath(path));
  MDI_List_File_History_GIFani();
}

// --- Places of windows

WindowPlacement frmRuvomain::placement(const QString& section) const {
  return readPlacement(d_->services.settingsFile, section.toStdString());
}

void frmRuvomain::setPlacement(const QString& section, const WindowPlacement& placement) {
  writePlacement(d_->services.settingsFile, section.toStdString(), placement);
}

}  // namespace ruvo
