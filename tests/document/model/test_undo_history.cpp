#include "document/model/undo_history.h"

#include <gmock/gmock.h>

#include "base/file_io.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

// A document whose picture is a word: what is saved and loaded are the words themselves.
class UndoHistoryTest : public testing::Test {
 protected:
  test::TempFolder folder;
  std::string picture;
  bool diskFull = false;
  UndoHistory history{folder.path(), "2", [this](const std::filesystem::path& file) { return save(file); },
                      [this](const std::filesystem::path& file) { return load(file); }};

  bool save(const std::filesystem::path& file) {
    const std::string kept = diskFull ? picture.substr(0, 1) : picture;
    return replaceFile(file, std::vector<std::uint8_t>(kept.begin(), kept.end())) && !diskFull;
  }
  bool load(const std::filesystem::path& file) {
    const auto bytes = readWholeFile(file, 1000);
    if (!bytes || bytes->empty()) return false;
    picture.assign(bytes->begin(), bytes->end());
    return true;
  }
  bool edit(const std::string& word) {
    picture = word;
    return history.push();
  }
  // "opened" and then edit1, edit2 ...
  void makeEdits(int count) {
    edit("opened");
    for (int i = 1; i <= count; ++i) edit("edit" + std::to_string(i));
  }
};

TEST_F(UndoHistoryTest, StepsGoBackAndForthAndAnEditEndsTheRedoChain) {
  makeEdits(2);
  EXPECT_EQ(folder.names(), (std::vector<std::string>{"2001.m_Temp", "2002.m_Temp", "2003.m_Temp"}));
  EXPECT_FALSE(history.canRedo());
  EXPECT_TRUE(history.undo());
  EXPECT_EQ(picture, "edit1");
  EXPECT_TRUE(history.undo());
  EXPECT_EQ(picture, "opened");
  EXPECT_FALSE(history.canUndo() || history.undo());
  EXPECT_TRUE(history.redo() && history.redo());
  EXPECT_EQ(picture, "edit2");
  EXPECT_FALSE(history.redo());
  EXPECT_TRUE(history.undo() && history.undo());
  edit("other");
  EXPECT_EQ(history.position(), 2);
  EXPECT_FALSE(history.canRedo());
  EXPECT_EQ(folder.names().size(), 2u);
  EXPECT_TRUE(history.undo());
  EXPECT_EQ(picture, "opened");
  history.reset();
  EXPECT_TRUE(folder.names().empty());
  EXPECT_EQ(history.position() + history.top(), 0);
}

TEST_F(UndoHistoryTest, TheEleventhEditDropsTheOpenedPicture) {
  makeEdits(10);
  EXPECT_EQ(history.position(), 11);
  edit("edit11");
  EXPECT_EQ(history.position(), 11);
  EXPECT_EQ(folder.names().size(), 11u);
  EXPECT_TRUE(history.undoAll());
  EXPECT_EQ(picture, "edit1");
  EXPECT_EQ(history.position(), 1);
  EXPECT_FALSE(history.canRedo());
  EXPECT_EQ(folder.names(), std::vector<std::string>{"2001.m_Temp"});
}

TEST_F(UndoHistoryTest, AFailedWriteCountsOnLeavesNoHalfFileAndLosesNoState) {
  makeEdits(1);
  diskFull = true;
  EXPECT_FALSE(edit("unsaved"));
  EXPECT_EQ(history.position(), 3);
  EXPECT_EQ(folder.names().size(), 2u);
  EXPECT_EQ(picture, "unsaved");
  EXPECT_TRUE(history.undo());
  EXPECT_EQ(picture, "edit1");
  EXPECT_FALSE(history.redo()) << "there is no file to go to";
  EXPECT_EQ(history.position(), 2);
}

TEST_F(UndoHistoryTest, AFailedWriteDoesNotLeaveAnUndoneStateInTheChain) {
  makeEdits(2);
  history.undo();
  diskFull = true;
  edit("unsaved");
  history.undo();
  EXPECT_EQ(picture, "edit1");
  EXPECT_FALSE(history.redo()) << "edit2 is of another chain";
}

TEST_F(UndoHistoryTest, AFailedWriteAtTheDepthLimitKeepsAllElevenStates) {
  makeEdits(10);
  diskFull = true;
  EXPECT_FALSE(edit("unsaved"));
  EXPECT_FALSE(edit("unsaved too"));
  EXPECT_EQ(folder.names().size(), 11u);
  EXPECT_TRUE(history.undo());
  EXPECT_EQ(picture, "edit10");
  diskFull = false;
  EXPECT_TRUE(edit("saved"));
  history.undo();
  EXPECT_EQ(picture, "edit10");
  history.undoAll();
  EXPECT_EQ(picture, "edit1");
}

TEST_F(UndoHistoryTest, MissingAndBrokenStates) {
  makeEdits(3);
  std::filesystem::remove(history.fileOf(3));
  EXPECT_FALSE(history.undo());
  EXPECT_EQ(picture, "edit3") << "nothing to show, so the picture stays";
  EXPECT_TRUE(history.undo());
  EXPECT_EQ(picture, "edit1");
  EXPECT_FALSE(history.redo());

  history.reset();
  makeEdits(2);
  std::filesystem::resize_file(history.fileOf(1), 0);
  EXPECT_FALSE(history.undoAll());
  EXPECT_EQ(folder.names().size(), 3u) << "a state that can not be read costs no other";
  std::filesystem::remove(history.fileOf(1));
  EXPECT_FALSE(history.undoAll());
  EXPECT_EQ(folder.names().size(), 1u);
  EXPECT_EQ(picture, "edit2");
  picture = "";
  EXPECT_TRUE(load(history.fileOf(1)));
  EXPECT_EQ(picture, "edit2") << "the picture as it was is the first state now";
}

}  // namespace
}  // namespace ruvo
