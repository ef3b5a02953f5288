#include "animation/model/frame_series.h"

#include "formats/gif_bytes.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;
using enum SeriesAction;

std::filesystem::path fileOf(const TempFolder& folder, int width, int height) {
  clsGIF gif;
  EXPECT_TRUE(gif.FrameInsertBlank(1, width, height, kWhite));
  gif.setFrameDelay(1, 9);
  const auto path = folder / "incoming.gif";
  EXPECT_TRUE(gif.Save(path, 0));
  return path;
}

TEST(FrameSeries, EachActionChangesTheListAndTellsWhatToShow) {
  const TempFolder folder;
  struct Row {
    SeriesOrder order;
    const char* delays;
    int shown;
  };
  for (Row& row : std::vector<Row>{{{BlankBefore, 1}, "1123", 1},
                                   {{BlankAfter, 3}, "1233", 4},
                                   {{DuplicateBefore, 3}, "1233", 3},
                                   {{DuplicateAfter, 2}, "1223", 3},
                                   {{LoadBefore, 2}, "1923", 2},
                                   {{LoadAfter, 3}, "1239", 4},
                                   {{Replace, 2}, "123", 2},
                                   {{Delete, 3}, "12", 2},
                                   {{Delete, 1}, "23", 1},
                                   {{CopyTo, 1, 3}, "121", 3},
                                   {{CopyFrom, 1, 3}, "323", 1},
                                   {{Move, 1, 3}, "231", 3},
                                   {{Swap, 3, 1}, "321", 1},
                                   {{ShiftUp, 2}, "213", 1},
                                   {{ShiftDown, 2}, "132", 3}}) {
    clsGIF gif = framesOf(3);
    row.order.file = fileOf(folder, 3, 5);
    row.order.blankSize = {2, 2};
    EXPECT_EQ(seriesRefusal(gif, row.order), std::nullopt);
    const SeriesResult result = editSeries(gif, row.order);
    EXPECT_EQ(result.message, "");
    EXPECT_EQ(delays(gif), row.delays) << static_cast<int>(row.order.action);
    EXPECT_EQ(result.frame, row.shown) << static_cast<int>(row.order.action);
    EXPECT_EQ(gif.FrameHeight(2) == 5, row.order.action == Replace || row.order.action == LoadBefore);
  }
}

TEST(FrameSeries, ADuplicateHasItsOwnPixelsAndLeavesTheScreen) {
  clsGIF gif = framesOf(2, {1, 1});
  ASSERT_TRUE(editSeries(gif, {DuplicateBefore, 1}).changed);
  EXPECT_EQ(gif.BgdWidth(), 1);
  gif.ownFrameDIBXOR(1)->surface().pictureRow(0)[0] = 3;
  EXPECT_PICTURE(digits(gif.FrameDIBXOR(2)), ({"01"}));
}

TEST(FrameSeries, TheScreenGrowsForAFirstFrameWithinItsLimit) {
  const TempFolder folder;
  clsGIF gif = framesOf(1, {4, 3});
  gif.setFrameLeft(1, 1);
  ASSERT_TRUE(editSeries(gif, {Replace, 1, 0, fileOf(folder, 3, 5)}).changed);
  EXPECT_EQ((Size{gif.BgdWidth(), gif.BgdHeight()}), (Size{4, 5})) << "the only frame does not shrink it either";
  EXPECT_EQ(gif.FrameLeft(1), 0);
  ASSERT_TRUE(editSeries(gif, {LoadBefore, 1, 0, fileOf(folder, 1000, 5)}).changed);
  const SeriesResult refused = editSeries(gif, {LoadBefore, 1, 0, fileOf(folder, 1, 3001)});
  EXPECT_EQ(refused.message, "Background/screen size limited to max of 3,000,000 pixels only");
  EXPECT_EQ(gif.BgdHeight(), 5);
  EXPECT_EQ(gif.FramesCount(), 2);
}

TEST(FrameSeries, RefusesAndAsksBeforeAnythingElse) {
  const clsGIF one = framesOf(1), four = framesOf(4), full = framesOf(clsGIF::kMostFrames);
  for (const auto action : {BlankBefore, BlankAfter, DuplicateBefore, DuplicateAfter, LoadBefore, LoadAfter}) {
    EXPECT_EQ(seriesRefusal(full, {action, 5}), "Will exceed max number of frames allowed; 120 being the limit.");
  }
  EXPECT_EQ(seriesRefusal(full, {Replace, 5}), std::nullopt);
  EXPECT_EQ(seriesRefusal(one, {Delete, 1}), "Not allowed to delete the only frame in file.");
  EXPECT_EQ(seriesRefusal(four, {ShiftUp, 1}), "Your are at the first frame.");
  EXPECT_EQ(seriesRefusal(four, {ShiftDown, 4}), "Your are at the last frame.");
  for (const auto action : {CopyTo, CopyFrom, Move, Swap}) {
    EXPECT_EQ(seriesRefusal(four, {action, 2, 2}), "Cannot move/copy to the same frame");
  }
  for (const auto action : {BlankBefore, BlankAfter, DuplicateAfter, LoadAfter, Replace, Delete, ShiftUp, ShiftDown}) {
    EXPECT_EQ(seriesQuestion(four, {action, 3}), std::nullopt);
  }
  // What touches the first frame is asked about in other words.
  for (const SeriesOrder& order : std::vector<SeriesOrder>{{BlankBefore, 1},
                                                           {LoadBefore, 1},
                                                           {Replace, 1},
                                                           {ShiftUp, 2},
                                                           {ShiftDown, 1},
                                                           {CopyTo, 2, 1},
                                                           {Swap, 1, 2}}) {
    EXPECT_THAT(seriesQuestion(four, order).value_or(""), testing::HasSubstr("first frame"));
  }
  EXPECT_EQ(seriesQuestion(four, {CopyFrom, 2, 1}), "Proceed to copy from 1 to 2?");
  EXPECT_EQ(seriesQuestion(four, {Move, 3, 1}),
            "Move from 3 to 1.\nMoving first frame might affect subsequent ones.\nProceed?");
}

TEST(FrameSeries, AFailureLeavesTheFramesAsTheyWere) {
  const TempFolder folder;
  const auto wide = fileOf(folder, 2500, 1);  // only a first frame may be so wide
  struct Row {
    SeriesOrder order;
    const char* message;
  };
  for (const Row& row : std::vector<Row>{
           {{LoadAfter, 1, 0, wide}, "Failed to insert an image frame."},
           {{Replace, 2, 0, wide}, "Failed to replace an image frame."},
           {{CopyTo, 1, 9}, "Failed to copy from 1 to 9"},
           {{Swap, 2, 9}, "Failed to swap 2 with 9."},
           {{DuplicateAfter, 8}, "Failed to duplicate the image."},
           {{BlankAfter, 1, 0, {}, {2001, 1}}, "Unallowed GIF size or max width/height excceded, refer Help."}}) {
    clsGIF gif = framesOf(3);
    const SeriesResult result = editSeries(gif, row.order);
    EXPECT_EQ(result.message, row.message);
    EXPECT_FALSE(result.changed);
    EXPECT_EQ(delays(gif), "123");
  }
}

TEST(FrameSeries, AnIncomingFileIsLookedAtFirst) {
  const TempFolder folder;
  const auto checked = [&](int width, int height) { return checkIncoming(fileOf(folder, width, height)); };
  EXPECT_EQ(checked(801, 2).question, "Incoming image at 801 x 2\nappears to be too large.  Proceed still?");
  EXPECT_EQ(checked(800, 600).question, "");
  EXPECT_EQ(checked(3000, 1000).refusal, "");
  EXPECT_EQ(checked(3000, 1001).refusal, "Incoming image exceeds max size allowed.");
  const auto none = folder / "none.gif";
  EXPECT_EQ(checkIncoming(none).refusal, none.string() + "\nFailed to load this file.");
}

}  // namespace
}  // namespace ruvo
