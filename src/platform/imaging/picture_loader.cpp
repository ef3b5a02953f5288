#include "platform/imaging/picture_loader.h"

#include <new>

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
LoadResult loadBmp(const std::filesystem::path& path) {
  BmpResult file = readBmpFile(path);
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
    return kind == FileKind::Bmp ? loadBmp(path) : readAny(source, kind);
  } catch (const std::bad_alloc&) {
    return refused(LoadError::NoMemory);
  }
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

}  // namespace ruvo::imaging
