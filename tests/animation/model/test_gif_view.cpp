#include "animation/model/gif_view.h"

#include <cstdlib>
#include <new>

#include "formats/gif_bytes.h"

namespace {
int allocations = 0;
}

// Every allocation of this program is counted, for the one test that looks.
void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  ++allocations;
  return std::malloc(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace ruvo {
namespace {

using namespace test;

constexpr Colour kGround = rgb(9, 9, 9);
// Digits are the four colours of GifBytes, '-' is the ground, 'w' and 'g' the pattern.
const Ink kInk = {{'0', kFourColours[0]}, {'1', kFourColours[1]}, {'2', kFourColours[2]},   {'3', kFourColours[3]},
                  {'-', kGround},         {'w', kWhite},          {'g', rgb(204, 204, 204)}};

struct Viewed {
  clsGIF gif;
  GifView view;

  explicit Viewed(const GifBytes& file) {
    EXPECT_EQ(load(gif, file.bytes()), kGifOk);
    EXPECT_TRUE(view.create(gif, kGround));
    view.start();
  }
  Rows still(int frame, BgdPattern pattern) {
    view.composeStill(gif, frame, pattern);
    return rowsOf(view.shown(), kInk);
  }
  Rows tick(BgdPattern pattern = kPatternOriginal) {
    view.tick(gif, pattern);
    return rowsOf(view.shown(), kInk);
  }
};

// Index 0 is see-through in frame 2, which hangs over the right side.
GifBytes twoFrames(int firstMethod, int secondMethod) {
  return GifBytes(3, 2)
      .control(firstMethod << 2, 7)
      .image({"11", "11"})
      .control(secondMethod << 2 | 1, 0, 0)
      .image({"202"}, 1, 1);
}

TEST(GifView, AStillIsTheFrameAloneOnTheChosenGround) {
  Viewed viewed(twoFrames(0, 0));
  EXPECT_PICTURE(viewed.still(2, kPatternOriginal), ({"---", "-2-"}));
  EXPECT_PICTURE(viewed.still(2, kPatternTransparentColor), ({"000", "020"}));
  EXPECT_PICTURE(viewed.still(2, kPatternTile), ({"www", "w2w"}));
  EXPECT_EQ(viewed.view.shownArea(), (Rect{0, 0, 3, 2}));
  EXPECT_PICTURE(viewed.still(2, kPatternFrameSize), ({"000", "020"}));
  EXPECT_EQ(viewed.view.shownArea(), (Rect{1, 1, 3, 2}));
  for (const auto pattern : {kPatternOriginal, kPatternTransparentColor, kPatternTile, kPatternFrameSize}) {
    EXPECT_PICTURE(viewed.still(1, pattern), ({"11-", "11-"})) << pattern;
  }
  EXPECT_EQ(viewed.view.shownArea(), (Rect{0, 0, 2, 2}));
  EXPECT_PICTURE(viewed.still(3, kPatternTransparentColor), ({"---", "---"}));
}

TEST(GifView, TheMethodOfTheFrameAboutToBeDrawnPreparesTheGround) {
  Viewed over(twoFrames(1, 0));
  EXPECT_PICTURE(over.tick(), ({"11-", "11-"}));
  EXPECT_PICTURE(over.tick(), ({"11-", "12-"}));
  for (const int method : {2, 3}) {
    Viewed cleared(twoFrames(1, method));
    cleared.tick();
    EXPECT_PICTURE(cleared.tick(kPatternOriginal), ({"---", "-2-"})) << method;
    cleared.tick();
    EXPECT_PICTURE(cleared.tick(kPatternFrameSize), ({"000", "020"}));
    EXPECT_EQ(cleared.view.shownArea(), (Rect{0, 0, 3, 2}));
    // Frame 1 goes over what the round before left, and a new start begins on the plain ground.
    EXPECT_PICTURE(cleared.tick(), ({"110", "110"}));
    EXPECT_PICTURE(cleared.tick(kPatternTile), ({"www", "w2w"}));
    cleared.view.start();
    EXPECT_PICTURE(cleared.tick(), ({"11-", "11-"}));
  }
  Viewed first(twoFrames(2, 0));
  first.tick();
  first.tick();
  EXPECT_PICTURE(first.tick(kPatternTile), ({"11-", "11-"}));
}

TEST(GifView, TicksTellFrameAndTimeAndOneFrameDoesNotMove) {
  Viewed viewed(twoFrames(1, 0));
  for (const int expected : {1, 2, 1}) {
    const GifView::Tick tick = viewed.view.tick(viewed.gif, kPatternOriginal);
    EXPECT_EQ(tick.frame, expected);
    EXPECT_EQ(tick.milliseconds, expected == 1 ? 70 : 10);
  }
  viewed.gif.FrameDelete(2);
  EXPECT_PICTURE(viewed.still(1, kPatternOriginal), ({"11-", "11-"}));
  EXPECT_EQ(viewed.view.tick(viewed.gif, kPatternOriginal).frame, 0);
}

TEST(GifView, ATickAllocatesNothing) {
  Viewed viewed(twoFrames(0, 2).control(1, 0, 0).image({"3"}, 60000, 60000));
  const int before = allocations;
  for (const auto pattern : {kPatternOriginal, kPatternTransparentColor, kPatternTile, kPatternFrameSize}) {
    for (int i = 0; i < 3; ++i) viewed.view.tick(viewed.gif, pattern);
  }
  EXPECT_EQ(allocations, before);
}

TEST(GifView, ThePictureTakesTheLargestBoxOfItsProportions) {
  EXPECT_EQ(displaySize({300, 200}, {300, 200}), (Size{300, 200}));
  EXPECT_EQ(displaySize({300, 200}, {150, 150}), (Size{150, 100}));
  EXPECT_EQ(displaySize({2000, 1}, {100, 100}), (Size{100, 1}));
  EXPECT_EQ(displaySize({300, 200}, {0, 150}), (Size{0, 0}));
}

}  // namespace
}  // namespace ruvo
