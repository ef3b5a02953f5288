// Pictures that a tool paints with: custom brush, fill pattern and stamp.
#include "document/frmRuvoPaint_Private.h"
#include "document/model/colour_reduction.h"
#include "document/model/picture_loading.h"

namespace ruvo {
namespace {

// Smallest opaque part of a brush, pattern or stamp.
constexpr Size kSmallestCustom = {2, 2};

QString tooSmallText() {
  return QStringLiteral("Non-transparent area smaller than the minimum size\nof %1 x %2 pixels")
      .arg(kSmallestCustom.width)
      .arg(kSmallestCustom.height);
}

// The part that paints is black in the mask.
bool opaquePartTooSmall(const clsDIB& mask) {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  if (!clsDIB::DIBNetPaintedArea(mask, left, top, right, bottom, kWhite, false)) return true;
  return right - left + 1 < kSmallestCustom.width || bottom - top + 1 < kSmallestCustom.height;
}

}  // namespace

// Says so in words when it does not.
bool frmRuvoPaint::Private::paintsEnough(const clsDIB& mask) {
  const bool enough = !opaquePartTooSmall(mask);
  if (!enough) tell(tooSmallText());
  return enough;
}

// False when cancelled or refused (in words).
bool frmRuvoPaint::Private::loadChosenPicture(const QString& folderKey, const ReadRequest& request, clsDIB& picture) {
  const QString last = link.lastFolder(folderKey);
  const QString file = desktop::desktop().openFile(link.window(), tr("Load image"),
                                                   last.isEmpty() ? folderForFiles() : last, qt(openFilter()));
  if (file.isEmpty()) return false;
  const std::string path = file.toStdString();
  const OpenPlan plan = planOpen(path);
  LoadedPicture loaded;
  loaded.fault = plan.fault;
  if (plan.fault == OpenFault::None) {
    const WaitCursor wait;
    loaded = loadPicture(path, plan, request);
  }
  if (loaded.fault != OpenFault::None) return refuseOpen(loaded.fault, path, false);
  link.setLastFolder(folderKey, file.section('/', 0, -2));
  picture = std::move(loaded.dib);
  return true;
}

// The same; and a tool knows no half transparency: the picture is taken as it looks on white.
bool frmRuvoPaint::Private::loadCustomPicture(const QString& folderKey, clsDIB& picture) {
  clsDIB loaded;
  if (!loadChosenPicture(folderKey, {}, loaded)) return false;
  if (loaded.DIBhasAlpha()) {
    clsDIB flat;
    if (!flattenedCopy(loaded, flat)) {
      tellNoMemory();
      return false;
    }
    loaded = std::move(flat);
  }
  if (loaded.DIBWidth() < kSmallestCustom.width || loaded.DIBHeight() < kSmallestCustom.height) {
    tell(tooSmallText());
    return false;
  }
  picture = std::move(loaded);
  return true;
}

// The same, split into picture and mask with the colour of its top left as the see-through one.
bool frmRuvoPaint::Private::loadMaskedPicture(const QString& folderKey, clsDIB& picture, clsDIB& mask) {
  clsDIB image;
  if (!loadCustomPicture(folderKey, image)) return false;
  clsDIB cut;
  clsDIB::Create_ImageMask_Pair(image, cut, -1);
  if (!paintsEnough(cut)) return false;
  picture = std::move(image);
  mask = std::move(cut);
  return true;
}

void frmRuvoPaint::Do_cmdCustomBrushClick() {
  if (d_->loadMaskedPicture(QStringLiteral("CustomBrush"), d_->canvas->DIBCustomBrush(),
                            d_->canvas->DIBCustomBrushMask())) {
    d_->link.showCustomPictures();
  }
}

void frmRuvoPaint::Do_cmdCustomPatternClick() {
  if (d_->loadCustomPicture(QStringLiteral("CustomPattern"), d_->canvas->DIBCustomPattern()))
    d_->link.showCustomPictures();
}

// Index 0 loads an image, 1 writes a text.
void frmRuvoPaint::Do_cmdStampLoadClick(int index) {
  clsDIB picture, mask;
  const bool made =
      index == 0 ? d_->loadMaskedPicture(QStringLiteral("Stamp"), picture, mask) : d_->writeStamp(picture, mask);
  if (!made) return;
  d_->canvas->DIBStamp() = std::move(picture);
  d_->canvas->DIBStampMask() = std::move(mask);
  d_->link.showCustomPictures();
}

}  // namespace ruvo
