// The Save As commands. The old file, the history and the changed flag stay as they were until the new file is whole.
#include <QFileInfo>

#include "base/limits.h"
#include "base/paths.h"
#include "document/frmRuvoPaint_Private.h"
#include "document/model/colour_reduction.h"
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
  std::string proposed = proposedName(record.name, info.extension, folderForFiles().toStdString());
  QString chosen;
  while (true) {
    chosen = desktop::desktop().saveFile(link.window(), title, qt(proposed), qt(std::string(info.filter)), extension);
    if (chosen.isEmpty()) return chosen;
    const std::string path = chosen.toStdString();
    proposed = pathWithExtension(info, path);
    // The picker has asked about replacing the name as it was typed, not about another one.
    if (proposed == path || !fileExists(pathOf(proposed))) break;
  }
  if (!isReadOnlyHiddenOrSystem(pathOf(proposed))) return qt(proposed);
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

  int bits = 0;
  clsDIB reduced;
  if (!write(item, path, size, reduced, bits)) {
    tell(QString::fromLatin1(kSaveFailed));
    return;
  }
  if (!reduced.empty()) canvas->DIB() = std::move(reduced);
  noteSaved(path, bits, size);
}

// Writes the picture at `size`. `reduced` receives what the canvas is to show afterwards, if that is another picture.
bool frmRuvoPaint::Private::write(const SaveItem& item, const std::string& path, Size size, clsDIB& reduced,
                                  int& bits) {
  const WaitCursor wait;
  const ProgressShown shown(link);
  if (item.reduceCanvas && typeOfPath(record.name) != "GIF" && clsDIB::BPPperActualDIB(canvas->DIB()) > 8) {
    if (!clsDIB::CloneDIB(canvas->DIB(), reduced, kWhite, canvas->DIB().BottomUp()) ||
        !ruvo::reduceColours(reduced, Reduction::To256, shown.progress()))
      return false;
  }
  const clsDIB& picture = reduced.empty() ? canvas->DIB() : reduced;
  if (size == picture.size()) return writePicture(picture, item, pathOf(path), bits, shown.progress());
  clsDIB displayed;
  return resizedCopy(picture, size.width, size.height, displayed) &&
         writePicture(displayed, item, pathOf(path), bits, shown.progress());
}

// A save begins a new history: its first state is what was saved. Changes that were saved at another size only, as the
// view mode does, are still unsaved at their own.
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
  setChanged(hasUnsavedChanges() && size != canvas->DIB().size());
  link.addToFileHistory(qt(path));
  setTitle(path);
  showPicture();
}

}  // namespace ruvo
