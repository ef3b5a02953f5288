#include "animation/session_panel.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/named_controls.h"
#include "platform/desktop/desktop.h"

namespace ruvo {

SessionPanel::SessionPanel(SessionHost& host, SessionWork work, int index, const QString& title, QWidget* parent)
    : QGroupBox(title, parent), host_(host), work_(work) {
  setObjectName(controlName(QStringLiteral("fraOperation"), index));
  hide();
}

void SessionPanel::setButtons(QPushButton* animate, QPushButton* stop, QPushButton* undo, QPushButton* close) {
  animate_ = animate;
  stop_ = stop;
  undo_ = undo;
  connect(animate, &QPushButton::clicked, this, [this] { host_.startAnimation(); });
  connect(stop, &QPushButton::clicked, this, [this] { host_.stopAnimation(); });
  connect(undo, &QPushButton::clicked, this, &SessionPanel::undo);
  connect(close, &QPushButton::clicked, this, &SessionPanel::closePanel);
}

void SessionPanel::layOut(QLayout* fields, const QList<QPushButton*>& column) {
  auto* all = new QHBoxLayout(this);
  all->addLayout(fields, 1);
  auto* buttons = new QVBoxLayout;
  for (QPushButton* button : column) buttons->addWidget(button);
  buttons->addStretch();
  all->addLayout(buttons);
}

bool SessionPanel::openPanel() {
  if (open_) return true;
  if (!session().saveRestoreFile()) {
    tell(QString::fromLatin1(kTextBackupFailed));
    return false;
  }
  open_ = true;
  undo_->setEnabled(false);
  animationChanged(host_.animating());
  opened();
  show();
  return true;
}

void SessionPanel::closePanel() {
  if (!open_) return;
  host_.stopAnimation();
  open_ = false;
  session().dropRestoreFile();
  if (undo_->isEnabled()) host_.showFileSize();
  closing();
  hide();
  Q_EMIT closed();
}

void SessionPanel::animationChanged(bool running) {
  animate_->setEnabled(!running);
  stop_->setEnabled(running);
}

void SessionPanel::changeMade(int frame) {
  undo_->setEnabled(true);
  session().setUnsaved(work_);
  host_.refreshAll(frame);
}

void SessionPanel::undo() {
  host_.stopAnimation();
  const std::string words = session().restore();
  if (!words.empty()) {
    tell(QString::fromStdString(words));
    return;
  }
  undo_->setEnabled(false);
  host_.refreshAll(host_.selectedFrame());
  undone();
}

void SessionPanel::tell(const QString& words) const {
  desktop::desktop().message(host_.window(), words, desktop::Icon::Exclamation);
}

bool SessionPanel::ask(const QString& question) const {
  return desktop::desktop().message(host_.window(), question, desktop::Icon::Question, desktop::Buttons::YesNo) ==
         desktop::Answer::Yes;
}

}  // namespace ruvo
