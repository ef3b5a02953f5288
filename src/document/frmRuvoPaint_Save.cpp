// The Save As commands. The old file, the history and the changed flag stay as they were until the new file is whole.
#include <QFileInfo>

#include "base/letter_case.h"
#include "base/limits.h"
#include "base/paths.h"
#include "document/frmRuvoPaint_Private.h"
#include "document/model/colour_reduction.h"
#include "document/model/picture_writing.h"
#include "document/model/status_texts.h"
#include "formats/clsEXIF.h"
#include "platform/imaging/imaging_service.h"

namespace ruvo {

bool frmRuvoPaint::Private::saveIsPossible(const SaveItem& item) {
  const auto refusal = saveRefusal(item, session().gdiPlusUsable, imaging::zlibPresent());
  if (!refusal) return true;
  if (refusal->empty()) {
    link.gdiPlusMissingMessage(QString());
  } else {
    tell(qt(*refusal));
  }
  return false;
}

// The view mode saves what it shows; the paint mode saves the picture itself.
Size frmRuvoPaint::Private::sizeToSave() const {
  Size size = canvas->DIB().size();
  if (link.toolbox().viewMode) canvas->GetCurrentGrossImageSize(size.width, size.height);
  return size;
}

// The camera's block of the photograph that this picture was loaded from, when it shall be kept. The target may be the
// photograph itself, so this comes before anything is written.
std::vector<std::uint8_t> frmRuvoPaint::Private::exifToAddBack() {
  const FormatRow* row = formatOfExtension('.' + record.type);
  if (!session().options.jpgAddBackExif || !row || row->format != Format::Jpeg) return {};
  const std::filesystem::path original = pathOf(record.name);
  if (!fileExists(original)) {
    if (record.fromCamera == yesNo(true)) tell(qt(record.name + '\n' + kOriginalMissing));
    return {};
  }
  clsEXIF exif;
  std::vector<std::uint8_t> block;
  if (!exif.IsFromDigitalCamera(original) || !exif.readBlock(original, block)) return {};
  return block;
}

QString frmRuvoPaint::Private::proposedPath(const std::string& ending) {
  return qt(proposedName(record.name, ending, folderForFiles().toStdString()));
}

// The chosen path; empty when cancelled or refused.
QString frmRuvoPaint::Private::askForSaveName(Format format, QString proposed, Size size) {
  const QString extension = qt(usualExtension(format));
  QString title = tr("Save As %1").arg(extension.toUpper());
  if (link.toolbox().viewMode) title += QStringLiteral("   (%1)").arg(qt(sizeText(size.width, size.height)));
  const QString filter = qt(std::string(rowOf(format).saveFilter));
  while (true) {
    const QString chosen = desktop::desktop().saveFile(link.window(), title, proposed, filter, extension);
    if (chosen.isEmpty()) return chosen;
    proposed = qt(pathWithExtension(format, chosen.toStdString()));
    // The picker has asked about replacing the name as it was typed, not about another one.
    if (proposed == chosen || !fileExists(pathOf(proposed.toStdString()))) break;
  }
  if (!isReadOnlyHiddenOrSystem(pathOf(proposed.toStdString()))) return proposed;
  tell(QString::fromLatin1(kFileReadOnly));
  return QString();
}

// Plain Save proposes the file's own name, but not over a file that holds more pictures than this one, or (a large GIF)
// may do so.
void frmRuvoPaint::Private::save() {
  const bool unknown = record.type == "GIF" && record.severalFrames.empty();
  const bool oneOfSeveral = !record.untitled() && (unknown || record.severalFrames == yesNo(true));
  saveAs(saveItemForRecord(record), oneOfSeveral ? "_Frame" : "");
}

// `nameEnd` stands before the extension in the proposed name.
void frmRuvoPaint::Private::saveAs(const SaveItem& item, const std::string& nameEnd) {
  if (!hasPicture() || !saveIsPossible(item)) return;
  commitFloatingAndPush();
  std::string ending = nameEnd + '.' + usualExtension(item.format);
  if (item.way == SaveWay::IconWindow) return saveByIconWindow(item, proposedPath(ending));
  if (item.way == SaveWay::Panel) return saveByPanel(item, proposedPath(ending));
  WriteOrder order;
  order.item = item;
  order.tempFolder = session().tempFolder;
  if (item.format == Format::Jpeg) {
    order.exifBlock = exifToAddBack();
    if (!order.exifBlock.empty()) ending = kExifEnding;
  }
  const Size size = sizeToSave();
  const QString chosen = askForSaveName(item.format, proposedPath(ending), size);
  if (chosen.isEmpty()) return;
  order.file = pathOf(chosen.toStdString());
  int bits = 0;
  clsDIB reduced;
  if (!write(order, size, reduced, bits)) {
    tell(QString::fromLatin1(kSaveFailed));
    return;
  }
  if (!reduced.empty()) canvas->DIB() = std::move(reduced);
  noteSaved(recordOfSaved(order, bits, size));
}

// Writes the picture at `size`. `reduced` receives what the canvas is to show afterwards, if that is another picture.
bool frmRuvoPaint::Private::write(const WriteOrder& order, Size size, clsDIB& reduced, int& bits) {
  const WaitCursor wait;
  const ProgressShown shown(link);
  if (order.item.way == SaveWay::ReduceCanvas && typeOfPath(record.name) != "GIF" &&
      clsDIB::BPPperActualDIB(canvas->DIB()) > 8) {
    if (!clsDIB::CloneDIB(canvas->DIB(), reduced, kWhite, canvas->DIB().BottomUp()) ||
        !ruvo::reduceColours(reduced, Reduction::To256, shown.progress()))
      return false;
  }
  const clsDIB& picture = reduced.empty() ? canvas->DIB() : reduced;
  if (size == picture.size()) return writePicture(picture, order, bits, shown.progress());
  clsDIB displayed;
  return pictureSizeAllowed(size.width, size.height) && resizedCopy(picture, size.width, size.height, displayed) &&
         writePicture(displayed, order, bits, shown.progress());
}

// What is known of a file that was just written.
FileRecord frmRuvoPaint::Private::recordOfSaved(const WriteOrder& order, int bits, Size size) const {
  const std::string path = utf8Of(order.file);
  FileRecord saved;
  saved.name = path;
  saved.type = typeOfPath(path);
  saved.bitsPerPixel = bits;
  saved.width = saved.originalWidth = size.width;
  saved.height = saved.originalHeight = size.height;
  saved.fileSize = QFileInfo(qt(path)).size();
  if (order.item.format == Format::Gif) {
    saved.transparent = yesNo(order.item.transparent);
    saved.interlaced = yesNo(order.item.interlaced);
    saved.severalFrames = yesNo(false);
  }
  if (order.item.format == Format::Jpeg) saved.fromCamera = yesNo(!order.exifBlock.empty());
  return saved;
}

// A save begins a new history: its first state is what was saved. Changes that were saved at another size only, as the
// view mode does, are still unsaved at their own.
void frmRuvoPaint::Private::noteSaved(const FileRecord& saved) {
  endRunningOperation();
  link.FlatAllToolsImages();
  record = saved;
  if (upperCase(record.type) != "ICO" && upperCase(record.type) != "CUR") iconMask = {};
  restartHistory();
  setChanged(hasUnsavedChanges() && Size{saved.width, saved.height} != canvas->DIB().size());
  link.addToFileHistory(qt(record.name));
  setTitle(record.name);
  showPicture();
}

}  // namespace ruvo
