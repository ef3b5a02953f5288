// What reduces the picture to a region, and Cleanse.
#include "canvas/engine/region_compose.h"
#include "document/frmRuvoPaint_Private.h"
#include "document/model/crop_rules.h"
#include "platform/desktop/clipboard_picture.h"

namespace ruvo {
namespace {
constexpr int kOvalRegion = 12;  // the canvas's tool
}  // namespace

// Half-open; nothing without a region.
std::optional<Rect> frmRuvoPaint::Private::regionBox() const {
  Rect box;
  if (!hasPicture() || !canvas->GetRegionData(box.left, box.top, box.right, box.bottom)) return std::nullopt;
  return Rect{box.left, box.top, box.right + 1, box.bottom + 1};
}

void frmRuvoPaint::Private::becomeCrop(clsDIB&& cut) {
  canvas->DIB() = std::move(cut);
  iconMask = {};
  setChanged(true);
  pushState();
  showPicture();
}

bool frmRuvoPaint::Private::takeCrop(clsDIB&& cut) {
  const bool small = cropTooSmall(cut.surface().bounds(), cut.size());
  if (small) {
    tell(kCropTooSmall);
  } else {
    becomeCrop(std::move(cut));
  }
  return !small;
}

void frmRuvoPaint::Private::cropPerRegion() {
  const std::optional<Rect> box = regionBox();
  if (!box) return;
  if (cropTooSmall(*box, canvas->DIB().size())) return tell(kCropTooSmall);
  const bool oval = canvas->CanvasOp() == kOvalRegion;
  setPixelPanel("");
  commitFloatingAndPush();
  clsDIB cut;
  bool done = false;
  {
    const WaitCursor wait;
    done = croppedCopy(canvas->DIB(), *box, oval, cut);
  }
  if (done) becomeCrop(std::move(cut));
}

// The floating picture is not put down first: what lies beneath it is not part of the result.
void frmRuvoPaint::Private::cropPerImageInsideRegion() {
  if (!hasPicture() || !canvas->PrepareRegionDragging()) return;
  clsDIB cut;
  std::string fault;
  {
    const WaitCursor wait;
    fault = cropPerImage({canvas->DIBregion(), canvas->DIBmask(), canvas->DIBsnap(), canvas->RegionSoft()},
                         canvas->DIB().size(), cut);
  }
  if (!fault.empty()) return tell(qt(fault));
  if (cut.empty()) return;
  setPixelPanel("");
  canvas->dropFloating();
  becomeCrop(std::move(cut));
  tell(kCropReminder, desktop::Icon::Information);
}

// --- Cleanse

// `onlyOutside` keeps what the region holds, if there is one, and leaves a copy of it on the clipboard.
void frmRuvoPaint::Private::cleanse(bool onlyOutside) {
  if (!hasPicture()) return;
  clsDIB kept;
  Point at;
  if (const std::optional<Rect> box = regionBox(); box && onlyOutside) {
    at = {box->left, box->top};
    // Painted from this copy and not from the clipboard, which may fail or hold another program's picture by then.
    if (!canvas->copyRegion(kept) || !desktop::putOnClipboard(kept.surface(), kept.DIBhasAlpha())) return;
    clsDIB flat;
    if (canvas->RegionSoft() && !softOnWhite(kept, {}, canvas->DIB().DIBhasAlpha(), flat)) return;
    if (!flat.empty()) kept = std::move(flat);
  }
  link.unloadToolWindows(true);
  setPixelPanel("");
  link.FlatAllToolsImages();
  changePicture([&](clsDIB& picture) {
    const WaitCursor wait;
    clsDIB sheet;
    if (!whiteSheetWith(kept, at, picture.size(), sheet)) return false;
    picture = std::move(sheet);
    return true;
  });
  returnToOperationOfMode();
}

}  // namespace ruvo
