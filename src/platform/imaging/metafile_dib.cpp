#include "platform/imaging/metafile_dib.h"

#include "base/byte_reader.h"
#include "base/byte_writer.h"
#include "platform/imaging/bmp_reader.h"
#include "platform/imaging/codecs.h"
#include "platform/imaging/metafile_device.h"
#include "platform/imaging/pixel_rows.h"

namespace ruvo::imaging::meta {
namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::uint32_t kCoreHeader = 12;
constexpr std::uint32_t kInfoHeader = 40;
enum Compression : std::uint32_t { kFields = 3, kJpeg = 4, kPng = 5 };

struct Header {
  std::uint32_t size = 0;
  std::int64_t width = 0;
  std::int64_t height = 0;
  int bits = 0;
  std::uint32_t compression = 0;
  std::uint32_t coloursUsed = 0;
  bool topDown = false;
  bool ok = false;
};

Header readHeader(std::span<const std::uint8_t> info) {
  Header h;
  ByteReader reader(info);
  h.size = reader.u32();
  const bool core = h.size == kCoreHeader;
  h.width = core ? reader.u16() : reader.i32();
  const std::int64_t height = core ? reader.u16() : reader.i32();
  h.topDown = height < 0;
  h.height = std::abs(height);
  reader.skip(2);
  h.bits = reader.u16();
  if (!core) {
    h.compression = reader.u32();
    reader.skip(12);
    h.coloursUsed = reader.u32();
  }
  h.ok = reader.ok() && h.size >= kCoreHeader && h.size <= info.size();
  return h;
}

// A table of palette numbers becomes one of colours, as bitmap files have it.
std::vector<std::uint8_t> withColours(const Header& h, const DibRef& dib, const PaletteSpec* palette,
                                      std::size_t& tableEnd) {
  std::uint32_t entries = 1u << h.bits;
  if (h.coloursUsed != 0) entries = std::min(entries, h.coloursUsed);
  std::vector<std::uint8_t> out(dib.info.begin(), dib.info.begin() + h.size);
  ByteReader reader(dib.info);
  reader.seek(h.size);
  for (std::uint32_t i = 0; i < entries; ++i) {
    const std::uint16_t index = reader.u16();
    const Colour c = palette && index < palette->size() ? (*palette)[index] : (i == 0 ? kBlack : kWhite);
    out.insert(out.end(), {blueOf(c), greenOf(c), redOf(c)});
    if (h.size != kCoreHeader) out.push_back(0);
  }
  tableEnd = std::min<std::size_t>(h.size + std::size_t{2} * entries, dib.info.size());
  return out;
}

// The bits hold only some rows of what the header states.
void cutHeight(const Header& h, std::uint32_t scans, std::vector<std::uint8_t>& info) {
  constexpr std::size_t kHeightAt = 8;
  if (scans == 0 || h.size == kCoreHeader || scans >= h.height || info.size() < kHeightAt + 4) return;
  const auto rows = h.topDown ? 0 - scans : scans;
  for (std::size_t i = 0; i < 4; ++i) info[kHeightAt + i] = static_cast<std::uint8_t>(rows >> (8 * i));
}

// Fields in the usual places are the same as none, but for byte 3, which then stays.
void dropUsualFields(const Header& h, std::vector<std::uint8_t>& info) {
  constexpr std::size_t kMasks = 12, kCompressionAt = 16;
  if (h.compression != kFields || h.bits != 32 || h.size != kInfoHeader || info.size() < kInfoHeader + kMasks) return;
  ByteReader masks(info);
  masks.seek(kInfoHeader);
  if (masks.u32() != 0xFF0000 || masks.u32() != 0xFF00 || masks.u32() != 0xFF) return;
  info[kCompressionAt] = 0;
  info.erase(info.begin() + kInfoHeader, info.begin() + kInfoHeader + kMasks);
}

// The file that the bitmap would be.
std::vector<std::uint8_t> asFile(const Header& h, const DibRef& dib, const PaletteSpec* palette, bool keepAlpha) {
  std::vector<std::uint8_t> info(dib.info.begin(), dib.info.end());
  std::span<const std::uint8_t> bits = dib.bits;
  if (dib.paletteIndices && h.bits <= 8) {
    std::size_t tableEnd = 0;
    info = withColours(h, dib, palette, tableEnd);
    if (bits.empty()) bits = dib.info.subspan(tableEnd);
  }
  if (keepAlpha) dropUsualFields(h, info);
  cutHeight(h, dib.scans, info);
  // Packed bitmaps leave the offset open: their bits follow the table.
  const bool packed = dib.bits.empty() && bits.empty();
  ByteWriter file;
  file.u16(0x4D42);
  file.u32(0);
  file.u32(0);
  file.u32(packed ? 0 : static_cast<std::uint32_t>(kFileHeader + info.size()));
  file.append(info);
  file.append(bits);
  return file.take();
}

raster::Surface decodeEmbedded(const DibRef& dib, const Header& h, std::int64_t maxPixels) {
  MemorySource source(dib.bits.empty() ? dib.info.subspan(h.size) : dib.bits);
  LoadResult loaded = h.compression == kJpeg ? readJpeg(source, maxPixels) : readPng(source, maxPixels);
  return loaded.picture.bitmap ? std::move(*loaded.picture.bitmap) : raster::Surface();
}

}  // namespace

raster::Surface decodeDib(Device& device, const DibRef& dib, std::int64_t maxPixels, bool keepAlpha) {
  const Header h = readHeader(dib.info);
  if (!h.ok || !sizeAllowed(h.width, h.height, maxPixels)) return {};
  constexpr double kPerPixel = 2, kPerByte = 1;
  const auto pixels = static_cast<double>(h.width * h.height);
  if (!device.charge(kPerPixel * pixels + kPerByte * static_cast<double>(dib.info.size() + dib.bits.size()))) return {};
  raster::Surface surface;
  if (h.compression == kJpeg || h.compression == kPng) {
    if (!device.charge(20 * pixels)) return {};
    surface = decodeEmbedded(dib, h, maxPixels);
  } else {
    surface = std::move(readBmp(asFile(h, dib, device.now().palette.get(), keepAlpha)).surface);
  }
  if (!keepAlpha && surface.depth() == 32) {
    for (int y = 0; y < surface.height(); ++y) {
      clearAlpha(reinterpret_cast<Pixel32*>(surface.memoryRow(y)), surface.width());
    }
  }
  return surface;
}

bool isTopDown(const DibRef& dib) {
  return readHeader(dib.info).topDown;
}

raster::Surface decodeBitmap16(std::span<const std::uint8_t> bitmap) {
  ByteReader reader(bitmap);
  reader.skip(2);
  const int width = reader.u16(), height = reader.u16(), stride = reader.u16();
  reader.skip(1);
  const int depth = reader.u8();
  const std::int64_t pixels = static_cast<std::int64_t>(width) * height;
  raster::Surface surface;
  if (!reader.ok() || depth != 1 || pixels > kMostPatternPixels || stride < (width + 7) / 8 ||
      !surface.create(width, height, 1)) {
    return {};
  }
  surface.table()[1] = raster::TableEntry::of(kWhite);
  for (int y = 0; y < height; ++y) {
    const auto row = reader.take(static_cast<std::size_t>(stride));
    std::copy_n(row.begin(), std::min<std::size_t>(row.size(), static_cast<std::size_t>((width + 7) / 8)),
                surface.pictureRow(y));
  }
  return surface;
}

}  // namespace ruvo::imaging::meta
