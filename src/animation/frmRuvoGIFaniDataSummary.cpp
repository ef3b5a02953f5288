#include "animation/frmRuvoGIFaniDataSummary.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

#include "animation/model/gif_texts.h"
#include "animation/model/gif_view.h"
#include "animation/model/palette_texts.h"
#include "animation/palette_grid.h"
#include "animation/surface_drawing.h"
#include "dialogs/named_controls.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/controls.h"
#include "platform/theme/theme.h"

namespace ruvo {
namespace {

enum FrameSize { kOwnSize, kBackgroundSize };
constexpr QSize kUsualSize(860, 620);
constexpr QSize kLeastPicture(240, 180);

// `picDisp`: a frame by itself, as large as it is or as fits.
class FramePicture : public QWidget {
 public:
  explicit FramePicture(QWidget* parent) : QWidget(parent) {
    setObjectName("picDisp");
    setMinimumSize(kLeastPicture);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  }
  void show(const clsGIF& gif, int frame, FrameSize size) {
    picture_ = size == kOwnSize ? byItself(gif, frame) : onBackground(gif, frame);
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), theme::roles().workspace);
    const QRect place = centredBox({picture_.width(), picture_.height()}, rect());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, place.width() < picture_.width());
    painter.drawImage(place, picture_);
  }

 private:
  // The whole frame, also where it lies outside the background.
  static QImage byItself(const clsGIF& gif, int frame) {
    raster::Surface surface;
    if (!surface.create(gif.FrameWidth(frame), gif.FrameHeight(frame), 24, raster::RowOrder::TopDown)) return {};
    gif.FrameDraw(surface, frame, -gif.FrameLeft(frame), -gif.FrameTop(frame), true);
    return imageOver(surface).copy();
  }
  QImage onBackground(const clsGIF& gif, int frame) const {
    GifView view;
    view.create(gif, theme::fromQColor(palette().color(QPalette::Base)));
    view.composeStill(gif, frame, kPatternTransparentColor);
    return imageOver(view.shown()).copy();
  }

  QImage picture_;
};

QStringList piecesOf(const clsGIF& gif, int frame) {
  QStringList pieces;
  for (const std::string& piece : frameLinePieces(gif, frame)) pieces << QString::fromStdString(piece);
  return pieces;
}

QString remarksOf(const clsGIF& gif, int frame) {
  const QString place = QStringLiteral("%1 x %2   [%3, %4]")
                            .arg(gif.FrameWidth(frame))
                            .arg(gif.FrameHeight(frame))
                            .arg(gif.FrameLeft(frame))
                            .arg(gif.FrameTop(frame));
  if (!gif.FrameUseTransparentColor(frame)) return place + "\n(No transparent color)";
  const Colour colour = gif.FrameTransparentColor(frame);
  return place + QStringLiteral("\nTransp index %1   RGB(%2, %3, %4)")
                     .arg(gif.FrameTransparentColorIndex(frame))
                     .arg(redOf(colour))
                     .arg(greenOf(colour))
                     .arg(blueOf(colour));
}

}  // namespace

struct frmRuvoGIFaniDataSummary::Private {
  const clsGIF& gif;
  QTableWidget* list = nullptr;
  QComboBox* frame = nullptr;
  QPushButton* step[2] = {};
  FramePicture* picture = nullptr;
  QButtonGroup* size = nullptr;
  PaletteGrid* palette = nullptr;
  QLabel* entry = nullptr;
  QLabel* remarks = nullptr;

  QString background() const { return QStringLiteral("Bgd:  %1 x %2").arg(gif.BgdWidth()).arg(gif.BgdHeight()); }
};

frmRuvoGIFaniDataSummary::frmRuvoGIFaniDataSummary(const clsGIF& gif, int frame, QWidget* parent)
    : QDialog(parent), d_(new Private{gif}) {
  setObjectName("frmRuvoGIFaniDataSummary");
  setWindowTitle(tr("Summary of settings of individual frames"));
  auto* all = new QVBoxLayout(this);
  all->addWidget(namedLabel("lblBgd", d_->background(), this));
  buildList();
  all->addWidget(d_->list, 1);
  auto* lower = new QHBoxLayout;
  lower->addLayout(buildPicture(), 1);
  lower->addLayout(buildPalette());
  all->addLayout(lower, 1);
  all->addLayout(buildButtons());
  resize(kUsualSize);

  connect(d_->list, &QTableWidget::currentCellChanged, this, [this](int row) { showFrame(row + 1); });
  connect(d_->frame, &QComboBox::currentIndexChanged, this, [this](int index) { showFrame(index + 1); });
  connect(d_->size, &QButtonGroup::idClicked, this, [this] { showFrame(d_->frame->currentIndex() + 1); });
  showFrame(std::clamp(frame, 1, gif.FramesCount()));
  d_->list->setFocus();
}

frmRuvoGIFaniDataSummary::~frmRuvoGIFaniDataSummary() = default;

void frmRuvoGIFaniDataSummary::buildList() {
  const int frames = d_->gif.FramesCount();
  auto* list = new QTableWidget(frames, 0, this);
  list->setObjectName("lisDataSummary");
  for (int frame = 1; frame <= frames; ++frame) {
    const QStringList pieces = piecesOf(d_->gif, frame);
    if (list->columnCount() < pieces.size()) list->setColumnCount(static_cast<int>(pieces.size()));
    for (int column = 0; column < pieces.size(); ++column)
      list->setItem(frame - 1, column, new QTableWidgetItem(pieces[column]));
  }
  list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list->setSelectionBehavior(QAbstractItemView::SelectRows);
  list->setSelectionMode(QAbstractItemView::SingleSelection);
  list->setTabKeyNavigation(false);
  list->setShowGrid(false);
  list->setWordWrap(false);
  list->horizontalHeader()->hide();
  list->verticalHeader()->hide();
  list->resizeColumnsToContents();
  list->resizeRowsToContents();
  d_->list = list;
}

QLayout* frmRuvoGIFaniDataSummary::buildPicture() {
  auto* column = new QVBoxLayout;
  d_->picture = new FramePicture(this);
  column->addWidget(d_->picture, 1);
  d_->frame = namedComboBox("cboFrame", {}, this);
  for (int frame = 1; frame <= d_->gif.FramesCount(); ++frame) d_->frame->addItem(QString::number(frame));
  auto* row = new QHBoxLayout;
  auto* label = namedLabel({}, tr("Frame:"), this);
  label->setBuddy(d_->frame);
  row->addWidget(label);
  row->addWidget(d_->frame);
  const QString texts[] = {tr("Previous"), tr("Next")};
  for (int i = 0; i < 2; ++i) {
    d_->step[i] = namedButton(controlName("cmdUpDown", i), texts[i], this);
    connect(d_->step[i], &QPushButton::clicked, this,
            [this, by = i == 0 ? -1 : 1] { showFrame(d_->frame->currentIndex() + 1 + by); });
    row->addWidget(d_->step[i]);
  }
  d_->size = new QButtonGroup(this);
  const QString sizes[] = {tr("At frame's own size"), tr("At background size")};
  for (int i = 0; i < 2; ++i) {
    auto* option = new QRadioButton(sizes[i], this);
    option->setObjectName(controlName("optFrameDispSize", i));
    d_->size->addButton(option, i);
    row->addWidget(option);
  }
  d_->size->button(kOwnSize)->setChecked(true);
  row->addStretch();
  column->addLayout(row);
  return column;
}

QLayout* frmRuvoGIFaniDataSummary::buildPalette() {
  auto* column = new QVBoxLayout;
  d_->palette = new PaletteGrid(this);
  d_->palette->setObjectName("picPalette");
  d_->entry = namedLabel("lblPaletteEntry", {}, this);
  // As wide as the longest that it tells, so that moving over the palette does not move the window's parts.
  const QString longest = QString::fromStdString(paletteHoverText({}, 0, 255, false));
  d_->entry->setMinimumWidth(d_->entry->fontMetrics().horizontalAdvance(longest) + 4);
  d_->remarks = namedLabel("lblRemarks", {}, this);
  column->addWidget(d_->palette);
  column->addWidget(d_->entry);
  column->addWidget(d_->remarks);
  column->addStretch();
  connect(d_->palette, &PaletteGrid::hovered, this,
          [this](int index) { d_->entry->setText(index < 0 ? QString() : d_->palette->hoverText(index, false)); });
  return column;
}

QLayout* frmRuvoGIFaniDataSummary::buildButtons() {
  auto* row = new QHBoxLayout;
  QPushButton* print = namedButton("cmdPrint", tr("Print"), this);
  QPushButton* close = namedButton("cmdClose", tr("Close"), this);
  connect(print, &QPushButton::clicked, this, &frmRuvoGIFaniDataSummary::printList);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  row->addStretch();
  row->addWidget(print);
  row->addWidget(close);
  return row;
}

// The frame in every control; the list and the box may have begun it.
void frmRuvoGIFaniDataSummary::showFrame(int frame) {
  const clsGIF& gif = d_->gif;
  if (frame < 1 || frame > gif.FramesCount()) return;
  const QSignalBlocker quietList(d_->list), quietBox(d_->frame);
  if (d_->list->currentRow() != frame - 1) d_->list->setCurrentCell(frame - 1, 0);
  d_->frame->setCurrentIndex(frame - 1);
  d_->step[0]->setEnabled(frame > 1);
  d_->step[1]->setEnabled(frame < gif.FramesCount());
  d_->picture->show(gif, frame, static_cast<FrameSize>(d_->size->checkedId()));
  const bool transparent = gif.FrameUseTransparentColor(frame);
  d_->palette->setPalette(gif.getLocalPalette(frame), gif.LocalPaletteEntries(frame),
                          transparent ? gif.FrameTransparentColorIndex(frame) : -1);
  d_->entry->clear();
  d_->remarks->setText(remarksOf(gif, frame));
}

void frmRuvoGIFaniDataSummary::printList() {
  desktop::PrintedList list{windowTitle() + "    " + d_->background(), {}};
  for (int frame = 1; frame <= d_->gif.FramesCount(); ++frame) list.rows << piecesOf(d_->gif, frame);
  desktop::Desktop& desk = desktop::desktop();
  const desktop::PrintAnswer answer = desk.print(this, list);
  if (answer == desktop::PrintAnswer::NoPrinter)
    desk.message(this, tr("No printer found "), desktop::Icon::Exclamation);
  if (answer == desktop::PrintAnswer::Failed) desk.message(this, tr("Failed to print."), desktop::Icon::Exclamation);
}

}  // namespace ruvo
