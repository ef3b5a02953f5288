#include "dialogs/frmRuvoMulti.h"

#include <gtest/gtest.h>

#include <QListWidget>

#include "support/pictures.h"
#include "support_ui/control.h"
#include "support_ui/scripted_desktop.h"

namespace ruvo {
namespace {

using test::control;

clsICO::Image unreadable(int bpp, int side = 16) {
  clsICO::Image image;
  image.readable = false;
  image.statedWidth = image.statedHeight = side;
  image.statedBPP = bpp;
  return image;
}
clsICO::Image plain(int side, Colour colour) {
  clsICO::Image image = unreadable(24, side);
  image.readable = true;
  image.XOR = test::plainDib(side, side, colour, 24);
  image.AND.CreateBlankDIB(side, side, 1, kWhite);
  return image;
}

TEST(FrmRuvoMulti, ShowsTheHighlightedImageAndStepsThroughThem) {
  const test::ScriptedDesktop desktop;
  clsICO file;
  file.add(unreadable(4));
  file.add(plain(16, rgb(255, 0, 0)));
  file.add(plain(32, rgb(0, 0, 255)));
  frmRuvoMulti dialog(file);
  EXPECT_EQ(dialog.windowTitle(), "Multi-Icon File");
  auto* list = control<QListWidget>(dialog, "lisIcons");
  EXPECT_EQ(list->item(0)->text(), "Ref 1\t16 x 16\t16-Color\t4 BPP");
  EXPECT_EQ(list->item(2)->text(), "Ref 3\t32 x 32\tTrue-Color\t24 BPP");
  EXPECT_EQ(dialog.index(), 1);  // the first that can be shown

  const auto shown = [&] {
    auto* picture = control<QWidget>(dialog, "picIconInFile");
    return picture->grab().toImage().pixelColor(picture->rect().center());
  };
  EXPECT_EQ(shown(), QColor(255, 0, 0));
  control(dialog, "cmdDown")->click();
  EXPECT_EQ(shown(), QColor(0, 0, 255));
  EXPECT_FALSE(control(dialog, "cmdDown")->isEnabled());
  control(dialog, "cmdUp")->click();
  control(dialog, "cmdUp")->click();
  EXPECT_EQ(dialog.index(), 0);
  EXPECT_FALSE(control(dialog, "cmdUp")->isEnabled());
}

TEST(FrmRuvoMulti, ImagesThatCanNotBeTakenAreRefusedInWords) {
  test::ScriptedDesktop desktop;
  clsICO file;
  for (const int bpp : {2, 16, 4, 0}) file.add(unreadable(bpp));
  frmRuvoMulti dialog(file);
  dialog.show();
  const auto select = [&](const char* words) {
    desktop.expect(words);
    control(dialog, "cmdSelect")->click();
    EXPECT_TRUE(dialog.isVisible());
    control(dialog, "cmdDown")->click();
  };
  select("Selected item is below 8 BPP, but not 1, 4 (or 0 if old Win 95 icons)");
  select("Selected item is of True Color but not 24 BPP or 32 BPP.");
  select("Ref 3\nUnable to get this one");
  select("Ref 4\nUnable to get this one");
}

TEST(FrmRuvoMulti, OfACursorTheFirstIsTakenUnasked) {
  clsICO file;
  file.add(unreadable(2));
  file.add(plain(16, kBlack));
  file.setFileType(kCursorType);
  EXPECT_EQ(frmRuvoMulti::choose(nullptr, file), 1);
}

}  // namespace
}  // namespace ruvo
