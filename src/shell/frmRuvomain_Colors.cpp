#include "shell/frmRuvomain_Colors.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "shell/session/settings.h"
#include "shell/shell_controls.h"

namespace ruvo::shell {

std::array<QToolButton*, 3> paletteButtons(int box, QWidget* parent,
                                           const std::function<void(PaletteKind, int)>& asked) {
  struct Row {
    PaletteKind kind;
    const char* name;
    const char* picture;
    const char* tip;
  };
  static constexpr Row kRows[] = {
      {PaletteKind::Palette256, "cmdPalette256", "palette256", "256-color palette (select ...)"},
      {PaletteKind::WebSafe, "cmdPaletteWebSafe", "palette_websafe", "Web safe palette (select ...)"},
      {PaletteKind::Chart, "cmdColorChart", "color_chart", "Color chart for Paint/ Fill /Shape ..."},
  };
  std::array<QToolButton*, 3> made{};
  for (std::size_t i = 0; i < made.size(); ++i) {
    const Row& row = kRows[i];
    auto* button = new PictureButton(controlName(row.name, box), row.picture, row.tip, parent);
    button->setFixedSize(26, 26);
    button->setIconSize({18, 18});
    QObject::connect(button, &QToolButton::clicked, parent, [asked, kind = row.kind, box] { asked(kind, box); });
    made[i] = button;
  }
  return made;
}

BrushAndColors::BrushAndColors(QWidget* parent, const std::function<void(PaletteKind, int box)>& paletteAsked)
    : QWidget(parent) {
  setObjectName("fraBrushAndColors");
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(7);
  buildColors(paletteAsked);
  buildBrushSize();
}

void BrushAndColors::buildColors(const std::function<void(PaletteKind, int)>& paletteAsked) {
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  wells_ = new QWidget(this);
  wells_->setFixedSize(72, 56);
  boxes_[1] =
      new ColorBox("picColorToUse(1)",
                   "Second color  (Left click for color value.  Right click if swap with first color)", kWhite, wells_);
  boxes_[1]->move(28, 22);
  boxes_[0] =
      new ColorBox("picColorToUse(0)",
                   "First color (i.e. current color)  for Paint/ Fill /Shape ...  (Left click for color value.  "
                   "Right click if swap with second color)",
                   kBlack, wells_);
  boxes_[0]->move(0, 2);
  auto* swap = new PictureButton("imgSwapColor", "swap", "Swap first and second color", wells_);
  swap->setIconSize({14, 14});
  swap->setGeometry(44, 0, 20, 20);
  connect(swap, &QToolButton::clicked, this, [this] {
    if (swapClicked) swapClicked();
  });
  row->addWidget(wells_);
  row->addStretch();

  auto* grid = new QGridLayout;
  grid->setSpacing(2);
  for (int box = 0; box < 2; ++box) {
    const auto buttons = paletteButtons(box, this, paletteAsked);
    for (int i = 0; i < 3; ++i) grid->addWidget(buttons[static_cast<std::size_t>(i)], box, i);
  }
  row->addLayout(grid);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void BrushAndColors::buildBrushSize() {
  auto* row = new QHBoxLayout;
  row->setSpacing(2);
  auto* caption = label("Brush size", this);
  QStringList sizes;
  // Two blanks behind each number keep it off the arrow.
  for (int size = 1; size <= kBrushSizeCount; ++size) sizes << QString::number(size) + "  ";
  brushSize_ = combo("cboBrushSize", sizes, kDefaultBrushSizeIndex, 54, this);
  brushSize_->setToolTip("Brush size");
  caption->setBuddy(brushSize_);
  row->addWidget(caption);
  row->addStretch();
  row->addWidget(brushSize_);
  static constexpr struct {
    const char* picture;
    const char* tip;
    int step;
  } kSteps[] = {{"brush_up", "Larger brush", 1}, {"brush_down", "Smaller brush", -1}};
  for (int i = 0; i < 2; ++i) {
    auto* button = new PictureButton(controlName("cmdAdjBrushSize", i), kSteps[i].picture, kSteps[i].tip, this);
    button->setFixedSize(24, 26);
    button->setIconSize({16, 16});
    connect(button, &QToolButton::clicked, this,
            [this, step = kSteps[i].step] { brushSize_->setCurrentIndex(brushSize_->currentIndex() + step); });
    adjust_[static_cast<std::size_t>(i)] = button;
    row->addWidget(button);
  }
  connect(brushSize_, &QComboBox::currentIndexChanged, this, [this] {
    updateSteppers();
    if (brushSizeChanged) brushSizeChanged(sizeByKeys_);
  });
  brushSize_->installEventFilter(this);
  updateSteppers();
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

bool BrushAndColors::eventFilter(QObject* watched, QEvent* event) {
  if (watched == brushSize_) {
    if (event->type() == QEvent::KeyPress) sizeByKeys_ = true;
    if (event->type() == QEvent::KeyRelease || event->type() == QEvent::FocusOut) sizeByKeys_ = false;
  }
  return QWidget::eventFilter(watched, event);
}

int BrushAndColors::brushSizeIndex() const {
  return brushSize_->currentIndex();
}

void BrushAndColors::setBrushSizeIndex(int index) {
  brushSize_->setCurrentIndex(index >= 0 && index < brushSize_->count() ? index : kDefaultBrushSizeIndex);
}

void BrushAndColors::updateSteppers() {
  adjust_[0]->setEnabled(brushSize_->currentIndex() < brushSize_->count() - 1);
  adjust_[1]->setEnabled(brushSize_->currentIndex() > 0);
}

}  // namespace ruvo::shell
