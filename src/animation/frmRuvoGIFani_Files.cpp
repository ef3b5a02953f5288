// Opening, saving and exporting in the animation window, and its ways out.
#include <QCheckBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include "animation/frmRuvoGIFani_Private.h"
#include "animation/model/frame_export.h"
#include "animation/model/gif_texts.h"
#include "base/paths.h"
#include "platform/desktop/cursors.h"

namespace ruvo {
namespace {

constexpr const char* kExtractFolder = "GIFaniExtractFolder";
constexpr const char* kGifExtension = "gif";

QString droppedGif(const QMimeData* data) {
  for (const QUrl& url : data->urls())
    if (url.isLocalFile() && url.path().endsWith(".gif", Qt::CaseInsensitive)) return url.toLocalFile();
  return {};
}

}  // namespace

bool frmRuvoGIFani::Private::mayDropWork() {
  return !session.unsaved() || ask(qt(kTextUnsavedAnimation), desktop::Buttons::YesNoCareful);
}

// --- Opening

// Where the file dialogs start.
QString frmRuvoGIFani::Private::folderForFiles() const {
  const std::filesystem::path own = session.path().parent_path();
  return folderExists(own) ? toText(own) : QDir::homePath();
}

QString frmRuvoGIFani::pickFile(QWidget* parent, const QString& folder) {
  return desktop::desktop().openFile(parent, "Open Animated GIF", folder, qt(kGifFilter));
}

void frmRuvoGIFani::Private::askForFile() {
  link.ramReminder();
  picDisp->stop();
  const QString file = pickFile(&self, folderForFiles());
  if (!file.isEmpty()) self.openFile(file);
}

void frmRuvoGIFani::Private::openFromHistory(int index) {
  const auto& paths = link.session().fileHistoryGifAni;
  if (index < 1 || index > static_cast<int>(paths.size())) return;
  const std::filesystem::path file = paths[static_cast<std::size_t>(index - 1)];
  if (!fileExists(file)) return tell(toText(file) + "\nFile not found.");
  self.openFile(toText(file));
}

void frmRuvoGIFani::dragEnterEvent(QDragEnterEvent* event) {
  if (!droppedGif(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

// A question may follow: the other program must not wait for its answer.
void frmRuvoGIFani::dropEvent(QDropEvent* event) {
  const QString file = droppedGif(event->mimeData());
  if (file.isEmpty()) return;
  event->acceptProposedAction();
  QTimer::singleShot(0, this, [this, file] { openFile(file); });
}

// --- Saving

void frmRuvoGIFani::Private::save() {
  if (!session.hasFrames()) return tell(qt(kTextNoAnimation));
  const QString proposed = folderForFiles() + '/' + qt(session.proposedName());
  const QString file = desktop::desktop().saveFile(&self, "Save", proposed, qt(kGifFilter), kGifExtension);
  if (file.isEmpty()) return;
  const int shown = frame();
  std::string words;
  {
    const WaitCursor wait;
    words = session.save(toPath(file));
  }
  if (!words.empty()) return tell(qt(words));
  showModel(shown);
  showFile(file);
}

bool frmRuvoGIFani::Private::exportTo(int frame, const std::filesystem::path& file) {
  return exportFrame(session.gif(), frame, file,
                     {.transparent = ckbSaveAsTransparent->isChecked(), .uniform = ckbAtFullFrameSize->isChecked()});
}

void frmRuvoGIFani::Private::exportOne() {
  const std::string title = session.path().empty() ? std::string() : session.title();
  const QString proposed = folderForFiles() + '/' + qt(exportName(title, frame()));
  const QString file = desktop::desktop().saveFile(&self, "Save Frame", proposed, qt(kGifFilter), kGifExtension);
  if (file.isEmpty()) return;
  const WaitCursor wait;
  if (exportTo(frame(), toPath(file))) return;
  const ArrowCursor arrow;
  tell(qt(kTextSelectFailed));
}

void frmRuvoGIFani::Private::exportAll() {
  const QString last = link.lastFolder(kExtractFolder);
  const QString folder =
      desktop::desktop().pickFolder(&self, "Extract Frames", last.isEmpty() ? folderForFiles() : last);
  if (folder.isEmpty()) return;
  link.setLastFolder(kExtractFolder, folder);
  const std::string title = session.path().empty() ? std::string() : session.title();
  const int count = session.gif().FramesCount();
  const auto target = [&](int frame) { return toPath(folder) / pathOf(extractName(title, frame)); };
  QString question = "Proceed to extract all frames?";
  for (int frame = 1; frame <= count; ++frame) {
    if (!fileExists(target(frame))) continue;
    question += "\n\n(Files of the same names in this folder will be replaced.)";
    break;
  }
  if (!ask(question)) return;
  const Progress progress = self.beginWork();
  int failed = 0;
  for (int frame = 1; frame <= count && failed == 0; ++frame) {
    if (!exportTo(frame, target(frame))) failed = frame;
    progress.report(frame * 100 / count);
  }
  self.endWork();
  if (failed > 0)
    tell("Failed to extract frame " + QString::number(failed) + " to file.\nOperation aborted.");
  else
    tell("Saved individual files in " + folder, desktop::Icon::Information);
}

// --- Views and ways out

void frmRuvoGIFani::Private::showInBrowser() {
  const std::string words = session.writeBrowserPage();
  if (!words.empty()) return tell(qt(words));
  if (!desktop::desktop().open(qt(fileAddress(session.browserPageFile())))) tell("Could not find associated Browser");
}

// The frame goes to the paint side, and the session ends.
void frmRuvoGIFani::Private::selectBack() {
  const bool proceed = session.unsaved()
                           ? mayDropWork()
                           : ask("Load current frame to program main screen and end Animated GIF session?");
  if (!proceed) return;
  const std::filesystem::path file = session.tempFile(kSelectedFrameFile);
  if (!exportTo(frame(), file)) return tell(qt(kTextSelectFailed));
  frameForPaint = toText(file);
  mayClose = true;
  self.close();
}

void frmRuvoGIFani::Private::exitSession() {
  if (!(session.unsaved() ? mayDropWork() : ask("Exit the Animated GIF Main Screen?"))) return;
  mayClose = true;
  self.close();
}

}  // namespace ruvo
