// The verbs that change an animation, seen through `info` and `decode`.
#include <gmock/gmock.h>

#include "formats/clsGIF.h"
#include "tool_fixture.h"

namespace ruvo {
namespace {

using test::dibOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

const test::Ink kInk = {{'.', kWhite}, {'#', kBlack}, {'r', rgb(255, 0, 0)}, {'b', rgb(0, 0, 255)}};

class ToolGifEdit : public test::ToolTest {
 protected:
  ToolGifEdit() {
    clsGIF gif;
    EXPECT_TRUE(gif.FrameInsertImage(dibOf({"rb.", "rb."}, kInk), 1, {}));
    EXPECT_TRUE(gif.FrameInsertImage(dibOf({"#", "#", "#", "#", "#"}, kInk), 2, {}));
    gif.setFrameLeft(2, 1);
    gif.setFrameTop(2, 1);
    gif.setFrameDelay(2, 300);
    EXPECT_TRUE(gif.Save(folder / "a.gif", 0, "old"));
  }
  // The words that follow "  frame N: " of o.gif, and those of the whole file.
  std::string frame(int number) {
    EXPECT_EQ(run({"info", "@o.gif"}), 0) << err;
    const std::string head = "  frame " + std::to_string(number) + ": ";
    const std::size_t start = out.find(head) + head.size();
    return out.substr(start, out.find('\n', start) - start);
  }
};

TEST_F(ToolGifEdit, SetsWhatTheWordsSay) {
  ASSERT_EQ(run({"gif", "set", "--delay=65535", "--top", "0", "--interlace", "--loops=65535", "--comment", "-new-",
                 "@a.gif", "@o.gif"}),
            0)
      << err;
  EXPECT_THAT(frame(1), StartsWith("left 0, top 0, width 3, height 2, delay 65535, "));
  EXPECT_THAT(frame(2), StartsWith("left 1, top 0, width 1, height 5, delay 65535, "));
  EXPECT_THAT(frame(2), HasSubstr("interlaced yes"));
  EXPECT_THAT(out, HasSubstr("loops: 65535\n  comment: -new-\n"));
  ASSERT_EQ(run({"gif", "set", "--frame=2", "--disposal=7", "--global", "@a.gif", "@o.gif"}), 0) << err;
  EXPECT_THAT(frame(2), StartsWith("left 1, top 1, width 1, height 5, delay 300, disposal 7, "));
  EXPECT_THAT(frame(1), testing::AllOf(HasSubstr("disposal 0"), HasSubstr("local entries 4")));
  EXPECT_THAT(frame(2), HasSubstr("local entries 0"));
  EXPECT_THAT(out, HasSubstr("comment: old\n"));
}

TEST_F(ToolGifEdit, ResizesFramesOrTheScreenAlone) {
  const std::map<std::string, char> letters = {{"FFFFFFFF", '.'}, {"000000FF", '#'}, {"FF0000FF", 'r'},
                                               {"0000FFFF", 'b'}, {"FFFFFF00", '-'}, {"00000000", '-'}};
  ASSERT_EQ(run({"gif", "resize", "--percent=200", "@a.gif", "@o.gif"}), 0) << err;
  EXPECT_THAT(pictures("o.gif", letters), ElementsAre("6x4 rrbb..rrbb..rrbb..rrbb..", "6x4 rrbb..rrbb..rr##..rr##.."));
  ASSERT_EQ(run({"gif", "resize", "--percent=50", "--screen-only", "--keep=width", "@a.gif", "@o.gif"}), 0) << err;
  EXPECT_THAT(pictures("o.gif", letters), ElementsAre("3x1 rb.", "3x1 rb."));
}

TEST_F(ToolGifEdit, RefusesWithoutTouchingTheTarget) {
  put("o.gif", "old");
  const std::vector<std::pair<std::vector<std::string>, std::string>> rows = {
      {{"set", "@a.gif", "@o.gif"}, "needs something to set"},
      {{"set", "--frame=1", "--left=2", "@a.gif", "@o.gif"}, "For first frame, the [left, top] must be [0, 0]"},
      {{"set", "--frame=3", "--delay=2", "@a.gif", "@o.gif"}, "has no frame 3"},
      {{"set", "--local", "--global", "@a.gif", "@o.gif"}, "one of --local and --global"},
      {{"set", "--comment", std::string(256, 'x'), "@a.gif", "@o.gif"}, "255"},
      {{"resize", "@a.gif", "@o.gif"}, "needs --percent"},
      {{"resize", "--percent=100", "@a.gif", "@o.gif"}, "Please select a size other than 100%"},
  };
  for (auto [words, told] : rows) {
    words.insert(words.begin(), "gif");
    EXPECT_EQ(run(words), 1) << told;
    EXPECT_THAT(err, HasSubstr(told));
  }
  EXPECT_EQ(bytesOf("o.gif"), "old");
}

}  // namespace
}  // namespace ruvo
