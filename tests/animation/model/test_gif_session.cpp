#include "animation/model/gif_session.h"

#include "base/file_io.h"
#include "base/paths.h"
#include "formats/gif_bytes.h"
#include "support/file_size_limit.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;
namespace fs = std::filesystem;

GifBytes animation(int width, int height, int frames, const std::string& comment = std::string(60, 'c')) {
  GifBytes gif(width, height);
  gif.extension(0xFE, {comment});
  for (int i = 0; i < frames; ++i) gif.control(0, i).image({"01"});
  return gif;
}

class GifSessions : public testing::Test {
 protected:
  fs::path file(const std::string& name, const GifBytes& gif) {
    const fs::path path = folder_.path() / pathOf(name);
    EXPECT_TRUE(replaceFile(path, gif.bytes()));
    return path;
  }
  void openSample() { ASSERT_EQ(session_.open(file("a.gif", animation(3, 2, 2))), ""); }
  int framesIn(const fs::path& path) {
    clsGIF gif;
    return gif.LoadFromGIFFile(path) == kGifOk ? gif.FramesCount() : -1;
  }

  TempFolder folder_;
  TempFolder temp_;
  GifSession session_{temp_.path()};
};

TEST_F(GifSessions, AFileGivesPathTitleAndSize) {
  EXPECT_EQ(session_.proposedName(), "Untitled_X.gif");
  EXPECT_EQ(session_.measure(), 0);
  session_.setUnsaved(SessionWork::Series);
  const fs::path path = file("\u00E4 \u4E2D.b.gif", animation(2000, 1500, 120));
  ASSERT_EQ(session_.open(path), "");
  EXPECT_EQ(session_.gif().FramesCount(), 120);
  EXPECT_EQ(session_.proposedName(), "\u00E4 \u4E2D.b_X.gif");
  EXPECT_EQ(session_.firstFileSize(), static_cast<std::int64_t>(fs::file_size(path)));
  EXPECT_FALSE(session_.unsaved());
}

TEST_F(GifSessions, WhatIsRefusedIsToldAndTheSessionStays) {
  openSample();
  session_.setUnsaved(SessionWork::Resize);
  const std::string general = "Not an animated GIF or failed to load this GIF";
  const auto refused = [&](const fs::path& path, const std::string& words) {
    EXPECT_EQ(session_.open(path), words);
    EXPECT_EQ(session_.reload(path), words);
    const bool generally = words.starts_with(general);
    EXPECT_EQ(session_.open(path, true),
              generally ? "Not a valid animated GIF or failed to load.\n" + utf8Of(path) + words.substr(general.size())
                        : words);
  };
  refused(folder_ / "missing.gif", general);
  refused(file("121.gif", animation(3, 2, 121)), general + "\n\nNo of frames exceeds maximum allowed: 120.");
  refused(file("none.gif", animation(3, 2, 0, std::string(100, 'c'))), "Not an animated GIF.");
  refused(file("later.gif", animation(3, 2, 1).descriptor(0, 0, 2001, 1)), general);
  // Past the session's limit, past that of every picture, and no screen at all.
  for (const auto& [width, height] : {std::pair{2000, 1501}, {60000, 60000}, {0, 7}}) {
    const fs::path path = file("size.gif", animation(width, height, 2));
    refused(path, utf8Of(path) + "\nFor animated GIF, incoming size unacceptable at " + std::to_string(width) + " x " +
                      std::to_string(height) + ".");
  }
  EXPECT_EQ(session_.gif().FramesCount(), 2);
  EXPECT_EQ(session_.path(), folder_ / "a.gif");
  EXPECT_TRUE(session_.unsaved(SessionWork::Resize));
}

TEST_F(GifSessions, ASaveGoesOnWithTheFileThatItWroteAndAFailedOneChangesNothing) {
  EXPECT_EQ(session_.save(folder_ / "b.gif"), "There is no animated GIF yet.");
  openSample();
  const std::string comment = std::string(300, 'x') + "\u00E4";
  session_.gif().setCommentText(comment);
  session_.gif().FrameDelete(1);
  session_.setUnsaved(SessionWork::Series);
  fs::permissions(folder_ / "a.gif", fs::perms::owner_read);
  for (const fs::path& target : {folder_ / "a.gif", folder_.path(), folder_ / "gone" / "b.gif"}) {
    EXPECT_EQ(session_.save(target), "Failed to save to " + utf8Of(target));
  }
  EXPECT_EQ(framesIn(folder_ / "a.gif"), 2);
  EXPECT_TRUE(session_.title() == "a" && session_.unsaved());

  ASSERT_EQ(session_.save(folder_ / "b.gif"), "");
  EXPECT_TRUE(session_.title() == "b" && !session_.unsaved());
  EXPECT_EQ(session_.firstFileSize(), static_cast<std::int64_t>(fs::file_size(folder_ / "b.gif")));
  EXPECT_EQ(session_.measure(), session_.firstFileSize()) << "the comment is whole, also after it was read again";
}

TEST_F(GifSessions, UndoGoesBackToTheBackupWithItsFlags) {
  openSample();
  session_.gif().setCommentText("\u00E4");
  session_.setUnsaved(SessionWork::Minimise);
  ASSERT_TRUE(session_.saveRestoreFile());
  session_.gif().FrameDelete(1);
  session_.setUnsaved(SessionWork::Series);
  ASSERT_EQ(session_.restore(), "");
  EXPECT_EQ(session_.gif().FramesCount(), 2);
  EXPECT_EQ(session_.gif().CommentText(), "\u00E4");
  EXPECT_TRUE(session_.unsaved(SessionWork::Minimise) && !session_.unsaved(SessionWork::Series));
  // What was saved in between is unsaved when the older state comes back.
  session_.setUnsaved(SessionWork::Series);
  ASSERT_EQ(session_.save(folder_ / "b.gif"), "");
  ASSERT_EQ(session_.restore(), "");
  EXPECT_TRUE(session_.unsaved(SessionWork::Series));
}

TEST_F(GifSessions, ABackupThatIsGoneOrSpoiltOrCanNotBeWrittenChangesNothing) {
  openSample();
  const fs::path backup = session_.tempFile("tmpRestore.tmp");
  ASSERT_TRUE(session_.saveRestoreFile());
  session_.gif().FrameDelete(1);
  fs::resize_file(backup, 110);
  EXPECT_NE(session_.restore(), "");
  fs::remove(backup);
  EXPECT_EQ(session_.restore(), "Temporary file for restore missing.");
  EXPECT_EQ(session_.gif().FramesCount(), 1);
  {
    const FileSizeLimit full(10);
    EXPECT_FALSE(session_.saveRestoreFile());
  }
  fs::remove(temp_.path());
  EXPECT_FALSE(session_.saveRestoreFile());
  EXPECT_EQ(session_.writeBrowserPage(), "Failed to obtain temp file.");
}

TEST_F(GifSessions, ItsTemporaryFilesGoWithIt) {
  {
    GifSession session(temp_.path());
    ASSERT_EQ(session.open(file("a.gif", animation(3, 2, 2))), "");
    ASSERT_TRUE(session.saveRestoreFile());
    ASSERT_EQ(session.writeBrowserPage(), "");
    const auto page = readWholeFile(session.browserPageFile(), 10000);
    const std::string text(page->begin(), page->end());
    EXPECT_NE(text.find("\"file://" + utf8Of(temp_ / "tmpIEBrsShow.gif") + "\""), std::string::npos) << text;
    EXPECT_EQ(framesIn(temp_ / "tmpIEBrsShow.gif"), 2);
  }
  EXPECT_TRUE(temp_.names().empty());
}

}  // namespace
}  // namespace ruvo
