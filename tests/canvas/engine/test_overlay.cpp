#include "canvas/engine/overlay.h"

#include <gtest/gtest.h>

#include "support/pictures.h"

namespace ruvo::test {
namespace {

using Kind = OverlayFigure::Kind;

// A display of that size with the figures on it; parts painted one by one must come to the same as one whole.
Rows painted(Size size, const OverlayFigures& figures, Colour ground = kWhite) {
  clsDIB whole, parts;
  whole.CreateBlankDIB(size.width, size.height, 32, ground, true);
  parts.CreateBlankDIB(size.width, size.height, 32, ground, true);
  const auto target = [&](clsDIB& dib, int x, int y) {
    return RenderTarget{dib.surface().bits() + y * dib.surface().stride() + x * 4, dib.surface().stride()};
  };
  paintOverlay(figures, whole.surface().bounds(), target(whole, 0, 0));
  for (int y = 0; y < size.height; y += 3) {
    for (int x = 0; x < size.width; x += 2) {
      const Rect part = Rect::fromSize(x, y, 2, 3).intersected(parts.surface().bounds());
      paintOverlay(figures, part, target(parts, x, y));
    }
  }
  EXPECT_EQ(rowsOf(whole, blackAndWhite()), rowsOf(parts, blackAndWhite()));
  return rowsOf(whole, blackAndWhite());
}

TEST(Overlay, LinesAndFramesInvertEachPixelOnce) {
  EXPECT_EQ(painted({6, 4}, {OverlayFigure::shape(Kind::Rectangle, {0, 0, 6, 4})}),
            Rows({"######", "#....#", "#....#", "######"}));
  EXPECT_EQ(painted({6, 4}, {OverlayFigure::line({1, 1}, {4, 1}), OverlayFigure::line({2, 3}, {2, 3})}),
            Rows({"......", ".####.", "......", "..#..."}));
  // A figure of no extent inside a corner, and one beyond every side.
  EXPECT_EQ(painted({3, 3}, {OverlayFigure::shape(Kind::Rectangle, {1, 1, 2, 2}),
                             OverlayFigure::shape(Kind::Ellipse, {-9, -9, 30, 30})}),
            Rows({"...", ".#.", "..."}));
}

TEST(Overlay, DashesRunRoundTheFigureAndMoveByThePhase) {
  OverlayPen ants;
  ants.dash = 2;
  EXPECT_EQ(painted({5, 3}, {OverlayFigure::shape(Kind::Rectangle, {0, 0, 5, 3}, ants)}),
            Rows({"##..#", "....#", ".##.."}));
  ants.phase = 2;
  EXPECT_EQ(painted({5, 1}, {OverlayFigure::line({0, 0}, {4, 0}, ants)}), Rows({"..##."}));
  ants.invert = false;
  ants.on = kWhite;
  ants.off = kBlack;
  EXPECT_EQ(painted({5, 1}, {OverlayFigure::line({0, 0}, {4, 0}, ants)}), Rows({"##..#"}));
}

TEST(Overlay, ToldPartsHoldEveryPixelOfAFigure) {
  const Rect view{0, 0, 90, 70};
  for (const Kind kind : {Kind::Polyline, Kind::Rectangle, Kind::Ellipse, Kind::Disc, Kind::Box}) {
    OverlayFigure figure = OverlayFigure::shape(kind, {-5, 3, 84, 200});
    figure.points = {{-20, 5}, {60, 69}, {89, 0}, {89, 400}};
    clsDIB shown;
    shown.CreateBlankDIB(view.right, view.bottom, 32, rgb(1, 2, 3), true);
    paintOverlay({figure}, view, {shown.surface().bits(), shown.surface().stride()});
    forTouchedParts(figure, view, [&](const Rect& part) {
      EXPECT_EQ(part.intersected(view), part);
      raster::fillRect(shown.surface(), part, rgb(1, 2, 3));
    });
    EXPECT_EQ(clsDIB::IsMultiColorDIB(shown), rgb(1, 2, 3)) << static_cast<int>(kind);
  }
}

}  // namespace
}  // namespace ruvo::test
