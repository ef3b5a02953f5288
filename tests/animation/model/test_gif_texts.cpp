#include "animation/model/gif_texts.h"

#include "base/paths.h"
#include "formats/gif_bytes.h"

namespace ruvo {
namespace {

using namespace test;

clsGIF sample() {
  clsGIF gif;
  EXPECT_EQ(load(gif, GifBytes(300, 200)
                          .extension(0xFF, {"NETSCAPE2.0", {1, 3, 0}})
                          .control(3 << 2 | 1, 25, 1)
                          .image({"10"}, 4, 5, 0x40)
                          .control(5 << 2)
                          .image({"3"}, 0, 0, 0x81, kFourColours)
                          .bytes()),
            kGifOk);
  gif.setLocalPaletteEntries(2, 3);
  return gif;
}

TEST(GifTexts, ALineTellsAFrameInColumns) {
  const clsGIF gif = sample();
  EXPECT_EQ(frameLinePieces(gif, 3), std::vector<std::string>());
  EXPECT_EQ(
      frameLines(gif),
      (std::vector<std::string>{
          "1  2x1  [4, 5]  Transp: Y  At 1 / RGB(255,0,0)  To previous  Global  4         I'laced: Y  Delay: 25",
          "2  1x1  [0, 0]  Transp: N  (No transp color)    Disposal ?   Local   3 (as 4)  I'laced: N  Delay: 0"}));
  clsGIF tableless;
  ASSERT_EQ(load(tableless, GifBytes(3, 3, "89a", 0, {}).image({"0"}).bytes()), kGifOk);
  EXPECT_EQ(frameLinePieces(tableless, 1)[7], "0");
}

TEST(GifTexts, LabelsCountAndTime) {
  const clsGIF gif = sample();
  EXPECT_EQ(originalFileText(gif, 12345),
            "Original  file:  12345 bytes.  2 frames   (Bgr size:  300 x 200    Global exists:  Y    Loops: 3)");
  EXPECT_EQ(fileSizeText(1234567), "File size:   1,234,567  bytes");
  // A frame of delay 0 takes the player 10 ms.
  EXPECT_EQ(runningTime(gif), 260);
  EXPECT_EQ(runningTimeText(gif, 1), "Running time:  0.26 s   Frame 1:  0.25 s (96 %)");
  EXPECT_EQ(runningTimeText(clsGIF(), 1), "Running time:  0.00 s");
}

TEST(GifTexts, TheBrowserPageNamesAnyPath) {
  EXPECT_THAT(browserPage(pathOf("/tmp/a \"b\"#?%/\xC3\xA4.gif")),
              testing::HasSubstr("<IMG SRC=\"file:///tmp/a%20%22b%22%23%3F%25/%C3%A4.gif\", border=0>"));
}

}  // namespace
}  // namespace ruvo
