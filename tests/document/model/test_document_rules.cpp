#include <gmock/gmock.h>

#include "base/file_io.h"
#include "base/limits.h"
#include "document/model/inquiry_texts.h"
#include "document/model/new_size_rules.h"
#include "document/model/open_rules.h"
#include "document/model/save_rules.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

TEST(OpenRules, TheExtensionDecidesTheReader) {
  const test::TempFolder folder;
  struct Case {
    const char* name;
    OpenFault fault;
    Format format;
  };
  const Case cases[] = {
      {"a.bmp", OpenFault::None, Format::Bmp},       {"a.b.JPEG", OpenFault::None, Format::Jpeg},
      {"a.jpe", OpenFault::None, Format::Bmp},       {"a.Gif", OpenFault::None, Format::Gif},
      {"a.png", OpenFault::None, Format::Png},       {"a.tiff", OpenFault::None, Format::Tiff},
      {"a.txt", OpenFault::NotAllowed, Format::Bmp}, {"a.t", OpenFault::NoExtension, Format::Bmp},
      {"a.ps", OpenFault::NoExtension, Format::Bmp}, {"a.jpeg2", OpenFault::NoExtension, Format::Bmp},
      {"bmp", OpenFault::NoExtension, Format::Bmp},
  };
  for (const Case& c : cases) {
    const std::string path = (folder / c.name).string();
    ASSERT_TRUE(replaceFile(path, std::vector<std::uint8_t>{1, 2, 3}));
    const OpenPlan plan = planOpen(path);
    EXPECT_EQ(plan.fault, c.fault) << c.name;
    if (c.fault == OpenFault::None) {
      EXPECT_EQ(plan.row, &rowOf(c.format)) << c.name;
    }
    EXPECT_EQ(plan.fileSize, 3) << c.name;
  }
  std::filesystem::create_directories(folder / "v1.bmp");
  EXPECT_EQ(planOpen((folder / "v1.bmp").string()).fault, OpenFault::NotFound) << "a folder is no file";
  std::filesystem::create_directories(folder / "x.bmp2" / "y");
  ASSERT_TRUE(replaceFile(folder / "x.bmp2" / "name", std::vector<std::uint8_t>{1}));
  EXPECT_EQ(planOpen((folder / "x.bmp2" / "name").string()).fault, OpenFault::NoExtension) << "the dot is the folder's";
}

TEST(OpenRules, SizesAtTheLimits) {
  EXPECT_EQ(sizeFault(0, 5), OpenFault::NoImage);
  EXPECT_EQ(sizeFault(5, -1), OpenFault::NoImage);
  EXPECT_EQ(sizeFault(5000, 5000), OpenFault::None);
  EXPECT_EQ(sizeFault(5001, 5000), OpenFault::TooLarge);
  EXPECT_EQ(sizeFault(32760, 1), OpenFault::None);
  EXPECT_EQ(sizeFault(32761, 1), OpenFault::TooLarge);
  ReadPicture refused;
  refused.error = imaging::LoadError::TooLarge;
  EXPECT_EQ(loadFault(refused), OpenFault::TooLarge);
  refused.error = imaging::LoadError::Broken;
  EXPECT_EQ(loadFault(refused), OpenFault::LoadFailed);
  refused.width = 40000;
  EXPECT_EQ(loadFault(refused), OpenFault::NoImage);
  refused.height = 40000;
  EXPECT_EQ(loadFault(refused), OpenFault::TooLarge);
  refused.cancelled = true;
  EXPECT_EQ(loadFault(refused), OpenFault::Cancelled);
}

TEST(NewSizeRules, RefusalsAndTheQuestion) {
  EXPECT_FALSE(newSizeRefusal(5000, 5000, SizeField::Width) || newSizeRefusal(32760, 1, SizeField::Width));
  EXPECT_EQ(newSizeRefusal(5001, 5000, SizeField::Width),
            "Value entered in width will result in W x H exceeding the threshhold.");
  EXPECT_EQ(newSizeRefusal(32761, 1, SizeField::Width), kSideTooLarge);
  EXPECT_TRUE(newSizeRefusal(0, 10, SizeField::Width));
  EXPECT_FALSE(newSizeIsLarge(3000, 1000));
  EXPECT_TRUE(newSizeIsLarge(3001, 1000));
  EXPECT_EQ(thresholdText(), "Width x height exceeds the threshhold set (25,000,000 pixels)");
}

TEST(SaveRules, ProposedNamesKeepTheirPlace) {
  EXPECT_EQ(proposedName("/a.b/photo.one.jpeg", ".bmp", "/home"), "/a.b/photo.one.bmp");
  EXPECT_EQ(proposedName("/a/photo.jpg", kExifEnding, "/home"), "/a/photo_EX.jpg");
  EXPECT_EQ(proposedName("Untitled:1", ".png", "/home"), "/home/Untitled_1.png");
  EXPECT_EQ(proposedName("/a/none", ".tif", "/home"), "/a/none.tif");
  EXPECT_EQ(pathWithExtension(Format::Jpeg, "/a/photo.JPEG"), "/a/photo.JPEG");
  EXPECT_EQ(pathWithExtension(Format::Jpeg, "/a/photo.jpe"), "/a/photo.jpe.jpg");
  EXPECT_EQ(pathWithExtension(Format::Jpeg, "/a.jpg/photo.png"), "/a.jpg/photo.png.jpg");
  EXPECT_EQ(pathWithExtension(Format::Jpeg, "/a.jpg/photo"), "/a.jpg/photo.jpg");
}

TEST(SaveRules, PlainSaveKeepsFormatAndManner) {
  const auto itemFor = [](const char* type, const char* transparent = "", const char* interlaced = "") {
    FileRecord record;
    record.type = type;
    record.transparent = transparent;
    record.interlaced = interlaced;
    return saveItemForRecord(record);
  };
  EXPECT_EQ(itemFor("jpeg").quality, 95);
  EXPECT_EQ(itemFor("TIFF").format, Format::Tiff);
  for (const char* none : {"EMF", ""}) EXPECT_EQ(itemFor(none).format, Format::Bmp) << "kept without loss";
  EXPECT_EQ(itemFor("CUR").way, SaveWay::IconWindow);
  int index = 0;
  for (const auto& [transparent, interlaced] : {std::pair{"No", "No"}, {"Yes", "No"}, {"Yes", "Yes"}, {"No", "Yes"}}) {
    EXPECT_EQ(itemFor("GIF", transparent, interlaced).index, index++);
  }
  EXPECT_EQ(itemFor("GIF").index, 0);
  EXPECT_EQ(saveItemOf("mnuFileSaveBMPSub", 1), nullptr);
}

TEST(SaveRules, MissingLibrariesRefuseInWords) {
  const auto refusal = [](const char* control, int index, bool imaging, bool zlib) {
    return saveRefusal(*saveItemOf(control, index), imaging, zlib).value_or("none");
  };
  const char* png = "mnuFileSavePNGSub";
  EXPECT_THAT(refusal(png, 0, false, true), testing::StartsWith("GDIplus.dll not found."));
  EXPECT_THAT(refusal(png, 3, true, false), testing::StartsWith("zLIB.dll missing"));
  EXPECT_THAT(refusal(png, 4, false, false), testing::StartsWith("(1) zLIB.dll missing"));
  EXPECT_EQ(refusal("mnuFileSub", 11, false, true), "") << "the main window has words of its own";
  EXPECT_EQ(refusal(png, 1, true, false), "none");
  EXPECT_EQ(refusal(png, 3, false, true), "none");
  for (const char* other : {"mnuFileSaveGIFSub", "mnuFileSaveJPGSub"})
    EXPECT_EQ(refusal(other, 2, false, true), "none");
}

TEST(InquiryTexts, GeneralProperties) {
  const PictureFacts facts{{30, 20}, 8, true, "2026-01-02 03:04"};
  EXPECT_THAT(generalPropertiesText(untitledRecord("Untitled_2", 30, 20), facts),
              testing::StartsWith("UNTITLED\n(Not directly from existing file)\n\nFile Size:  N/A\nFile Date:  N/A"));
  FileRecord record;
  record.name = "/photo.jpg";
  record.type = "JPG";
  record.fileSize = 1234567;
  record.originalWidth = 60;
  record.originalHeight = 40;
  record.bitsPerPixel = 24;
  record.fromCamera = "No";
  EXPECT_EQ(generalPropertiesText(record, facts),
            "/photo.jpg\n\nFile Size:  1,234,567  bytes\nFile Date:  2026-01-02 03:04\n"
            "Original Image Size:  60 x 40  pixels      \nCurrent Actual Size:  30 x 20  pixels\n"
            "Original image color depth:  True-color\nCurrent color depth:    8 BPP   256-color\n"
            "(JPG/JPEG)  From digital camera:   No\nChange made:  Yes");
}

}  // namespace
}  // namespace ruvo
