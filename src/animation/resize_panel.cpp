#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "animation/model/session_limits.h"
#include "animation/session_panels.h"
#include "base/paths.h"
#include "dialogs/named_controls.h"
#include "formats/gif_player.h"

namespace ruvo {
namespace {

enum Button { kProceed, kAnimate, kStop, kUndo, kClose };
constexpr int kUnchanged = 100;  // percent
constexpr const char* kIntermediaryFile = "tmpResizedIntermediary.tmp";

QStringList percentages() {
  QStringList items;
  for (int percent = kLeastResizePercent; percent <= kMostResizePercent; ++percent) items << QString::number(percent);
  return items;
}

}  // namespace

struct ResizePanel::Private {
  QComboBox* percent = nullptr;
  QComboBox* mode = nullptr;
  QCheckBox* backgroundOnly = nullptr;
  QComboBox* keep = nullptr;
  QComboBox* offset[2] = {};
  QLabel* newSize = nullptr;
};

ResizePanel::ResizePanel(SessionHost& host, QWidget* parent)
    : SessionPanel(host, SessionWork::Resize, 4, tr("Resize "), parent), d_(new Private) {
  const auto buttons =
      namedButtons("cmdResize", {tr("Proceed"), tr("Animate"), tr("Stop"), tr("Undo"), tr("Close")}, this);
  layOut(buildFields(), buttons);
  setButtons(buttons[kAnimate], buttons[kStop], buttons[kUndo], buttons[kClose]);
  connect(buttons[kProceed], &QPushButton::clicked, this, &ResizePanel::proceed);
  for (QComboBox* box : {d_->percent, d_->mode, d_->keep, d_->offset[0], d_->offset[1]})
    connect(box, &QComboBox::currentTextChanged, this, &ResizePanel::showNewSize);
  connect(d_->backgroundOnly, &QCheckBox::toggled, this, [this](bool on) {
    d_->keep->setEnabled(on);
    showNewSize();
  });
}

ResizePanel::~ResizePanel() = default;

QLayout* ResizePanel::buildFields() {
  d_->percent = namedComboBox(controlName("cboResizePercent", 0), percentages(), this);
  d_->mode = namedComboBox(controlName("cboResizePercent", 1), {tr("Width/Height"), tr("Area")}, this);
  d_->backgroundOnly = namedCheckBox("ckbResizeBgdOnly", tr("Change background/screen size only when over 100%"), this);
  d_->keep = namedComboBox("cboRightBottom",
                           {tr("Allow change both right & bottom sides"), tr("Preserve right side"),
                            tr("Preserve bottom side"), tr("Preserve right & bottom sides")},
                           this);
  for (int i = 0; i < 2; ++i) {
    QComboBox* box = namedComboBox(controlName("cboResizeOffset", i), {QStringLiteral("0")}, this);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setValidator(wholeNumbersUpTo(kMostScreenSide, box));
    d_->offset[i] = box;
  }
  d_->newSize = namedLabel("lblNewSize", {}, this);

  auto* grid = new QGridLayout;
  const auto put = [&](int row, int column, const QString& text, QWidget* field) {
    auto* label = namedLabel({}, text, this);
    label->setBuddy(field);
    grid->addWidget(label, row, column);
    grid->addWidget(field, row, column + 1);
  };
  put(0, 0, tr("Percent:"), d_->percent);
  put(0, 2, tr("of:"), d_->mode);
  grid->addWidget(d_->backgroundOnly, 1, 0, 1, 4);
  grid->addWidget(d_->keep, 2, 0, 1, 4);
  put(3, 0, tr("Offset left:"), d_->offset[0]);
  put(3, 2, tr("Offset top:"), d_->offset[1]);
  grid->addWidget(d_->newSize, 4, 0, 1, 4);
  grid->setColumnStretch(4, 1);
  grid->setRowStretch(5, 1);
  return grid;
}

void ResizePanel::opened() {
  d_->percent->setCurrentIndex(kUnchanged - kLeastResizePercent);
  d_->mode->setCurrentIndex(0);
  d_->backgroundOnly->setChecked(false);
  d_->keep->setCurrentIndex(0);
  d_->keep->setEnabled(false);
  for (QComboBox* box : d_->offset) box->setEditText(QStringLiteral("0"));
  showNewSize();
}

void ResizePanel::undone() {
  showNewSize();
}

ResizeOrder ResizePanel::order() const {
  ResizeOrder order;
  order.percent = d_->percent->currentIndex() + kLeastResizePercent;
  order.area = d_->mode->currentIndex() == 1;
  order.backgroundOnly = d_->backgroundOnly->isChecked();
  order.keep = static_cast<ResizeKeep>(d_->keep->currentIndex());
  order.offsetX = d_->offset[0]->currentText().toInt();
  order.offsetY = d_->offset[1]->currentText().toInt();
  return order;
}

void ResizePanel::showNewSize() {
  const clsGIF& gif = session().gif();
  const Size size = resizedScreen(GifPlayer::screenSize(gif), order());
  d_->newSize->setText(tr("New size:  %1 x %2").arg(size.width).arg(size.height));
}

void ResizePanel::proceed() {
  host().stopAnimation();
  const ResizeOrder wanted = order();
  clsGIF& gif = session().gif();
  if (const auto refusal = resizeRefusal(gif, wanted)) {
    tell(QString::fromStdString(*refusal));
    return;
  }
  for (const std::string& question : resizeQuestions(gif, wanted)) {
    if (!ask(QString::fromStdString(question))) return;
  }
  const bool resized = atWork([&](const Progress& progress) { return resizeGif(gif, wanted, progress); });
  if (!resized) {
    tell(tr("Not enough memory to resize."));
    return;
  }
  readAgain();
  changeMade(host().selectedFrame());
  showNewSize();
}

// The model becomes what a file of it gives, so that nothing stands in it that a save would lose. Where the file can not
// be written, or is too small to be read as an animation, the model stays as it was resized.
void ResizePanel::readAgain() {
  const std::filesystem::path file = session().tempFile(kIntermediaryFile);
  if (!session().writeCopy(file)) return;
  session().reload(file);
  deleteIfPossible(file);
}

}  // namespace ruvo
