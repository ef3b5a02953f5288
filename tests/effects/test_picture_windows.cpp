// The windows that take a second picture: layer and tile.
#include <gtest/gtest.h>

#include <QLabel>
#include <QMouseEvent>
#include <QSpinBox>

#include "canvas/ucCanvas.h"
#include "canvas/ucCanvasA.h"
#include "effects/frmRuvoLayerOp.h"
#include "effects/frmRuvoTile.h"
#include "support/pictures.h"
#include "support_ui/control.h"
#include "support_ui/scripted_desktop.h"

namespace ruvo {
namespace {

using test::control;
using test::pixelAt;

clsDIB pictureOf(int width, int height, const test::PixelOf& pixel) {
  clsDIB dib;
  dib.adopt(test::surfaceOf(width, height, pixel), false);
  return dib;
}

void mouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButtons held) {
  const bool move = type == QEvent::MouseMove;
  QMouseEvent event(type, at, widget.mapToGlobal(at), move ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &event);
}
void drag(QWidget& widget, QPointF from, QPointF to) {
  mouse(widget, QEvent::MouseButtonPress, from, Qt::LeftButton);
  mouse(widget, QEvent::MouseMove, (from + to) / 2, Qt::LeftButton);
  mouse(widget, QEvent::MouseMove, to, Qt::LeftButton);
  mouse(widget, QEvent::MouseButtonRelease, to, Qt::NoButton);
}

class PictureWindows : public testing::Test {
 protected:
  PictureWindows() {
    host.loadPicture = [this](QWidget*) { return chosen; };
  }
  test::ScriptedDesktop desktop;
  EffectHost host;
  std::shared_ptr<const clsDIB> chosen =
      std::make_shared<clsDIB>(pictureOf(20, 10, [](int, int) { return Pixel32::plain(rgb(0, 200, 0)); }));
  clsDIB picture = pictureOf(200, 100, [](int x, int y) { return Pixel32::plain(rgb(x, y, 0)); });
};

TEST_F(PictureWindows, ALayerIsLoadedDraggedAndLaidWhereItWasPut) {
  frmRuvoLayerOp window({picture}, host, nullptr);
  window.show();
  QCoreApplication::processEvents();
  desktop.expect("Please load an image first:  Second picture");
  control(window, "cmdProceed")->click();
  EXPECT_TRUE(window.isVisible()) << "nothing to lay yet";

  control(window, "cmdPicture")->click();
  auto* sample = control<ucCanvasA>(window, "picSample");
  QWidget* view = sample->findChild<QWidget*>();
  const QPointF middle(sample->width() / 2.0, sample->height() / 2.0);
  drag(*view, middle, middle + QPointF(31, 7));
  EXPECT_EQ(control<QDoubleSpinBox>(window, "txbLeft")->value(), 31);
  EXPECT_EQ(control<QDoubleSpinBox>(window, "txbTop")->value(), 7);
  EXPECT_EQ(pixelAt(sample->DIB(), 31, 7).colour(), rgb(0, 200, 0)) << "the sample shows it";
  control(window, "cmdCenter")->click();
  control(window, "cmdProceed")->click();
  ASSERT_EQ(window.result(), QDialog::Accepted);
  const clsDIB result = window.takeResult();
  EXPECT_EQ(pixelAt(result, 90, 45).colour(), rgb(0, 200, 0));
  EXPECT_EQ(pixelAt(result, 109, 54).colour(), rgb(0, 200, 0));
  EXPECT_EQ(pixelAt(result, 110, 54).colour(), rgb(110, 54, 0));
  EXPECT_EQ(pixelAt(picture, 90, 45).colour(), rgb(90, 45, 0)) << "the subject is not touched";

  frmRuvoLayerOp again({picture}, host, nullptr);
  EXPECT_EQ(control<QDoubleSpinBox>(again, "txbLeft")->value(), 90) << "what was entered last is offered";
  chosen = std::make_shared<clsDIB>(pictureOf(1200, 10, [](int, int) { return Pixel32::plain(kBlack); }));
  control(again, "cmdPicture")->click();
  control(again, "cmdCenter")->click();
  EXPECT_EQ(control<QDoubleSpinBox>(again, "txbLeft")->value(), -500) << "a layer may be of any size";
}

TEST_F(PictureWindows, ATileIsTheMarkedPartOfTheImageOnItsCanvas) {
  frmRuvoTile window({picture}, host, nullptr);
  window.show();
  QCoreApplication::processEvents();
  control(window, "cmdLoad")->click();
  EXPECT_EQ(control<QLabel>(window, "lblTileSize")->text(), "Tile:   20 x 10");
  control(window, "cmdUsePicture")->click();
  auto* canvas = control<ucCanvas>(window, "ucCanvas1");
  int left = 0, top = 0;
  canvas->GetPicdispStartPos(left, top);
  drag(*canvas->findChild<QWidget*>("picDisp"), QPointF(left + 10, top + 20), QPointF(left + 39, top + 29));
  EXPECT_EQ(control<QLabel>(window, "lblTileSize")->text(), "Tile:   30 x 10");
  control(window, "cmdProceed")->click();
  ASSERT_EQ(window.result(), QDialog::Accepted);
  const clsDIB result = window.takeResult();
  for (const Point at : {Point{0, 0}, {29, 9}, {30, 10}, {199, 99}}) {
    EXPECT_EQ(pixelAt(result, at.x, at.y).colour(), rgb(10 + at.x % 30, 20 + at.y % 10, 0)) << at.x << ' ' << at.y;
  }
}

}  // namespace
}  // namespace ruvo
