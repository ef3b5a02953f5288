#include "effects/effect_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include "canvas/ucProgress.h"
#include "dialogs/named_controls.h"
#include "effects/sample_panel.h"
#include "platform/desktop/desktop.h"

namespace ruvo {
namespace {

constexpr int kSideWidth = 300;
constexpr int kSpace = 14;
// How often a run looks whether the user wants something.
constexpr int kLookMs = 25;

}  // namespace

EffectWindow::EffectWindow(const QString& name, const QString& title, const EffectSubject& subject, QWidget* parent)
    : QDialog(parent), subject_(subject) {
  setObjectName(name);
  setWindowTitle(title);
  sample_ = new SamplePanel(
      subject_, [this](clsDIB& picture, double scale) { return apply(picture, scale, {}); }, this);
  side_ = new QWidget(this);
  controls_ = new QVBoxLayout(side_);
  controls_->setContentsMargins(0, 0, 0, 0);
  // A minimum of the widget itself would let wide rows be squeezed below theirs.
  controls_->addStrut(kSideWidth);

  progress_ = new ucProgress(this);
  progress_->setObjectName(QStringLiteral("ucProgress1"));
  cmdProceed_ = namedButton("cmdProceed", tr("&Proceed"), this);
  cmdProceed_->setDefault(true);
  auto* cancel = namedButton("cmdCancel", tr("Cancel"), this);
  connect(cmdProceed_, &QPushButton::clicked, this, &EffectWindow::accept);
  connect(cancel, &QPushButton::clicked, this, &EffectWindow::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdProceed_);
  buttons->addWidget(cancel);

  auto* right = new QVBoxLayout;
  right->addWidget(side_, 1);
  right->addSpacing(kSpace);
  right->addWidget(progress_);
  right->addLayout(buttons);
  auto* all = new QHBoxLayout(this);
  all->addWidget(sample_, 1);
  all->addSpacing(kSpace);
  all->addLayout(right);
}

void EffectWindow::showEvent(QShowEvent* event) {
  if (!std::exchange(tabsOrdered_, true)) orderTabs();
  QDialog::showEvent(event);
}

// The window's own controls are made after those of the frame, but come first.
void EffectWindow::orderTabs() {
  QList<QWidget*> own, frame;
  for (QWidget* widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain()) {
    if (!(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy()) continue;
    (side_->isAncestorOf(widget) ? own : frame) << widget;
  }
  const QList<QWidget*> all = own + frame;
  for (qsizetype i = 1; i < all.size(); ++i) setTabOrder(all[i - 1], all[i]);
  if (!all.isEmpty() && !focusWidget()) all.front()->setFocus();
}

void EffectWindow::choiceChanged() {
  if (!running_) sample_->refresh();
}

void EffectWindow::setRunning(bool running) {
  running_ = running;
  side_->setEnabled(!running);
  sample_->setEnabled(!running);
  cmdProceed_->setEnabled(!running);
  progress_->setValue(0);
}

// Only this window can be reached while it runs, and of it only Cancel.
bool EffectWindow::runOnCopy(clsDIB& work) {
  Progress progress;
  QElapsedTimer sinceLook;
  sinceLook.start();
  progress.step = [this, &sinceLook](int percent) {
    if (sinceLook.elapsed() < kLookMs) return;
    progress_->setValue(percent);
    QCoreApplication::processEvents();
    sinceLook.start();
  };
  progress.stop = [this] { return stopped_; };
  stopped_ = false;
  // A control that is disabled loses the focus.
  const QPointer<QWidget> focus = focusWidget();
  setRunning(true);
  const bool done = apply(work, 1, progress);
  setRunning(false);
  if (focus) focus->setFocus();
  return done && !stopped_;
}

void EffectWindow::accept() {
  if (running_) return;
  desktop::Desktop& desktop = desktop::desktop();
  if (const QString why = refusal(); !why.isEmpty()) {
    desktop.message(this, why, desktop::Icon::Exclamation);
    return;
  }
  if (!changesAnything()) return QDialog::reject();
  if (!confirm()) return;
  clsDIB work;
  const bool copied = clsDIB::CloneDIB(subject_.picture, work, kWhite, subject_.picture.BottomUp());
  const bool done = copied && runOnCopy(work);
  if (std::exchange(closing_, false)) return QDialog::reject();
  if (done) {
    result_ = std::move(work);
    QDialog::accept();
  } else if (!stopped_) {
    desktop.message(this, tr(kNoMemoryText), desktop::Icon::Exclamation);
  }
}

// While it runs only the run ends; the choices can then be changed.
void EffectWindow::reject() {
  if (running_) {
    stopped_ = true;
  } else {
    QDialog::reject();
  }
}

void EffectWindow::closeEvent(QCloseEvent* event) {
  if (!running_) return QDialog::closeEvent(event);
  stopped_ = closing_ = true;
  event->ignore();
}

}  // namespace ruvo
