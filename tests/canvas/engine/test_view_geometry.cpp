#include "canvas/engine/view_geometry.h"

namespace ruvo {
namespace {

ViewGeometry viewOf(Size client, Size image, int magnify = 1) {
  ViewGeometry view;
  view.layout({client, image, magnify, false, {}, {10, 10}});
  return view;
}

TEST(ViewGeometry, NothingHasNoRangeAndASmallerPictureIsCentred) {
  EXPECT_FALSE(viewOf({200, 100}, {}).anyBar());
  EXPECT_EQ(viewOf({200, 100}, {}).ScrollMaxX, 0);
  const ViewGeometry view = viewOf({202, 102}, {50, 41}, 2);
  EXPECT_EQ(view.picDisp, Rect::fromSize(50, 9, 100, 82));
  EXPECT_FALSE(view.anyBar());
  EXPECT_EQ(view.SrcW, 50);
  EXPECT_EQ(view.DstW, 100);
}

// Whatever the size, every column can be brought into view: shown and hidden length make up the whole.
TEST(ViewGeometry, ShownAndHiddenLengthAreTheWholePicture) {
  for (int width = 80; width <= 120; ++width) {
    const ViewGeometry view = viewOf({100, 100}, {width, 20});
    EXPECT_EQ(view.picDisp.width() + view.ScrollMaxX, width);
    EXPECT_EQ(view.horizontalBar, width > 96) << width;  // one free pixel at the rim and one more on each side
  }
}

TEST(ViewGeometry, OneBarMayForceTheOther) {
  EXPECT_FALSE(viewOf({100, 100}, {96, 96}).anyBar());
  const ViewGeometry both = viewOf({100, 100}, {90, 97});
  EXPECT_TRUE(both.verticalBar);
  EXPECT_TRUE(both.horizontalBar);
  EXPECT_EQ(both.junctionRect, (Rect{90, 90, 100, 100}));
  const ViewGeometry late = viewOf({100, 100}, {97, 90});
  EXPECT_TRUE(late.verticalBar && late.horizontalBar);
  EXPECT_EQ(late.ScrollMaxX, 97 - 86);
  EXPECT_FALSE(viewOf({100, 100}, {97, 86}).verticalBar);
}

TEST(ViewGeometry, BarsEndAtTheirLimitAndAnImpossiblePositionReturnsToZero) {
  ViewGeometry view = viewOf({100, 100}, {20000, 10}, 3);
  EXPECT_EQ(view.ScrollMaxX, kScrollBarLimit);
  view.setScroll(59000, 0);
  EXPECT_EQ(view.ScrollX, kScrollBarLimit);
  view = viewOf({100, 100}, {300, 300});
  view.setScroll(150, 10);
  view.layout({{100, 100}, {200, 300}, 1, false, {}, {10, 10}});
  EXPECT_EQ(view.ScrollX, 0);
  EXPECT_EQ(view.ScrollY, 10);
}

TEST(ViewGeometry, AScrollBetweenPixelsMapsThePointThatIsPainted) {
  ViewGeometry view = viewOf({100, 100}, {200, 200}, 3);
  view.setScroll(4, 3);
  EXPECT_EQ(view.VisStartX, 1);
  EXPECT_EQ(view.SrcX, 1);
  EXPECT_EQ(view.DstX, -1);
  EXPECT_EQ(view.DstY, 0);
  EXPECT_EQ(view.DstW, view.picDisp.width() / 3 * 3);
  const int expected[] = {1, 1, 2, 2, 2, 3};
  for (int x = 0; x < 6; ++x) EXPECT_EQ(view.toImage({x, 0}).x, expected[x]) << x;
  EXPECT_EQ(view.toDisplay(Point{3, 1}), (Point{5, 0}));
  EXPECT_EQ(view.toDisplay(Rect{1, 1, 3, 2}), (Rect{0, 0, 5, 3}));
  EXPECT_EQ(view.toImage({-2, -1}), (Point{0, 0}));
  // Seen in part counts as seen, but the hosts are told of whole pixels.
  int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  view.visibleInfo(x1, y1, x2, y2);
  EXPECT_EQ(x2, view.picDisp.width() / 3 + 1 - 1);
  EXPECT_EQ(view.visibleImage().right, view.toImage({view.picDisp.width() - 1, 0}).x + 1);
}

TEST(ViewGeometry, AFittedViewMapsByTheRatioOfSizes) {
  ViewGeometry view;
  view.layout({{102, 102}, {1000, 500}, 4, true, Rect::fromSize(1, 26, 100, 50), {10, 10}});
  EXPECT_FALSE(view.anyBar());
  EXPECT_EQ(view.picDisp, Rect::fromSize(1, 26, 100, 50));
  EXPECT_EQ(view.toImage({99, 49}), (Point{990, 490}));
  EXPECT_EQ(view.gross(), (Size{100, 50}));
  EXPECT_EQ(view.visibleImage(), (Rect{0, 0, 1000, 500}));
  const Rect touched = view.toDisplay(Rect{15, 15, 16, 16});
  EXPECT_TRUE(touched.contains(1, 1));
  EXPECT_LE(touched.width(), 4);
}

TEST(ViewGeometry, AWindowTooSmallForAnythingIsHarmless) {
  for (const int side : {0, 1, 5, 12}) {
    ViewGeometry view = viewOf({side, side}, {300, 300}, 2);
    view.setScroll(1000, 1000);
    EXPECT_LE(view.ScrollX, 600);
    EXPECT_GE(view.picDisp.width(), 0);
  }
}

}  // namespace
}  // namespace ruvo
