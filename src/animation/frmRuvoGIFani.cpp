#include "animation/frmRuvoGIFani.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenuBar>

#include "animation/frmRuvoGIFani_Private.h"
#include "animation/model/gif_texts.h"
#include "canvas/ucProgress.h"

namespace ruvo {

frmRuvoGIFani::frmRuvoGIFani(MainWindowLink& link, QWidget* parent)
    : QMainWindow(parent), d_(std::make_unique<Private>(*this, link)) {
  setObjectName("frmRuvoGIFani");
  // A second start of the program knows by this title that an animation is open.
  setWindowTitle("Animated GIF Main Screen");
  d_->build();
  d_->restorePlacement();
  d_->showModel(1);
  d_->film->setFocus();
}

frmRuvoGIFani::~frmRuvoGIFani() {
  // The views go after the model does.
  d_->picDisp->setGif(nullptr);
  d_->film->setGif(nullptr);
}

bool frmRuvoGIFani::openFile(const QString& file, bool atStart) {
  if (!d_->mayDropWork()) return false;
  d_->picDisp->stop();
  const std::string words = d_->session.open(toPath(file), atStart);
  if (!words.empty()) {
    d_->tell(qt(words));
    return false;
  }
  d_->endOperations();
  d_->showModel(1);
  d_->showFile(file);
  return true;
}

void frmRuvoGIFani::cmdGIFaniMain_Click(int index) {
  if (index < 0 || index >= kSessionCommandCount) return;
  if (index != kExitSession && !d_->session.hasFrames()) return;
  if (d_->cmdGIFaniMain[static_cast<std::size_t>(index)]->isEnabled()) d_->run(index);
}

// --- SessionHost

GifSession& frmRuvoGIFani::session() {
  return d_->session;
}
MainWindowLink& frmRuvoGIFani::link() {
  return d_->link;
}
int frmRuvoGIFani::selectedFrame() const {
  return d_->frame();
}
void frmRuvoGIFani::selectFrame(int frame) {
  d_->select(frame);
}
bool frmRuvoGIFani::animating() const {
  return d_->picDisp->running();
}
void frmRuvoGIFani::startAnimation() {
  d_->picDisp->start();
}
void frmRuvoGIFani::stopAnimation() {
  d_->picDisp->stop();
}

void frmRuvoGIFani::refreshAll(int frame) {
  // They belong to frames and tables that may not be there any more.
  d_->session.savedPalettes().drop();
  d_->showModel(frame);
  d_->showMeasuredSize();
}

void frmRuvoGIFani::refreshFrame() {
  d_->showModel(d_->frame());
}

void frmRuvoGIFani::showFileSize() {
  d_->lblFileSize->setText(qt(measuredSizeText(d_->session.measure())));
}

void frmRuvoGIFani::setPattern(int item) {
  d_->cboBgdPattern->setCurrentIndex(item);
}

Progress frmRuvoGIFani::beginWork() {
  d_->focusBeforeWork = focusWidget();
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  menuBar()->setEnabled(false);
  centralWidget()->setEnabled(false);
  d_->picProgress->setValue(0);
  d_->picProgress->setVisible(true);
  // The work does not come back to the event loop.
  repaint();
  return {.step = [this](int percent) { d_->picProgress->setValue(percent); }, .end = {}};
}

void frmRuvoGIFani::endWork() {
  d_->picProgress->setVisible(false);
  centralWidget()->setEnabled(true);
  menuBar()->setEnabled(true);
  QGuiApplication::restoreOverrideCursor();
  if (d_->focusBeforeWork) d_->focusBeforeWork->setFocus();
}

// --- Events

void frmRuvoGIFani::closeEvent(QCloseEvent* event) {
  if (!d_->mayClose && !d_->link.session().closingConfirmed && !d_->mayDropWork()) return event->ignore();
  d_->picDisp->stop();
  d_->storePlacement();
  event->accept();
  // Whoever owns the window may let go of it now.
  Q_EMIT sessionEnded(d_->frameForPaint);
}

void frmRuvoGIFani::keyPressEvent(QKeyEvent* event) {
  const int last = d_->session.gif().FramesCount();
  switch (event->key()) {
    case Qt::Key_Space:
      return animating() ? stopAnimation() : startAnimation();
    case Qt::Key_Escape:
      return stopAnimation();
    case Qt::Key_Left:
      return d_->step(-1);
    case Qt::Key_Right:
      return d_->step(1);
    case Qt::Key_Home:
      return d_->select(1);
    case Qt::Key_End:
      return d_->select(last);
    default:
      return QMainWindow::keyPressEvent(event);
  }
}

void frmRuvoGIFani::Private::tell(const QString& words, desktop::Icon icon) const {
  desktop::desktop().message(messageParent(), words, icon);
}

bool frmRuvoGIFani::Private::ask(const QString& question, desktop::Buttons buttons) const {
  return desktop::desktop().message(messageParent(), question, desktop::Icon::Question, buttons) ==
         desktop::Answer::Yes;
}

}  // namespace ruvo
