// Opening a file: into this window, into a new one, or dropped on the canvas.
#include <QApplication>
#include <QDir>
#include <QTimer>

#include "base/paths.h"
#include "dialogs/frmRuvoMulti.h"
#include "document/frmRuvoPaint_Private.h"
#include "document/model/picture_loading.h"

namespace ruvo {
namespace {
// How often a dropped file looks whether the dialog in its way is gone.
constexpr int kDropRetryMs = 100;
}  // namespace

bool frmRuvoPaint::Private::refuseOpen(OpenFault fault, const std::string& path, bool quiet) {
  if (quiet || fault == OpenFault::Cancelled) return false;
  if (fault == OpenFault::NoImagingService) {
    link.gdiPlusMissingMessage(QString());
  } else {
    tell(qt(openFaultText(fault, path)));
  }
  return false;
}

// A file of several icons asks which one, but not while nobody is to be asked.
ReadRequest frmRuvoPaint::Private::readRequest(bool quiet) {
  ReadRequest request;
  if (!quiet) {
    request.chooseImage = [this](const clsICO& file) {
      const ArrowCursor arrow;
      return frmRuvoMulti::choose(link.window(), file);
    };
  }
  return request;
}

bool frmRuvoPaint::LoadOpenFile(const QString& FileSpec, int openMode, bool inUpdateFileHistory) {
  const std::string path = FileSpec.toStdString();
  const bool quiet = isQuietOpen(openMode);
  d_->link.unloadToolWindows(true);
  const OpenPlan plan = planOpen(path);
  if (plan.fault == OpenFault::NotFound) return d_->refuseOpen(plan.fault, path, quiet);
  if (d_->hasPicture()) {
    d_->commitFloatingAndPush();
    d_->endRunningOperation();
  }
  LoadedPicture loaded;
  loaded.fault = plan.fault;
  if (plan.fault == OpenFault::None) {
    const WaitCursor wait;
    d_->canvas->ShowLoadingMsg();
    // Painted at once: no events are handled while the file is read.
    d_->canvas->repaint();
    loaded = loadPicture(path, plan, d_->readRequest(quiet));
    d_->canvas->RemoveLoadingMsg();
  }
  if (loaded.fault != OpenFault::None) {
    d_->returnToOperationOfMode();
    return d_->refuseOpen(loaded.fault, path, quiet);
  }
  // The loader's surface becomes the picture itself.
  d_->canvas->DIB() = std::move(loaded.dib);
  d_->iconMask = {std::move(loaded.iconMask), false};
  d_->record = std::move(loaded.record);
  d_->restartHistory();
  d_->setChanged(false);
  if (inUpdateFileHistory) d_->link.addToFileHistory(FileSpec);
  d_->canvas->SetScrollValues(0, 0, false, true);
  d_->canvas->settings().FitInView = d_->link.toolbox().viewMode && d_->link.toolbox().fitIn;
  d_->setTitle(path);
  d_->returnToOperationOfMode();
  d_->showPicture();
  return true;
}

// Where the file dialogs start: the folder of this picture, else that of the file used last.
QString frmRuvoPaint::Private::folderForFiles() {
  const std::filesystem::path own = pathOf(record.name).parent_path();
  if (!record.untitled() && folderExists(own)) return qt(utf8Of(own));
  const std::filesystem::path last = session().fileHistory[0].parent_path();
  return folderExists(last) ? qt(utf8Of(last)) : QDir::homePath();
}

void frmRuvoPaint::Private::commandOpen(bool inExistingWindow) {
  link.ramReminder();
  const QString file = desktop::desktop().openFile(link.window(), tr("Open"), folderForFiles(), qt(openFilter()));
  if (file.isEmpty()) return;
  if (!session().options.sdiOnly && !inExistingWindow) {
    link.openDocument(PendingOpen::FileOpen, file);
  } else if (self.mayReplacePicture()) {
    self.LoadOpenFile(file, static_cast<int>(PendingOpen::FileOpen), true);
  }
}

void frmRuvoPaint::Do_cmdFileOpenClick() {
  d_->commandOpen(false);
}

// A drop behaves as File Open. It is handled after the drag has ended, and not while a dialog is open.
void frmRuvoPaint::Private::openDropped() {
  if (dropped.empty()) return;
  if (QApplication::activeModalWidget() || busy) {
    QTimer::singleShot(kDropRetryMs, &self, [this] { openDropped(); });
    return;
  }
  const QString file = dropped.front();
  dropped.erase(dropped.begin());
  link.ramReminder();
  if (!session().options.sdiOnly) {
    link.openDocument(PendingOpen::FileOpen, file);
  } else if (self.mayReplacePicture()) {
    self.LoadOpenFile(file, static_cast<int>(PendingOpen::FileOpen), true);
  }
  openDropped();
}

}  // namespace ruvo
