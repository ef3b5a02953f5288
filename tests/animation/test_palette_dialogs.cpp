#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>

#include "animation/delete_entry_panel.h"
#include "animation/frmRuvoGIFaniChangeBPP.h"
#include "animation/frmRuvoGIFaniEditPalette.h"
#include "animation/palette_grid.h"
#include "animation/panel_fixture.h"
#include "dialogs/color_swatch.h"

namespace ruvo {
namespace {

template <typename Window>
class PaletteDialogTest : public test::PanelTest {
 protected:
  // Frames 1 and 2 use the global table of four, 1 with transparent index 1; frame 3 has a table of its own.
  Window& open(int frame = 1) {
    file = written("tmpPalette.tmp", test::GifBytes(4, 2)
                                         .control(1, 10, 1)
                                         .image({"0123", "2222"})
                                         .control(0, 10)
                                         .image({"3333", "0000"})
                                         .control(0, 10)
                                         .image({"0123", "3210"}, 0, 0, 0x81, {5, 6, 7, 8}));
    window = std::make_unique<Window>(file, frame, link, nullptr);
    EXPECT_TRUE(window->loaded());
    window->show();
    return *window;
  }
  template <typename T = QWidget>
  T* child(const char* name) {
    return control<T>(*window, name);
  }
  void press(const char* name) { QTest::mouseClick(child(name), Qt::LeftButton); }
  void clickEntry(int index, Qt::MouseButton button, const char* grid = "picPalette") {
    QWidget* boxes = child(grid);
    const int step = (boxes->width() - 5) / 16;
    QTest::mouseClick(boxes, button, {}, QPoint(3 + index % 16 * step + 4, 3 + index / 16 * step + 4));
  }
  // In the middle of that pixel of the shown picture, which stands at its own size in the middle.
  void clickPicture(int x, int y, Qt::MouseButton button) {
    QWidget* field = child("picDisp");
    QTest::mouseClick(field, button, {}, QPoint((field->width() - 4) / 2 + x, (field->height() - 2) / 2 + y));
  }
  QString text(const char* name) { return child<QLabel>(name)->text(); }
  clsGIF result() {
    clsGIF gif;
    EXPECT_EQ(gif.LoadFromGIFFile(file), kGifOk);
    return gif;
  }
  // The window's Close.
  void close(bool changed = true) {
    press("cmdOperation(1)");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->changed(), changed);
  }

  std::filesystem::path file;
  test::FakeMainWindow link;
  std::unique_ptr<Window> window;
};

using EditPaletteTest = PaletteDialogTest<frmRuvoGIFaniEditPalette>;
using ChangeBppTest = PaletteDialogTest<frmRuvoGIFaniChangeBPP>;

TEST_F(EditPaletteTest, ColoursAreSelectedAndChangedOnGridAndPicture) {
  open();
  desktop_.expect("No currently selected index yet.");
  press("cmdChangeColor");
  clickPicture(3, 0, Qt::LeftButton);
  EXPECT_EQ(child<PaletteGrid>("picPalette")->selectedIndex(), 3);
  desktop_.expectColor(QColor(10, 20, 30));
  press("cmdChangeColor");
  desktop_.expectColor(QColor(40, 50, 60));
  clickEntry(2, Qt::RightButton);
  desktop_.expect("Current index outside palette entries.");
  clickEntry(9, Qt::RightButton);
  press("cmdTranspColor");
  EXPECT_EQ(child<PaletteGrid>("picPalette")->selectedIndex(), 1);
  agree("Current palette has been defined to have a max of 4 entries.");
  desktop_.expectColor(QColor(1, 1, 1));
  press("cmdAddEntry");
  EXPECT_EQ(text("lblEntries"), "5 entries.   ");
  QTest::keyClick(child("picPalette"), Qt::Key_Escape);
  EXPECT_TRUE(window->changed() && !window->isVisible());
  const clsGIF gif = result();
  EXPECT_EQ(gif.GlobalPaletteColor(3), rgb(10, 20, 30));
  EXPECT_EQ(gif.GlobalPaletteColor(2), rgb(40, 50, 60));
  EXPECT_EQ(gif.GlobalPaletteColor(4), rgb(1, 1, 1));
  EXPECT_EQ(gif.LocalPaletteColor(3, 3), Colour{8}) << "a table of its own";
}

TEST_F(EditPaletteTest, TransparencyIsSetMovedAndTakenAway) {
  open(2);
  desktop_.expect("Current frame does not have transparent color");
  press("cmdChangeTranspColor(0)");
  clickEntry(3, Qt::LeftButton);
  child<QComboBox>("cboOnOffTransparentColor(0)")->setCurrentIndex(3);
  desktop_.expect("Current frame does not use local palette.");
  press("cmdSetUnsetTransparentColor");
  child<QComboBox>("cboOnOffTransparentColor(0)")->setCurrentIndex(0);
  press("cmdSetUnsetTransparentColor");
  EXPECT_EQ(text("lblTranspColor"), "Transparent color:  RGB(0, 0, 255)    At index  3");
  agree("Current frame uses global palette.  Change transparent color of global palette?");
  desktop_.expectColor(QColor(7, 7, 7));
  press("cmdChangeTranspColor(0)");
  clickEntry(0, Qt::LeftButton);
  agree("to that of current index on palette.");
  press("cmdChangeTranspColor(1)");
  child<QComboBox>("cboFrame")->setCurrentIndex(2);
  child<QComboBox>("cboOnOffTransparentColor(0)")->setCurrentIndex(2);
  child<QComboBox>("cboOnOffTransparentColor(1)")->setCurrentIndex(1);
  press("cmdSetUnsetTransparentColor");
  EXPECT_EQ(text("lblTranspColor"), "  (No transparent color)");
  close();
  const clsGIF gif = result();
  EXPECT_EQ(gif.GlobalPaletteColor(3), rgb(7, 7, 7));
  EXPECT_TRUE(gif.FrameUseTransparentColor(1) && gif.FrameUseTransparentColor(2));
  EXPECT_EQ(gif.FrameTransparentColorIndex(1), 0);
  EXPECT_FALSE(gif.FrameUseTransparentColor(3));
}

TEST_F(EditPaletteTest, AnEntryIsDeletedByBothButtonsOfTheMouse) {
  open(3);
  child<QTabWidget>("tabTools")->setCurrentIndex(1);
  EXPECT_EQ(child<QComboBox>("cboScope")->currentIndex(), 1) << "as the frame uses it";
  clickPicture(1, 0, Qt::LeftButton);
  clickEntry(3, Qt::RightButton);
  EXPECT_EQ(child<ColorSwatch>("picColorToDelete")->colour(), Colour{6});
  QTest::keyClick(child("picPalette"), Qt::Key_Return);  // asks nothing
  disagree("Proceed to delete color at palette index 1?");
  press("cmdDeleteColor");
  agree("Proceed to delete color at palette index 1?");
  press("cmdDeleteColor");
  EXPECT_EQ(text("lblEntries"), "3 entries.   ");

  child<QComboBox>("cboScope")->setCurrentIndex(0);
  EXPECT_EQ(text("lblEntries"), "4 entries.   ") << "the table that the scope is about";
  clickPicture(1, 0, Qt::LeftButton);  // tells nothing about it
  QTest::keyClick(child("picPalette"), Qt::Key_Down);
  QTest::keyClick(child("picPalette"), Qt::Key_Right);
  QTest::keyClick(child("picPalette"), Qt::Key_Right, Qt::ShiftModifier);
  agree("Index 1 is the transparent index. Sure to delete it?");
  press("cmdDeleteColor");
  close();
  const clsGIF gif = result();
  EXPECT_EQ(test::digits(gif.FrameDIBXOR(3)), (test::Rows{"0212", "2120"}));
  EXPECT_EQ(test::digits(gif.FrameDIBXOR(1)), (test::Rows{"0012", "1111"}));
  EXPECT_FALSE(gif.FrameUseTransparentColor(1));
}

TEST_F(EditPaletteTest, PaletteIsSavedCleanedAndRestored) {
  open();
  link.folders["PAL_GIFani"] = QString::fromStdString(temp_.path().string());
  const auto target = temp_ / "mine.pal";
  desktop_.expectSave(QString::fromStdString(target.string()), QString::fromStdString(temp_.path().string()));
  press("imgSavePalette");
  EXPECT_EQ(std::filesystem::file_size(target), 3349U);
  EXPECT_EQ(link.folders["PAL_GIFani"].toStdString(), temp_.path().string());
  desktop_.expectSave(QString::fromStdString((temp_ / "none" / "x.pal").string()));
  desktop_.expect("Failed to save this file.");
  press("imgSavePalette");

  child<QComboBox>("cboFrame")->setCurrentIndex(1);
  agree("Proceed to clear unused/duplicate palette entries, if any?");
  press("cmdClearUnusedDuplicate");
  press("cmdOperation(5)");
  QTest::keyClick(child("picFilm"), Qt::Key_Down);
  EXPECT_EQ(child<QComboBox>("cboFrame")->currentIndex(), 2);
  press("cmdOperation(2)");
  EXPECT_TRUE(child("cmdOperation(3)")->isEnabled());
  press("cmdOperation(0)");
  EXPECT_FALSE(child("cmdOperation(3)")->isEnabled()) << "stopped";
  press("cmdOperation(4)");
  close(false);
}

TEST_F(EditPaletteTest, WorkIsNotLostWhenItCanNotBeStored) {
  open();
  clickEntry(3, Qt::LeftButton);
  desktop_.expectColor(QColor(10, 20, 30));
  press("cmdChangeColor");
  std::filesystem::remove(file);
  std::filesystem::create_directory(file);
  desktop_.expect("Backup file missing; cannot Restore.");
  press("cmdOperation(0)");
  disagree("Failed to save reduction to temp file.");
  press("cmdOperation(1)");
  EXPECT_TRUE(window->isVisible());
  std::filesystem::remove(file);
  close();
  EXPECT_FALSE(frmRuvoGIFaniEditPalette(temp_ / "none", 1, link, nullptr).loaded());
}

TEST_F(ChangeBppTest, RunsAndShowsBothPalettesAndSizes) {
  open(3);
  EXPECT_EQ(child<QComboBox>("cboBPP")->count(), 5);
  EXPECT_EQ(child<QComboBox>("cboBgdPattern")->count(), 3);
  child<QComboBox>("cboBPP")->setCurrentIndex(4);
  press("ckbGlobalize");
  agree("Proceed to optimize/change BPP to ");
  press("cmdChangeBPP");
  EXPECT_TRUE(text("lblNewFileSize").startsWith("Orig file size:  "));
  EXPECT_TRUE(text("lblPaletteType(0)").startsWith("Local palette - Frame 3"));
  EXPECT_TRUE(text("lblPaletteType(1)").startsWith("Global palette - Frame 3"));

  desktop_.expect("No palette index to be replaced with yet.");
  clickEntry(2, Qt::LeftButton, "picPalette(1)");
  press("cmdDeleteColor");
  clickEntry(0, Qt::RightButton, "picPalette(1)");
  const int before = child<PaletteGrid>("picPalette(1)")->entries();
  agree("2");
  press("cmdDeleteColor");
  EXPECT_EQ(child<PaletteGrid>("picPalette(1)")->entries(), before - 1);
  close();
  EXPECT_FALSE(result().LocalPaletteUsed(3));
}

}  // namespace
}  // namespace ruvo
