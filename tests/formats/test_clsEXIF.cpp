#include "exif_bytes.h"

#include <libexif/exif-data.h>

#include <algorithm>

#include "base/file_io.h"
#include "formats/clsEXIF.h"
#include "support/file_size_limit.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;

struct Field {
  int tag;
  int type;
  std::vector<int> numbers;
  const char* shown;
};
const Field kFirstDirectory[] = {
    {274, 3, {6}, "[Right, Top]"},           {282, 5, {72, 1}, "72"}, {296, 3, {2}, "Inch"}, {50000, 3, {7}, "7"},
    {531, 3, {1}, "Center of pixel array "},
};
const Field kExifDirectory[] = {
    {33434, 5, {10, 1250}, "1/125"},
    {33437, 5, {45, 10}, "4.5"},
    {36864, 7, {'0', '2', '2', '0'}, "02.20"},
    {37121, 7, {1, 2, 3, 0}, "YCbCr"},
    {37122, 5, {3, 2}, "3/2  1.500"},
    {37377, 10, {223, 32}, "1/125 sec"},
    {37378, 5, {4, 1}, "4.0"},
    {37379, 10, {-3, 2}, "-3/2  -1.5"},
    {37380, 10, {-1, 3}, "-0.333"},
    {37382, 5, {0, 10}, "0/10"},
    {37383, 3, {5}, "Pattern/Multisegment"},
    {37384, 3, {24}, "ISO studio tungsten"},
    {37385, 3, {16}, "16"},
    {37386, 5, {717, 32}, "22.4 mm"},
    {40961, 3, {65535}, "Uncalibrated"},
    {40962, 4, {2272}, "2272"},
    {40963, 4, {1704}, "1704"},
    {41730, 7, {0, 2, 1}, "0, 2, 1"},
};
constexpr const char* kDate = "2004:08:27 13:52:55";

// A camera's directories: first, Exif, interoperability.
Bytes cameraTiff(bool intel) {
  TiffBuilder tiff(intel);
  tiff.begin();
  tiff.text(271, "Maker");
  for (const Field& field : kFirstDirectory) tiff.numbers(field.tag, field.type, field.numbers);
  tiff.directory(34665, 1);
  tiff.begin();
  for (const Field& field : kExifDirectory) tiff.numbers(field.tag, field.type, field.numbers);
  tiff.text(36867, kDate);
  tiff.directory(40965, 2);
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
    for (const Field& field : kFirstDirectory) EXPECT_EQ(read.text(field.tag), field.shown);
    for (const Field& field : kExifDirectory) EXPECT_EQ(read.text(field.tag), field.shown);
    EXPECT_EQ(read.text(1), "R98");
    EXPECT_EQ(read.exif.tags().size(), std::size(kFirstDirectory) + std::size(kExifDirectory) + 6);
    EXPECT_EQ(read.exif.DateTimeStamp(), kDate);
    EXPECT_EQ(read.exif.Width() + "x" + read.exif.Height(), "2272x1704");
  }
}

TEST(Exif, BlockIsFoundInTheFirst2000BytesAtAnEvenOffset) {
  const Bytes tiff = cameraTiff(false);
  const Read read(jpegWith(tiff, kJfif));
  EXPECT_EQ(read.exif.LengthEXIF(), static_cast<int>(tiff.size()) + 8);
  EXPECT_EQ(read.exif.EndPosEXIF(), static_cast<std::int64_t>(2 + kJfif.size() + 2 + 8 + tiff.size()));
  // The marker lies at place 3 + the bytes before it.
  EXPECT_TRUE(Read(jpegWith(tiff, Bytes(1996, 0))).ok);
  EXPECT_FALSE(Read(jpegWith(tiff, Bytes(1998, 0))).ok);
  EXPECT_FALSE(Read(jpegWith(tiff, Bytes(33, 0))).ok);
  EXPECT_FALSE(Read(jpegWith(tiff, segment(0xE1, bytesOf("http://ns.")))).ok) << "the first APP1 decides";
  EXPECT_FALSE(Read(joined({jpegWith(tiff), {0, 0}})).ok) << "the file must end with its marker";
}

TEST(Exif, DamagedDirectoriesEndTheWalk) {
  const auto with = [](int tag, int type, std::uint32_t count, std::uint32_t value) {
    TiffBuilder one(true);
    one.begin();
    one.add({tag, type, count, one.u32(value)});
    return Read(jpegWith(one.build()));
  };
  EXPECT_FALSE(with(272, 2, 5, 0x7F000000).ok);
  EXPECT_FALSE(with(270, 5, 0xFFFFFFFF, 0).ok);
  EXPECT_FALSE(with(34665, 4, 1, 0xFFFFFFFE).ok);
  EXPECT_EQ(with(305, 99, 7, 4711).text(305), "4711") << "an unknown type is shown as its number";
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

TEST_F(ExifFile, SaysWhatIsMissing) {
  EXPECT_EQ(exif_.ListInfoTags(folder_ / "none.jpg"), "Failed to open the file.");
  EXPECT_EQ(exif_.state(), clsEXIF::kNotOpened);
  EXPECT_EQ(exif_.ListDate(write(joined({kStart, kPictureBytes, kEnd}))), "Current file without EXIF.");
  EXPECT_FALSE(exif_.IsFromDigitalCamera(write({})));

  TiffBuilder tiff(false);
  tiff.begin();
  EXPECT_EQ(exif_.ListDate(write(jpegWith(tiff.build()))), "Date missing.");
  tiff.text(36867, "   ");
  const auto blank = write(jpegWith(tiff.build()));
  EXPECT_EQ(exif_.ListDateAndSize(blank), "Date or size missing.");
  EXPECT_FALSE(exif_.IsFromDigitalCamera(blank)) << "a date of blanks";
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
  std::filesystem::permissions(path, std::filesystem::perms::owner_read);
  EXPECT_FALSE(exif_.EraseEXIFData(path, block));
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
    const Read read(file);
    unsigned compared = 0;
    for (const ExifContent* content : data->ifd) {
      for (unsigned i = 0; i < content->count; ++i, ++compared) {
        const ExifEntry& theirs = *content->entries[i];
        const auto ours = std::ranges::find(read.exif.tags(), theirs.tag, &ExifTag::number);
        ASSERT_NE(ours, read.exif.tags().end()) << theirs.tag;
        EXPECT_EQ(ours->type, theirs.format) << theirs.tag;
        EXPECT_EQ(ours->count, theirs.components) << theirs.tag;
        if (theirs.format != EXIF_FORMAT_ASCII) continue;
        EXPECT_STREQ(ours->text.c_str(), reinterpret_cast<char*>(theirs.data));
      }
    }
    exif_data_unref(data);
    EXPECT_GE(compared, 20u);
  }
}

}  // namespace
}  // namespace ruvo
