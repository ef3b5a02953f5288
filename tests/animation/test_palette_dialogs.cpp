#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>
#include <fstream>

#include "animation/delete_entry_panel.h"
#include "animation/frmRuvoGIFaniChangeBPP.h"
#include "animation/frmRuvoGIFaniEditPalette.h"
#include "animation/model/work_copy.h"
#include "animation/palette_grid.h"
#include "dialogs/color_swatch.h"
#include "formats/gif_bytes.h"
#include "support/temp_folder.h"
#include "support_ui/fake_main_window.h"
#include "support_ui/scripted_desktop.h"

namespace ruvo {
namespace {

using desktop::Answer;

template <typename Window>
class PaletteDialogTest : public testing::Test {
 protected:
  // Frames 1 and 2 use the global table of four, 1 with transparent index 1; frame 3 has a table of its own.
  Window& open(int frame = 1) {
    const test::Bytes bytes = test::GifBytes(4, 2)
                                  .control(1, 10, 1)
                                  .image({"0123", "2222"})
                                  .control(0, 10)
                                  .image({"3333", "0000"})
                                  .control(0, 10)
                                  .image({"0123", "3210"}, 0, 0, 0x81, {5, 6, 7, 8})
                                  .bytes();
    std::ofstream(file, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
    window = std::make_unique<Window>(file, frame, link, nullptr);
    EXPECT_TRUE(window->loaded());
    window->show();
    return *window;
  }
  template <typename T = QWidget>
  T* child(const char* name) {
    T* found = window->template findChild<T*>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
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

  test::TempFolder folder;
  std::filesystem::path file = folder / "tmpPalette.tmp";
  test::FakeMainWindow link;
  test::ScriptedDesktop desktop;
  std::unique_ptr<Window> window;
};

using EditPaletteTest = PaletteDialogTest<frmRuvoGIFaniEditPalette>;
using ChangeBppTest = PaletteDialogTest<frmRuvoGIFaniChangeBPP>;

TEST_F(EditPaletteTest, ColoursAreSelectedAndChangedOnGridAndPicture) {
  open();
  EXPECT_EQ(text("lblPaletteType"), "Global palette - Frame 1\n(As 2-BPP  4 entries)");
  EXPECT_EQ(text("lblTranspColor"), "Transparent color:  RGB(255, 0, 0)    At index  1");
  desktop.expect("No currently selected index yet.");
  press("cmdChangeColor");
  clickPicture(3, 0, Qt::LeftButton);
  EXPECT_EQ(child<PaletteGrid>("picPalette")->selectedIndex(), 3);
  desktop.expectColor(QColor(10, 20, 30));
  press("cmdChangeColor");
  desktop.expectColor(QColor(40, 50, 60));
  clickEntry(2, Qt::RightButton);
  desktop.expect("Current index outside palette entries.");
  clickEntry(9, Qt::RightButton);
  press("cmdTranspColor");
  EXPECT_EQ(child<PaletteGrid>("picPalette")->selectedIndex(), 1);
  desktop.expect("Current palette has been defined to have a max of 4 entries.").answer(Answer::Yes);
  desktop.expectColor(QColor(1, 1, 1));
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
  desktop.expect("Current frame does not have transparent color");
  press("cmdChangeTranspColor(0)");
  clickEntry(3, Qt::LeftButton);
  child<QComboBox>("cboOnOffTransparentColor(0)")->setCurrentIndex(3);
  desktop.expect("Current frame does not use local palette.");
  press("cmdSetUnsetTransparentColor");
  child<QComboBox>("cboOnOffTransparentColor(0)")->setCurrentIndex(0);
  press("cmdSetUnsetTransparentColor");
  EXPECT_EQ(text("lblTranspColor"), "Transparent color:  RGB(0, 0, 255)    At index  3");
  desktop.expect("Current frame uses global palette.  Change transparent color of global palette?").answer(Answer::Yes);
  desktop.expectColor(QColor(7, 7, 7));
  press("cmdChangeTranspColor(0)");
  clickEntry(0, Qt::LeftButton);
  desktop.expect("to that of current index on palette.").answer(Answer::Yes);
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
  desktop.expect("No palette index selected to delete yet.");
  press("cmdDeleteColor");
  clickPicture(1, 0, Qt::LeftButton);
  clickEntry(3, Qt::RightButton);
  EXPECT_EQ(child<ColorSwatch>("picColorToDelete")->colour(), Colour{6});
  QTest::keyClick(child("picPalette"), Qt::Key_Return);  // asks nothing
  desktop.expect("Proceed to delete color at palette index 1?").answer(Answer::No);
  press("cmdDeleteColor");
  desktop.expect("Proceed to delete color at palette index 1?").answer(Answer::Yes);
  press("cmdDeleteColor");
  EXPECT_EQ(text("lblEntries"), "3 entries.   ");

  child<QComboBox>("cboScope")->setCurrentIndex(0);
  EXPECT_EQ(text("lblEntries"), "4 entries.   ") << "the table that the scope is about";
  clickPicture(1, 0, Qt::LeftButton);  // tells nothing about it
  QTest::keyClick(child("picPalette"), Qt::Key_Down);
  QTest::keyClick(child("picPalette"), Qt::Key_Right);
  QTest::keyClick(child("picPalette"), Qt::Key_Right, Qt::ShiftModifier);
  desktop.expect("Index 1 is the transparent index. Sure to delete it?").answer(Answer::Yes);
  press("cmdDeleteColor");
  close();
  const clsGIF gif = result();
  EXPECT_EQ(test::digits(gif.FrameDIBXOR(3)), (test::Rows{"0212", "2120"}));
  EXPECT_EQ(test::digits(gif.FrameDIBXOR(1)), (test::Rows{"0012", "1111"}));
  EXPECT_FALSE(gif.FrameUseTransparentColor(1));
}

TEST_F(EditPaletteTest, ADeletionIsAboutTheTableThatIsShown) {
  open(2);
  child<QTabWidget>("tabTools")->setCurrentIndex(1);
  EXPECT_EQ(text("lblTranspColor"), "  (No transparent color)") << "of the frame, not of the others";
  clickEntry(2, Qt::LeftButton);
  clickEntry(200, Qt::RightButton);  // no entry stands there
  desktop.expect("No palette index to be replaced with yet.");
  press("cmdDeleteColor");
  clickEntry(0, Qt::RightButton);
  child<QComboBox>("cboFrame")->setCurrentIndex(0);
  EXPECT_EQ(text("lblTranspColor"), "Transparent color:  RGB(255, 0, 0)    At index  1");
  child<QComboBox>("cboFrame")->setCurrentIndex(2);
  desktop.expect("No palette index selected to delete yet.");
  press("cmdDeleteColor");
  close(false);
}

TEST_F(EditPaletteTest, PaletteIsSavedCleanedAndRestored) {
  open();
  link.folders["PAL_GIFani"] = QString::fromStdString(folder.path().string());
  const auto target = folder / "mine.pal";
  desktop.expectSave(QString::fromStdString(target.string()), QString::fromStdString(folder.path().string()));
  press("imgSavePalette");
  EXPECT_EQ(std::filesystem::file_size(target), 3349U);
  EXPECT_EQ(link.folders["PAL_GIFani"].toStdString(), folder.path().string());
  desktop.expectSave(QString::fromStdString((folder / "none" / "x.pal").string()));
  desktop.expect("Failed to save this file.");
  press("imgSavePalette");

  child<QComboBox>("cboFrame")->setCurrentIndex(1);
  desktop.expect("Proceed to clear unused/duplicate palette entries, if any?").answer(Answer::Yes);
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
  desktop.expectColor(QColor(10, 20, 30));
  press("cmdChangeColor");
  std::filesystem::remove(file);
  std::filesystem::create_directory(file);
  desktop.expect("Backup file missing; cannot Restore.");
  press("cmdOperation(0)");
  desktop.expect("Failed to save reduction to temp file.").answer(Answer::No);
  press("cmdOperation(1)");
  EXPECT_TRUE(window->isVisible());
  std::filesystem::remove(file);
  close();
  EXPECT_FALSE(frmRuvoGIFaniEditPalette(folder / "none", 1, link, nullptr).loaded());
}

TEST_F(ChangeBppTest, RunsAndShowsBothPalettesAndSizes) {
  open(3);
  EXPECT_EQ(child<QComboBox>("cboBPP")->count(), 5);
  EXPECT_EQ(child<QComboBox>("cboBgdPattern")->count(), 3);
  child<QComboBox>("cboBPP")->setCurrentIndex(4);
  press("ckbGlobalize");
  desktop.expect("Proceed to optimize/change BPP to ").answer(Answer::No);
  press("cmdChangeBPP");
  EXPECT_EQ(text("lblNewFileSize"), "");
  desktop.expect("Proceed to optimize/change BPP to ").answer(Answer::Yes);
  press("cmdChangeBPP");
  EXPECT_TRUE(text("lblNewFileSize").startsWith("Orig file size:  "));
  EXPECT_TRUE(text("lblPaletteType(0)").startsWith("Local palette - Frame 3"));
  EXPECT_TRUE(text("lblPaletteType(1)").startsWith("Global palette - Frame 3"));

  desktop.expect("No palette index to be replaced with yet.");
  clickEntry(2, Qt::LeftButton, "picPalette(1)");
  press("cmdDeleteColor");
  clickEntry(0, Qt::RightButton, "picPalette(1)");
  const int before = child<PaletteGrid>("picPalette(1)")->entries();
  desktop.expect("2").answer(Answer::Yes);
  press("cmdDeleteColor");
  EXPECT_EQ(child<PaletteGrid>("picPalette(1)")->entries(), before - 1);
  close();
  EXPECT_FALSE(result().LocalPaletteUsed(3));
}

TEST_F(ChangeBppTest, RestoreTakesTheResultBack) {
  open(3);
  desktop.expect("Proceed to optimize/change BPP to ").answer(Answer::Yes);
  press("cmdChangeBPP");
  press("cmdOperation(0)");
  EXPECT_EQ(text("lblNewFileSize"), "");
  EXPECT_EQ(child<PaletteGrid>("picPalette(1)")->entries(), 4);
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible() || window->changed());
}

}  // namespace
}  // namespace ruvo
