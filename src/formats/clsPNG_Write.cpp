// The writer of PNG files (ISO 15948): rows without filters, compressed as one stream by zlib at its highest level.
#include <unistd.h>
#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <system_error>

#include "base/byte_writer.h"
#include "base/file_io.h"
#include "base/latin1.h"
#include "formats/clsCRC.h"
#include "formats/clsPNG_Private.h"
#include "image/clsPalDither.h"
#include "image/row_reader.h"
#include "platform/raster/blit.h"
#include "platform/raster/palette_match.h"

namespace ruvo {

// A picture on its way into a file: samples in file order, row by row.
struct clsPNG::Outgoing {
  png::Header header;
  std::vector<raster::TableEntry> table;                      // at 8 bits
  std::function<void(int y, std::uint8_t* samples)> readRow;  // all columns
};

namespace {

using png::Header;
constexpr std::uint32_t kSmallestInterlaced = 5;  // a side
constexpr int kBestCompression = 9;

void putChunk(ByteWriter& file, std::string_view name, std::span<const std::uint8_t> data) {
  file.u32be(static_cast<std::uint32_t>(data.size()));
  const std::size_t start = file.size();
  file.append(name);
  file.append(data);
  file.u32be(clsCRC().Calculate(std::span(file.bytes()).subspan(start)));
}

void putHeader(ByteWriter& file, const Header& header) {
  ByteWriter data;
  data.u32be(header.width);
  data.u32be(header.height);
  for (const int field : {header.depth, header.type, header.compression, header.filter, header.interlace}) {
    data.u8(static_cast<std::uint8_t>(field));
  }
  putChunk(file, "IHDR", data.bytes());
}

std::vector<std::uint8_t> samplesOf(Colour colour) {
  return {0, redOf(colour), 0, greenOf(colour), 0, blueOf(colour)};
}

// The rows in the order of the file, each behind the number of its filter: none.
std::vector<std::uint8_t> rowsOf(const Header& header, int pixelBytes,
                                 const std::function<void(int y, std::uint8_t*)>& readRow) {
  const std::vector<png::Pass> passes = png::passesOf(header);
  std::vector<std::uint8_t> all(static_cast<std::size_t>(png::bytesOf(passes)));
  std::vector<std::uint8_t> row(static_cast<std::size_t>(header.width) * static_cast<std::size_t>(pixelBytes));
  std::uint8_t* to = all.data();
  for (const png::Pass& pass : passes) {
    for (int i = 0; i < pass.rows; ++i, to += pass.rowBytes + 1) {
      readRow(pass.startY + i * pass.stepY, row.data());
      for (int x = 0; x < pass.columns; ++x) {
        std::memcpy(to + 1 + x * pixelBytes, row.data() + (pass.startX + x * pass.stepX) * pixelBytes,
                    static_cast<std::size_t>(pixelBytes));
      }
    }
  }
  return all;
}

std::vector<std::uint8_t> compressed(const std::vector<std::uint8_t>& plain) {
  uLongf size = compressBound(static_cast<uLong>(plain.size()));
  std::vector<std::uint8_t> packed(size);
  if (compress2(packed.data(), &size, plain.data(), static_cast<uLong>(plain.size()), kBestCompression) != Z_OK) {
    return {};
  }
  packed.resize(size);
  return packed;
}

bool isReadOnly(const std::filesystem::path& file) {
  std::error_code unknown;
  const auto status = std::filesystem::status(file, unknown);
  if (!std::filesystem::exists(status)) return false;
  const auto folder = file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
  return (status.permissions() & std::filesystem::perms::owner_write) == std::filesystem::perms::none ||
         ::access(folder.c_str(), W_OK) != 0;
}

// The part of a surface that is to be written, as a surface of 1, 4 or 8 bits or as 24 or 32.
struct Area {
  const raster::Surface& surface;
  int width;
  int height;

  bool empty() const { return width < 1 || height < 1; }
};
Area areaOf(const raster::Surface& surface, int width, int height) {
  return {surface, std::min(width, surface.width()), std::min(height, surface.height())};
}

}  // namespace

int clsPNG::SavePNG(const std::filesystem::path& FileName, const raster::Surface& Source, int Width, int Height,
                    int Bpp, bool SourceHasAlpha) {
  if (Bpp != 8 && Bpp != 24 && Bpp != 32) return kPngNotThisDepth;
  const int depth = AlphaSet ? 32 : Bpp;
  const Area area = areaOf(Source, Width, Height);
  if (area.empty()) return kPngNotWritten;
  if (depth == 8 && Source.depth() > 8) return SavePNG_008(FileName, Source, Width, Height, Bpp);

  Outgoing out;
  out.header.width = static_cast<std::uint32_t>(area.width);
  out.header.height = static_cast<std::uint32_t>(area.height);
  if (depth == 8) {
    out.header.type = png::kPalette;
    out.table.assign(Source.table().begin(), Source.table().end());
    std::vector<std::uint8_t> loose(static_cast<std::size_t>(area.width));
    out.readRow = [&Source, loose, width = area.width](int y, std::uint8_t* to) mutable {
      const std::uint8_t* row = raster::looseRow(Source, y, 0, width, loose.data());
      std::memcpy(to, row, static_cast<std::size_t>(width));
    };
    return write(FileName, out);
  }
  RowReader reader(Source);
  const bool alpha = depth == 32;
  out.header.type = alpha ? png::kColourAlpha : png::kColour;
  const std::vector<std::uint8_t>& plane = state_->alphaBytes;
  const bool planeFits = plane.size() == static_cast<std::size_t>(area.width) * static_cast<std::size_t>(area.height);
  const bool ownAlpha = SourceHasAlpha && Source.depth() == 32;
  out.readRow = [&, alpha, planeFits, ownAlpha](int y, std::uint8_t* to) {
    const Pixel32* row = reader.pixels(Source.memoryRowOf(y));
    const std::uint8_t* alphas = planeFits ? plane.data() + static_cast<std::ptrdiff_t>(y) * area.width : nullptr;
    for (int x = 0; x < area.width; ++x) {
      *to++ = row[x].red;
      *to++ = row[x].green;
      *to++ = row[x].blue;
      if (!alpha) continue;
      const bool clear = HasTranspColor && row[x].colour() == TranspColor;
      *to++ = clear ? std::uint8_t{0} : alphas ? alphas[x] : ownAlpha ? row[x].alpha : std::uint8_t{255};
    }
  };
  return write(FileName, out);
}

int clsPNG::SavePNG_008(const std::filesystem::path& FileName, const raster::Surface& Source, int Width, int Height,
                        int Bpp) {
  if (Bpp != 8) return kPngNot8Bit;
  const Area area = areaOf(Source, Width, Height);
  clsDIB copy;  // the dither changes what it reduces
  if (area.empty() || !copy.CreateBlankDIB(area.width, area.height, 32, kWhite)) return kPngNotWritten;
  raster::blit(copy.surface(), 0, 0, Source);
  clsPal pal;
  clsPalDither dither;
  if (!dither.ExactRows(copy, pal, 8)) {
    pal.CreateOptimal(copy, clsPal::kMostEntries);
    dither.DitherToPalette256(copy, pal);
  }
  Outgoing out;
  out.header.width = static_cast<std::uint32_t>(area.width);
  out.header.height = static_cast<std::uint32_t>(area.height);
  out.header.type = png::kPalette;
  out.table.assign(pal.entriesInUse().begin(), pal.entriesInUse().end());
  out.readRow = [&](int y, std::uint8_t* to) {
    std::memcpy(to, dither.row(copy.surface().memoryRowOf(y)).data(), static_cast<std::size_t>(area.width));
  };
  return write(FileName, out);
}

// The chunks that say what the samples mean: PLTE, tRNS, bKGD.
void clsPNG::writeColours(ByteWriter& file, const Outgoing& picture) const {
  const bool indexed = picture.header.type == png::kPalette;
  if (indexed) {
    std::vector<std::uint8_t> colours;
    for (const raster::TableEntry& e : picture.table) colours.insert(colours.end(), {e.red, e.green, e.blue});
    putChunk(file, "PLTE", colours);
  }
  if (HasTranspColor && indexed) {
    const std::size_t index = transparentIndex(picture);
    if (index < picture.table.size()) {
      std::vector<std::uint8_t> alphas(index + 1, 255);
      alphas.back() = 0;
      putChunk(file, "tRNS", alphas);
    }
  } else if (HasTranspColor && picture.header.type == png::kColour) {
    putChunk(file, "tRNS", samplesOf(TranspColor));
  }
  if (!HasBKGDChunk) return;
  if (indexed) {
    const auto index = static_cast<std::uint8_t>(raster::nearestPaletteIndex(picture.table, BKGDColorToUse));
    putChunk(file, "bKGD", {&index, 1});
  } else {
    putChunk(file, "bKGD", samplesOf(BKGDColorToUse));
  }
}

std::size_t clsPNG::transparentIndex(const Outgoing& picture) const {
  if (!TranspPixel) return TranspColor;
  const auto [x, y] = *TranspPixel;
  const auto width = static_cast<int>(picture.header.width), height = static_cast<int>(picture.header.height);
  if (x < 0 || y < 0 || x >= width || y >= height) return picture.table.size();
  std::vector<std::uint8_t> row(static_cast<std::size_t>(width));
  picture.readRow(y, row.data());
  return row[static_cast<std::size_t>(x)];
}

int clsPNG::write(const std::filesystem::path& file, Outgoing& picture) {
  if (isReadOnly(file)) return kPngReadOnly;
  Header& header = picture.header;
  header.depth = 8;
  header.interlace = Interlacing != 0 && std::min(header.width, header.height) >= kSmallestInterlaced ? 1 : 0;
  const std::vector<std::uint8_t> packed = compressed(rowsOf(header, png::channelsOf(header.type), picture.readRow));
  if (packed.empty()) return kPngNotWritten;

  ByteWriter out;
  out.append(png::kSignature);
  putHeader(out, header);
  writeColours(out, picture);
  const std::size_t most = IDATchunkSplitSize > 0 ? static_cast<std::size_t>(IDATchunkSplitSize) : packed.size();
  for (std::size_t at = 0; at < packed.size(); at += most) {
    putChunk(out, "IDAT", std::span(packed).subspan(at, std::min(most, packed.size() - at)));
  }
  if (!CommentText.empty()) {
    // The text alone, with no keyword before it: what was read from a tEXt chunk holds its keyword already.
    const std::string text = latin1FromUtf8(CommentText);
    putChunk(out, "tEXt", {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  }
  putChunk(out, "IEND", {});
  return replaceFile(file, out.bytes()) ? kPngSaved : kPngNotWritten;
}

}  // namespace ruvo
