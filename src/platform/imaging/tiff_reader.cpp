// The first page of a TIFF. Grey, colour, palette and ink pictures of any sample depth are unpacked here, rows straight
// from the strips or tiles; what needs colour science (YCbCr, L*a*b*, LogLuv) goes through libtiff's own conversion.
#include "platform/imaging/codecs.h"
#include "platform/imaging/pixel_rows.h"
#include "platform/imaging/tiff_file.h"
#include "platform/imaging/tiff_samples.h"

namespace ruvo::imaging {
namespace {

constexpr std::int64_t kMaxRowBytes = 1 << 24;
constexpr std::int64_t kMaxBlockBytes = kMaxTiffAllocation;

// The fields of the directory that decide how the picture is read.
struct Page {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::uint16_t photometric = 0;
  std::uint16_t bits = 1;
  std::uint16_t samples = 1;
  std::uint16_t sampleFormat = SAMPLEFORMAT_UINT;
  std::uint16_t planar = PLANARCONFIG_CONTIG;
  TiffAlpha alpha = TiffAlpha::None;
  bool tiled = false;
};

// ExtraSamples: the first one is alpha when it says so. Unspecified data is no alpha: files keep masks and spot inks
// there. A fourth sample of an RGB picture with no such field at all is taken as straight alpha.
TiffAlpha alphaOf(TIFF* tiff, const Page& page) {
  std::uint16_t count = 0;
  const std::uint16_t* kinds = nullptr;
  if (TIFFGetField(tiff, TIFFTAG_EXTRASAMPLES, &count, &kinds) && count > 0 && kinds) {
    if (kinds[0] == EXTRASAMPLE_ASSOCALPHA) return TiffAlpha::Multiplied;
    return kinds[0] == EXTRASAMPLE_UNASSALPHA ? TiffAlpha::Straight : TiffAlpha::None;
  }
  return page.photometric == PHOTOMETRIC_RGB && page.samples == 4 ? TiffAlpha::Straight : TiffAlpha::None;
}

bool readPage(TIFF* tiff, Page& page) {
  if (!TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &page.width) || !TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &page.height)) {
    return false;
  }
  TIFFGetFieldDefaulted(tiff, TIFFTAG_BITSPERSAMPLE, &page.bits);
  TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &page.samples);
  TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLEFORMAT, &page.sampleFormat);
  TIFFGetFieldDefaulted(tiff, TIFFTAG_PLANARCONFIG, &page.planar);
  page.tiled = TIFFIsTiled(tiff) != 0;
  if (!TIFFGetField(tiff, TIFFTAG_PHOTOMETRIC, &page.photometric)) {
    std::uint16_t compression = COMPRESSION_NONE;
    TIFFGetFieldDefaulted(tiff, TIFFTAG_COMPRESSION, &compression);
    const bool fax = compression == COMPRESSION_CCITTRLE || compression == COMPRESSION_CCITTFAX3 ||
                     compression == COMPRESSION_CCITTFAX4 || compression == COMPRESSION_CCITTRLEW;
    page.photometric = page.samples >= 3 ? PHOTOMETRIC_RGB : fax ? PHOTOMETRIC_MINISWHITE : PHOTOMETRIC_MINISBLACK;
  }
  page.alpha = alphaOf(tiff, page);
  return true;
}

// 256 entries; the file's values have 16 bits, though some writers put 8-bit ones there.
std::vector<Pixel32> readTable(TIFF* tiff, int bits) {
  std::vector<Pixel32> table(256);
  std::uint16_t *red = nullptr, *green = nullptr, *blue = nullptr;
  if (bits > 8 || !TIFFGetField(tiff, TIFFTAG_COLORMAP, &red, &green, &blue) || !red || !green || !blue) return {};
  const int count = 1 << bits;
  bool wide = false;
  for (int i = 0; i < count; ++i) wide = wide || red[i] > 255 || green[i] > 255 || blue[i] > 255;
  const auto byteOf = [&](int value) {
    return static_cast<std::uint8_t>(wide ? (value * 255 + 32767) / 65535 : value);
  };
  for (int i = 0; i < count; ++i) table[i] = {byteOf(blue[i]), byteOf(green[i]), byteOf(red[i]), 0};
  return table;
}

// How to unpack the page here; false when it is a matter for the library's conversion or not readable.
bool pixelFormatOf(TIFF* tiff, const Page& page, TiffPixelFormat& format) {
  switch (page.photometric) {
    case PHOTOMETRIC_MINISWHITE:
      format.colours = TiffColours::WhiteIsZero;
      break;
    case PHOTOMETRIC_MINISBLACK:
      format.colours = TiffColours::BlackIsZero;
      break;
    case PHOTOMETRIC_RGB:
      format.colours = TiffColours::Rgb;
      break;
    case PHOTOMETRIC_PALETTE:
      format.colours = TiffColours::Palette;
      break;
    case PHOTOMETRIC_SEPARATED:
      format.colours = TiffColours::Inks;
      break;
    default:
      return false;
  }
  switch (page.sampleFormat) {
    case SAMPLEFORMAT_INT:
      format.kind = SampleKind::Signed;
      break;
    case SAMPLEFORMAT_IEEEFP:
      format.kind = SampleKind::Float;
      break;
    case SAMPLEFORMAT_UINT:
    case SAMPLEFORMAT_VOID:
      format.kind = SampleKind::Unsigned;
      break;
    default:
      return false;
  }
  const bool wholeFloat = page.bits == 32 || page.bits == 64;
  if (format.kind == SampleKind::Float ? !wholeFloat : page.bits < 1 || page.bits > 32) return false;
  format.bits = page.bits;
  format.alpha = page.alpha;
  format.colourSamples = 1;
  if (format.colours == TiffColours::Rgb) format.colourSamples = 3;
  if (format.colours == TiffColours::Inks) format.colourSamples = page.samples >= 4 ? 4 : 3;
  if (format.colours == TiffColours::Palette) {
    format.alpha = TiffAlpha::None;
    format.kind = SampleKind::Unsigned;
    format.table = readTable(tiff, page.bits);
    if (format.table.empty()) return false;
  }
  if (format.usedSamples() > page.samples) format.alpha = TiffAlpha::None;
  return format.colourSamples <= page.samples;
}

// Turns decoded rows into pixels; owns the scratch row.
class RowWriter {
 public:
  RowWriter(const Page& page, const TiffPixelFormat& format, raster::Surface& surface, std::uint32_t blockWidth)
      : format_(format), surface_(surface), direct_(format.bits == 8 && format.kind == SampleKind::Unsigned) {
    step_ = page.planar == PLANARCONFIG_CONTIG ? page.samples : format.usedSamples();
    if (!direct_ || page.planar != PLANARCONFIG_CONTIG) scratch_.resize(static_cast<std::size_t>(blockWidth) * step_);
  }

  // All samples of the row's pixels side by side; `count` pixels from column x on.
  void interleaved(const std::uint8_t* row, int x, int y, int count) {
    if (!direct_) {
      unpackSamples(format_, row, count * step_, scratch_.data(), 1);
      row = scratch_.data();
    }
    samplesToPixels(format_, row, step_, pixels(x, y), count);
  }
  // One row of each plane.
  void planes(std::span<const std::uint8_t* const> rows, int x, int y, int count) {
    for (int s = 0; s < step_; ++s) unpackSamples(format_, rows[s], count, scratch_.data() + s, step_);
    samplesToPixels(format_, scratch_.data(), step_, pixels(x, y), count);
  }

 private:
  Pixel32* pixels(int x, int y) { return reinterpret_cast<Pixel32*>(surface_.pictureRow(y)) + x; }

  const TiffPixelFormat& format_;
  raster::Surface& surface_;
  bool direct_;
  int step_ = 1;
  std::vector<std::uint8_t> scratch_;
};

// Row by row: the decoded row is still in the processor's cache when it is converted.
bool readScanlines(TIFF* tiff, RowWriter& writer, const raster::Surface& surface) {
  const std::uint64_t bytes = TIFFScanlineSize64(tiff);
  if (bytes < 1 || bytes > kMaxRowBytes) return false;
  std::vector<std::uint8_t> row(static_cast<std::size_t>(bytes));
  for (int y = 0; y < surface.height(); ++y) {
    if (TIFFReadScanline(tiff, row.data(), static_cast<std::uint32_t>(y), 0) < 0) return false;
    writer.interleaved(row.data(), 0, y, surface.width());
  }
  return true;
}

// Strips and tiles seen as one grid of blocks.
struct Grid {
  std::uint32_t blockWidth = 0;
  std::uint32_t blockHeight = 0;
  std::int64_t rowBytes = 0;
  std::int64_t blockBytes = 0;
};

bool gridOf(TIFF* tiff, const Page& page, Grid& grid) {
  if (page.tiled) {
    if (!TIFFGetField(tiff, TIFFTAG_TILEWIDTH, &grid.blockWidth) ||
        !TIFFGetField(tiff, TIFFTAG_TILELENGTH, &grid.blockHeight)) {
      return false;
    }
    grid.rowBytes = static_cast<std::int64_t>(TIFFTileRowSize64(tiff));
    grid.blockBytes = static_cast<std::int64_t>(TIFFTileSize64(tiff));
  } else {
    TIFFGetFieldDefaulted(tiff, TIFFTAG_ROWSPERSTRIP, &grid.blockHeight);
    grid.blockWidth = page.width;
    grid.blockHeight = std::min(grid.blockHeight, page.height);
    grid.rowBytes = static_cast<std::int64_t>(TIFFScanlineSize64(tiff));
    grid.blockBytes = grid.rowBytes * grid.blockHeight;
  }
  return grid.blockWidth > 0 && grid.blockHeight > 0 && grid.rowBytes > 0 && grid.rowBytes <= kMaxRowBytes &&
         grid.blockBytes > 0 && grid.blockBytes <= kMaxBlockBytes;
}

bool readBlock(TIFF* tiff, const Page& page, std::uint32_t x, std::uint32_t y, int sample, std::int64_t bytes,
               std::uint8_t* target) {
  const auto plane = static_cast<std::uint16_t>(sample);
  const tmsize_t got =
      page.tiled
          ? TIFFReadEncodedTile(tiff, TIFFComputeTile(tiff, x, y, 0, plane), target, static_cast<tmsize_t>(bytes))
          : TIFFReadEncodedStrip(tiff, TIFFComputeStrip(tiff, y, plane), target, static_cast<tmsize_t>(bytes));
  return got >= bytes;
}

bool readBlocks(TIFF* tiff, const Page& page, const TiffPixelFormat& format, raster::Surface& surface) {
  Grid grid;
  if (!gridOf(tiff, page, grid)) return false;
  RowWriter writer(page, format, surface, grid.blockWidth);
  const bool separate = page.planar == PLANARCONFIG_SEPARATE;
  const int planes = separate ? format.usedSamples() : 1;
  std::vector<std::unique_ptr<std::uint8_t[]>> blocks;
  for (int p = 0; p < planes; ++p) {
    blocks.push_back(std::make_unique_for_overwrite<std::uint8_t[]>(static_cast<std::size_t>(grid.blockBytes)));
  }
  for (std::uint32_t top = 0; top < page.height; top += grid.blockHeight) {
    const std::uint32_t rows = std::min(grid.blockHeight, page.height - top);
    const std::int64_t bytes = page.tiled ? grid.blockBytes : grid.rowBytes * rows;
    for (std::uint32_t left = 0; left < page.width; left += grid.blockWidth) {
      for (int p = 0; p < planes; ++p) {
        if (!readBlock(tiff, page, left, top, p, bytes, blocks[p].get())) return false;
      }
      const int count = static_cast<int>(std::min(grid.blockWidth, page.width - left));
      for (std::uint32_t r = 0; r < rows; ++r) {
        const std::uint8_t* starts[8] = {};
        for (int p = 0; p < planes; ++p) starts[p] = blocks[p].get() + grid.rowBytes * r;
        const int y = static_cast<int>(top + r);
        if (separate) {
          writer.planes({starts, 8}, static_cast<int>(left), y, count);
        } else {
          writer.interleaved(starts[0], static_cast<int>(left), y, count);
        }
      }
    }
  }
  return true;
}

// The library's conversion writes 32-bit pixels, red in the low byte, multiplied by alpha, bottom line first: exactly a
// bottom-up surface but for the order of red and blue.
bool readConverted(TIFF* tiff, const Page& page, raster::Surface& surface) {
  char reason[1024];
  TIFFRGBAImage image{};
  if (!TIFFRGBAImageBegin(&image, tiff, 1, reason)) return false;
  image.orientation = ORIENTATION_TOPLEFT;
  image.req_orientation = ORIENTATION_BOTLEFT;
  const bool done =
      TIFFRGBAImageGet(&image, reinterpret_cast<std::uint32_t*>(surface.bits()), page.width, page.height) != 0;
  TIFFRGBAImageEnd(&image);
  if (!done) return false;
  for (int y = 0; y < surface.height(); ++y) {
    auto* row = reinterpret_cast<Pixel32*>(surface.memoryRow(y));
    for (int x = 0; x < surface.width(); ++x) std::swap(row[x].blue, row[x].red);
    if (page.alpha == TiffAlpha::None) {
      clearAlpha(row, surface.width());
    } else {
      unmultiplyAlpha(row, surface.width());
    }
  }
  return true;
}

bool readPixels(TIFF* tiff, const Page& page, raster::Surface& surface, bool& alpha) {
  TiffPixelFormat format;
  if (!pixelFormatOf(tiff, page, format)) {
    alpha = page.alpha != TiffAlpha::None;
    return readConverted(tiff, page, surface);
  }
  alpha = format.alpha != TiffAlpha::None;
  if (!page.tiled && page.planar == PLANARCONFIG_CONTIG) {
    RowWriter writer(page, format, surface, page.width);
    return readScanlines(tiff, writer, surface);
  }
  return readBlocks(tiff, page, format, surface);
}

}  // namespace

LoadResult readTiff(ByteSource& source, std::int64_t maxPixels) {
  TiffInput input{source};
  const TiffHandle tiff = openTiff(input);
  Page page;
  if (!tiff || !readPage(tiff.get(), page)) return refused(LoadError::Broken);
  LoadResult result;
  result.error = LoadError::Broken;
  result.width = static_cast<int>(std::min<std::uint32_t>(page.width, INT32_MAX));
  result.height = static_cast<int>(std::min<std::uint32_t>(page.height, INT32_MAX));
  result.fileDepth = page.bits * page.samples;
  if (page.width == 0 || page.height == 0) return result;
  if (!sizeAllowed(page.width, page.height, maxPixels)) {
    result.error = LoadError::TooLarge;
    return result;
  }
  raster::Surface surface;
  if (!surface.create(static_cast<int>(page.width), static_cast<int>(page.height), 32)) {
    result.error = LoadError::NoMemory;
    return result;
  }
  bool alpha = false;
  if (!readPixels(tiff.get(), page, surface, alpha)) return result;
  result.error = LoadError::None;
  result.picture = Picture::ofBitmap(std::move(surface), alpha);
  return result;
}

}  // namespace ruvo::imaging
