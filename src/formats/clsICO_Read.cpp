#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

#include "base/byte_reader.h"
#include "base/file_io.h"
#include "base/file_source.h"
#include "base/limits.h"
#include "formats/clsICO.h"
#include "formats/ico_layout.h"
#include "platform/imaging/codecs.h"

namespace ruvo {
namespace {

constexpr std::size_t kSignatureBytes = 8;

bool isPngAt(std::span<const std::uint8_t> file, std::size_t offset) {
  return imaging::kindOf(ByteReader(file).slice(offset, kSignatureBytes)) == imaging::FileKind::Png;
}

struct FileHeader {
  int type = 0;
  int count = 0;
};

struct Entry {
  int width = 0;
  int height = 0;
  int firstWord = 0;  // planes, or a cursor's hot spot x
  int secondWord = 0;
  std::uint32_t bytesInRes = 0;
  std::uint32_t offset = 0;
};

FileHeader readHeader(ByteReader& reader) {
  reader.skip(2);
  FileHeader header;
  header.type = reader.u16();
  header.count = reader.u16();
  return header;
}

Entry readEntry(ByteReader& reader) {
  Entry entry;
  entry.width = reader.u8();
  entry.height = reader.u8();
  reader.skip(2);
  entry.firstWord = reader.u16();
  entry.secondWord = reader.u16();
  entry.bytesInRes = reader.u32();
  entry.offset = reader.u32();
  return entry;
}

// Only the first entry is looked at. A side of 0 is that of a PNG of 256; elsewhere it makes the file none of ours.
bool valid(const FileHeader& header, const Entry& first, bool firstIsPng) {
  const bool hasSize = (first.width != 0 && first.height != 0) || firstIsPng;
  return (header.type == kIconType || header.type == kCursorType) && header.count > 0 && hasSize &&
         first.bytesInRes > 0 && first.offset > 0;
}

bool validFile(const std::filesystem::path& fileName, int type) {
  const FileSource file(fileName);
  std::array<std::uint8_t, ico::kHeaderBytes + ico::kEntryBytes> start{};
  if (!file.isOpen() || file.readAt(0, start) != start.size()) return false;
  ByteReader reader(start);
  const FileHeader header = readHeader(reader);
  const Entry first = readEntry(reader);
  std::array<std::uint8_t, kSignatureBytes> data{};
  const bool isPng = file.readAt(first.offset, data) == data.size() && isPngAt(data, 0);
  return header.type == type && valid(header, first, isPng);
}

struct InfoHeader {
  std::int32_t width = 0;
  std::int32_t height = 0;
  int bpp = 0;
  std::uint32_t coloursUsed = 0;
};

InfoHeader readInfo(ByteReader& reader) {
  InfoHeader info;
  reader.skip(4);
  info.width = reader.i32();
  info.height = reader.i32() / 2;
  reader.skip(2);
  info.bpp = reader.u16();
  reader.skip(16);
  info.coloursUsed = reader.u32();
  reader.skip(4);
  return info;
}

// The table has 2^bpp entries whatever the header says. Some writers store fewer all the same; theirs are the files
// whose stated length fits the short table to the byte.
std::size_t storedEntries(const InfoHeader& info, std::uint32_t bytesInRes, std::size_t pixelBytes) {
  const std::size_t full = ico::tableEntries(info.bpp);
  const bool isShort = info.coloursUsed > 0 && info.coloursUsed < full &&
                       bytesInRes == ico::kInfoBytes + info.coloursUsed * 4 + pixelBytes;
  return isShort ? info.coloursUsed : full;
}

// White where alpha is 0, for pictures that come without a mask.
bool maskFromAlpha(const raster::Surface& picture, bool hasAlpha, clsDIB& AND) {
  if (!AND.CreateBlankDIB(picture.width(), picture.height(), 1, kWhite, false, true)) return false;
  for (int y = 0; hasAlpha && y < picture.height(); ++y) {
    const auto* from = reinterpret_cast<const Pixel32*>(picture.pictureRow(y));
    std::uint8_t* to = AND.surface().pictureRow(y);
    for (int x = 0; x < picture.width(); ++x) {
      if (from[x].alpha == 0) to[x / 8] |= ico::maskBit(x);
    }
  }
  return true;
}

bool anyAlpha(const raster::Surface& picture) {
  const std::span<const std::uint8_t> bytes = picture.bytes();
  for (std::size_t i = 3; i < bytes.size(); i += 4) {
    if (bytes[i] != 0) return true;
  }
  return false;
}

void copyBits(std::span<const std::uint8_t> from, clsDIB& to) {
  std::memcpy(to.DIBBitsPtr(), from.data(), from.size());
}

// Reads the images of one file. Entries may share data or lie across one another; what all of them may ask for together
// is bounded, so that a small file of many entries can not claim much memory or time.
class ImageReader {
 public:
  explicit ImageReader(std::span<const std::uint8_t> bytes) : bytes_(bytes), bytesLeft_(bytes.size() * 4) {}

  clsICO::Image read(const Entry& entry, bool isCursor) {
    clsICO::Image image;
    image.bytesInRes = entry.bytesInRes;
    if (isCursor) {
      image.hotSpotX = entry.firstWord;
      image.hotSpotY = entry.secondWord;
    }
    image.readable = isPngAt(bytes_, entry.offset) ? readPng(entry, image) : readBitmap(entry, image);
    if (!image.readable) {
      image.XOR.ClearUp();
      image.AND.ClearUp();
    }
    return image;
  }

  // Of the first image that was refused for its size.
  Size refusedSize() const { return refused_; }

 private:
  bool pay(std::int64_t pixels, std::size_t bytes) {
    if (pixels > pixelsLeft_ || bytes > bytesLeft_) return false;
    pixelsLeft_ -= pixels;
    bytesLeft_ -= bytes;
    return true;
  }

  bool sizeTaken(std::int64_t width, std::int64_t height) {
    if (pictureSizeAllowed(width, height)) return true;
    if (refused_ == Size{}) refused_ = {static_cast<int>(width), static_cast<int>(height)};
    return false;
  }

  bool readPng(const Entry& entry, clsICO::Image& image) {
    const std::size_t most = bytes_.size() - entry.offset;
    const auto data = bytes_.subspan(entry.offset, std::min<std::size_t>(entry.bytesInRes, most));
    if (!pay(0, data.size())) return false;
    imaging::MemorySource header(data), source(data);
    // No pixel is allowed, so it answers "too large" and the size of any sound header.
    const imaging::LoadResult stated = imaging::readPng(header, 0);
    image.statedWidth = stated.width;
    image.statedHeight = stated.height;
    image.statedBPP = stated.fileDepth;
    // Paid before it is decoded: a picture whose end is damaged has cost its time too.
    if (stated.error != imaging::LoadError::TooLarge || !sizeTaken(stated.width, stated.height) ||
        !pay(std::int64_t{stated.width} * stated.height, 0)) {
      return false;
    }
    imaging::LoadResult loaded = imaging::readPng(source);
    if (!loaded || !loaded.picture.bitmap) return false;
    image.XOR.adopt(std::move(*loaded.picture.bitmap), loaded.picture.hasAlpha);
    return maskFromAlpha(image.XOR.surface(), image.XOR.DIBhasAlpha(), image.AND);
  }

  bool readBitmap(const Entry& entry, clsICO::Image& image) {
    ByteReader reader(bytes_);
    reader.seek(entry.offset);
    const InfoHeader info = readInfo(reader);
    if (!reader.ok()) return false;
    image.statedWidth = entry.width != 0 ? entry.width : info.width;
    image.statedHeight = info.height;
    image.statedBPP = info.bpp;
    const bool depthKnown = info.bpp == 1 || info.bpp == 4 || info.bpp == 8 || info.bpp == 24 || info.bpp == 32;
    if (!depthKnown || !sizeTaken(image.statedWidth, image.statedHeight)) return false;

    const int width = image.statedWidth, height = image.statedHeight;
    const auto rows = static_cast<std::size_t>(height);
    const std::size_t xorBytes = static_cast<std::size_t>(raster::strideFor(width, info.bpp)) * rows;
    const std::size_t andBytes = static_cast<std::size_t>(raster::strideFor(width, 1)) * rows;
    const auto table = reader.take(storedEntries(info, entry.bytesInRes, xorBytes + andBytes) * 4);
    const auto picture = reader.take(xorBytes);
    if (!reader.ok() || !pay(std::int64_t{width} * height, ico::kInfoBytes + table.size() + xorBytes)) return false;

    if (!image.XOR.CreateBlankDIB(width, height, info.bpp, kWhite)) return false;
    if (info.bpp <= 8) image.XOR.SetPaletteToDIB8BPP(table);
    copyBits(picture, image.XOR);
    if (info.bpp == 32) image.XOR.setDIBhasAlpha(anyAlpha(image.XOR.surface()));
    // Pictures with alpha need no mask, and there are writers that leave it out.
    if (reader.left() < andBytes && image.XOR.DIBhasAlpha()) {
      return maskFromAlpha(image.XOR.surface(), true, image.AND);
    }
    const auto mask = reader.take(andBytes);
    if (!reader.ok() || !image.AND.CreateBlankDIB(width, height, 1, kWhite, false, true)) return false;
    copyBits(mask, image.AND);
    return true;
  }

  std::span<const std::uint8_t> bytes_;
  std::int64_t pixelsLeft_ = kMaxPicturePixels;
  std::size_t bytesLeft_;
  Size refused_;
};

}  // namespace

bool clsICO::ValidIcons(const std::filesystem::path& FileName) {
  return validFile(FileName, kIconType);
}

bool clsICO::ValidCursor(const std::filesystem::path& FileName) {
  return validFile(FileName, kCursorType);
}

bool clsICO::OpenICO(const std::filesystem::path& FileName) {
  ClearUp();
  if (!ValidIcons(FileName) && !ValidCursor(FileName)) return false;
  const auto bytes = readWholeFile(FileName, kMaxFileBytes);
  return bytes && openBytes(*bytes);
}

bool clsICO::openBytes(std::span<const std::uint8_t> bytes) {
  ClearUp();
  ByteReader reader(bytes);
  const FileHeader header = readHeader(reader);
  const auto directory = static_cast<std::size_t>(header.count) * ico::kEntryBytes;
  if (!reader.ok() || reader.left() < directory) return false;

  ImageReader images(bytes);
  for (int i = 0; i < header.count; ++i) {
    const Entry entry = readEntry(reader);
    if (i == 0 && !valid(header, entry, isPngAt(bytes, entry.offset))) return false;
    images_.push_back(images.read(entry, header.type == kCursorType));
  }
  type_ = header.type;
  const bool any = firstReadable() >= 0;
  if (!any) ClearUp();
  refusedSize_ = images.refusedSize();
  return any;
}

}  // namespace ruvo
