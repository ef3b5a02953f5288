#include "animation/palette_grid.h"

#include <QSignalSpy>
#include <QTest>

namespace ruvo {
namespace {

class PaletteGridTest : public testing::Test {
 protected:
  PaletteGridTest() {
    GifTable table{};
    table[0] = {0, 0, 0, 0};
    table[1] = {255, 255, 255, 0};
    table[2] = {0, 0, 200, 0};
    grid.setPalette(table, 20, 2);
    grid.resize(grid.sizeHint());
    QObject::connect(&grid, &PaletteGrid::clicked, &grid, [this](int index, Qt::MouseButton button) {
      if (button == Qt::LeftButton) {
        grid.setSelectedIndex(index);
      } else {
        grid.setSecondIndex(index);
        second = index;
      }
    });
    grid.show();
  }
  QPoint centreOf(int index) const {
    const int box = (grid.width() - 5) / 16;
    return {3 + index % 16 * box + box / 2, 3 + index / 16 * box + box / 2};
  }
  QImage boxPicture(int index) { return grid.grab(QRect(centreOf(index) - QPoint(8, 8), QSize(17, 17))).toImage(); }

  PaletteGrid grid;
  int second = -1;
};

TEST_F(PaletteGridTest, MouseAndKeysLeadToBoxes) {
  const QSignalSpy hovered(&grid, &PaletteGrid::hovered);
  for (const int index : {0, 19, 255}) {
    QTest::mouseMove(&grid, centreOf(index));
    QTest::mouseClick(&grid, Qt::LeftButton, {}, centreOf(index));
    EXPECT_EQ(grid.selectedIndex(), index) << "past the entries too";
    EXPECT_EQ(hovered.last().at(0).toInt(), index);
  }
  QTest::mouseClick(&grid, Qt::LeftButton, {}, {1, 1});
  EXPECT_EQ(grid.selectedIndex(), 255) << "the frame is no box";

  const auto press = [this](int key, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(&grid, static_cast<Qt::Key>(key), with);
    return grid.selectedIndex();
  };
  EXPECT_EQ(press(Qt::Key_Left), 19) << "back to the entries";
  EXPECT_EQ(press(Qt::Key_Right), 19);
  EXPECT_EQ(press(Qt::Key_Up), 3);
  EXPECT_EQ(press(Qt::Key_Up), 3);
  EXPECT_EQ(press(Qt::Key_Home), 0);
  EXPECT_EQ(press(Qt::Key_Down), 16);
  EXPECT_EQ(press(Qt::Key_Menu), 16);
  EXPECT_EQ(second, 16);
  grid.setChoosesSecond(true);
  EXPECT_EQ(press(Qt::Key_Right, Qt::ShiftModifier), 16);
  EXPECT_EQ(second, 17);
}

TEST_F(PaletteGridTest, MarksAreSeenOnAnyColour) {
  for (const int index : {0, 1}) {
    const QImage plain = boxPicture(index);
    grid.setSelectedIndex(index);
    const QImage selected = boxPicture(index);
    grid.setSelectedIndex(-1);
    grid.setSecondIndex(index);
    const QImage replaced = boxPicture(index);
    grid.setSecondIndex(-1);
    EXPECT_NE(plain, selected);
    EXPECT_NE(plain, replaced);
    EXPECT_NE(selected, replaced);
  }
  EXPECT_EQ(boxPicture(2).pixelColor(8, 8), QColor(255, 255, 255)) << "the transparent entry's disc";
  EXPECT_EQ(boxPicture(2).pixelColor(2, 8), QColor(200, 0, 0));
}

}  // namespace
}  // namespace ruvo
