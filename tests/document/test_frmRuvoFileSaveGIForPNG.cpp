#include "document/frmRuvoFileSaveGIForPNG.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <fstream>

#include "canvas/ucCanvas.h"
#include "dialogs/color_swatch.h"
#include "document_fixture.h"
#include "support_ui/control.h"

namespace ruvo {
namespace {

class SavePanelTest : public testing::Test {
 protected:
  // Left half red, right half blue.
  frmRuvoFileSaveGIForPNG& open(SavePanelMode mode, const char* proposed) {
    clsDIB picture;
    picture.CreateBlankDIB(80, 40, 32, rgb(255, 0, 0));
    raster::fillRect(picture.surface(), {40, 0, 80, 40}, rgb(0, 0, 255));
    panel =
        std::make_unique<frmRuvoFileSaveGIForPNG>(mode, picture, QString::fromStdString((folder / proposed).string()));
    panel->save = [this](const QString& path) {
      saved << path;
      return refusal;
    };
    panel->show();
    return *panel;
  }
  template <typename T>
  T& child(const char* name) {
    return *test::control<T>(*panel, name);
  }
  void click(const char* name) { child<QAbstractButton>(name).click(); }
  void rightClickPicture(QPoint imagePoint) {
    QWidget* canvas = &child<ucCanvas>("ucCanvas1");
    Point start;
    child<ucCanvas>("ucCanvas1").GetPicdispStartPos(start.x, start.y);
    const QPoint place = QPoint(start.x, start.y) + imagePoint;
    QWidget* target = canvas->childAt(place) != nullptr ? canvas->childAt(place) : canvas;
    QTest::mouseClick(target, Qt::RightButton, {}, target->mapFrom(canvas, place));
  }

  test::TempFolder folder;
  test::ScriptedDesktop desktop;
  std::unique_ptr<frmRuvoFileSaveGIForPNG> panel;
  QStringList saved;
  std::string refusal;
};

TEST_F(SavePanelTest, GifChoicesAndTheColourPickedFromThePicture) {
  open(SavePanelMode::Gif, "a.gif");
  EXPECT_EQ(panel->gifChoices().variant(), 0);
  click("ckbGIFinterlaced");
  EXPECT_EQ(panel->gifChoices().variant(), 3);
  click("ckbGIFsetTransparency");
  EXPECT_EQ(panel->gifChoices().variant(), 2);
  EXPECT_EQ(child<ColorSwatch>("picGIFtranspColor").colour(), rgb(255, 0, 0));
  rightClickPicture({60, 20});
  EXPECT_EQ(child<ColorSwatch>("picGIFtranspColor").colour(), rgb(0, 0, 255));
  EXPECT_EQ(panel->gifChoices().transparentPixel, (Point{60, 20}));
  click("ckbGIFinterlaced");
  EXPECT_EQ(panel->gifChoices().variant(), 1);
}

TEST_F(SavePanelTest, AlphaValuesNeedThirtyTwoBits) {
  open(SavePanelMode::PngTrueColour, "a.png");
  auto& depth = child<QComboBox>("cboPNGSaveAsBPP");
  EXPECT_FALSE(child<QComboBox>("cboPNGalphaValue").isEnabled());
  EXPECT_EQ(child<QComboBox>("cboPNGalphaValue").currentText(), "128");
  click("ckbPNGSetTransparency");
  click("optTransparency(1)");
  EXPECT_EQ(depth.currentText(), "32");
  click("ckbTranslucencyExclude");
  rightClickPicture({60, 20});
  PngChoices choices = panel->pngChoices();
  EXPECT_EQ(choices.transparency, PngChoices::Transparency::AlphaValues);
  EXPECT_EQ(choices.seeThrough, rgb(0, 0, 255));
  EXPECT_EQ(choices.transparentPixel, (Point{0, 0}));  // the click chose the other colour
  depth.setCurrentText("24");
  EXPECT_EQ(panel->pngChoices().transparency, PngChoices::Transparency::SingleColour);
  desktop.expectColor(QColor(1, 2, 3));
  click("ckbPNGSetBgdColorChunk");
  click("cmdBgdColorDialog");
  EXPECT_EQ(panel->pngChoices().background, rgb(1, 2, 3));
}

TEST_F(SavePanelTest, NothingIsReplacedUnasked) {
  std::ofstream(folder / "a.png") << "old";
  open(SavePanelMode::PngPaletted, "a.png");
  EXPECT_EQ(child<QComboBox>("cboPNGSaveAsBPP").currentText(), "8");
  desktop.expect("File exists already.").answer(desktop::Answer::No);
  click("cmdFileSaveOptions(0)");
  EXPECT_TRUE(panel->isVisible() && saved.isEmpty());

  const QString other = QString::fromStdString((folder / "b").string());
  child<QLineEdit>("txbSaveTo").setText(other);
  refusal = "Failed";
  desktop.expect("Failed");
  click("cmdFileSaveOptions(0)");
  EXPECT_TRUE(panel->isVisible() && panel->path().isEmpty());
  refusal.clear();
  click("cmdFileSaveOptions(0)");
  EXPECT_FALSE(panel->isVisible());
  EXPECT_EQ(panel->path(), other + ".png");
  EXPECT_EQ(saved.size(), 2);

  open(SavePanelMode::PngPaletted, "c.png");
  desktop.expectSave(QString::fromStdString((folder / "a.png").string()), "c.png");
  click("cmdSaveTo");  // the picker asks about replacing
  click("cmdFileSaveOptions(0)");
  EXPECT_EQ(saved.size(), 3);
  open(SavePanelMode::Gif, "d.gif");
  child<QLineEdit>("txbSaveTo").setText("bare");
  click("cmdFileSaveOptions(0)");
  EXPECT_EQ(panel->path().toStdString(), (folder / "bare.gif").string()) << "beside the proposed file";
  open(SavePanelMode::Gif, "d.gif");
  click("cmdFileSaveOptions(1)");
  EXPECT_TRUE(panel->path().isEmpty());
}

}  // namespace
}  // namespace ruvo
