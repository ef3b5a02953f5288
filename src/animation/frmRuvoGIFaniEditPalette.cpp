#include "animation/frmRuvoGIFaniEditPalette.h"

#include <QColor>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QSignalBlocker>
#include <QTabWidget>

#include "animation/delete_entry_panel.h"
#include "animation/frmRuvoGIFaniEditPalette_Private.h"
#include "animation/model/basGIFaniMinimize.h"
#include "animation/model/edit_palette_rules.h"
#include "animation/model/pal_file.h"
#include "animation/palette_grid.h"
#include "animation/palette_stage.h"
#include "base/file_io.h"
#include "base/paths.h"
#include "base/save_texts.h"
#include "document/main_window_link.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/controls.h"

namespace ruvo {
namespace {

constexpr int kDeleteTab = 1;
constexpr int kGlobalScope = 0;  // of `cboScope`
constexpr int kUseTransparent = 0;

}  // namespace

frmRuvoGIFaniEditPalette::frmRuvoGIFaniEditPalette(std::filesystem::path file, int frame, MainWindowLink& link,
                                                   QWidget* parent)
    : QDialog(parent), d_(std::make_unique<Private>(*this, std::move(file), link)) {
  setObjectName(QStringLiteral("frmRuvoGIFaniEditPalette"));
  setWindowTitle(tr("Edit Palette"));
  if (loaded()) d_->build(frame);
}

frmRuvoGIFaniEditPalette::~frmRuvoGIFaniEditPalette() = default;

bool frmRuvoGIFaniEditPalette::loaded() const {
  return d_->work.loaded();
}

bool frmRuvoGIFaniEditPalette::changed() const {
  return d_->work.stored();
}

void frmRuvoGIFaniEditPalette::reject() {
  if (storeOrAsk(this, d_->work)) QDialog::reject();
}

// --- Showing and choosing

int frmRuvoGIFaniEditPalette::Private::frame() const {
  return stage->frame();
}

bool frmRuvoGIFaniEditPalette::Private::deleting() const {
  return tabs->currentIndex() == kDeleteTab;
}

bool frmRuvoGIFaniEditPalette::Private::deletesGlobal() const {
  return deleteScope->currentIndex() == kGlobalScope;
}

FramePalette frmRuvoGIFaniEditPalette::Private::shownPalette() const {
  const FramePalette own = framePalette(work.gif(), frame());
  const bool ofOthers = !own.global && deleting() && deletesGlobal() && work.gif().GlobalPaletteExists();
  return ofOthers ? globalPalette(work.gif()) : own;
}

// With another frame the deletion is about the palette that this one uses.
void frmRuvoGIFaniEditPalette::Private::frameShown() {
  if (shownFrame != frame()) {
    const QSignalBlocker quiet(deleteScope);
    deleteScope->setCurrentIndex(work.gif().LocalPaletteUsed(frame()) ? kGlobalScope + 1 : kGlobalScope);
  }
  shownFrame = frame();
  show();
}

void frmRuvoGIFaniEditPalette::Private::show() {
  const FramePalette palette = shownPalette();
  deletion->showOn(*grid, palette, frame());
  if (!deleting()) {
    grid->setSelectedIndex(selected);
    grid->setSecondIndex(-1);
  }
  type->setText(QString::fromStdString(paletteTypeText(palette, frame())));
  entries->setText(QString::fromStdString(paletteEntriesText(palette)));
  transparent->setText(QString::fromStdString(transparentColorText(palette)));
  showEntryColor(*selectedColor, palette, selected);
  showEntryColor(*transparentColor, palette, palette.transparentIndex);
  showHover(-1);
}

// What is under the mouse, or else what is selected.
void frmRuvoGIFaniEditPalette::Private::showHover(int index) {
  hover->setText(grid->hoverText(index >= 0 ? index : grid->selectedIndex(), true));
}

void frmRuvoGIFaniEditPalette::Private::choose(int index, Qt::MouseButton button) {
  if (deleting()) {
    deletion->choose(index, button);
  } else {
    selected = index;
  }
  show();
  if (!deleting() && button == Qt::RightButton) changeColor();
}

// A frame's pixels tell nothing about an entry of the table that other frames use.
void frmRuvoGIFaniEditPalette::Private::chooseOnPicture(int index, Qt::MouseButton button) {
  if (shownPalette().global == framePalette(work.gif(), frame()).global) choose(index, button);
}

void frmRuvoGIFaniEditPalette::Private::changed() {
  work.touch();
  stage->refresh();
}

// --- The buttons. Each stops the animation: what is changed is the frame that is selected.

bool frmRuvoGIFaniEditPalette::Private::refused(const std::optional<std::string>& words) {
  stage->stopAnimation();
  if (words) tellWords(&window, *words);
  return words.has_value();
}

std::optional<Colour> frmRuvoGIFaniEditPalette::Private::pickColor(Colour current) {
  const auto picked = desktop::desktop().pickColor(&window, theme::toQColor(current));
  return picked ? std::optional(theme::fromQColor(*picked)) : std::nullopt;
}

void frmRuvoGIFaniEditPalette::Private::changeColor() {
  if (refused(changeColorRefusal(work.gif(), frame(), selected))) return;
  const auto colour = pickColor(framePalette(work.gif(), frame()).table[static_cast<std::size_t>(selected)].colour());
  if (colour && changePaletteColor(work.gif(), frame(), selected, *colour)) changed();
}

void frmRuvoGIFaniEditPalette::Private::addEntry() {
  if (refused(addEntryRefusal(work.gif(), frame()))) return;
  const auto question = addEntryQuestion(work.gif(), frame());
  if (question && !askWords(&window, *question)) return;
  const auto colour = pickColor(kBlack);
  if (!colour || refused(ruvo::addEntry(work.gif(), frame(), *colour))) return;
  selected = framePalette(work.gif(), frame()).entries - 1;
  changed();
}

void frmRuvoGIFaniEditPalette::Private::setTransparency() {
  const TransparencyOrder order{transparencyAction->currentIndex() == kUseTransparent,
                                static_cast<PaletteScope>(transparencyScope->currentIndex()), frame(), selected};
  if (refused(transparencyRefusal(work.gif(), order))) return;
  if (setTransparentIndex(work.gif(), frame(), order.scope, order.use ? selected : -1) > 0) changed();
}

void frmRuvoGIFaniEditPalette::Private::selectTransparent() {
  if (refused(transparentColorRefusal(work.gif(), frame()))) return;
  selected = framePalette(work.gif(), frame()).transparentIndex;
  show();
}

void frmRuvoGIFaniEditPalette::Private::changeTransparentColor() {
  if (refused(transparentColorRefusal(work.gif(), frame()))) return;
  if (!askWords(&window, transparentColorQuestion(work.gif(), frame()))) return;
  const auto colour = pickColor(work.gif().FrameTransparentColor(frame()));
  if (colour && changePaletteColor(work.gif(), frame(), work.gif().FrameTransparentColorIndex(frame()), *colour))
    changed();
}

void frmRuvoGIFaniEditPalette::Private::moveTransparency() {
  if (refused(transparentIndexRefusal(work.gif(), frame(), selected))) return;
  if (!askWords(&window, transparentIndexQuestion(work.gif(), frame()))) return;
  moveTransparencyTo(work.gif(), frame(), selected);
  changed();
}

void frmRuvoGIFaniEditPalette::Private::clearUnused() {
  stage->stopAnimation();
  if (!askWords(&window, kTextClearUnused)) return;
  cleanPalettes(work.gif());
  work.gif().Remask_All_Frames();
  selected = -1;
  deletion->clearChoice();
  changed();
}

void frmRuvoGIFaniEditPalette::Private::deleteEntry() {
  stage->stopAnimation();
  if (!deletion->run(work, deletesGlobal(), frame(), PaletteWindow::EditPalette)) return;
  selected = -1;
  stage->refresh();
}

void frmRuvoGIFaniEditPalette::Private::savePalette() {
  const QString key = QStringLiteral("PAL_GIFani");
  const QString proposed = QDir(link.lastFolder(key)).filePath(QStringLiteral("Untitled.pal"));
  const QString chosen =
      desktop::desktop().saveFile(&window, tr("Save palette to PAL file"), proposed,
                                  QStringLiteral("Palette file (*.pal)|*.pal|"), QStringLiteral("pal"));
  if (chosen.isEmpty()) return;
  link.setLastFolder(key, QFileInfo(chosen).absolutePath());
  const FramePalette palette = shownPalette();
  const std::string text = palText(palette.table, palette.entries);
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  if (!replaceFile(pathOf(chosen.toStdString()), {bytes, text.size()})) tellWords(&window, kSaveFailed);
}

}  // namespace ruvo
