// Text that floats on the picture: a right click on it opens the window again, until it lands.
#include <QApplication>

#include "canvas/engine/image_shape.h"
#include "canvas/engine/region_compose.h"
#include "canvas/engine/region_engine.h"
#include "document/frmRuvoPaint_Private.h"
#include "effects/frmRuvoText.h"

namespace ruvo {

namespace {

// Where a new text comes to lie: the top left of what is seen.
frmRuvoText::Place seenCorner(ucCanvas& canvas) {
  Point corner;
  canvas.GetVisibleStartInfo(corner.x, corner.y);
  return {&canvas.DIB(), corner};
}

}  // namespace

// As last written, in the colours that the toolbox has now.
TextChoices frmRuvoPaint::Private::textToBegin() {
  TextChoices choices = session().text;
  const ToolboxState toolbox = link.toolbox();
  choices.colour = toolbox.firstColor;
  choices.backColour = toolbox.secondColor;
  return choices;
}

void frmRuvoPaint::Private::addText() {
  if (!hasPicture()) return;
  commitFloatingAndPush();
  TextChoices choices = textToBegin();
  if (!frmRuvoText::ask(frmRuvoText::Use::OnPicture, choices, seenCorner(*canvas), link.window())) return;
  session().text = choices;
  if (!hasLetters(choices.text)) return;
  link.unloadToolWindows(true);
  setPixelPanel("");
  clsDIB letters;
  PasteManner manner;
  manner.text = manner.soft = true;
  if (!TextPicture(choices).render(letters) || !floatPasted(letters, manner)) return tell(kTextFailed);
  floatingText = choices;
  // What floats is not in any file yet.
  setChanged(true);
  self.updateEditButtons();
}

// The text that floats is written anew at its place; an empty one goes.
void frmRuvoPaint::Private::changeText() {
  int x = 0, y = 0, right = 0, bottom = 0;
  // A second click may have come while the window was on its way.
  if (QApplication::activeModalWidget() || !canvas->PasteOnText() || !canvas->GetRegionData(x, y, right, bottom))
    return;
  TextChoices choices = floatingText;
  if (!frmRuvoText::ask(frmRuvoText::Use::OnPicture, choices, {&canvas->DIBsnap(), {x, y}}, link.window())) return;
  session().text = choices;
  if (!hasLetters(choices.text)) return self.mnuEditCut_Click();
  clsDIB letters;
  if (!TextPicture(choices).render(letters) || !canvas->replacePaste(letters)) return tell(kTextFailed);
  floatingText = choices;
}

// A stamp covers or it does not: the letters without soft edges, and where they are.
bool frmRuvoPaint::Private::writeStamp(clsDIB& picture, clsDIB& mask) {
  TextChoices choices = textToBegin();
  const bool antialias = choices.antialias;
  if (!frmRuvoText::ask(frmRuvoText::Use::Stamp, choices, seenCorner(*canvas), link.window())) return false;
  session().text = choices;
  session().text.antialias = antialias;
  if (!hasLetters(choices.text)) return false;
  clsDIB letters, image, shape;
  if (!TextPicture(choices).render(letters) ||
      !image.CreateBlankDIB(letters.DIBWidth(), letters.DIBHeight(), 32, kBlack) ||
      !leaveOutSeeThrough(letters, shape)) {
    tell(kTextFailed);
    return false;
  }
  if (!paintsEnough(shape)) return false;
  clsDIB::PaintFromDIBtoDIB(letters, image);
  clsDIB::CreateMask_viaDC(image);
  ClearAreasOutsideImageShape(image, shape, kBlack);
  picture = std::move(image);
  mask = std::move(shape);
  return true;
}

}  // namespace ruvo
