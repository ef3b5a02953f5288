// The BPP menu: colour reductions of the whole picture.
#include "base/letter_case.h"
#include "document/frmRuvoPaint_Private.h"
#include "document/model/colour_reduction.h"

namespace ruvo {

void frmRuvoPaint::Private::reduceColours(const ReductionItem& item) {
  if (!hasPicture()) return;
  commitFloatingAndPush();
  // A reduction can be undone, so Enter may say Yes.
  if (!ask(qt(item.question), desktop::Buttons::YesNo)) return;
  setPixelPanel("");
  const bool done = changePicture([&](clsDIB& picture) {
    const WaitCursor wait;
    const ProgressShown shown(link);
    const bool icon = upperCase(record.type) == "ICO" && !iconMask.dib.empty();
    return icon ? reduceIconColours(picture, iconMask.dib, item.reduction, shown.progress())
                : ruvo::reduceColours(picture, item.reduction, shown.progress());
  });
  if (!done) tellNoMemory();
}

}  // namespace ruvo
