#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <array>
#include <optional>

#include "animation/session_panels.h"
#include "base/paths.h"
#include "dialogs/named_controls.h"
#include "document/frmRuvoSizeOfNew.h"
#include "platform/desktop/desktop.h"

namespace ruvo {
namespace {

enum Button {
  kBlankBefore,
  kBlankAfter,
  kDuplicateBefore,
  kDuplicateAfter,
  kEditSetting,
  kEditImage,
  kLoadBefore,
  kLoadAfter,
  kDelete,
  kReplace,
  kUndo,
  kAnimate,
  kStop,
  kClose,
  kButtons
};

struct ButtonRow {
  Button button;
  const char* text;
  const char* tip;
  std::optional<SeriesAction> action;
};
constexpr ButtonRow kSeriesButtons[] = {
    {kBlankBefore, "+ Blk Before", "Add a blank frame before the current one", SeriesAction::BlankBefore},
    {kBlankAfter, "+ Blk After", "Add a blank frame after the current one", SeriesAction::BlankAfter},
    {kDuplicateBefore, "+ Dup Before", "Duplicate the current frame before itself", SeriesAction::DuplicateBefore},
    {kDuplicateAfter, "+ Dup After", "Duplicate the current frame after itself", SeriesAction::DuplicateAfter},
    {kEditSetting, "Edit Setting", "Change settings of the current frame", {}},
    {kEditImage, "Edit Image", "Edit the picture of the current frame", {}},
    {kLoadBefore, "+ Ld Before", "Load a frame from a file before the current one", SeriesAction::LoadBefore},
    {kLoadAfter, "+ Ld After", "Load a frame from a file after the current one", SeriesAction::LoadAfter},
    {kDelete, "Delete", "Delete the current frame", SeriesAction::Delete},
    {kReplace, "Replace", "Replace the picture of the current frame by that of a file", SeriesAction::Replace},
    {kUndo, "Undo", nullptr, {}},
    {kAnimate, "Animate", nullptr, {}},
    {kStop, "Stop", nullptr, {}},
    {kClose, "Close", nullptr, {}},
};
static_assert(std::size(kSeriesButtons) == kButtons);

struct NamedAction {
  const char* text;
  SeriesAction action;
};
constexpr NamedAction kCopyButtons[] = {
    {"Copy current frame to", SeriesAction::CopyTo},
    {"Copy to current frame from", SeriesAction::CopyFrom},
    {"Move current frame to", SeriesAction::Move},
    {"Swap current frame with", SeriesAction::Swap},
};
constexpr NamedAction kShiftButtons[] = {
    {"Shift position up", SeriesAction::ShiftUp},
    {"Shift position down", SeriesAction::ShiftDown},
};

constexpr const char* kIncomingFilter = "(*.gif)|*.gif|";
// Items of `cboBgdPattern` while the panel is open, so that see-through parts are told from the ground, and after.
constexpr int kPatternWhileOpen = 1;
constexpr int kPatternUsual = 0;

bool isBlank(SeriesAction action) {
  return action == SeriesAction::BlankBefore || action == SeriesAction::BlankAfter;
}
bool takesFile(SeriesAction action) {
  return action == SeriesAction::LoadBefore || action == SeriesAction::LoadAfter || action == SeriesAction::Replace;
}

}  // namespace

struct SeriesPanel::Private {
  std::array<QPushButton*, kButtons> buttons{};
  QComboBox* other = nullptr;
  QString incomingFolder;
};

SeriesPanel::SeriesPanel(SessionHost& host, QWidget* parent)
    : SessionPanel(host, SessionWork::Series, 3,
                   tr("Edit frame series  (add/delete/replace/clone/swap/shift/edit frames)"), parent),
      d_(new Private) {
  for (const ButtonRow& row : kSeriesButtons) {
    QPushButton* button = namedButton(controlName("cmdEditImageSeries", row.button), tr(row.text), this);
    if (row.tip) button->setToolTip(tr(row.tip));
    if (row.action) {
      connect(button, &QPushButton::clicked, this, [this, action = *row.action] { edit(action); });
    }
    d_->buttons[row.button] = button;
  }
  d_->buttons[kEditImage]->setEnabled(false);
  setButtons(d_->buttons[kAnimate], d_->buttons[kStop], d_->buttons[kUndo], d_->buttons[kClose]);
  connect(d_->buttons[kEditSetting], &QPushButton::clicked, this, [this] {
    this->host().stopAnimation();
    Q_EMIT settingsAsked();
  });

  auto* fields = new QHBoxLayout;
  fields->addLayout(buildFrameButtons());
  fields->addLayout(buildOrderButtons(), 1);
  layOut(fields, {d_->buttons[kAnimate], d_->buttons[kStop], d_->buttons[kUndo], d_->buttons[kClose]});
}

SeriesPanel::~SeriesPanel() = default;

// Pairs of before and after in rows, then what acts on the frame itself.
QLayout* SeriesPanel::buildFrameButtons() {
  constexpr Button kPlaces[][3] = {{kBlankBefore, kBlankAfter, kDelete},
                                   {kDuplicateBefore, kDuplicateAfter, kReplace},
                                   {kLoadBefore, kLoadAfter, kEditSetting}};
  auto* grid = new QGridLayout;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) grid->addWidget(d_->buttons[kPlaces[row][column]], row, column);
  }
  grid->addWidget(d_->buttons[kEditImage], 3, 2);
  grid->setRowStretch(4, 1);
  return grid;
}

QLayout* SeriesPanel::buildOrderButtons() {
  auto* grid = new QGridLayout;
  d_->other = namedComboBox("cboEditImageSeriesCopy", {}, this);
  auto* label = namedLabel({}, tr("Other frame:"), this);
  label->setBuddy(d_->other);
  grid->addWidget(label, 0, 0, Qt::AlignRight);
  grid->addWidget(d_->other, 0, 1, Qt::AlignLeft);
  const auto put = [&](const char* array, int index, const NamedAction& row, int line) {
    QPushButton* button = namedButton(controlName(QString::fromLatin1(array), index), tr(row.text), this);
    connect(button, &QPushButton::clicked, this, [this, action = row.action] { edit(action); });
    grid->addWidget(button, line, index % 2);
  };
  for (int i = 0; i < 4; ++i) put("cmdEditImageSeriesCopy", i, kCopyButtons[i], 1 + i / 2);
  for (int i = 0; i < 2; ++i) put("cmdShift", i, kShiftButtons[i], 3);
  grid->setRowStretch(4, 1);
  return grid;
}

void SeriesPanel::opened() {
  host().setPattern(kPatternWhileOpen);
  showFrames();
}

void SeriesPanel::closing() {
  host().setPattern(kPatternUsual);
}

void SeriesPanel::undone() {
  showFrames();
}

void SeriesPanel::frameSelected() {
  if (isOpen()) showFrames();
}

void SeriesPanel::showFrames() {
  const int frames = session().gif().FramesCount();
  const int chosen = d_->other->currentIndex();
  if (d_->other->count() == frames) return;
  d_->other->clear();
  for (int frame = 1; frame <= frames; ++frame) d_->other->addItem(QString::number(frame));
  d_->other->setCurrentIndex(std::clamp(chosen, 0, frames - 1));
}

void SeriesPanel::moveFrame(int from, int to) {
  if (isOpen()) edit({SeriesAction::Move, from, to, {}, {}});
}

void SeriesPanel::edit(SeriesAction action) {
  edit({action, host().selectedFrame(), d_->other->currentIndex() + 1, {}, {}});
}

void SeriesPanel::edit(SeriesOrder order) {
  host().stopAnimation();
  clsGIF& gif = session().gif();
  if (const auto refusal = seriesRefusal(gif, order)) {
    tell(QString::fromStdString(*refusal));
    return;
  }
  const auto question = seriesQuestion(gif, order);
  if (question && !ask(QString::fromStdString(*question))) return;
  if (isBlank(order.action) && !chooseSize(order)) return;
  if (takesFile(order.action) && !chooseFile(order)) return;

  const SeriesResult result = editSeries(gif, order);
  if (result.changed) {
    changeMade(result.frame);
    showFrames();
  }
  if (!result.message.empty()) tell(QString::fromStdString(result.message));
}

bool SeriesPanel::chooseSize(SeriesOrder& order) {
  const clsGIF& gif = session().gif();
  frmRuvoSizeOfNew dialog(frmRuvoSizeOfNew::Use::AnimationFrame, {gif.BgdWidth(), gif.BgdHeight()}, host().window());
  if (dialog.exec() != QDialog::Accepted) return false;
  order.blankSize = dialog.chosenSize();
  return true;
}

bool SeriesPanel::chooseFile(SeriesOrder& order) {
  QString& folder = d_->incomingFolder;
  if (folder.isEmpty()) folder = QString::fromStdString(utf8Of(session().path().parent_path()));
  const QString file =
      desktop::desktop().openFile(host().window(), tr("Load Frame"), folder, QString::fromLatin1(kIncomingFilter));
  if (file.isEmpty()) return false;
  folder = QFileInfo(file).path();
  order.file = pathOf(file.toStdString());
  const IncomingFile incoming = checkIncoming(order.file);
  if (!incoming.refusal.empty()) {
    tell(QString::fromStdString(incoming.refusal));
    return false;
  }
  return incoming.question.empty() || ask(QString::fromStdString(incoming.question));
}

}  // namespace ruvo
