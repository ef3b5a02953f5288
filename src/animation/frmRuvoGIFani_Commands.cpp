// The animation window's commands: its buttons, its menus, its panels and the windows over it.
#include "animation/frmRuvoGIFaniDataSummary.h"
#include "animation/frmRuvoGIFaniDiscrepReport.h"
#include "animation/frmRuvoGIFani_Private.h"
#include "animation/model/frame_export.h"
#include "animation/surface_drawing.h"

namespace ruvo {
void frmRuvoGIFani::Private::menuTriggered(const QString& control, int index) {
  if (control == "mnuAnimatedGIFOpen") return askForFile();
  if (control == "mnuAnimatedGIFSave") return self.cmdGIFaniMain_Click(kSaveFile);
  if (control == "mnuFileHistoryGIFani") return openFromHistory(index);
  if (control == "mnuAnimatedGIFExit") return self.cmdGIFaniMain_Click(kExitSession);
  if (control == "mnuInquirySub") return inquire(index);
  if (control == "mnuHelpSub") return link.mnuHelpSub_Click(index);
}

// An animation and an open panel end before anything else begins. Playing, copying and leaving let a panel stand.
void frmRuvoGIFani::Private::run(int command) {
  switch (command) {
    case kAnimate:
      return picDisp->start();
    case kStopAnimation:
      return picDisp->stop();
    case kCopyFrame:
      return copyFrame();
    case kExitSession:
      return exitSession();
    default:
      break;
  }
  endOperations();
  switch (command) {
    case kSelectBack:
      return selectBack();
    case kExportFrame:
      return exportOne();
    case kExportAll:
      return exportAll();
    case kEditSeries:
      openPanel(series);
      return;
    case kResizeSeries:
      openPanel(resize);
      return;
    case kMinimise:
      openPanel(minimise);
      return;
    case kChangeSettings:
      openPanel(settings);
      return;
    case kChangeBpp:
      return changeBpp();
    case kEditPalette:
      return editPalette();
    case kSaveFile:
      return save();
    case kBrowserView:
      return showInBrowser();
    default:
      return;
  }
}

// --- Panels

void frmRuvoGIFani::Private::endOperations() {
  picDisp->stop();
  if (SessionPanel* panel = openedPanel()) panel->closePanel();
}

SessionPanel* frmRuvoGIFani::Private::openedPanel() const {
  const auto open = std::ranges::find_if(panels, &SessionPanel::isOpen);
  return open == panels.end() ? nullptr : *open;
}

bool frmRuvoGIFani::Private::openPanel(SessionPanel* panel) {
  const bool opened = panel->openPanel();
  enableControls();
  return opened;
}

// The series panel is open then, so that its Undo takes the move back.
void frmRuvoGIFani::Private::moveFrame(int from, int to) {
  picDisp->stop();
  if (!series->isOpen()) {
    endOperations();
    if (!openPanel(series)) return;
  }
  select(from);
  series->moveFrame(from, to);
}

// --- Clipboard

// At the frame's own size; what is see-through is of the frame's transparent colour.
void frmRuvoGIFani::Private::copyFrame() {
  const clsGIF& gif = session.gif();
  const int shown = frame();
  clsDIB picture;
  if (!picture.CreateBlankDIB(gif.FrameWidth(shown), gif.FrameHeight(shown), 24, gif.FrameTransparentColor(shown),
                              true))
    return tell(qt(kTextSelectFailed));
  gif.FrameDraw(picture.surface(), shown, -gif.FrameLeft(shown), -gif.FrameTop(shown));
  desktop::desktop().putOnClipboard(imageOver(picture.surface()).convertToFormat(QImage::Format_RGB32));
}

// --- Lists and inquiries

void frmRuvoGIFani::Private::listSummary() {
  picDisp->stop();
  if (!session.hasFrames()) return tell("No frames yet.", desktop::Icon::Information);
  frmRuvoGIFaniDataSummary(session.gif(), frame(), &self).exec();
}

void frmRuvoGIFani::Private::inquire(int index) {
  picDisp->stop();
  const clsGIF& gif = session.gif();
  if (index == 0) frmRuvoGIFaniDiscrepReport(gif, &self).exec();
  if (index == 1) tell("Version:   " + qt(gif.GIFVersion()), desktop::Icon::Information);
  if (index == 2)
    tell("Pixel Aspect Ratio: " + QString::number(gif.PixelAspectRatio(), 'g', 15), desktop::Icon::Information);
}

}  // namespace ruvo
