#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "animation/delete_entry_panel.h"
#include "animation/frmRuvoGIFaniEditPalette_Private.h"
#include "animation/model/gif_view.h"
#include "animation/palette_grid.h"
#include "animation/palette_stage.h"
#include "dialogs/color_swatch.h"
#include "dialogs/named_controls.h"
#include "platform/theme/controls.h"

namespace ruvo {
namespace {

constexpr int kGridSide = 16 * 21 + 5;  // the longest text about the transparent color has room below

// A swatch in front of the button that is about its colour.
QHBoxLayout* withSwatch(ColorSwatch* swatch, QWidget* button) {
  auto* row = new QHBoxLayout;
  row->addWidget(swatch);
  row->addWidget(button, 1);
  return row;
}

}  // namespace

void frmRuvoGIFaniEditPalette::Private::build(int startFrame) {
  auto* column = new QVBoxLayout(&window);
  QWidget* palettes = buildPalette();
  QWidget* tools = buildTools();
  stage = new PaletteStage(work, startFrame, static_cast<int>(kBgdPatternNames.size()), tr("Show Palette"), palettes,
                           tools, &window);
  column->addWidget(stage);
  QObject::connect(stage, &PaletteStage::shown, &window, [this] { frameShown(); });
  QObject::connect(stage, &PaletteStage::indexClicked, &window,
                   [this](int index, Qt::MouseButton button) { chooseOnPicture(index, button); });
  QObject::connect(stage, &PaletteStage::restored, &window, [this] {
    deletion->clearChoice();
    show();
  });
  QObject::connect(stage, &PaletteStage::closeAsked, &window, [this] { window.reject(); });
  QObject::connect(tabs, &QTabWidget::currentChanged, &window, [this] {
    grid->setChoosesSecond(deleting());
    show();
  });
  frameShown();
  grid->setFocus();
}

QWidget* frmRuvoGIFaniEditPalette::Private::buildPalette() {
  auto* side = new QWidget(&window);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  type = namedLabel(QStringLiteral("lblPaletteType"), QString(), side);
  grid = new PaletteGrid(side);
  grid->setFixedSize(kGridSide, kGridSide);
  hover = theme::label(QString(), side, theme::LabelKind::Quiet);
  entries = namedLabel(QStringLiteral("lblEntries"), QString(), side);
  transparent = namedLabel(QStringLiteral("lblTranspColor"), QString(), side);
  transparent->setWordWrap(true);
  auto* save = new theme::PictureButton(QStringLiteral("imgSavePalette"), QStringLiteral("save"),
                                        tr("Save palette to PAL file"), side);
  save->setFocusPolicy(Qt::TabFocus);
  auto* line = new QHBoxLayout;
  line->addWidget(entries);
  line->addStretch();
  line->addWidget(save);
  column->addWidget(type);
  column->addWidget(grid);
  column->addWidget(hover);
  column->addLayout(line);
  column->addWidget(transparent);
  column->addStretch();
  // What is told does not change the width.
  side->setFixedWidth(kGridSide);
  QObject::connect(grid, &PaletteGrid::hovered, &window, [this](int index) { showHover(index); });
  QObject::connect(grid, &PaletteGrid::clicked, &window,
                   [this](int index, Qt::MouseButton button) { choose(index, button); });
  QObject::connect(save, &QAbstractButton::clicked, &window, [this] { savePalette(); });
  return side;
}

QWidget* frmRuvoGIFaniEditPalette::Private::buildTools() {
  tabs = new QTabWidget(&window);
  tabs->setObjectName(QStringLiteral("tabTools"));
  tabs->addTab(buildColors(), tr("Colors"));
  tabs->addTab(buildDeletion(), tr("Delete Entry"));
  return tabs;
}

QWidget* frmRuvoGIFaniEditPalette::Private::buildColors() {
  auto* page = new QWidget(&window);
  auto* column = new QVBoxLayout(page);
  addSelectedColor(column);
  addTransparency(column);
  QPushButton* clear =
      namedButton(QStringLiteral("cmdClearUnusedDuplicate"), tr("Clear Duplicate Palette Entries if any"), page);
  QObject::connect(clear, &QPushButton::clicked, &window, [this] { clearUnused(); });
  column->addWidget(clear);
  column->addStretch();
  return page;
}

void frmRuvoGIFaniEditPalette::Private::addSelectedColor(QVBoxLayout* column) {
  auto* group = new QGroupBox(tr("Entries"), column->parentWidget());
  auto* rows = new QVBoxLayout(group);
  selectedColor = new ColorSwatch(QStringLiteral("picCurrentColor"), kWhite, group);
  QPushButton* change = namedButton(QStringLiteral("cmdChangeColor"), tr("Change color of current index"), group);
  QPushButton* add = namedButton(QStringLiteral("cmdAddEntry"), tr("Add Entry"), group);
  rows->addLayout(withSwatch(selectedColor, change));
  rows->addWidget(add);
  rows->addWidget(theme::label(tr("(Left click selects, right click changes color)"), group, theme::LabelKind::Quiet));
  column->addWidget(group);
  QObject::connect(change, &QPushButton::clicked, &window, [this] { changeColor(); });
  QObject::connect(add, &QPushButton::clicked, &window, [this] { addEntry(); });
}

void frmRuvoGIFaniEditPalette::Private::addTransparency(QVBoxLayout* column) {
  auto* group = new QGroupBox(tr("Transparent color"), column->parentWidget());
  auto* rows = new QVBoxLayout(group);
  transparentColor = new ColorSwatch(QStringLiteral("picTranspColor"), kWhite, group);
  QPushButton* find = namedButton(QStringLiteral("cmdTranspColor"), tr("(Click to show index pos)"), group);
  rows->addLayout(withSwatch(transparentColor, find));
  const QString texts[] = {tr("Change transparent color (through Color Dialog)"),
                           tr("Change transparent color to current color on palette")};
  QPushButton* change[2];
  for (int i = 0; i < 2; ++i) {
    change[i] = namedButton(controlName(QStringLiteral("cmdChangeTranspColor"), i), texts[i], group);
    rows->addWidget(change[i]);
  }
  const QString onOff = QStringLiteral("cboOnOffTransparentColor");
  transparencyScope = namedComboBox(
      controlName(onOff, 0), {tr("All frames"), tr("Global only"), tr("All local"), tr("Current local only")}, group);
  transparencyScope->setAccessibleName(tr("Frames"));
  transparencyAction =
      namedComboBox(controlName(onOff, 1),
                    {tr("Set to Use Transparent (per selected color)"), tr("Set to Not Use Transparent")}, group);
  transparencyAction->setAccessibleName(tr("Transparency"));
  QPushButton* execute = namedButton(QStringLiteral("cmdSetUnsetTransparentColor"), tr("Execute selection"), group);
  rows->addSpacing(8);
  for (QWidget* widget : std::initializer_list<QWidget*>{transparencyAction, transparencyScope, execute})
    rows->addWidget(widget);
  column->addWidget(group);
  QObject::connect(find, &QPushButton::clicked, &window, [this] { selectTransparent(); });
  QObject::connect(change[0], &QPushButton::clicked, &window, [this] { changeTransparentColor(); });
  QObject::connect(change[1], &QPushButton::clicked, &window, [this] { moveTransparency(); });
  QObject::connect(execute, &QPushButton::clicked, &window, [this] { setTransparency(); });
}

QWidget* frmRuvoGIFaniEditPalette::Private::buildDeletion() {
  deletion = new DeleteEntryPanel(&window);
  deleteScope = namedComboBox(
      QStringLiteral("cboScope"),
      {tr("Apply to all frames using global palette only"), tr("Apply to current frame (if using local palette) only")},
      deletion);
  deleteScope->setAccessibleName(tr("Frames"));
  deletion->choices()->addWidget(deleteScope);
  QObject::connect(deleteScope, &QComboBox::currentIndexChanged, &window, [this] { show(); });
  QObject::connect(deletion, &DeleteEntryPanel::proceed, &window, [this] { deleteEntry(); });
  return deletion;
}

}  // namespace ruvo
