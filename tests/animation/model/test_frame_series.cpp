#include "animation/model/frame_series.h"

#include "base/file_io.h"
#include "formats/gif_bytes.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;
using enum SeriesAction;

// Frames of 2 x 1 on a screen of 4 x 3, told apart by their delays 1, 2, 3...
clsGIF framesOf(int count) {
  GifBytes bytes(4, 3);
  for (int i = 1; i <= count; ++i) bytes.control(0, i).image({"01"});
  clsGIF gif;
  EXPECT_EQ(load(gif, bytes.bytes()), kGifOk);
  return gif;
}

std::string delays(const clsGIF& gif) {
  std::string all;
  for (int i = 1; i <= gif.FramesCount(); ++i) all += std::to_string(gif.FrameDelay(i));
  return all;
}

SeriesOrder orderOf(SeriesAction action, int frame, int other = 0) {
  SeriesOrder order;
  order.action = action;
  order.frame = frame;
  order.other = other;
  order.blankSize = {2, 2};
  return order;
}

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
  const auto file = fileOf(folder, 3, 5);
  struct Row {
    SeriesAction action;
    int frame;
    int other;
    const char* delays;
    int shown;
  };
  for (const Row& row : {Row{BlankBefore, 1, 0, "1123", 1},
                         {BlankAfter, 3, 0, "1233", 4},
                         {DuplicateBefore, 1, 0, "1123", 1},
                         {DuplicateBefore, 3, 0, "1233", 3},
                         {DuplicateAfter, 2, 0, "1223", 3},
                         {LoadBefore, 2, 0, "1923", 2},
                         {LoadAfter, 3, 0, "1239", 4},
                         {Replace, 2, 0, "123", 2},
                         {Delete, 3, 0, "12", 2},
                         {Delete, 1, 0, "23", 1},
                         {CopyTo, 1, 3, "121", 3},
                         {CopyFrom, 1, 3, "323", 1},
                         {Move, 1, 3, "231", 3},
                         {Swap, 3, 1, "321", 1},
                         {ShiftUp, 2, 0, "213", 1},
                         {ShiftDown, 2, 0, "132", 3}}) {
    clsGIF gif = framesOf(3);
    SeriesOrder order = orderOf(row.action, row.frame, row.other);
    order.file = file;
    EXPECT_EQ(seriesRefusal(gif, order), std::nullopt);
    const SeriesResult result = editSeries(gif, order);
    EXPECT_EQ(result.message, "");
    EXPECT_TRUE(result.changed);
    EXPECT_EQ(delays(gif), row.delays) << static_cast<int>(row.action);
    EXPECT_EQ(result.frame, row.shown) << static_cast<int>(row.action);
    EXPECT_EQ(gif.FrameHeight(2) == 5, row.action == Replace || row.action == LoadBefore);
  }
}

TEST(FrameSeries, ADuplicateHasItsOwnPixelsAndLeavesTheScreen) {
  clsGIF gif = framesOf(2);
  gif.setBgdWidth(1);  // smaller than the first frame
  gif.setFrameLeft(1, 2);
  ASSERT_TRUE(editSeries(gif, orderOf(DuplicateBefore, 1)).changed);
  EXPECT_EQ(gif.BgdWidth(), 1);
  EXPECT_EQ(gif.FrameLeft(1), 2);
  gif.ownFrameDIBXOR(1)->surface().pictureRow(0)[0] = 3;
  EXPECT_PICTURE(digits(gif.FrameDIBXOR(2)), ({"01"}));
}

TEST(FrameSeries, TheScreenGrowsForAFirstFrameWithinItsLimit) {
  const TempFolder folder;
  clsGIF gif = framesOf(1);
  gif.setFrameLeft(1, 1);
  SeriesOrder order = orderOf(Replace, 1);
  order.file = fileOf(folder, 3, 5);
  ASSERT_TRUE(editSeries(gif, order).changed);
  EXPECT_EQ((Size{gif.BgdWidth(), gif.BgdHeight()}), (Size{4, 5})) << "the only frame does not shrink it either";
  EXPECT_EQ(gif.FrameLeft(1), 0);
  order.action = LoadBefore;
  order.file = fileOf(folder, 1000, 5);
  ASSERT_TRUE(editSeries(gif, order).changed);
  order.file = fileOf(folder, 1, 3001);
  const SeriesResult refused = editSeries(gif, order);
  EXPECT_EQ(refused.message, "Background/screen size limited to max of 3,000,000 pixels only");
  EXPECT_FALSE(refused.changed);
  EXPECT_EQ(gif.BgdHeight(), 5);
  EXPECT_EQ(gif.FramesCount(), 2);
}

TEST(FrameSeries, WhatIsRefusedIsToldBeforeAnyQuestion) {
  const clsGIF one = framesOf(1), three = framesOf(3), full = framesOf(clsGIF::kMostFrames);
  for (const auto action : {BlankBefore, BlankAfter, DuplicateBefore, DuplicateAfter, LoadBefore, LoadAfter}) {
    EXPECT_EQ(seriesRefusal(full, orderOf(action, 5)),
              "Will exceed max number of frames allowed; 120 being the limit.");
  }
  EXPECT_EQ(seriesRefusal(full, orderOf(Replace, 5)), std::nullopt);
  EXPECT_EQ(seriesRefusal(one, orderOf(Delete, 1)), "Not allowed to delete the only frame in file.");
  EXPECT_EQ(seriesRefusal(three, orderOf(ShiftUp, 1)), "Your are at the first frame.");
  EXPECT_EQ(seriesRefusal(three, orderOf(ShiftDown, 3)), "Your are at the last frame.");
  for (const auto action : {CopyTo, CopyFrom, Move, Swap}) {
    EXPECT_EQ(seriesRefusal(three, orderOf(action, 2, 2)), "Cannot move/copy to the same frame");
  }
}

TEST(FrameSeries, QuestionsTellWhenTheFirstFrameIsTouched) {
  const clsGIF gif = framesOf(4);
  const auto question = [&](SeriesAction action, int frame, int other = 0) {
    return seriesQuestion(gif, orderOf(action, frame, other)).value_or("");
  };
  EXPECT_EQ(question(BlankBefore, 1),
            "Inserting first frame might affect backgound width and height, thus\n"
            "possibly affecting subsequent frame.   Proceed still?");
  EXPECT_EQ(question(LoadBefore, 1), question(Replace, 1));
  EXPECT_THAT(question(Replace, 1), testing::EndsWith("\nfirst frame is set to [0, 0] automatically.\nProceed still?"));
  EXPECT_THAT(question(Delete, 1), testing::StartsWith("Deleting first frame might affect backgound"));
  for (const auto action : {BlankBefore, BlankAfter, DuplicateAfter, LoadAfter, Replace, Delete, ShiftUp, ShiftDown}) {
    EXPECT_EQ(question(action, 3), "");
  }
  EXPECT_EQ(question(ShiftUp, 2), "Shifting another frame to first frame might affect subsequent ones.\nProceed?");
  EXPECT_EQ(question(ShiftDown, 1), "Shifting first frame might affect subsequent ones.\nProceed?");
  EXPECT_EQ(question(CopyTo, 2, 1),
            "Copy from 2 to 1.\nCopying to first frame might affect subsequent ones.\nProceed?");
  EXPECT_EQ(question(CopyFrom, 2, 1), "Proceed to copy from 1 to 2?");
  EXPECT_EQ(question(Move, 3, 1), "Move from 3 to 1.\nMoving first frame might affect subsequent ones.\nProceed?");
  EXPECT_EQ(question(Move, 3, 2), "Proceed to move current frame from position 3 to position 2?");
  EXPECT_EQ(question(Swap, 1, 2),
            "Swap 1 with 2.\nSwapping first frame with another frame might affect subsequent ones.\nProceed?");
  EXPECT_EQ(question(Swap, 3, 2), "Proceed to swap current frame with 2?");
}

TEST(FrameSeries, AFailureLeavesTheFramesAsTheyWere) {
  const TempFolder folder;
  const auto huge = fileOf(folder, 2500, 1);  // only a first frame may be so wide
  struct Row {
    SeriesOrder order;
    const char* message;
  };
  std::vector<Row> rows = {{orderOf(LoadAfter, 1), "Failed to insert an image frame."},
                           {orderOf(Replace, 2), "Failed to replace an image frame."},
                           {orderOf(CopyTo, 1, 9), "Failed to copy from 1 to 9"},
                           {orderOf(Move, 2, 9), "Failed to move from 2 to 9"},
                           {orderOf(Swap, 2, 9), "Failed to swap 2 with 9."},
                           {orderOf(DuplicateAfter, 8), "Failed to duplicate the image."},
                           {orderOf(BlankAfter, 1), "Unallowed GIF size or max width/height excceded, refer Help."}};
  rows.back().order.blankSize = {2001, 1};
  for (Row& row : rows) {
    clsGIF gif = framesOf(3);
    row.order.file = huge;
    const SeriesResult result = editSeries(gif, row.order);
    EXPECT_EQ(result.message, row.message);
    EXPECT_FALSE(result.changed);
    EXPECT_EQ(delays(gif), "123");
  }
}

TEST(FrameSeries, AnIncomingFileIsLookedAtFirst) {
  const TempFolder folder;
  const auto checked = [&](int width, int height) { return checkIncoming(fileOf(folder, width, height)); };
  const std::string question = "Incoming image at 801 x 2\nappears to be too large.  Proceed still?";
  EXPECT_EQ(checked(801, 2).question, question);
  EXPECT_EQ(checked(800, 600).question, "");
  EXPECT_NE(checked(2, 601).question, "");
  EXPECT_EQ(checked(3000, 1000).refusal, "");
  EXPECT_EQ(checked(3000, 1001).refusal, "Incoming image exceeds max size allowed.");
  const auto none = folder / "none.gif";
  EXPECT_EQ(checkIncoming(none).refusal, none.string() + "\nFailed to load this file.");
}

}  // namespace
}  // namespace ruvo
