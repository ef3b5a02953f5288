#include "platform/imaging/bmp_header.h"

#include <algorithm>
#include <limits>

#include "base/byte_reader.h"
#include "base/limits.h"

namespace ruvo::imaging {
namespace {

constexpr std::uint32_t kFileHeaderBytes = 14;
constexpr std::uint32_t kCoreHeader = 12;      // OS/2 1.x, 16-bit sizes and 3-byte table entries
constexpr std::uint32_t kShortestOs2Two = 16;  // OS/2 2.x may end after any field from here on
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kMasksInHeader = 52;
constexpr std::uint32_t kAlphaInHeader = 56;
constexpr std::uint32_t kOs2TwoHeader = 64;
constexpr std::uint32_t kLongestHeader = 4096;  // no published header passes 124 bytes

// The info header as it lies in the file; a field past its end reads as zero.
class InfoHeader {
 public:
  InfoHeader(std::span<const std::uint8_t> head, std::size_t start) : head_(head), start_(start) { size_ = word(0, 4); }
  std::uint32_t size() const { return size_; }
  std::uint32_t field32(std::uint32_t offset) const { return offset + 4 <= size_ ? word(offset, 4) : 0; }
  std::uint32_t field16(std::uint32_t offset) const { return offset + 2 <= size_ ? word(offset, 2) : 0; }
  // Bytes that follow the header (the masks of a version 3 header).
  std::uint32_t after(std::uint32_t offset) const { return word(size_ + offset, 4); }
  bool isOs2Two() const {
    return (size_ < kInfoHeader) || size_ == kOs2TwoHeader ||
           (size_ > kInfoHeader && size_ < kOs2TwoHeader && size_ != kMasksInHeader && size_ != kAlphaInHeader);
  }

 private:
  std::uint32_t word(std::uint32_t offset, std::uint32_t bytes) const {
    ByteReader reader(head_.subspan(std::min(head_.size(), start_)));
    reader.seek(std::min<std::size_t>(offset, reader.size()));
    return bytes == 4 ? reader.u32() : reader.u16();
  }

  std::span<const std::uint8_t> head_;
  std::size_t start_;
  std::uint32_t size_ = 0;
};

BmpCoding codingOf(std::uint32_t compression, int bits, bool os2) {
  switch (compression) {
    case 0:
      return BmpCoding::Plain;
    case 1:
      return bits == 8 ? BmpCoding::Rle : BmpCoding::Unsupported;
    case 2:
      return bits == 4 ? BmpCoding::Rle : BmpCoding::Unsupported;
    case 3:  // Huffman in OS/2 files
      return !os2 && (bits == 16 || bits == 32) ? BmpCoding::Fields : BmpCoding::Unsupported;
    case 4:  // RLE24 in OS/2 files, an embedded JPEG elsewhere
      return os2 && bits == 24 ? BmpCoding::Rle : BmpCoding::Unsupported;
    case 6:  // bit fields with alpha, Windows CE
      return bits == 16 || bits == 32 ? BmpCoding::Fields : BmpCoding::Unsupported;
    default:
      return BmpCoding::Unsupported;
  }
}

// Fills the masks; answers how many bytes they take behind the header.
std::uint32_t readMasks(const InfoHeader& info, std::uint32_t compression, BmpHeader& header) {
  std::uint32_t behind = 0;
  if (header.coding == BmpCoding::Fields) {
    if (info.size() >= kMasksInHeader) {
      for (std::uint32_t i = 0; i < 4; ++i) header.masks[i] = info.field32(40 + 4 * i);
    } else {
      behind = compression == 6 ? 16 : 12;
      for (std::uint32_t i = 0; i < behind / 4; ++i) header.masks[i] = info.after(4 * i);
    }
  }
  const bool none = header.masks[0] == 0 && header.masks[1] == 0 && header.masks[2] == 0;
  if (header.bits == 16 && none) {
    // Plain 16 bits are 5, 5, 5; they take the way of the bit fields from here.
    header.coding = BmpCoding::Fields;
    header.masks = {0x7C00, 0x03E0, 0x001F, 0};
  } else if (header.coding == BmpCoding::Fields && none) {
    header.masks = {0x00FF0000, 0x0000FF00, 0x000000FF, header.masks[3]};
  }
  return behind;
}

// Writers disagree about the table's length and about the data offset. The count field may be too large or absent; then
// the offset, when it lies behind the headers, says how many entries there are at most. An offset that points into the
// headers is no offset: the data follow the table.
void placeTableAndData(std::uint32_t coloursUsed, std::uint32_t headersEnd, std::uint32_t statedOffset,
                       BmpHeader& header) {
  const std::uint32_t most = header.bits <= 8 ? 1u << header.bits : 0;
  std::uint32_t entries = coloursUsed == 0 ? most : std::min(coloursUsed, most);
  const auto entryBytes = static_cast<std::uint32_t>(header.tableEntryBytes);
  header.tableOffset = headersEnd;
  if (statedOffset > headersEnd || (statedOffset == headersEnd && most == 0)) {
    entries = std::min(entries, (statedOffset - headersEnd) / entryBytes);
    header.dataOffset = statedOffset;
  } else {
    header.dataOffset = headersEnd + entries * entryBytes;
  }
  header.tableEntries = static_cast<int>(entries);
}

LoadError checkSize(std::int64_t width, std::int64_t height, BmpHeader& header) {
  header.topDown = height < 0;
  if (height < 0) height = -height;
  constexpr std::int64_t kMost = std::numeric_limits<int>::max();
  header.width = static_cast<int>(std::clamp<std::int64_t>(width, 0, kMost));
  header.height = static_cast<int>(std::min(height, kMost));
  if (width < 1 || height < 1) return LoadError::Broken;
  return pictureSizeAllowed(width, height) ? LoadError::None : LoadError::TooLarge;
}

}  // namespace

bool looksLikeBmpHead(std::span<const std::uint8_t> head) {
  return head.size() >= 2 && head[0] == 'B' && (head[1] == 'M' || head[1] == 'A');
}

LoadError parseBmpHeader(std::span<const std::uint8_t> head, BmpHeader& header) {
  if (!looksLikeBmpHead(head)) return LoadError::NotThisFormat;
  ByteReader reader(head);
  // An OS/2 bitmap array starts with a header of its own; offsets still count from the start of the file.
  const std::size_t start = head[1] == 'A' ? kFileHeaderBytes : 0;
  reader.seek(start);
  if (reader.u16() != 0x4D42) return LoadError::NotThisFormat;
  reader.skip(8);
  const std::uint32_t statedOffset = reader.u32();
  if (!reader.ok()) return LoadError::Broken;

  const InfoHeader info(head, start + kFileHeaderBytes);
  if (info.size() > kLongestHeader || (info.size() != kCoreHeader && info.size() < kShortestOs2Two)) {
    return LoadError::Broken;
  }
  const bool core = info.size() == kCoreHeader;
  header.bits = static_cast<int>(info.field16(core ? 10 : 14));
  const LoadError size =
      core ? checkSize(info.field16(4), info.field16(6), header)
           : checkSize(static_cast<std::int32_t>(info.field32(4)), static_cast<std::int32_t>(info.field32(8)), header);
  if (size != LoadError::None) return size;

  constexpr std::array<int, 7> kDepths = {1, 2, 4, 8, 16, 24, 32};
  if (std::find(kDepths.begin(), kDepths.end(), header.bits) == kDepths.end()) return LoadError::Broken;
  const std::uint32_t compression = core ? 0 : info.field32(16);
  header.coding = codingOf(compression, header.bits, info.isOs2Two());
  if (header.coding == BmpCoding::Unsupported) return LoadError::Broken;
  header.tableEntryBytes = core ? 3 : 4;
  const std::uint32_t behind = readMasks(info, compression, header);
  const auto headersEnd = static_cast<std::uint32_t>(start) + kFileHeaderBytes + info.size() + behind;
  placeTableAndData(core ? 0 : info.field32(32), headersEnd, statedOffset, header);
  return LoadError::None;
}

}  // namespace ruvo::imaging
