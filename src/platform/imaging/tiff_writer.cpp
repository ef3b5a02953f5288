// TIFF through libtiff: one page, LZW, strips of about 64 kilobytes (TIFF 6, sections 3 to 6 and 13).
#include "base/file_io.h"
#include "platform/imaging/encoders.h"
#include "platform/imaging/pixel_rows.h"
#include "platform/imaging/table_reduction.h"
#include "platform/imaging/tiff_file.h"

namespace ruvo::imaging {
namespace {

constexpr int kDotsPerInch = 96;

// A row of libtiff's bytes from a row of the picture; the row it writes from may be changed by the library.
void packRow(const Pixel32* pixels, int width, int depth, bool hasAlpha, std::vector<std::uint8_t>& out) {
  std::uint8_t* to = out.data();
  const bool fourth = depth == 32;
  for (int x = 0; x < width; ++x) {
    *to++ = pixels[x].red;
    *to++ = pixels[x].green;
    *to++ = pixels[x].blue;
    if (fourth) *to++ = hasAlpha ? pixels[x].alpha : std::uint8_t{255};
  }
}

void setFields(TIFF* tiff, const raster::Surface& surface, int depth, std::span<const raster::TableEntry> table) {
  const bool direct = depth >= 24;
  TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(surface.width()));
  TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(surface.height()));
  TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, direct ? 8 : depth);
  TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, direct ? depth / 8 : 1);
  TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
  TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
  TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
  if (depth >= 8) TIFFSetField(tiff, TIFFTAG_PREDICTOR, direct ? PREDICTOR_HORIZONTAL : PREDICTOR_NONE);
  TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
  TIFFSetField(tiff, TIFFTAG_XRESOLUTION, static_cast<float>(kDotsPerInch));
  TIFFSetField(tiff, TIFFTAG_YRESOLUTION, static_cast<float>(kDotsPerInch));
  if (depth == 32) {
    const std::uint16_t straight = EXTRASAMPLE_UNASSALPHA;
    TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &straight);
  }
  if (direct) {
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
  } else if (depth == 1) {
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
  } else {
    std::vector<std::uint16_t> red, green, blue;
    for (const raster::TableEntry& e : table) {
      red.push_back(static_cast<std::uint16_t>(e.red * 257));
      green.push_back(static_cast<std::uint16_t>(e.green * 257));
      blue.push_back(static_cast<std::uint16_t>(e.blue * 257));
    }
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_PALETTE);
    TIFFSetField(tiff, TIFFTAG_COLORMAP, red.data(), green.data(), blue.data());
  }
  TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(tiff, 0));
}

bool writeDirect(TIFF* tiff, const raster::Surface& surface, int depth, bool hasAlpha) {
  RowExpander rows(surface);
  std::vector<std::uint8_t> packed(static_cast<std::size_t>(surface.width()) * static_cast<std::size_t>(depth / 8));
  for (int y = 0; y < surface.height(); ++y) {
    packRow(rows.row(y), surface.width(), depth, hasAlpha, packed);
    if (TIFFWriteScanline(tiff, packed.data(), static_cast<std::uint32_t>(y), 0) < 0) return false;
  }
  return true;
}

bool writeIndexed(TIFF* tiff, const raster::Surface& reduced) {
  std::vector<std::uint8_t> row(static_cast<std::size_t>(reduced.stride()));
  for (int y = 0; y < reduced.height(); ++y) {
    std::copy_n(reduced.pictureRow(y), reduced.stride(), row.data());
    if (TIFFWriteScanline(tiff, row.data(), static_cast<std::uint32_t>(y), 0) < 0) return false;
  }
  return true;
}

}  // namespace

bool saveTiff(const raster::Surface& surface, const std::filesystem::path& path, int depth, bool hasAlpha) {
  const bool known = depth == 1 || depth == 4 || depth == 8 || depth == 24 || depth == 32;
  if (surface.empty() || !known) return false;
  raster::Surface reduced;
  if (depth <= 8 && !reduceToTable(surface, depth, reduced)) return false;
  TiffOutput output;
  {
    const TiffHandle tiff = createTiff(output);
    if (!tiff) return false;
    setFields(tiff.get(), surface, depth, reduced.table());
    const bool written = depth <= 8 ? writeIndexed(tiff.get(), reduced)
                                    : writeDirect(tiff.get(), surface, depth, hasAlpha && surface.depth() == 32);
    if (!written || !TIFFWriteDirectory(tiff.get())) return false;
  }
  return replaceFile(path, output.bytes);
}

}  // namespace ruvo::imaging
