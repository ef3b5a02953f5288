#include "animation/frmRuvoGIFaniChangeBPP.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "animation/delete_entry_panel.h"
#include "animation/model/change_bpp.h"
#include "animation/model/edit_palette_rules.h"
#include "animation/model/work_copy.h"
#include "animation/palette_grid.h"
#include "animation/palette_stage.h"
#include "canvas/ucProgress.h"
#include "dialogs/named_controls.h"
#include "platform/theme/controls.h"

namespace ruvo {
namespace {

constexpr int kPatterns = 3;  // the list has no actual frame sizes here
constexpr int kGridSide = 16 * 14 + 5;
enum Side { kOld, kNew };

// A palette with what is told about it.
struct PaletteView {
  PaletteGrid* grid = nullptr;
  QLabel* type = nullptr;
  QLabel* entries = nullptr;
  QLabel* hover = nullptr;

  void tell(const FramePalette& palette, int frame) const {
    type->setText(QString::fromStdString(paletteTypeText(palette, frame)));
    entries->setText(QString::fromStdString(paletteEntriesText(palette)));
    showHover(-1);
  }
  // What is under the mouse, or else what is selected.
  void showHover(int index) const { hover->setText(grid->hoverText(index >= 0 ? index : grid->selectedIndex(), true)); }
};

}  // namespace

struct frmRuvoGIFaniChangeBPP::Private {
  Private(frmRuvoGIFaniChangeBPP& owner, std::filesystem::path file) : window(owner), work(std::move(file)) {}

  frmRuvoGIFaniChangeBPP& window;
  WorkCopy work;

  PaletteStage* stage = nullptr;
  std::array<PaletteView, 2> palettes;
  DeleteEntryPanel* deletion = nullptr;
  QComboBox* bpp = nullptr;
  QCheckBox* globalise = nullptr;
  QLabel* newFileSize = nullptr;
  ucProgress* progress = nullptr;

  void build(int frame);
  QWidget* buildPalettes();
  PaletteView buildPalette(Side side, QWidget* parent);
  QWidget* buildTools();
  void show();
  void showSize();
  void choose(int index, Qt::MouseButton button);
  void proceed();
  void deleteEntry();
};

void frmRuvoGIFaniChangeBPP::Private::build(int frame) {
  auto* column = new QVBoxLayout(&window);
  QWidget* palettesPage = buildPalettes();
  QWidget* tools = buildTools();
  stage = new PaletteStage(work, frame, kPatterns, tr("Show Palette(s)"), palettesPage, tools, &window);
  column->addWidget(stage);
  QObject::connect(stage, &PaletteStage::shown, &window, [this] { show(); });
  QObject::connect(stage, &PaletteStage::indexClicked, &window,
                   [this](int index, Qt::MouseButton button) { choose(index, button); });
  QObject::connect(stage, &PaletteStage::restored, &window, [this] {
    deletion->clearChoice();
    newFileSize->clear();
    show();
  });
  QObject::connect(stage, &PaletteStage::closeAsked, &window, [this] { window.reject(); });
  show();
  bpp->setFocus();
}

QWidget* frmRuvoGIFaniChangeBPP::Private::buildPalettes() {
  auto* page = new QWidget(&window);
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins(0, 0, 0, 0);
  for (const Side side : {kOld, kNew}) {
    auto* half = new QWidget(page);
    half->setFixedWidth(kGridSide);
    palettes[side] = buildPalette(side, half);
    row->addWidget(half);
  }
  PaletteGrid* grid = palettes[kNew].grid;
  grid->setChoosesSecond(true);
  QObject::connect(grid, &PaletteGrid::clicked, &window,
                   [this](int index, Qt::MouseButton button) { choose(index, button); });
  return page;
}

PaletteView frmRuvoGIFaniChangeBPP::Private::buildPalette(Side side, QWidget* parent) {
  PaletteView view;
  auto* column = new QVBoxLayout(parent);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(theme::label(side == kOld ? tr("Old") : tr("New"), parent, theme::LabelKind::Heading));
  view.type = namedLabel(controlName(QStringLiteral("lblPaletteType"), side), QString(), parent);
  view.grid = new PaletteGrid(parent);
  view.grid->setObjectName(controlName(QStringLiteral("picPalette"), side));
  view.grid->setFixedSize(kGridSide, kGridSide);
  if (side == kOld) view.grid->setFocusPolicy(Qt::NoFocus);  // there is nothing to choose
  view.hover = theme::label(QString(), parent, theme::LabelKind::Quiet);
  view.hover->setWordWrap(true);
  view.entries = namedLabel(controlName(QStringLiteral("lblEntries"), side), QString(), parent);
  column->addWidget(view.type);
  column->addWidget(view.grid);
  column->addWidget(view.entries);
  column->addWidget(view.hover);
  column->addStretch();
  QObject::connect(view.grid, &PaletteGrid::hovered, &window,
                   [this, side](int index) { palettes[side].showHover(index); });
  return view;
}

QWidget* frmRuvoGIFaniChangeBPP::Private::buildTools() {
  auto* side = new QWidget(&window);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);

  auto* order = new QGroupBox(tr("Change BPP"), side);
  auto* rows = new QVBoxLayout(order);
  bpp = namedComboBox(QStringLiteral("cboBPP"), {}, order);
  for (std::size_t item = 0; item < kBppTargets.size(); ++item) bpp->addItem(QString::fromStdString(bppItemText(item)));
  globalise = namedCheckBox(QStringLiteral("ckbGlobalize"), tr("Globalize local palettes if any"), order);
  QPushButton* run = namedButton(QStringLiteral("cmdChangeBPP"), tr("Proceed"), order);
  progress = new ucProgress(order);
  progress->setObjectName(QStringLiteral("picProgress"));
  QSizePolicy room = progress->sizePolicy();
  room.setRetainSizeWhenHidden(true);
  progress->setSizePolicy(room);
  progress->hide();
  newFileSize = namedLabel(QStringLiteral("lblNewFileSize"), QString(), order);
  newFileSize->setWordWrap(true);
  newFileSize->setMinimumHeight(2 * newFileSize->fontMetrics().lineSpacing());
  newFileSize->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  auto* line = new QHBoxLayout;
  line->addWidget(progress, 1);
  line->addWidget(run);
  rows->addWidget(theme::label(tr("BPP (8,7,6,5 or 4)"), order));
  rows->addWidget(bpp);
  rows->addWidget(globalise);
  rows->addLayout(line);
  rows->addWidget(newFileSize);

  auto* deleting = new QGroupBox(tr("Delete entry of new palette"), side);
  auto* deletingRows = new QVBoxLayout(deleting);
  deletion = new DeleteEntryPanel(deleting);
  deletion->layout()->setContentsMargins(0, 0, 0, 0);
  deletingRows->addWidget(deletion);

  column->addWidget(order);
  column->addWidget(deleting);
  column->addStretch();
  QObject::connect(run, &QPushButton::clicked, &window, [this] { proceed(); });
  QObject::connect(deletion, &DeleteEntryPanel::proceed, &window, [this] { deleteEntry(); });
  return side;
}

void frmRuvoGIFaniChangeBPP::Private::show() {
  const int frame = stage->frame();
  const FramePalette& before = work.originalPalette(frame);
  palettes[kOld].grid->setPalette(before.table, before.entries, before.transparentIndex);
  palettes[kOld].tell(before, frame);
  const FramePalette now = framePalette(work.gif(), frame);
  deletion->showOn(*palettes[kNew].grid, now, frame);
  palettes[kNew].tell(now, frame);
}

void frmRuvoGIFaniChangeBPP::Private::showSize() {
  const std::int64_t size = work.measure();
  newFileSize->setText(size > 0 ? QString::fromStdString(changeBppSizeText(work.originalSize(), size)) : QString());
}

void frmRuvoGIFaniChangeBPP::Private::choose(int index, Qt::MouseButton button) {
  deletion->choose(index, button);
  show();
}

void frmRuvoGIFaniChangeBPP::Private::proceed() {
  stage->stopAnimation();
  const auto item = static_cast<std::size_t>(bpp->currentIndex());
  if (!askWords(&window, changeBppQuestion(item))) return;
  progress->setValue(0);
  progress->show();
  Progress told;
  told.step = [this](int percent) { progress->setValue(percent); };
  const std::string words = changeBpp(work.gif(), {kBppTargets[item], globalise->isChecked()}, told);
  progress->hide();
  work.touch();
  deletion->clearChoice();
  stage->refresh();
  showSize();
  if (!words.empty()) tellWords(&window, words);
}

void frmRuvoGIFaniChangeBPP::Private::deleteEntry() {
  stage->stopAnimation();
  const int frame = stage->frame();
  const bool global = !work.gif().LocalPaletteUsed(frame);
  if (!deletion->run(work, global, frame, PaletteWindow::ChangeBpp)) return;
  stage->refresh();
  showSize();
}

frmRuvoGIFaniChangeBPP::frmRuvoGIFaniChangeBPP(std::filesystem::path file, int frame, MainWindowLink&, QWidget* parent)
    : QDialog(parent), d_(std::make_unique<Private>(*this, std::move(file))) {
  setObjectName(QStringLiteral("frmRuvoGIFaniChangeBPP"));
  setWindowTitle(tr("Optimize &/or change BPP"));
  if (loaded()) d_->build(frame);
}

frmRuvoGIFaniChangeBPP::~frmRuvoGIFaniChangeBPP() = default;

bool frmRuvoGIFaniChangeBPP::loaded() const {
  return d_->work.loaded();
}

bool frmRuvoGIFaniChangeBPP::changed() const {
  return d_->work.stored();
}

void frmRuvoGIFaniChangeBPP::reject() {
  if (storeOrAsk(this, d_->work)) QDialog::reject();
}

}  // namespace ruvo
