// What the Inquiry menu tells.
#include <QDateTime>
#include <QFileInfo>

#include "document/frmRuvoPaint_Private.h"
#include "document/model/inquiry_texts.h"

namespace ruvo {

void frmRuvoPaint::Private::tellProperties() {
  PictureFacts facts;
  {
    const WaitCursor wait;
    facts.size = canvas->DIB().size();
    facts.bitsPerPixel = clsDIB::BPPperActualDIB(canvas->DIB());
  }
  facts.changed = hasUnsavedChanges();
  const QFileInfo file(qt(record.name));
  if (!record.untitled() && file.exists())
    facts.fileDate = file.lastModified().toString("yyyy-MM-dd  HH:mm:ss").toStdString();
  tell(qt(generalPropertiesText(record, facts)), desktop::Icon::Information);
}

void frmRuvoPaint::Private::tellColourCount() {
  int count = 0;
  {
    const WaitCursor wait;
    count = clsDIB::CountColorsDIB(canvas->DIB());
  }
  tell(qt(colourCountText(count)), desktop::Icon::Information);
}

void frmRuvoPaint::Private::tellCurrentScreen() {
  const Size picture = canvas->DIB().size();
  Point first;
  Point last = {picture.width - 1, picture.height - 1};
  if (!canvas->settings().FitInView) canvas->GetVisibleInfo(first.x, first.y, last.x, last.y);
  const Size shown = {std::min(last.x, picture.width - 1) - first.x + 1,
                      std::min(last.y, picture.height - 1) - first.y + 1};
  const qreal ratio = self.devicePixelRatioF();
  const Size window = {qRound(self.width() * ratio), qRound(self.height() * ratio)};
  tell(qt(currentScreenText(picture, first, shown, window)), desktop::Icon::Information);
}

}  // namespace ruvo
