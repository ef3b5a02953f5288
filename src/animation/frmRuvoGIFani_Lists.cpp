// What the animation window shows of its session: lists, labels, film and field, and what is enabled.
#include <QCheckBox>

#include "animation/frmRuvoGIFani_Private.h"
#include "animation/model/gif_texts.h"
#include "base/paths.h"

namespace ruvo {
namespace {

// Up to so many pixels in all frames together the file size is measured after every change: it takes no longer then than
// the drawing of the window.
constexpr std::int64_t kCheaplyMeasuredPixels = 4'000'000;

std::int64_t pixelsOf(const clsGIF& gif) {
  std::int64_t pixels = 0;
  for (int frame = 1; frame <= gif.FramesCount(); ++frame)
    pixels += std::int64_t{gif.FrameWidth(frame)} * gif.FrameHeight(frame);
  return pixels;
}

}  // namespace

void frmRuvoGIFani::Private::showModel(int frame) {
  const clsGIF* shown = session.hasFrames() ? &session.gif() : nullptr;
  picDisp->setGif(shown);
  film->setGif(shown);
  fillLists();
  showLabels();
  select(std::clamp(frame, 1, std::max(1, session.gif().FramesCount())));
}

void frmRuvoGIFani::Private::fillLists() {
  busy = true;
  const clsGIF& gif = session.gif();
  QStringList numbers;
  QStringList lines;
  for (const std::string& line : frameLines(gif)) {
    lines << qt(line);
    numbers << QString::number(lines.size());
  }
  for (auto [list, items] : {std::pair{cboFrame, &numbers}, {cboFrameData, &lines}}) {
    list->clear();
    list->addItems(*items);
  }
  busy = false;
}

void frmRuvoGIFani::Private::showLabels() {
  const clsGIF& gif = session.gif();
  const bool any = session.hasFrames();
  lblCurrentFrameCount->setText(any ? qt(currentTotalText(gif)) : QString());
  lblBgdInfo->setText(any ? qt(backgroundText(gif)) : QString());
  QString file = session.path().empty() ? qt(session.title()) : qt(shortenPath(utf8Of(session.path())));
  if (session.unsaved()) file += "   (changed)";
  lblFile->setText(any ? file : QString());
  lblFile->setToolTip(any ? desktop::plainToolTip(toText(session.path())) : QString());
}

// What stays as it is while the animation changes.
void frmRuvoGIFani::Private::showFile(const QString& file) {
  lblInfoOrigFile->setText(qt(originalFileText(session.gif(), session.firstFileSize())));
  lblFileSize->setText(qt(fileSizeText(session.firstFileSize())));
  link.addToAnimationHistory(file);
  showHistory();
}

void frmRuvoGIFani::Private::showTimes() {
  lblRunningTime->setText(session.hasFrames() ? qt(runningTimeText(session.gif(), frame())) : QString());
}

void frmRuvoGIFani::Private::showMeasuredSize() {
  if (pixelsOf(session.gif()) <= kCheaplyMeasuredPixels)
    self.showFileSize();
  else
    lblFileSize->clear();
}

void frmRuvoGIFani::Private::showHistory() {
  menus->setHistory("mnuFileHistoryGIFani", link.session().fileHistoryGifAni);
}

void frmRuvoGIFani::Private::enableControls() {
  const bool any = session.hasFrames();
  const int count = session.gif().FramesCount();
  const bool running = picDisp->running();
  for (int i = 0; i < kSessionCommandCount; ++i) {
    bool enabled = sessionCommands()[static_cast<std::size_t>(i)].built && (any || i == kExitSession);
    if (i == kAnimate) enabled = enabled && count > 1 && !running;
    if (i == kStopAnimation) enabled = enabled && running;
    cmdGIFaniMain[static_cast<std::size_t>(i)]->setEnabled(enabled);
  }
  for (int i = 0; i < 3; ++i)
    cmdPaletteBrightenDarken[static_cast<std::size_t>(i)]->setEnabled(any &&
                                                                      (i < 2 || session.savedPalettes().saved()));
  cmdPrevious->setEnabled(frame() > 1);
  cmdNext->setEnabled(frame() < count);
  for (QWidget* control :
       std::initializer_list<QWidget*>{cboFrame, cboFrameData, cboBgdPattern, ckbSaveAsTransparent, ckbAtFullFrameSize})
    control->setEnabled(any);
  menus->setHave(any ? kNeedPicture : kNeedNothing);
}

// Stops an animation, and everything follows the frame.
void frmRuvoGIFani::Private::select(int frame) {
  busy = true;
  if (frame >= 1 && frame <= session.gif().FramesCount()) {
    cboFrame->setCurrentIndex(frame - 1);
    cboFrameData->setCurrentIndex(frame - 1);
    cboFrameData->setToolTip(cboFrameData->currentText());
    film->setSelected(frame);
    picDisp->showFrame(frame);
  }
  busy = false;
  showTimes();
  enableControls();
  for (SessionPanel* panel : panels) panel->frameSelected();
}

void frmRuvoGIFani::Private::listClicked(int index) {
  if (!busy && index >= 0) select(index + 1);
}

void frmRuvoGIFani::Private::step(int by) {
  const int asked = frame() + by;
  if (asked >= 1 && asked <= session.gif().FramesCount()) select(asked);
}

}  // namespace ruvo
