// Exif 2.2 in a JPEG file: an APP1 segment with a small TIFF file in it (JEITA CP-3451, 4.5 and 4.7).
#include "formats/clsEXIF.h"

#include <algorithm>

#include "base/byte_writer.h"
#include "base/file_io.h"
#include "base/limits.h"
#include "formats/clsEXIF_Text.h"

namespace ruvo {
namespace {

using exif::FieldReader;
using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t kMarkerBytes = 2;
constexpr int kApp0 = 0xFFE0;
constexpr int kApp1 = 0xFFE1;
// The marker is looked for up to this place of the file, counted from 1.
constexpr std::size_t kLastPlace = 2000;
constexpr std::size_t kTiffBehindMarker = 10;
constexpr int kMostEntries = 1000;
// Of all texts together. A block has 64 KB, so only one whose entries share their bytes can reach it.
constexpr std::size_t kMostTextBytes = 1 << 16;

bool startsAsJpeg(Bytes file) {
  return file.size() >= 4 && file[0] == 0xFF && file[1] == 0xD8;
}
bool isWholeJpeg(Bytes file) {
  return startsAsJpeg(file) && file[file.size() - 2] == 0xFF && file.back() == 0xD9;
}

struct Segment {
  std::size_t marker = 0;  // offset in the file
  int length = 0;          // the length word, which counts itself
  std::size_t end() const { return marker + kMarkerBytes + static_cast<std::size_t>(length); }
};

// The words of the file are taken two bytes a step without regard to segments, so a block at an odd offset or far
// behind is not seen. The first marker decides: when it begins another kind of APP1 there is no Exif.
std::optional<Segment> findExif(Bytes file) {
  for (std::size_t place = 3; place <= kLastPlace && place < file.size(); place += 2) {
    ByteReader reader(file);
    reader.seek(place - 1);
    if (reader.u16be() != kApp1) continue;
    const Segment segment{place - 1, reader.u16be()};
    constexpr std::uint8_t kIdentifier[] = {'E', 'x', 'i', 'f', 0, 0};
    const Bytes identifier = reader.take(sizeof kIdentifier);
    if (!std::ranges::equal(identifier, kIdentifier)) return std::nullopt;
    if (segment.length < static_cast<int>(kTiffBehindMarker - kMarkerBytes) || segment.end() > file.size())
      return std::nullopt;
    return segment;
  }
  return std::nullopt;
}

std::optional<Segment> exifOf(Bytes file) {
  return isWholeJpeg(file) ? findExif(file) : std::nullopt;
}

// Where the JFIF segment directly behind the start of the image ends, or where it would begin when there is none.
std::size_t endOfJfif(Bytes file) {
  ByteReader reader(file);
  reader.skip(kMarkerBytes);
  if (reader.u16be() != kApp0) return kMarkerBytes;
  const std::size_t from = reader.position();
  const std::size_t length = reader.u16be();
  constexpr std::uint8_t kIdentifier[] = {'J', 'F', 'I', 'F', 0};
  if (reader.slice(from, length).empty() || !std::ranges::equal(reader.take(sizeof kIdentifier), kIdentifier)) {
    return kMarkerBytes;
  }
  return from + length;
}

// One walk over the directories of a block. `tiff` begins at the TIFF header and ends with the file: values that
// careless programs left behind the segment are still found.
class Walk {
 public:
  Walk(Bytes tiff, bool intel, std::vector<ExifTag>& tags) : tiff_(tiff), intel_(intel), tags_(tags) {}

  // False when a directory or a value is not in the file.
  bool run() {
    FieldReader header(tiff_, intel_);
    header.seek(4);
    directories_.push_back(header.u32());
    if (!header.ok()) return false;
    for (std::size_t i = 0; i < directories_.size(); ++i) {
      if (!readDirectory(directories_[i])) return false;
    }
    return true;
  }

 private:
  bool readDirectory(std::uint32_t offset) {
    FieldReader reader(tiff_, intel_);
    reader.seek(offset);
    const int count = reader.u16();
    for (int i = 0; i < count && tags_.size() < kMostEntries; ++i) {
      if (!readEntry(reader)) return false;
    }
    return reader.ok();
  }

  bool readEntry(FieldReader& reader) {
    ExifTag tag;
    tag.number = reader.u16();
    tag.type = reader.u16();
    tag.count = reader.u32();
    const std::size_t valueAt = reader.position();
    tag.offsetOrValue = reader.u32();
    if (!reader.ok()) return false;
    tag.name = exif::tagName(tag.number);
    if (!readValue(tag, valueAt)) return false;
    const bool leadsOn = tag.number == exif::kExifOffset || tag.number == exif::kInteroperabilityOffset;
    if (leadsOn && std::ranges::find(directories_, tag.offsetOrValue) == directories_.end()) {
      directories_.push_back(tag.offsetOrValue);
    }
    tags_.push_back(std::move(tag));
    return true;
  }

  bool readValue(ExifTag& tag, std::size_t valueAt) {
    const int componentBytes = exif::componentSize(tag.type);
    if (componentBytes == 0) {
      tag.text = std::to_string(tag.offsetOrValue);
      return true;
    }
    const std::uint64_t length = std::uint64_t{tag.count} * static_cast<unsigned>(componentBytes);
    const std::size_t from = length <= 4 ? valueAt : tag.offsetOrValue;
    if (from > tiff_.size() || length > tiff_.size() - from) return false;
    tag.text = exif::valueText(tag.number, tag.type, tiff_.subspan(from, static_cast<std::size_t>(length)), intel_);
    tag.text.resize(std::min(tag.text.size(), kMostTextBytes - textBytes_));
    textBytes_ += tag.text.size();
    return true;
  }

  Bytes tiff_;
  bool intel_;
  std::vector<ExifTag>& tags_;
  std::vector<std::uint32_t> directories_;  // met so far, each once
  std::size_t textBytes_ = 0;
};

const char* wordsOf(clsEXIF::State state) {
  return state == clsEXIF::kNotOpened ? clsEXIF::kNotOpenedText : clsEXIF::kWithoutText;
}

}  // namespace

std::string clsEXIF::GetTagName(int Number) {
  return exif::tagName(Number);
}

void clsEXIF::readBytes(std::span<const std::uint8_t> file, bool& Ok) {
  *this = clsEXIF();
  Ok = false;
  const auto segment = exifOf(file);
  if (!segment) return;
  endPosition_ = static_cast<std::int64_t>(segment->end());
  length_ = segment->length;
  const Bytes tiff = file.subspan(segment->marker + kTiffBehindMarker);
  intel_ = tiff.size() >= 2 && tiff[0] == 'I' && tiff[1] == 'I';
  if (!Walk(tiff, intel_, tags_).run()) return;
  for (const ExifTag& tag : tags_) {
    if (tag.number == exif::kDateTimeOriginal) date_ = tag.text;
    if (tag.number == exif::kOriginalWidth) width_ = tag.text;
    if (tag.number == exif::kOriginalHeight) height_ = tag.text;
  }
  state_ = kWithExif;
  Ok = true;
}

void clsEXIF::ReadEXITInfo(const std::filesystem::path& FileName, bool& Ok) {
  const auto file = readWholeFile(FileName, kMaxFileBytes);
  if (file) return readBytes(*file, Ok);
  *this = clsEXIF();
  state_ = kNotOpened;
  Ok = false;
}

std::string clsEXIF::ListInfoTags(const std::filesystem::path& FileName) {
  bool ok = false;
  ReadEXITInfo(FileName, ok);
  if (!ok) return wordsOf(state_);
  std::string lines;
  for (const ExifTag& tag : tags_) {
    if (exif::isListed(tag.number)) lines += tag.name + ":   " + tag.text + "\r\n     ";
  }
  return lines;
}

std::string clsEXIF::ListDateAndSize(const std::filesystem::path& FileName) {
  bool ok = false;
  ReadEXITInfo(FileName, ok);
  if (!ok) return wordsOf(state_);
  return date_.empty() || width_.empty() || height_.empty() ? kDateOrSizeMissing : "";
}

std::string clsEXIF::ListDate(const std::filesystem::path& FileName) {
  bool ok = false;
  ReadEXITInfo(FileName, ok);
  if (!ok) return wordsOf(state_);
  return date_.empty() ? kDateMissing : "";
}

bool clsEXIF::IsFromDigitalCamera(const std::filesystem::path& FileName) {
  ListDateAndSize(FileName);
  return date_.find_first_not_of(' ') != std::string::npos;
}

bool clsEXIF::readBlock(const std::filesystem::path& FileName, std::vector<std::uint8_t>& Block) {
  Block.clear();
  const auto file = readWholeFile(FileName, kMaxFileBytes);
  const auto segment = file ? exifOf(*file) : std::nullopt;
  if (!segment) return false;
  Block.assign(file->begin(), file->begin() + static_cast<std::ptrdiff_t>(segment->end()));
  return true;
}

bool clsEXIF::EraseEXIFData(const std::filesystem::path& FileName, std::vector<std::uint8_t>& Block) {
  Block.clear();
  auto file = readWholeFile(FileName, kMaxFileBytes);
  const auto segment = file ? exifOf(*file) : std::nullopt;
  if (!segment) return false;
  const auto end = file->begin() + static_cast<std::ptrdiff_t>(segment->end());
  std::vector<std::uint8_t> taken(file->begin(), end);
  file->erase(file->begin() + kMarkerBytes, end);
  if (!replaceFile(FileName, *file)) return false;
  Block = std::move(taken);
  return true;
}

std::vector<std::uint8_t> clsEXIF::withBlock(std::span<const std::uint8_t> jpeg, std::span<const std::uint8_t> Block) {
  const auto segment = startsAsJpeg(Block) ? findExif(Block) : std::nullopt;
  if (!segment || segment->end() != Block.size()) return {};
  if (!startsAsJpeg(jpeg) || findExif(jpeg)) return {};
  const bool bringsJfif = endOfJfif(Block) > kMarkerBytes;
  ByteWriter out;
  out.append(Block);
  out.append(jpeg.subspan(bringsJfif ? endOfJfif(jpeg) : kMarkerBytes));
  return out.take();
}

bool clsEXIF::AddbackEXIFData(const std::filesystem::path& FileName, std::span<const std::uint8_t> Block) {
  const auto file = readWholeFile(FileName, kMaxFileBytes);
  if (!file) return false;
  const auto whole = withBlock(*file, Block);
  return !whole.empty() && replaceFile(FileName, whole);
}

}  // namespace ruvo
