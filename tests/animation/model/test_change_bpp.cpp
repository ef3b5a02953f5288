#include "animation/model/change_bpp.h"

#include "random_gif.h"

namespace ruvo {
namespace {

using test::RandomGif;

std::vector<std::vector<bool>> holes(const clsGIF& gif) {
  std::vector<std::vector<bool>> all;
  for (const auto& screen : test::shown(gif)) {
    std::ranges::transform(screen, std::back_inserter(all.emplace_back()),
                           [](std::uint32_t pixel) { return pixel == 0; });
  }
  return all;
}

TEST(ChangeBpp, KeepsHolesAndWhatFitsInEveryGif) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    SCOPED_TRACE(seed);
    const clsGIF before = RandomGif(seed).make(true);
    RandomGif choice(seed + 300);
    for (const ChangeBppOrder order : {ChangeBppOrder{2 + choice.below(12), choice.chance(50)},
                                       ChangeBppOrder{256, false}, ChangeBppOrder{256, true}}) {
      clsGIF gif = RandomGif(seed).make(true);
      ASSERT_EQ(changeBpp(gif, order), "");
      EXPECT_EQ(holes(gif), holes(before));
      if (order.entries == 256) EXPECT_EQ(test::shown(gif), test::shown(before));
      test::expectInStep(gif);
      EXPECT_LE(gif.GlobalPaletteEntries(), order.entries);
      for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
        EXPECT_LE(gif.LocalPaletteEntries(frame), order.entries);
        EXPECT_FALSE(order.globalise && gif.LocalPaletteUsed(frame));
        const int place = order.globalise ? gif.GlobalPaletteEntries() - 1 : 0;
        if (gif.FrameUseTransparentColor(frame)) EXPECT_EQ(gif.FrameTransparentColorIndex(frame), place) << frame;
      }
    }
  }
}

TEST(ChangeBpp, TellsHowFarItIs) {
  clsGIF gif;
  clsDIB picture = test::plainDib(2, 1, kBlack, 8, true);
  picture.surface().pictureRow(0)[1] = 1;
  for (int frame = 1; frame <= 5; ++frame) ASSERT_TRUE(gif.FrameInsertImage(picture, frame));
  std::string told;
  const Progress progress{[&](int percent) { told += std::to_string(percent) + ' '; }, [&] { told += "end "; }};
  EXPECT_EQ(changeBpp(gif, {16, false}, progress), "");
  EXPECT_EQ(changeBpp(gif, {16, true}, progress), "");
  EXPECT_EQ(told, "10 20 30 40 50 60 70 80 end 10 20 end ");
}

}  // namespace
}  // namespace ruvo
