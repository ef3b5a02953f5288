#include "platform/imaging/picture_loader.h"

#include <new>

#include "base/byte_reader.h"
#include "base/byte_writer.h"
#include "base/file_io.h"
#include "platform/imaging/bmp_reader.h"
#include "platform/imaging/codecs.h"
#include "platform/imaging/imaging_service.h"
#include "platform/imaging/metafile.h"

namespace ruvo::imaging {
namespace {

bool startsWith(std::span<const std::uint8_t> bytes, std::string_view magic) {
  return bytes.size() >= magic.size() &&
         std::equal(magic.begin(), magic.end(), bytes.begin(),
                    [](char m, std::uint8_t b) { return static_cast<std::uint8_t>(m) == b; });
}

bool classicLoaderTakes(FileKind kind) {
  return kind == FileKind::Bmp || kind == FileKind::Jpeg || kind == FileKind::Gif;
}

// A BMP whose rows stop early is refused: the rest of it would be black, and a save would make that lasting.
LoadResult loadBmp(BmpResult&& file) {
  LoadResult result;
  result.error = file && file.truncated ? LoadError::Broken : file.error;
  result.width = file.width;
  result.height = file.height;
  result.fileDepth = file.fileDepth;
  if (result.error == LoadError::None) result.picture = Picture::ofBitmap(std::move(file.surface), file.hasAlpha);
  return result;
}

LoadResult loadMetafile(const std::filesystem::path& path) {
  auto bytes = readWholeFile(path, kMaxFileBytes);
  return bytes ? adoptMetafile(std::move(*bytes)) : refused(LoadError::Broken);
}

LoadResult loadFile(const std::filesystem::path& path, bool classicOnly) {
  try {
    FileBytes source(path);
    if (!source.isOpen()) return refused(LoadError::Missing);
    if (source.size() > kMaxFileBytes) return refused(LoadError::TooLarge);
    std::array<std::uint8_t, 64> first{};
    const std::size_t got = source.readAt(0, first);
    const FileKind kind = kindOf(std::span(first).first(got));
    if (isMetafile(std::span(first).first(got))) return loadMetafile(path);
    if (kind == FileKind::Unknown || (classicOnly && !classicLoaderTakes(kind)))
      return refused(LoadError::NotThisFormat);
    return kind == FileKind::Bmp ? loadBmp(readBmpFile(path)) : readAny(source, kind);
  } catch (const std::bad_alloc&) {
    return refused(LoadError::NoMemory);
  }
}

// The header of a bitmap without the file header before it: one of the published lengths, and one plane.
bool looksLikeDib(std::span<const std::uint8_t> bytes) {
  constexpr std::uint32_t kCoreHeader = 12;
  constexpr std::array<std::uint32_t, 7> kLengths = {kCoreHeader, 40, 52, 56, 64, 108, 124};
  ByteReader reader(bytes);
  const std::uint32_t length = reader.u32();
  reader.skip(length == kCoreHeader ? 4 : 8);
  return reader.u16() == 1 && std::find(kLengths.begin(), kLengths.end(), length) != kLengths.end();
}

// With a file header that leaves the offset of the pixels open, as they follow the table.
std::vector<std::uint8_t> withFileHeader(std::span<const std::uint8_t> dib) {
  constexpr std::size_t kRestOfFileHeader = 12;
  ByteWriter file;
  file.append("BM");
  file.zeros(kRestOfFileHeader);
  file.append(dib);
  return file.take();
}

LoadResult loadMetafile(std::vector<std::uint8_t>&& bytes, std::int64_t maxPixels) {
  LoadResult loaded = adoptMetafile(std::move(bytes));
  if (loaded && !sizeAllowed(loaded.width, loaded.height, maxPixels)) {
    loaded.picture = {};
    loaded.error = LoadError::TooLarge;
  }
  return loaded;
}

}  // namespace

FileKind kindOf(std::span<const std::uint8_t> firstBytes) {
  using namespace std::string_view_literals;
  if (looksLikeBmp(firstBytes)) return FileKind::Bmp;
  static constexpr std::pair<std::string_view, FileKind> kMagics[] = {
      {"\xFF\xD8"sv, FileKind::Jpeg}, {"GIF87a"sv, FileKind::Gif},
      {"GIF89a"sv, FileKind::Gif},    {"II*\0"sv, FileKind::Tiff},
      {"MM\0*"sv, FileKind::Tiff},    {"II+\0"sv, FileKind::Tiff},
      {"MM\0+"sv, FileKind::Tiff},    {"\x89PNG\r\n\x1A\n"sv, FileKind::Png},
  };
  for (const auto& [magic, kind] : kMagics) {
    if (startsWith(firstBytes, magic)) return kind;
  }
  return FileKind::Unknown;
}

LoadResult readAny(ByteSource& source, FileKind kind, std::int64_t maxPixels) {
  switch (kind) {
    case FileKind::Jpeg:
      return readJpeg(source, maxPixels);
    case FileKind::Gif:
      return readGif(source, maxPixels);
    case FileKind::Png:
      return readPng(source, maxPixels);
    case FileKind::Tiff:
      return readTiff(source, maxPixels);
    case FileKind::Bmp:
    case FileKind::Unknown:
      break;
  }
  return refused(LoadError::NotThisFormat);
}

LoadResult LoadPicture(const std::filesystem::path& path) {
  return loadFile(path, true);
}

LoadResult LoadImageThroughGDIPlus(const std::filesystem::path& path) {
  if (!imagingUsable()) return refused(LoadError::NotThisFormat);
  return loadFile(path, false);
}

LoadResult LoadPictureFromBytes(std::vector<std::uint8_t> bytes, std::int64_t maxPixels) {
  if (static_cast<std::int64_t>(bytes.size()) > kMaxFileBytes) return refused(LoadError::TooLarge);
  try {
    if (isMetafile(bytes)) return loadMetafile(std::move(bytes), maxPixels);
    const FileKind kind = kindOf(bytes);
    if (kind == FileKind::Bmp) return loadBmp(readBmp(bytes, maxPixels));
    if (kind == FileKind::Unknown && looksLikeDib(bytes)) return loadBmp(readBmp(withFileHeader(bytes), maxPixels));
    MemorySource source(bytes);
    return readAny(source, kind, maxPixels);
  } catch (const std::bad_alloc&) {
    return refused(LoadError::NoMemory);
  }
}

}  // namespace ruvo::imaging
