#include "animation/model/series_resize.h"

#include "formats/gif_bytes.h"
#include "random_gif.h"

namespace ruvo {
namespace {

using namespace test;

// 6 x 4: a whole first frame, a see-through one that is cleared, one with a table of its own in which the see-through
// entry has the colour of another, and one that is taken back and reaches past the screen.
clsGIF animation() {
  clsGIF gif;
  EXPECT_EQ(load(gif, GifBytes(6, 4)
                          .control(4)
                          .image({"123123", "231231", "312312", "123123"})
                          .control(9, 5, 0)
                          .image({"0110", "1001"}, 2, 2)
                          .control(1, 7, 2)
                          .image({"0213", "1322"}, 2, 0, 0x81, {kWhite, kBlack, kWhite, kWhite})
                          .control(12)
                          .image({"1111", "2222"}, 4, 2)
                          .bytes()),
            kGifOk);
  gif.setCommentText("kept");
  return gif;
}

ResizeOrder byPercent(int percent) {
  return {.percent = percent};
}

// All screens of an animation, scaled to a size by picking the pixels in the middle.
std::vector<std::vector<std::uint32_t>> shown(const clsGIF& gif, Size size) {
  const Size own = GifPlayer::screenSize(gif);
  auto all = test::shown(gif);
  for (auto& screen : all) {
    std::vector<std::uint32_t> scaled;
    for (int i = 0; i < size.width * size.height; ++i) {
      const int x = (2 * (i % size.width) + 1) * own.width / (2 * size.width);
      const int y = (2 * (i / size.width) + 1) * own.height / (2 * size.height);
      scaled.push_back(screen[static_cast<std::size_t>(y * own.width + x)]);
    }
    screen = scaled;
  }
  return all;
}

TEST(SeriesResize, AScaledAnimationShowsItsPicturesScaled) {
  const clsGIF before = animation();
  for (const int percent : {200, 300, 50}) {
    clsGIF gif = before.clone();
    ASSERT_TRUE(resizeGif(gif, byPercent(percent)));
    const Size size = resizedScreen({6, 4}, byPercent(percent));
    EXPECT_EQ(GifPlayer::screenSize(gif), size);
    EXPECT_EQ(shown(gif, size), shown(before, size)) << percent;
    EXPECT_EQ(gif.CommentText(), "kept");
    EXPECT_EQ(gif.FrameDelay(3), 7);
  }
}

TEST(SeriesResize, SeeThroughPixelsStaySoAndNoOthersBecomeIt) {
  clsGIF gif = animation();
  gif.FrameCopy(3, 4);
  ASSERT_TRUE(resizeGif(gif, byPercent(200)));
  // White is also at 0, the lowest; index 2 is the see-through one.
  EXPECT_PICTURE(digits(gif.FrameDIBXOR(3)), ({"00221100", "00221100", "11002222", "11002222"}));
  EXPECT_EQ(digits(gif.FrameDIBXOR(4)), digits(gif.FrameDIBXOR(3)));
  EXPECT_PICTURE(rowsOf(gif.FrameDIBAND(3)), ({"##..####", "##..####", "####....", "####...."}));
}

TEST(SeriesResize, SidesAreExact) {
  EXPECT_EQ(resizedSide(200, byPercent(115)), 230);
  EXPECT_EQ(resizedScreen({1, 49}, byPercent(10)), (Size{1, 4}));
  EXPECT_EQ(resizedSide(200, {.percent = 225, .area = true}), 300);
  const ResizeOrder area{.percent = 50, .area = true, .backgroundOnly = true, .keep = ResizeKeep::Width};
  EXPECT_EQ(resizedScreen({100, 100}, area), (Size{100, 70}));
}

TEST(SeriesResize, AGrowingScreenMovesThePicturesByTheOffsets) {
  clsGIF gif = animation();
  ASSERT_TRUE(resizeGif(gif, {.percent = 200, .backgroundOnly = true}));
  EXPECT_EQ((Size{gif.BgdWidth(), gif.BgdHeight()}), (Size{12, 8}));
  EXPECT_EQ(gif.FrameWidth(1), 6);
  gif = animation();
  ASSERT_TRUE(resizeGif(gif, {.percent = 200, .backgroundOnly = true, .offsetX = 3, .offsetY = 1}));
  EXPECT_EQ((Point{gif.FrameLeft(4), gif.FrameTop(4)}), (Point{7, 3}));
  EXPECT_EQ(gif.FrameWidth(4), 4) << "frames keep their size";
  EXPECT_EQ(gif.FrameLeft(1), 0);
  const Rows rows = digits(gif.FrameDIBXOR(1));
  EXPECT_EQ(rows[0] + rows[1] + rows[4], "222222222222222123123222222123123222");
}

TEST(SeriesResize, AShrinkingScreenCutsThePictures) {
  clsGIF gif = animation();
  ASSERT_TRUE(resizeGif(gif, {.percent = 50, .backgroundOnly = true}));
  EXPECT_PICTURE(digits(gif.FrameDIBXOR(1)), ({"123", "231"}));
  EXPECT_EQ((Size{gif.FrameWidth(2), gif.FrameHeight(2)}), (Size{2, 1}));
  EXPECT_EQ((Point{gif.FrameLeft(4), gif.FrameTop(4)}), (Point{4, 2}));

  gif = animation();
  gif.setFrameLeft(2, 0);
  gif.setFrameTop(2, 0);
  ASSERT_TRUE(resizeGif(gif, {50, false, true, ResizeKeep::Height, 1, 3}));
  EXPECT_EQ((Size{gif.BgdWidth(), gif.BgdHeight()}), (Size{3, 4}));
  EXPECT_PICTURE(digits(gif.FrameDIBXOR(2)), ({"000", "000"})) << "at the origin the picture moves, see-through behind";
  EXPECT_EQ((Point{gif.FrameLeft(3), gif.FrameTop(3)}), (Point{1, 0})) << "elsewhere the place does, if it can";
}

TEST(SeriesResize, AScreenThatIsTooSmallForItsFirstFrameIsCorrected) {
  clsGIF gif = framesOf(2, {1, 1});
  gif.setFrameLeft(1, 1);
  const auto before = shown(gif, {4, 2});
  ASSERT_TRUE(resizeGif(gif, byPercent(200)));
  EXPECT_EQ((Size{gif.BgdWidth(), gif.BgdHeight()}), (Size{4, 2}));
  EXPECT_EQ(shown(gif, {4, 2}), before);
}

TEST(SeriesResize, RefusesAndAsks) {
  struct Row {
    Size screen;
    ResizeOrder order;
    const char* refusal;
  };
  for (const Row& row : std::vector<Row>{
           {{6, 4}, {.percent = 100}, "Please select a size other than"},
           {{1500, 1333}, {.percent = 150}, "Background/screen size limited to"},
           {{1001, 10}, {.percent = 200}, "New width or height cannot exceed"},
           {{1000, 10}, {.percent = 200}, ""},
           {{6, 4}, {.percent = 50, .backgroundOnly = true}, "Cannot reduce screen size beyond"},
           {{6, 4}, {.percent = 50, .backgroundOnly = true, .keep = ResizeKeep::Both}, "New setting does not result"},
           {{6, 4}, {.percent = 50, .backgroundOnly = true, .keep = ResizeKeep::Both, .offsetY = 1}, ""}}) {
    clsGIF gif = animation();
    gif.setBgdWidth(row.screen.width);
    gif.setBgdHeight(row.screen.height);
    const std::string told = resizeRefusal(gif, row.order).value_or("");
    EXPECT_TRUE(*row.refusal ? told.starts_with(row.refusal) : told.empty()) << told;
  }
  EXPECT_EQ(resizeQuestions(animation(), byPercent(110)).size(), 2U) << "a small screen is asked about first";
}

}  // namespace
}  // namespace ruvo
