#include "canvas/engine/view_render.h"

#include "support/pictures.h"

namespace ruvo {
namespace {

// What a display rectangle shows, as text; '?' is a pixel that was not rendered or not opaque.
test::Rows rendered(ViewRenderer& renderer, const clsDIB& dib, const ViewGeometry& view, const Rect& area,
                    bool smooth = false) {
  std::vector<Pixel32> pixels(static_cast<std::size_t>(area.width() * area.height()), Pixel32{1, 2, 3, 4});
  renderer.render(dib, view, smooth, area, {reinterpret_cast<std::uint8_t*>(pixels.data()), area.width() * 4});
  test::Rows rows;
  for (int y = 0; y < area.height(); ++y) {
    std::string text;
    for (int x = 0; x < area.width(); ++x) {
      const Pixel32 p = pixels[static_cast<std::size_t>(y * area.width() + x)];
      text += p == Pixel32::opaque(kBlack) ? '#' : p == Pixel32::opaque(kWhite) ? '.' : '?';
    }
    rows.push_back(text);
  }
  return rows;
}

ViewGeometry viewOf(const clsDIB& dib, int magnify, Size client = {100, 100}) {
  ViewGeometry view;
  view.layout({client, dib.size(), magnify, false, {}, {0, 0}});
  return view;
}

// Each small rectangle shows what the same place of the whole view shows, also when the view stands between pixels.
TEST(ViewRender, PartsAgreeWithTheWholeAtEveryScroll) {
  const clsDIB dib = test::dibOf({"#..#.##.", ".##..#.#", "#.#.###.", "..#.#..#", "##...#.#"});
  ViewRenderer renderer;
  for (const int magnify : {1, 2, 3, 4}) {
    ViewGeometry view = viewOf(dib, magnify, {14, 12});
    for (int scroll = 0; scroll <= view.ScrollMaxX; ++scroll) {
      view.setScroll(scroll, scroll);
      const Size shown = view.displaySize();
      const test::Rows whole = rendered(renderer, dib, view, {0, 0, shown.width, shown.height});
      for (int y = 0; y < shown.height; ++y) {
        for (int x = 0; x < shown.width; ++x) {
          const Point p = view.toImage({x, y});
          ASSERT_EQ(whole[y][x], test::rowsOf(dib)[p.y][p.x]) << magnify << ' ' << scroll << ' ' << x << ' ' << y;
        }
      }
      const test::Rows part = rendered(renderer, dib, view, {2, 1, 7, 5});
      for (int y = 0; y < 4; ++y) ASSERT_EQ(part[y], whole[y + 1].substr(2, 5));
    }
  }
}

TEST(ViewRender, PixelsOutsideViewAndPictureStay) {
  clsDIB dib = test::dibOf({"##", "##"});
  ViewRenderer renderer;
  const ViewGeometry view = viewOf(dib, 1);
  EXPECT_PICTURE(rendered(renderer, dib, view, {-1, -1, 3, 2}), {"????", "?##?", "?##?"});
  // A smaller picture that the view does not know of yet.
  dib = test::dibOf({"#"});
  EXPECT_PICTURE(rendered(renderer, dib, view, {0, 0, 2, 2}), {"#?", "??"});
  dib.ClearUp();
  EXPECT_PICTURE(rendered(renderer, dib, view, {0, 0, 1, 1}), {"?"});
}

TEST(ViewRender, TransparentPicturesAreShownOverWhite) {
  clsDIB dib = test::dibOf({"##"});
  test::pixelAt(dib, 0, 0).alpha = 255;
  dib.setDIBhasAlpha(true);
  ViewRenderer renderer;
  EXPECT_PICTURE(rendered(renderer, dib, viewOf(dib, 1), {0, 0, 2, 1}), {"#."});
  EXPECT_PICTURE(rendered(renderer, dib, viewOf(dib, 2), {0, 0, 4, 1}), {"##.."});
  ViewGeometry fitted;
  fitted.layout({{4, 4}, {2, 1}, 1, true, Rect::fromSize(1, 1, 2, 1), {0, 0}});
  EXPECT_PICTURE(rendered(renderer, dib, fitted, {0, 0, 2, 1}, true), {"#."});
}

TEST(ViewRender, FittedViewFollowsThePicture) {
  clsDIB dib = test::dibOf({"##..", "##.."});
  ViewGeometry fitted;
  fitted.layout({{10, 10}, dib.size(), 1, true, Rect::fromSize(1, 1, 2, 1), {0, 0}});
  ViewRenderer renderer;
  EXPECT_PICTURE(rendered(renderer, dib, fitted, {0, 0, 2, 1}, true), {"#."});
  dib = test::dibOf({"..##", "..##"});
  renderer.pictureChanged();
  EXPECT_PICTURE(rendered(renderer, dib, fitted, {1, 0, 2, 1}, true), {"#"});
}

// A viewer's magnification mixes neighbours, and the mix does not depend on where the view's rim happens to be.
TEST(ViewRender, SmoothMagnificationDoesNotDependOnTheScroll) {
  const clsDIB dib = test::dibOf({"#.#.#.##..#.#.#.", "..##..##..##..##"});
  ViewRenderer renderer;
  const auto columnAt = [&](int scroll, int magnified) {
    ViewGeometry view = viewOf(dib, 4, {20, 20});
    view.setScroll(scroll, 0);
    Pixel32 pixel;
    renderer.render(dib, view, true, Rect::fromSize(magnified - scroll, 3, 1, 1),
                    {reinterpret_cast<std::uint8_t*>(&pixel), 4});
    return pixel;
  };
  for (int magnified = 16; magnified < 22; ++magnified)
    EXPECT_EQ(columnAt(7, magnified), columnAt(16, magnified)) << magnified;
  EXPECT_NE(columnAt(7, 19), Pixel32::opaque(kBlack));
  EXPECT_NE(columnAt(7, 19), Pixel32::opaque(kWhite));
}

}  // namespace
}  // namespace ruvo
