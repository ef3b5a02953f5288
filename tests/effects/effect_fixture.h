// Effect windows on a small picture, with no document.
#pragma once

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QSlider>
#include <QTest>

#include "canvas/ucCanvasA.h"
#include "dialogs/color_button.h"
#include "effects/effect_window.h"
#include "effects/number_combo.h"
#include "support/pictures.h"
#include "support_ui/control.h"
#include "support_ui/scripted_desktop.h"

namespace ruvo::test {

inline bool same(const clsDIB& a, const clsDIB& b) {
  return !a.empty() && a.size() == b.size() && rowsOf(a).size() == rowsOf(b).size() &&
         farthest(&a.surface(), [&b](int x, int y) { return pixelAt(b, x, y); }) == 0;
}
inline clsDIB copyOf(const clsDIB& dib) {
  clsDIB copy;
  clsDIB::CloneDIB(dib, copy, kWhite, dib.BottomUp());
  return copy;
}

class EffectWindowTest : public testing::Test {
 protected:
  // Shown, with its sample made.
  static void show(QWidget& window) {
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
  }
  static const clsDIB& sampleOf(QWidget& window) { return control<ucCanvasA>(window, "picSample")->DIB(); }
  static void type(QWidget& window, const char* name, const QString& text) {
    auto* box = control<QComboBox>(window, name);
    box->setFocus();
    box->lineEdit()->selectAll();
    QTest::keyClicks(box, text);
  }
  static void click(QWidget& window, const char* name) { control<QAbstractButton>(window, name)->click(); }
  // A right click on the sample's pixel.
  static void pick(QWidget& window, int x, int y) {
    auto* view = control<ucCanvasA>(window, "picSample");
    QPoint at;
    view->GetPicdispStartPos(at.rx(), at.ry());
    auto* shown = view->childAt(view->rect().center());
    QTest::mouseClick(shown, Qt::RightButton, {}, at + QPoint(x, y));
  }
  // What the window makes of the picture.
  static clsDIB proceed(EffectWindow& window) {
    click(window, "cmdProceed");
    EXPECT_EQ(window.result(), QDialog::Accepted);
    return window.takeResult();
  }
  template <typename Filter>
  clsDIB filtered(const Filter& filter) const {
    clsDIB dib = copyOf(picture);
    filter(dib);
    return dib;
  }

  ScriptedDesktop desktop;
  clsDIB picture = dibOf(60, 40, [](int x, int y) {
    return x < 5 ? Pixel32::plain(kWhite) : Pixel32::plain(rgb(4 * x, 250 - 6 * y, (x * y * 7) % 256));
  });
};

}  // namespace ruvo::test
