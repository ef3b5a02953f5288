#include "animation/palette_stage.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QListView>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <algorithm>

#include "animation/film_strip.h"
#include "animation/gif_field.h"
#include "animation/model/gif_texts.h"
#include "dialogs/named_controls.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/controls.h"

namespace ruvo {
namespace {

constexpr QSize kLeastPicture(280, 240);
constexpr int kGap = 10;
constexpr int kFrameListWidth = 76;
constexpr double kFrameDataScale = 0.85;  // a whole line is seen in most windows
constexpr int kFilmPage = 1;

}  // namespace

PaletteStage::PaletteStage(WorkCopy& work, int frame, int patterns, const QString& showPalette, QWidget* palettes,
                           QWidget* tools, QWidget* parent)
    : QWidget(parent), work_(work), frame_(std::clamp(frame, 1, work.gif().FramesCount())) {
  build(patterns, showPalette, palettes, tools);
  field_->setGif(&work_.gif());
  film_->setGif(&work_.gif());
  fillFrames();
  selectFrame(frame_);
  turnTo(0);
  showRunning();
}

void PaletteStage::build(int patterns, const QString& showPalette, QWidget* palettes, QWidget* tools) {
  auto* lists = new QHBoxLayout;
  frames_ = namedComboBox(QStringLiteral("cboFrame"), {}, this);
  frames_->setFixedWidth(kFrameListWidth);
  frames_->setAccessibleName(tr("Frame"));
  frameData_ = namedComboBox(QStringLiteral("cboFrameData"), {}, this);
  frameData_->setAccessibleName(tr("Frame settings"));
  QFont columns = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  columns.setPointSizeF(columns.pointSizeF() * kFrameDataScale);
  frameData_->setFont(columns);
  frameData_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  lists->addWidget(new QLabel(tr("Frame:"), this));
  lists->addWidget(frames_);
  lists->addWidget(frameData_, 1);
  for (QComboBox* list : {frames_, frameData_})
    connect(list, &QComboBox::currentIndexChanged, this, [this](int row) { selectFrame(row + 1); });

  film_ = new FilmStrip(this);
  connect(film_, &FilmStrip::frameClicked, this, &PaletteStage::selectFrame);
  auto* filmPage = new QWidget(this);
  auto* filmRow = new QHBoxLayout(filmPage);
  filmRow->setContentsMargins(0, 0, 0, 0);
  filmRow->addStretch();
  filmRow->addWidget(film_);
  filmRow->addStretch();
  pages_ = new QStackedWidget(this);
  pages_->addWidget(palettes);
  pages_->addWidget(filmPage);

  auto* middle = new QHBoxLayout;
  middle->setSpacing(kGap);
  middle->addWidget(buildPicture(patterns), 1);
  middle->addWidget(pages_);
  middle->addWidget(tools);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  column->addLayout(lists);
  column->addLayout(middle, 1);
  column->addWidget(buildOperations(showPalette));
}

QWidget* PaletteStage::buildPicture(int patterns) {
  auto* side = new QWidget(this);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  field_ = new GifField(side);
  field_->setMinimumSize(kLeastPicture);
  connect(field_, &GifField::pressed, this, &PaletteStage::pressPicture);
  connect(field_, &GifField::runningChanged, this, &PaletteStage::showRunning);
  auto* grounds = namedComboBox(QStringLiteral("cboBgdPattern"), {}, side);
  grounds->setAccessibleName(tr("Background"));
  for (int i = 0; i < patterns; ++i) grounds->addItem(QLatin1String(kBgdPatternNames[static_cast<std::size_t>(i)]));
  connect(grounds, &QComboBox::currentIndexChanged, this, [this](int item) {
    field_->setPattern(static_cast<BgdPattern>(item));
    film_->setPattern(static_cast<BgdPattern>(item));
  });
  column->addWidget(field_, 1);
  column->addWidget(grounds);
  return side;
}

QWidget* PaletteStage::buildOperations(const QString& showPalette) {
  auto* line = new QWidget(this);
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  const QString texts[] = {tr("Restore"), tr("Close"), tr("Animate"), tr("Stop"), showPalette, tr("Frames")};
  for (const Operation operation : {kAnimate, kStop, kShowPalette, kFrames, kRestore, kClose}) {
    QPushButton* button = namedButton(controlName(QStringLiteral("cmdOperation"), operation), texts[operation], line);
    if (operation == kRestore) row->addStretch();
    row->addWidget(button);
    operations_[operation] = button;
  }
  const auto does = [this](Operation operation, auto act) {
    connect(operations_[operation], &QAbstractButton::clicked, this, act);
  };
  does(kRestore, [this] { restore(); });
  does(kClose, [this] { Q_EMIT closeAsked(); });
  does(kAnimate, [this] { field_->start(); });
  does(kStop, [this] { stopAnimation(); });
  does(kShowPalette, [this] { turnTo(0); });
  does(kFrames, [this] { turnTo(kFilmPage); });
  return line;
}

void PaletteStage::fillFrames() {
  const QSignalBlocker quietFrames(frames_), quietData(frameData_);
  frames_->clear();
  frameData_->clear();
  for (const std::string& line : frameLines(work_.gif())) {
    frameData_->addItem(QString::fromStdString(line));
    frames_->addItem(QString::number(frameData_->count()));
  }
  frameData_->view()->setMinimumWidth(frameData_->view()->sizeHintForColumn(0));
}

void PaletteStage::selectFrame(int frame) {
  frame_ = frame;
  const QSignalBlocker quietFrames(frames_), quietData(frameData_);
  frames_->setCurrentIndex(frame - 1);
  frameData_->setCurrentIndex(frame - 1);
  frameData_->setToolTip(desktop::plainToolTip(frameData_->currentText()));
  film_->setSelected(frame);
  field_->showFrame(frame);
  Q_EMIT shown();
}

void PaletteStage::stopAnimation() {
  field_->stop();
}

void PaletteStage::refresh() {
  field_->changed();
  film_->changed();
  fillFrames();
  selectFrame(frame_);
}

// A running picture is stopped first: what it shows is not the frame that is selected.
void PaletteStage::pressPicture(const QPoint& place, Qt::MouseButton button) {
  if (field_->running()) {
    stopAnimation();
    return;
  }
  const int index = work_.gif().PaletteIndex_In_DIB_XY(frame_, place.x(), place.y());
  if (index >= 0) Q_EMIT indexClicked(index, button);
}

void PaletteStage::restore() {
  stopAnimation();
  const std::string words = work_.restore();
  if (!words.empty()) return tellWords(this, words);
  refresh();
  Q_EMIT restored();
}

void PaletteStage::turnTo(int page) {
  pages_->setCurrentIndex(page);
  operations_[kShowPalette]->setEnabled(page == kFilmPage);
  operations_[kFrames]->setEnabled(page != kFilmPage);
}

void PaletteStage::showRunning() {
  operations_[kAnimate]->setEnabled(!field_->running() && work_.gif().FramesCount() > 1);
  operations_[kStop]->setEnabled(field_->running());
}

void tellWords(QWidget* window, const std::string& words) {
  desktop::desktop().message(window, QString::fromStdString(words), desktop::Icon::Exclamation);
}

bool askWords(QWidget* window, const std::string& question) {
  return desktop::desktop().message(window, QString::fromStdString(question), desktop::Icon::Question,
                                    desktop::Buttons::YesNo) == desktop::Answer::Yes;
}

bool askCarefully(QWidget* window, const std::string& question) {
  return desktop::desktop().message(window, QString::fromStdString(question), desktop::Icon::Question,
                                    desktop::Buttons::YesNoCareful) == desktop::Answer::Yes;
}

bool storeOrAsk(QWidget* window, WorkCopy& work) {
  return work.store() || askCarefully(window, "Failed to save reduction to temp file.\nClose without the changes?");
}

}  // namespace ruvo
