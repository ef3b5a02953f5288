// Saving by a window of its own: icons and cursors, and the options panel of GIF and PNG. The window asks for the file
// and writes it; it stays open until that worked or the user gives up.
#include "base/limits.h"
#include "base/paths.h"
#include "dialogs/frmRuvoFileSaveICOorCUR.h"
#include "document/frmRuvoFileSaveGIForPNG.h"
#include "document/frmRuvoPaint_Private.h"
#include "document/model/picture_loading.h"
#include "document/model/picture_writing.h"

namespace ruvo {

// The picture as it is saved, in `displayed` when the view mode shows another size; null, told in words, when it can
// not be made.
const clsDIB* frmRuvoPaint::Private::pictureToSave(clsDIB& displayed) {
  const Size size = sizeToSave();
  if (size == canvas->DIB().size()) return &canvas->DIB();
  const WaitCursor wait;
  if (pictureSizeAllowed(size.width, size.height) && resizedCopy(canvas->DIB(), size.width, size.height, displayed))
    return &displayed;
  tell(QString::fromLatin1(kSaveFailed));
  return nullptr;
}

void frmRuvoPaint::Private::saveByIconWindow(const SaveItem& item, const QString& proposed) {
  clsDIB displayed;
  const clsDIB* picture = pictureToSave(displayed);
  if (!picture) return;
  const IconKind kind = item.format == Format::Ico ? IconKind::Icon : IconKind::Cursor;
  const QString path = frmRuvoFileSaveICOorCUR::save(link.window(), kind, *picture, proposed, kind == IconKind::Icon);
  if (path.isEmpty()) return;
  // What became of the picture is in the file: its size, its depth and its mask.
  LoadedPicture saved = loadPicture(path.toStdString());
  iconMask = {std::move(saved.iconMask), false};
  noteSaved(saved.record);
}

void frmRuvoPaint::Private::saveByPanel(const SaveItem& item, const QString& proposed) {
  clsDIB displayed;
  const clsDIB* picture = pictureToSave(displayed);
  if (!picture) return;
  const bool gif = item.format == Format::Gif;
  constexpr int kPalettedIndex = 4;
  const SavePanelMode pngMode =
      item.index == kPalettedIndex ? SavePanelMode::PngPaletted : SavePanelMode::PngTrueColour;
  frmRuvoFileSaveGIForPNG panel(gif ? SavePanelMode::Gif : pngMode, *picture, proposed, link.window());
  WriteOrder order;
  order.item = item;
  order.tempFolder = session().tempFolder;
  int bits = 8;
  panel.save = [&](const QString& path) -> std::string {
    const WaitCursor wait;
    const ProgressShown shown(link);
    order.file = pathOf(path.toStdString());
    if (!gif) {
      const PngChoices choices = panel.pngChoices();
      bits = choices.transparency == PngChoices::Transparency::AlphaValues ? 32 : choices.bitsPerPixel;
      return savePngByChoices(*picture, choices, order.file);
    }
    const GifChoices choices = panel.gifChoices();
    order.item.transparent = choices.transparent;
    order.item.interlaced = choices.interlaced;
    order.transparentAt = choices.transparentPixel;
    return writePicture(*picture, order, bits, shown.progress()) ? std::string() : kSaveFailed;
  };
  if (panel.exec() != QDialog::Accepted || panel.path().isEmpty()) return;
  noteSaved(recordOfSaved(order, bits, picture->size()));
  tell((gif ? tr("Saved to ") : tr("Save to ")) + panel.path(), desktop::Icon::Information);
}

}  // namespace ruvo
