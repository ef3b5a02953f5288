// The Resize menu: another size for the picture or its canvas.
#include "document/frmRuvoAdjustEdge.h"
#include "document/frmRuvoPaint_Private.h"
#include "document/frmRuvoResize.h"

namespace ruvo {

// The picture that `make` gives becomes the picture. Pixels lie elsewhere then, so what masked an icon no longer fits.
void frmRuvoPaint::Private::takeResized(
    const std::function<bool(const clsDIB&, clsDIB&, const Progress&)>& make) {
  const bool done = changePicture([&](clsDIB& picture) {
    const WaitCursor wait;
    const ProgressShown shown(link);
    clsDIB resized;
    if (!make(picture, resized, shown.progress())) return false;
    picture = std::move(resized);
    iconMask = {};
    return true;
  });
  if (!done) tellNoMemory();
  returnToOperationOfMode();
}

void frmRuvoPaint::Private::runResizeMenu(int index) {
  if (!hasPicture()) return;
  commitFloatingAndPush();
  setPixelPanel("");
  if (panoramic) panoramic->close();
  SessionState& state = session();
  if (index == 0) {
    state.newImageWidth = canvas->DIB().DIBWidth();
    state.newImageHeight = canvas->DIB().DIBHeight();
    const auto mode = frmRuvoResize::ask(state, link.window());
    if (!mode) return;
    takeResized([&](const clsDIB& picture, clsDIB& resized, const Progress& progress) {
      return resizedCopy(picture, {state.newImageWidth, state.newImageHeight}, *mode, resized, progress);
    });
  } else if (index == 2) {
    const auto change = frmRuvoAdjustEdge::ask(state, canvas->DIB(), link.window());
    if (!change) return;
    takeResized([&](const clsDIB& picture, clsDIB& resized, const Progress&) {
      return adjustedCopy(picture, *change, resized);
    });
  }
}

}  // namespace ruvo
