// The Save As commands. The old file, the history and the changed flag stay as they were until the new file is whole.
#include <QFileInfo>

#include "base/limits.h"
#include "base/paths.h"
#include "document/frmRuvoPaint_Private.h"
#include "document/model/new_size_rules.h"
#include "document/model/picture_writing.h"
#include "document/model/status_texts.h"

namespace ruvo {

bool frmRuvoPaint::Private::saveIsPossible(const SaveItem& item) {
  if (!saveFormatInfo(item.format).needsImaging || session().gdiPlusUsable) return true;
  switch (item.format) {
    case SaveFormat::Png:
      tell(QString::fromLatin1(kPngNeedsImaging));
      break;
    case SaveFormat::Tiff:
      link.gdiPlusMissingMessage(QString());
      break;
    default:
      tell(QString::fromLatin1(kSaveFailed));
      break;
  }
  return false;
}

// The chosen path; empty when cancelled or refused.
QString frmRuvoPaint::Private::askForSaveName(const SaveItem& item, Size size) {
  const SaveFormatInfo& info = saveFormatInfo(item.format);
  const QString extension = qt(std::string(info.extension));
  QString title = tr("Save As %1").arg(extension.toUpper());
  if (link.toolbox().viewMode) title += QStringLiteral("   (%1)").arg(qt(sizeText(size.width, size.height)));
  const std::string proposed = proposedName(record.name, info.extension, folderForFiles().toStdString());
  const QString chosen =
      desktop::desktop().saveFile(link.window(), title, qt(proposed), qt(std::string(info.filter)), extension);
  if (chosen.isEmpty() || !isReadOnlyHiddenOrSystem(pathOf(chosen.toStdString()))) return chosen;
  tell(QString::fromLatin1(kFileReadOnly));
  return QString();
}

void frmRuvoPaint::Private::saveAs(const SaveItem& item) {
  if (!hasPicture() || !saveIsPossible(item)) return;
  commitFloatingAndPush();
  // The view mode saves what it shows; the paint mode saves the picture itself.
  Size size = canvas->DIB().size();
  if (link.toolbox().viewMode) canvas->GetCurrentGrossImageSize(size.width, size.height);
  if (!pictureSizeAllowed(size.width, size.height)) {
    tell(qt(thresholdText()));
    return;
  }
  const QString chosen = askForSaveName(item, size);
  if (chosen.isEmpty()) return;
  const std::string path = chosen.toStdString();

  bool written = false;
  int bits = 0;
  clsDIB reduced;
  {
    const WaitCursor wait;
    if (item.reduceCanvas && typeOfPath(record.name) != "GIF" && clsDIB::BPPperActualDIB(canvas->DIB()) > 8) {
      if (!clsDIB::CloneDIB(canvas->DIB(), reduced, kWhite, canvas->DIB().BottomUp()) || !reduceTo256(reduced))
        reduced.ClearUp();
    }
    const clsDIB& picture = reduced.empty() ? canvas->DIB() : reduced;
    clsDIB displayed;
    const bool resize = size != picture.size();
    if (!resize || resizedCopy(picture, size.width, size.height, displayed)) {
      written = writePicture(resize ? displayed : picture, item, pathOf(path), bits);
    }
  }
  if (!written) {
    tell(QString::fromLatin1(kSaveFailed));
    return;
  }
  if (!reduced.empty()) canvas->DIB() = std::move(reduced);
  noteSaved(path, bits, size);
}

// A save begins a new history: its first state is what was saved.
void frmRuvoPaint::Private::noteSaved(const std::string& path, int bits, Size size) {
  endRunningOperation();
  link.FlatAllToolsImages();
  record = FileRecord();
  record.name = path;
  record.type = typeOfPath(path);
  record.bitsPerPixel = bits;
  record.width = record.originalWidth = size.width;
  record.height = record.originalHeight = size.height;
  record.fileSize = QFileInfo(qt(path)).size();
  restartHistory();
  setChanged(false);
  link.addToFileHistory(qt(path));
  setTitle(path);
  showPicture();
}

}  // namespace ruvo
