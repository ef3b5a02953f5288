// Colours in the animation window: brighter and darker, and the windows that work on palettes.
#include "animation/frmRuvoGIFaniChangeBPP.h"
#include "animation/frmRuvoGIFaniEditPalette.h"
#include "animation/frmRuvoGIFani_Private.h"
#include "animation/model/basGIFaniMinimize.h"
#include "base/paths.h"
#include "platform/desktop/cursors.h"

namespace ruvo {
namespace {

constexpr const char* kChangeBppFile = "tmpChangeBPP.tmp";
constexpr const char* kEditPaletteFile = "tmpEditPalette.tmp";

constexpr int kBrighterPercent = 110;
constexpr int kDarkerPercent = 90;

}  // namespace

void frmRuvoGIFani::Private::brightenOrDarken(int index) {
  clsGIF& gif = session.gif();
  SavedPalettes& saved = session.savedPalettes();
  picDisp->stop();
  if (index == 2) {
    if (!saved.saved()) return;
    saved.putBack(gif);
    saved.drop();
    session.setUnsaved(SessionWork::Settings, unsavedBeforeTint);
  } else {
    const QString verb = index == 0 ? "brighten" : "darken";
    if (frameUsesGlobalPalette(gif, frame()) &&
        !ask("Current frame uses global palette.  Proceed to " + verb + " global palette?"))
      return;
    if (!saved.saved()) {
      saved.save(gif);
      unsavedBeforeTint = session.unsaved(SessionWork::Settings);
    }
    scalePalette(gif, frame(), index == 0 ? kBrighterPercent : kDarkerPercent);
    session.setUnsaved(SessionWork::Settings);
  }
  self.refreshFrame();
  showMeasuredSize();
}

// Runs a window that works on a copy of the animation in a file, and takes the copy over when it was changed. The file
// keeps only a part of a comment's characters.
template <typename Window>
bool frmRuvoGIFani::Private::runPaletteWindow(const char* tempName) {
  const std::filesystem::path file = session.tempFile(tempName);
  bool changed = false;
  if (!session.writeCopy(file)) {
    tell(qt(kTextBackupFailed));
  } else {
    Window window(file, frame(), link, &self);
    if (window.loaded()) window.exec();
    changed = window.changed();
  }
  if (changed) {
    const std::string comment = session.gif().CommentText();
    const std::string words = session.reload(file);
    if (!words.empty()) {
      tell(qt(words));
      changed = false;
    } else {
      session.gif().setCommentText(comment);
      session.setUnsaved(SessionWork::Settings);
      self.refreshAll(frame());
    }
  }
  deleteIfPossible(file);
  return changed;
}

void frmRuvoGIFani::Private::changeBpp() {
  runPaletteWindow<frmRuvoGIFaniChangeBPP>(kChangeBppFile);
}

void frmRuvoGIFani::Private::editPalette() {
  if (runPaletteWindow<frmRuvoGIFaniEditPalette>(kEditPaletteFile)) cleanAfterPaletteWindow();
}

void frmRuvoGIFani::Private::cleanAfterPaletteWindow() {
  if (!ask("Since you have edited the palette, proceed to check and remove\nunused/duplicate entries in palette if "
           "any?"))
    return;
  {
    const WaitCursor wait;
    cleanPalettes(session.gif());
    session.gif().Remask_All_Frames();
  }
  self.refreshAll(frame());
}

}  // namespace ruvo
