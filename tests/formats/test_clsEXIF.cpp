#include "exif_bytes.h"

#include <libexif/exif-data.h>

#include <map>

#include "base/file_io.h"
#include "formats/clsEXIF.h"
#include "support/file_size_limit.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;

// A camera's directories: first, Exif, interoperability.
Bytes cameraTiff(bool intel) {
  TiffBuilder tiff(intel);
  tiff.begin();
  tiff.text(271, "Maker");
  tiff.shorts(274, {6});
  tiff.ratio(282, 72, 1);
  tiff.shorts(296, {2});
  tiff.shorts(531, {1});
  tiff.directory(34665, 1);
  tiff.shorts(50000, {7});
  tiff.begin();
  tiff.ratio(33434, 10, 1250);
  tiff.ratio(33437, 45, 10);
  tiff.shorts(34855, {200});
  tiff.undefined(36864, bytesOf("0220"));
  tiff.text(36867, "2004:08:27 13:52:55");
  tiff.undefined(37121, {1, 2, 3, 0});
  tiff.ratio(37122, 3, 2);
  tiff.ratio(37377, 223, 32, 10);
  tiff.ratio(37378, 4, 1);
  tiff.ratio(37379, static_cast<std::uint32_t>(-3), 2, 10);
  tiff.ratio(37380, static_cast<std::uint32_t>(-1), 3, 10);
  tiff.ratio(37382, 0, 10);
  tiff.shorts(37383, {5});
  tiff.shorts(37384, {24});
  tiff.shorts(37385, {16});
  tiff.ratio(37386, 717, 32);
  tiff.undefined(37500, bytesOf("note of the maker"));
  tiff.shorts(40961, {65535});
  tiff.number(40962, 2272);
  tiff.number(40963, 1704);
  tiff.directory(40965, 2);
  tiff.undefined(41729, {1});
  tiff.undefined(41730, {0, 2, 1});
  tiff.begin();
  tiff.text(1, "R98");
  tiff.directory(34665, 0);  // back to the first, which is not read again
  return tiff.build();
}

struct Read {
  explicit Read(const Bytes& file) { exif.readBytes(file, ok); }
  std::string text(int number) const {
    for (const ExifTag& tag : exif.tags()) {
      if (tag.number == number) return tag.text;
    }
    return "(none)";
  }
  clsEXIF exif;
  bool ok = true;
};

class ExifFile : public testing::Test {
 protected:
  std::filesystem::path write(const Bytes& bytes) {
    const auto path = folder_ / "photo.jpg";
    EXPECT_TRUE(replaceFile(path, bytes));
    return path;
  }
  static Bytes contents(const std::filesystem::path& path) { return readWholeFile(path, 1 << 20).value_or(Bytes()); }

  TempFolder folder_;
  clsEXIF exif_;
};

TEST(Exif, ValuesReadAlikeInBothByteOrders) {
  for (const bool intel : {true, false}) {
    const Read read(jpegWith(cameraTiff(intel)));
    ASSERT_TRUE(read.ok);
    EXPECT_EQ(read.exif.IntelByteAlignment(), intel);
    EXPECT_EQ(read.exif.tags().size(), 32u);
    const std::pair<int, const char*> expected[] = {{271, "Maker"},
                                                    {274, "[Right, Top]"},
                                                    {282, "72"},
                                                    {296, "Inch"},
                                                    {50000, "7"},
                                                    {33434, "1/125"},
                                                    {33437, "4.5"},
                                                    {36864, "02.20"},
                                                    {37121, "YCbCr"},
                                                    {37122, "3/2  1.500"},
                                                    {37377, "1/125 sec"},
                                                    {37378, "4.0"},
                                                    {37379, "-3/2  -1.5"},
                                                    {37380, "-0.333"},
                                                    {37382, "0/10"},
                                                    {37383, "Pattern/Multisegment"},
                                                    {37385, "16"},
                                                    {37386, "22.4 mm"},
                                                    {40961, "Uncalibrated"},
                                                    {41730, "0, 2, 1"},
                                                    {37384, "ISO studio tungsten"},
                                                    {1, "R98"},
                                                    {531, "Center of pixel array "}};
    for (const auto& [number, text] : expected) EXPECT_EQ(read.text(number), text) << number;
    EXPECT_EQ(read.exif.DateTimeStamp(), "2004:08:27 13:52:55");
    EXPECT_EQ(read.exif.Width() + "x" + read.exif.Height(), "2272x1704");
  }
}

TEST(Exif, PlacesAreCountedFromTheStartOfTheFile) {
  const Bytes tiff = cameraTiff(true);
  const Read read(jpegWith(tiff, kJfif));
  EXPECT_EQ(read.exif.LengthEXIF(), static_cast<int>(tiff.size()) + 8);
  EXPECT_EQ(read.exif.EndPosEXIF(), static_cast<std::int64_t>(2 + kJfif.size() + 2 + 8 + tiff.size()));
}

TEST(Exif, BlockIsFoundInTheFirst2000BytesAtAnEvenOffset) {
  const Bytes tiff = cameraTiff(false);
  // The marker lies at place 3 + the bytes before it.
  EXPECT_TRUE(Read(jpegWith(tiff, Bytes(1996, 0))).ok);
  EXPECT_FALSE(Read(jpegWith(tiff, Bytes(1998, 0))).ok);
  EXPECT_FALSE(Read(jpegWith(tiff, Bytes(33, 0))).ok);
  EXPECT_FALSE(Read(jpegWith(tiff, segment(0xE1, bytesOf("http://ns.")))).ok) << "the first APP1 decides";
  EXPECT_FALSE(Read(joined({jpegWith(tiff), {0, 0}})).ok) << "the file must end with its marker";
}

TEST(Exif, DamagedDirectoriesEndTheWalk) {
  TiffBuilder past(true);
  past.begin();
  past.text(271, "Maker");
  past.add({272, 2, 5, joined({past.u32(1 << 30), {0}})});
  Bytes tiff = past.build();
  EXPECT_TRUE(Read(jpegWith(tiff)).ok);
  tiff[8 + 2 + 12 + 8 + 3] = 0x7F;  // the value's offset
  EXPECT_EQ(Read(jpegWith(tiff)).exif.state(), clsEXIF::kWithoutExif);

  TiffBuilder huge(true);
  huge.begin();
  huge.add({270, 5, 0xFFFFFFFF, Bytes(4)});
  EXPECT_FALSE(Read(jpegWith(huge.build())).ok);
  TiffBuilder lost(true);
  lost.begin();
  lost.number(34665, 0xFFFFFFFE);
  EXPECT_FALSE(Read(jpegWith(lost.build())).ok);
  TiffBuilder odd(true);
  odd.begin();
  odd.add({305, 99, 7, odd.u32(4711)});
  EXPECT_EQ(Read(jpegWith(odd.build())).text(305), "4711") << "an unknown type is shown as its number";
}

TEST(Exif, EntriesAndTextsAreBounded) {
  TiffBuilder tiff(true);
  tiff.begin();
  for (int i = 0; i < 2000; ++i) tiff.add({270, 2, 20000, tiff.u32(8)});
  const Read read(jpegWith(tiff.build()));
  ASSERT_TRUE(read.ok);
  EXPECT_EQ(read.exif.tags().size(), 1000u);
  std::size_t texts = 0;
  for (const ExifTag& tag : read.exif.tags()) texts += tag.text.size();
  EXPECT_LE(texts, 1u << 16);
}

TEST_F(ExifFile, ListsNamedTagsOnly) {
  TiffBuilder tiff(true);
  tiff.begin();
  tiff.text(305, "Program");
  tiff.shorts(50000, {7});
  tiff.undefined(37500, {1, 2, 3, 4, 5});
  tiff.shorts(37385, {1});
  EXPECT_EQ(exif_.ListInfoTags(write(jpegWith(tiff.build()))),
            "Software:   Program\r\n     Flash:   Flash on\r\n     ");
  EXPECT_EQ(clsEXIF::GetTagName(50000), "TAG #50000");
}

TEST_F(ExifFile, SaysWhatIsMissing) {
  EXPECT_EQ(exif_.ListInfoTags(folder_ / "none.jpg"), "Failed to open the file.");
  EXPECT_EQ(exif_.state(), clsEXIF::kNotOpened);
  EXPECT_EQ(exif_.ListDate(write(joined({kStart, kPictureBytes, kEnd}))), "Current file without EXIF.");
  EXPECT_FALSE(exif_.IsFromDigitalCamera(write({})));

  TiffBuilder tiff(false);
  tiff.begin();
  tiff.text(36867, "   ");
  const auto blank = write(jpegWith(tiff.build()));
  EXPECT_EQ(exif_.ListDateAndSize(blank), "Date or size missing.");
  EXPECT_FALSE(exif_.IsFromDigitalCamera(blank)) << "a date of blanks";
  TiffBuilder sized(false);
  sized.begin();
  sized.number(40962, 5);
  EXPECT_EQ(exif_.ListDate(write(jpegWith(sized.build()))), "Date missing.");
  const auto whole = write(jpegWith(cameraTiff(true)));
  EXPECT_EQ(exif_.ListDateAndSize(whole), "");
  EXPECT_TRUE(exif_.IsFromDigitalCamera(whole));
}

TEST_F(ExifFile, ErasedBlockComesBackByteForByte) {
  for (const Bytes& before : {Bytes(), kJfif, joined({kJfif, segment(0xFE, bytesOf("even"))})}) {
    const Bytes original = jpegWith(cameraTiff(true), before);
    const auto path = write(original);
    Bytes block, copy;
    ASSERT_TRUE(exif_.readBlock(path, copy));
    ASSERT_TRUE(exif_.EraseEXIFData(path, block));
    EXPECT_EQ(copy, block);
    EXPECT_EQ(contents(path), joined({kStart, kPictureBytes, kEnd}));
    EXPECT_FALSE(exif_.EraseEXIFData(path, copy)) << "nothing left to take";
    ASSERT_TRUE(exif_.AddbackEXIFData(path, block));
    EXPECT_EQ(contents(path), original);
    EXPECT_FALSE(exif_.AddbackEXIFData(path, block)) << "it has one";
  }
}

TEST(Exif, OneJfifSegmentRemains) {
  const Bytes block = joined({kStart, kJfif, exifSegment(cameraTiff(true))});
  const Bytes bare = joined({kStart, exifSegment(cameraTiff(true))});
  const Bytes rest = joined({kPictureBytes, kEnd});
  Bytes other = kJfif;
  other[11] = 1;
  const Bytes target = joined({kStart, other, rest});
  EXPECT_EQ(clsEXIF::withBlock(target, block), joined({block, rest}));
  EXPECT_EQ(clsEXIF::withBlock(target, bare), joined({bare, other, rest}));
  EXPECT_TRUE(clsEXIF::withBlock(bytesOf("no JPEG"), block).empty());
  for (const Bytes& wrong : {Bytes(), kStart, joined({block, {0}}), joined({kStart, kJfif})}) {
    EXPECT_TRUE(clsEXIF::withBlock(target, wrong).empty());
  }
}

TEST_F(ExifFile, FailedWriteLeavesTheFile) {
  const Bytes original = jpegWith(cameraTiff(true));
  const auto path = write(original);
  Bytes block;
  {
    const FileSizeLimit full(8);
    EXPECT_FALSE(exif_.EraseEXIFData(path, block));
  }
  EXPECT_TRUE(block.empty());
  EXPECT_EQ(contents(path), original);
  EXPECT_EQ(folder_.names(), std::vector<std::string>{"photo.jpg"});
}

// What libexif finds in the same file: numbers, types, counts, and the texts of text fields.
TEST(Exif, AgreesWithAnIndependentReader) {
  for (const bool intel : {true, false}) {
    const Bytes file = jpegWith(cameraTiff(intel), kJfif);
    ExifData* data = exif_data_new();
    exif_data_unset_option(data, EXIF_DATA_OPTION_FOLLOW_SPECIFICATION);
    exif_data_load_data(data, file.data(), static_cast<unsigned>(file.size()));
    std::map<int, ExifTag> ours;
    const Read read(file);
    for (const ExifTag& tag : read.exif.tags()) ours.emplace(tag.number, tag);
    unsigned compared = 0;
    for (const ExifContent* content : data->ifd) {
      for (unsigned i = 0; i < content->count; ++i) {
        const ExifEntry& entry = *content->entries[i];
        ASSERT_TRUE(ours.contains(entry.tag)) << entry.tag;
        const ExifTag& tag = ours.at(entry.tag);
        EXPECT_EQ(tag.type, entry.format) << entry.tag;
        EXPECT_EQ(tag.count, entry.components) << entry.tag;
        if (entry.format == EXIF_FORMAT_ASCII) {
          EXPECT_STREQ(tag.text.c_str(), reinterpret_cast<char*>(entry.data));
        }
        ++compared;
      }
    }
    exif_data_unref(data);
    EXPECT_GE(compared, 25u);
  }
}

}  // namespace
}  // namespace ruvo
