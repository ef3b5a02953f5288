// From the main window's controls to the active document.
#include <QDir>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QShortcut>
#include <QToolButton>

#include "base/paths.h"
#include "canvas/ucCanvas.h"
#include "dialogs/palette_picker.h"
#include "document/frmRuvoPaint.h"
#include "document/frmRuvoSizeOfNew.h"
#include "document/model/open_rules.h"
#include "formats/format_table.h"
#include "platform/desktop/desktop.h"
#include "shell/color_values.h"
#include "shell/frmRuvomain_Private.h"
#include "shell/shell_controls.h"

namespace ruvo {
namespace {

constexpr Size kNewImageSize = {640, 480};
// Takes the focus after a brush size was picked, so that the keys are the picture's again.
constexpr int kFocusContainer = 5;

void copyPicture(const clsDIB& from, clsDIB& to) {
  if (from.empty())
    to.ClearUp();
  else
    clsDIB::CloneDIB(from, to, kWhite, from.BottomUp());
}

// The first file of a drag; empty when it is none that could be opened.
std::string openableFile(const QMimeData* dragged) {
  const QList<QUrl> urls = dragged->urls();
  const std::string file = urls.isEmpty() ? std::string() : urls.first().toLocalFile().toStdString();
  return isOpenableExtension(extensionOf(file)) ? file : std::string();
}

}  // namespace

void frmRuvomain::tell(DocumentCall call) {
  if (session().settingsLoading) return;
  if (frmRuvoPaint* document = activeDocument()) (document->*call)();
}

void frmRuvomain::tell(void (frmRuvoPaint::*call)(int), int index) {
  if (session().settingsLoading) return;
  if (frmRuvoPaint* document = activeDocument()) (document->*call)(index);
}

// --- Tools

void frmRuvomain::toolClicked(int index) {
  if (frmRuvoPaint* document = activeDocument()) {
    document->Do_imgToolsClick(index);
    // The keys are the picture's from here on, whatever control had them.
    document->canvas()->setFocus();
    return;
  }
  // With no document only the border moves; the first document that is opened takes the tool over.
  selectTool(index);
}

void frmRuvomain::selectTool(int index) {
  d_->toolbox->select(index);
  SetOptionFrame(kToolOptionFrame[static_cast<std::size_t>(index)]);
  setStatusPanel(kPanelPixel, QString());
}

void frmRuvomain::FlatAllToolsImages() {
  selectTool(shell::kClearAllTools);
  tell(&frmRuvoPaint::Notify_SetScrollOp_FromMDI);
}

void frmRuvomain::SetOptionFrame(int index) {
  d_->options->SetOptionFrame(index);
}

void frmRuvomain::brushSizeChanged(bool byKeys) {
  if (session().settingsLoading) return;
  if (!byKeys) d_->toolbar->focusBeside(kFocusContainer);
  tell(&frmRuvoPaint::Notify_BrushSize_FromMDI);
}

// The active document has loaded a picture: the option frames show it, and other documents will get it.
void frmRuvomain::showCustomPictures() {
  CustomTools& tools = d_->customTools;
  if (frmRuvoPaint* document = activeDocument()) {
    ucCanvas& canvas = *document->canvas();
    copyPicture(canvas.DIBCustomBrush(), tools.brush);
    copyPicture(canvas.DIBCustomBrushMask(), tools.brushMask);
    copyPicture(canvas.DIBCustomPattern(), tools.pattern);
    copyPicture(canvas.DIBStamp(), tools.stamp);
    copyPicture(canvas.DIBStampMask(), tools.stampMask);
  }
  d_->options->setCustomPictures({.brush = toImage(tools.brush),
                                  .brushMask = toImage(tools.brushMask),
                                  .pattern = toImage(tools.pattern),
                                  .stamp = toImage(tools.stamp),
                                  .stampMask = toImage(tools.stampMask)});
}

void frmRuvomain::handCustomPictures(frmRuvoPaint& document) {
  const CustomTools& tools = d_->customTools;
  ucCanvas& canvas = *document.canvas();
  copyPicture(tools.brush, canvas.DIBCustomBrush());
  copyPicture(tools.brushMask, canvas.DIBCustomBrushMask());
  copyPicture(tools.pattern, canvas.DIBCustomPattern());
  copyPicture(tools.stamp, canvas.DIBStamp());
  copyPicture(tools.stampMask, canvas.DIBStampMask());
}

// --- Colours

void frmRuvomain::updateColorToUse() {
  if (d_->forFirst) {
    d_->colors->box(0).setBackColor(d_->currentColour);
    d_->options->setSpecimenColour(shell::toQColor(d_->currentColour));
    tell(&frmRuvoPaint::Notify_ColorToUse_FromMDI);
  }
  if (d_->forSecond) d_->colors->box(1).setBackColor(d_->currentColour);
  if (d_->forBezier) {
    d_->options->bezierBox().setBackColor(d_->currentColour);
    tell(&frmRuvoPaint::Notify_BezierFillColor_FromMDI);
  }
}

void frmRuvomain::colorPicked(Colour colour, bool second) {
  d_->forFirst = !second;
  d_->forSecond = second;
  d_->forBezier = false;
  colorChosen(colour);
  if (d_->chart != nullptr) d_->chart->setColour(colour);
}

void frmRuvomain::colorChosen(Colour colour) {
  d_->currentColour = colour;
  updateColorToUse();
}

void frmRuvomain::swapColors() {
  const Colour first = d_->colors->box(0).BackColor();
  const Colour second = d_->colors->box(1).BackColor();
  colorPicked(first, true);
  colorPicked(second, false);
}

void frmRuvomain::boxRightClicked(int box) {
  if (box < 2) return swapColors();
  d_->forFirst = d_->forSecond = false;
  d_->forBezier = true;
  colorChosen(d_->colors->box(0).BackColor());
}

void frmRuvomain::showColorValues(int box) {
  const shell::ColorBox& well = box < 2 ? d_->colors->box(box) : d_->options->bezierBox();
  desktop::desktop().message(this, shell::colourValuesText(well.BackColor()), desktop::Icon::Information);
}

void frmRuvomain::paletteAsked(shell::PaletteKind kind, int box) {
  // An open Bezier curve would take its fill colour half-way: it ends first.
  if (box == 2) tell(&frmRuvoPaint::Notify_BezierOp_FromMDI);
  d_->forFirst = box == 0;
  d_->forSecond = box == 1;
  d_->forBezier = box == 2;
  const shell::ColorBox& well = box < 2 ? d_->colors->box(box) : d_->options->bezierBox();
  const auto chosen = [this](Colour colour) { colorChosen(colour); };
  if (kind != shell::PaletteKind::Chart) {
    const auto which =
        kind == shell::PaletteKind::WebSafe ? PalettePicker::Kind::WebSafe : PalettePicker::Kind::Colours256;
    auto* picker = new PalettePicker(which, well.BackColor(), this, chosen);
    picker->showBeside(well.mapToGlobal(QPoint(well.width() + 8, 0)));
    return;
  }
  if (d_->chart == nullptr) {
    d_->chart = new frmRuvoColorChart(this, chosen);
    const Point stored = d_->stored.colorChartPosition;
    // One that was never placed begins beside the panel: in the corner of the screen its title might be out of reach.
    const QPoint at =
        stored == Point() ? d_->workspace->mapToGlobal(QPoint(16, 16)) : QPoint(stored.x, stored.y) / kTwipsPerPixel;
    // The place without the frame: how thick that will be is not known before the window is shown.
    d_->chart->setGeometry(QRect(at, d_->chart->sizeHint()));
    d_->chart->moved = [this](const QPoint& place) {
      d_->stored.colorChartPosition = {place.x() * kTwipsPerPixel, place.y() * kTwipsPerPixel};
    };
  }
  d_->chart->setColour(well.BackColor());
  d_->chart->show();
  d_->chart->raise();
}

// --- Toolbar

void frmRuvomain::editButtonClicked(int index) {
  frmRuvoPaint* document = activeDocument();
  if (document == nullptr) return;
  switch (index) {
    case 0:
      return document->mnuEditUndoAll_Click();
    case 1:
      return document->mnuEditUndo_Click();
    case 2:
      return document->mnuEditRedo_Click();
    case 7:
    case 8:
    case 9:
    case 10:
      return document->Do_mnuRotateSubClick(shell::editButtons()[static_cast<std::size_t>(index)].index);
    case 11:
      return document->mnuEffectsBrightenSub_Click(shell::editButtons()[static_cast<std::size_t>(index)].index);
    case 12:
      return document->mnuEffectsDarkenSub_Click(shell::editButtons()[static_cast<std::size_t>(index)].index);
    default: {
      const shell::EditButton& row = shell::editButtons()[static_cast<std::size_t>(index)];
      document->triggerMenu(row.control, row.index);
    }
  }
}

void frmRuvomain::newClicked() {
  if (frmRuvoPaint* document = activeDocument()) return document->Do_cmdFileNewClick();
  ramReminder();
  session().newImageWidth = kNewImageSize.width;
  session().newImageHeight = kNewImageSize.height;
  if (frmRuvoSizeOfNew::ask(session(), this)) openDocument(PendingOpen::New, QString());
}

void frmRuvomain::openClicked() {
  if (frmRuvoPaint* document = activeDocument()) return document->Do_cmdFileOpenClick();
  ramReminder();
  const std::filesystem::path last = session().fileHistory[0].parent_path();
  const QString folder = folderExists(last) ? toText(last) : QDir::homePath();
  const QString file = desktop::desktop().openFile(this, "Open", folder, QString::fromStdString(openFilter()));
  if (!file.isEmpty()) openDocument(PendingOpen::FileOpen, file);
}

void frmRuvomain::cmdGlass_Click() {
  tell(&frmRuvoPaint::Do_cmdGlassClick);
}

void frmRuvomain::fitInClicked() {
  tell(&frmRuvoPaint::Do_ckbFitInClick);
}

void frmRuvomain::cmdMode_Click(int index) {
  const bool toView = index == 0;
  d_->toolbar->focusBeside();
  unloadToolWindows(false);
  d_->toolbar->setViewMode(toView);
  setZoomScale(1);
  setMagnify(1);
  d_->toolbox->setUsable(!toView);
  SetOptionFrame(toView ? -1 : kToolOptionFrame[static_cast<std::size_t>(d_->toolbox->selected())]);
  frmRuvoPaint* document = activeDocument();
  if (document == nullptr) return setZoomButtons(false, false, false);
  if (toView && d_->toolbar->fitIn()) document->Do_ckbFitInClick();
  document->updateEditButtons();
  document->UpdateAllowableMenusForScreenMode();
  document->Do_UpdateZoomButtons();
  document->Do_UpdateGlassButton();
  document->Do_UpdateModeChange();
}

void frmRuvomain::addShortcuts() {
  const struct {
    QKeySequence keys;
    int zoom;
  } rows[] = {{Qt::Key_Plus, 0}, {Qt::Key_Equal, 0}, {Qt::Key_Minus, 1}};
  for (const auto& row : rows) {
    auto* shortcut = new QShortcut(row.keys, this);
    connect(shortcut, &QShortcut::activated, this, [this, zoom = row.zoom] {
      const int index = zoom + (d_->toolbar->viewMode() ? 3 : 0);
      if (auto* button = findChild<QToolButton*>(controlName("cmdZoom", index))) button->click();
    });
  }
}

// Beside the documents a file may be dropped as on one of them.
void frmRuvomain::dragEnterEvent(QDragEnterEvent* event) {
  if (!openableFile(event->mimeData()).empty()) event->acceptProposedAction();
}

void frmRuvomain::dropEvent(QDropEvent* event) {
  const std::string file = openableFile(event->mimeData());
  if (file.empty()) return;
  event->acceptProposedAction();
  d_->services.openFromOutside(file, PendingOpen::FileOpen);
}

}  // namespace ruvo
