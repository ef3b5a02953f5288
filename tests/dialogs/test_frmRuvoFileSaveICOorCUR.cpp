#include "dialogs/frmRuvoFileSaveICOorCUR.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QTest>

#include "base/file_io.h"
#include "dialogs/icon_pictures.h"
#include "formats/clsICO.h"
#include "support/pictures.h"
#include "support/temp_folder.h"
#include "support_ui/control.h"
#include "support_ui/scripted_desktop.h"

namespace ruvo {
namespace {

using test::control;

const test::Ink kInk = {{'.', kWhite}, {'r', rgb(255, 0, 0)}, {'b', rgb(0, 0, 255)}};

class SaveICOorCUR : public testing::Test {
 protected:
  // A click on the magnified picture at an icon's pixel.
  static void click(QWidget& window, Qt::MouseButton button, QPoint pixel, int side = 32) {
    auto* picture = control<QWidget>(window, "picMagnified");
    const QRect place = static_cast<MagnifiedIcon*>(picture)->place();
    QTest::mouseClick(picture, button, {}, place.topLeft() + (2 * pixel + QPoint(1, 1)) * place.width() / (2 * side));
  }
  static QColor seen(QWidget& window, const char* name, QPoint offset = {}) {
    auto* picture = control<QWidget>(window, name);
    return picture->grab().toImage().pixelColor(picture->rect().center() + offset);
  }
  QString path(const char* name) const { return QString::fromStdString((folder / name).string()); }

  test::ScriptedDesktop desktop;
  test::TempFolder folder;
  // Two pixels wide and one high, so that each is half of the icon.
  clsDIB picture = test::dibOf({"rb"}, kInk);
};

TEST_F(SaveICOorCUR, OffersTheSizesOfItsKind) {
  frmRuvoFileSaveICOorCUR icon(IconKind::Icon, picture, ""), larger(IconKind::Icon, picture, "", true);
  EXPECT_EQ(icon.windowTitle(), "Save as Icon");
  auto* sizes = control<QComboBox>(icon, "cboIconSize");
  EXPECT_EQ(sizes->count(), 4);
  EXPECT_EQ(sizes->currentText(), "32 x 32");
  EXPECT_EQ(control<QComboBox>(larger, "cboIconSize")->itemText(8), "128 x 128");
  EXPECT_EQ(icon.findChild<QComboBox*>("cboCursorHotSpot(0)"), nullptr);
  frmRuvoFileSaveICOorCUR cursor(IconKind::Cursor, picture, "", true);
  EXPECT_EQ(cursor.windowTitle(), "Save as Cursor");
  EXPECT_EQ(cursor.findChild<QComboBox*>("cboIconSize"), nullptr);
  EXPECT_EQ(control<QComboBox>(cursor, "cboCursorHotSpot(1)")->count(), 32);
}

TEST_F(SaveICOorCUR, ClicksPickTransparencyAndHotSpotAndAreShown) {
  frmRuvoFileSaveICOorCUR cursor(IconKind::Cursor, picture, "");
  EXPECT_FALSE(cursor.choices().transparent);
  EXPECT_EQ(cursor.choices().transparentColour, rgb(255, 0, 0));  // the top left
  EXPECT_EQ(seen(cursor, "picOnDark", {4, 0}), QColor(0, 0, 255));
  click(cursor, Qt::LeftButton, {20, 3});
  EXPECT_TRUE(control<QCheckBox>(cursor, "ckbUseTransparent")->isChecked());
  EXPECT_EQ(cursor.choices().transparentColour, rgb(0, 0, 255));
  EXPECT_EQ(seen(cursor, "picTransparentColor"), QColor(0, 0, 255));
  EXPECT_EQ(seen(cursor, "picOnDark", {4, 0}), QColor("#262B33"));
  EXPECT_EQ(seen(cursor, "picMask", {4, 0}), QColor(255, 255, 255));
  EXPECT_EQ(seen(cursor, "picMask", {-4, 0}), QColor(0, 0, 0));
  const QColor before = seen(cursor, "picMagnified", {40, 44});  // an edge of the pixel
  click(cursor, Qt::RightButton, {20, 20});
  EXPECT_EQ(control<QComboBox>(cursor, "cboCursorHotSpot(0)")->currentText(), "20");
  EXPECT_NE(seen(cursor, "picMagnified", {40, 44}), before);
  // From there by keys, one pixel right and down.
  auto* magnified = control<QWidget>(cursor, "picMagnified");
  for (const auto key : {Qt::Key_Right, Qt::Key_Down}) QTest::keyClick(magnified, key);
  QTest::keyClick(magnified, Qt::Key_Space, Qt::ShiftModifier);
  EXPECT_EQ(cursor.choices().hotSpot, (Point{21, 21}));
  for (int i = 0; i < 40; ++i) QTest::keyClick(magnified, Qt::Key_Left);
  QTest::keyClick(magnified, Qt::Key_Space);
  EXPECT_EQ(cursor.choices().transparentColour, rgb(255, 0, 0));
  control<QComboBox>(cursor, "cboCursorHotSpot(1)")->setCurrentIndex(31);
  EXPECT_EQ(cursor.choices().hotSpot, (Point{21, 31}));
}

TEST_F(SaveICOorCUR, WritesWhatWasChosen) {
  frmRuvoFileSaveICOorCUR icon(IconKind::Icon, picture, path("p.ico"));
  control<QComboBox>(icon, "cboIconSize")->setCurrentIndex(1);
  control<QComboBox>(icon, "cboHowToTake")->setCurrentIndex(1);
  click(icon, Qt::LeftButton, {12, 8}, 16);
  desktop.expectSave(path("new.png"), path("p.ico"));
  desktop.expect("Saved to " + path("new.png.ico"));
  control(icon, "cmdProceed")->click();
  EXPECT_EQ(icon.savedPath(), path("new.png.ico"));
  EXPECT_EQ(desktop.lastFilter, "(*.ico)|*.ico|");
  clsICO file;
  ASSERT_TRUE(file.OpenICO(folder / "new.png.ico"));
  ASSERT_EQ(file.SeekIcon(16, 16, 24), 0);
  const clsDIB shown = file.withAlpha(0);
  // The picture's shape in the middle; around it and in its blue half one sees through.
  EXPECT_EQ(test::pixelAt(shown, 7, 4), (Pixel32{0, 0, 255, 255}));
  EXPECT_EQ(test::pixelAt(shown, 8, 4).alpha, 0);
  EXPECT_EQ(test::pixelAt(shown, 0, 3).alpha, 0);
}

TEST_F(SaveICOorCUR, EveryRefusalIsToldAndTheWindowStays) {
  frmRuvoFileSaveICOorCUR cursor(IconKind::Cursor, picture, "");
  cursor.show();
  const auto proceed = [&](const QString& picked, const char* words) {
    desktop.expectSave(picked);
    desktop.expect(words);
    control(cursor, "cmdProceed")->click();
    EXPECT_TRUE(cursor.isVisible());
    EXPECT_EQ(cursor.savedPath(), "");
  };
  proceed("", "No file specification yet");
  proceed(path("none/a.cur"), "Failed to save cursor file.");
  replaceFile(folder / "kept.cur", std::vector<std::uint8_t>{1});
  std::filesystem::permissions(folder / "kept.cur", std::filesystem::perms::owner_read);
  proceed(path("kept.cur"), "File is read only.");
  // Another name than the one that the picker asked about is asked about again.
  replaceFile(folder / "b.ani.cur", std::vector<std::uint8_t>{1});
  desktop.expectSave(path("b.ani"));
  proceed("", "No file specification yet");
}

}  // namespace
}  // namespace ruvo
