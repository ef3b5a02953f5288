#include "platform/imaging/sample_files.h"

#include <cstdio>  // jpeglib.h needs FILE

#include <jpeglib.h>
#include <tiffio.h>

#include <cstdlib>
#include <cstring>
#include <sstream>

#include "platform/imaging/tiff_file.h"

namespace ruvo::test {

Bytes makeJpeg(const JpegFile& file, const SampleOf& sample) {
  jpeg_compress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* bytes = nullptr;
  unsigned long count = 0;
  jpeg_mem_dest(&info, &bytes, &count);
  info.image_width = static_cast<JDIMENSION>(file.width);
  info.image_height = static_cast<JDIMENSION>(file.height);
  info.input_components = file.channels;
  info.in_color_space = file.channels == 1 ? JCS_GRAYSCALE : file.channels == 3 ? JCS_RGB : JCS_CMYK;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, 100, TRUE);
  if (file.progressive) jpeg_simple_progression(&info);
  info.arith_code = file.arithmetic;
  info.write_Adobe_marker = file.adobeMarker;
  info.restart_in_rows = file.restart;
  jpeg_start_compress(&info, TRUE);
  Bytes row(static_cast<std::size_t>(file.width * file.channels));
  for (int y = 0; y < file.height; ++y) {
    for (int i = 0; i < file.width * file.channels; ++i) {
      row[i] = static_cast<std::uint8_t>(sample(i / file.channels, y, i % file.channels));
    }
    JSAMPROW start = row.data();
    jpeg_write_scanlines(&info, &start, 1);
  }
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  Bytes all(bytes, bytes + count);
  std::free(bytes);
  return all;
}

namespace {

// One block of samples as the library takes them: whole bytes in machine order, others from the high bit down.
Bytes packBlock(const TiffFile& file, int left, int top, int width, int height, int plane, const SampleOf& sample) {
  Bytes all;
  const int channels = file.planes ? 1 : file.samples;
  for (int y = top; y < top + height; ++y) {
    std::uint32_t held = 0;
    int heldBits = 0;
    for (int i = 0; i < width * channels; ++i) {
      const int x = left + i / channels;
      const int v = x < file.width && y < file.height ? sample(x, y, file.planes ? plane : i % channels) : 0;
      if (file.bits >= 8 && file.bits % 8 == 0) {
        auto raw = static_cast<std::uint32_t>(v);
        if (file.isFloat) {
          const float f = static_cast<float>(v) / 255.0f;
          std::memcpy(&raw, &f, 4);
        }
        for (int b = 0; b < file.bits; b += 8) all.push_back(static_cast<std::uint8_t>(raw >> b));
        continue;
      }
      held = held << file.bits | static_cast<std::uint32_t>(v);
      for (heldBits += file.bits; heldBits >= 8; heldBits -= 8)
        all.push_back(static_cast<std::uint8_t>(held >> (heldBits - 8)));
    }
    if (heldBits > 0) all.push_back(static_cast<std::uint8_t>(held << (8 - heldBits)));
  }
  return all;
}

void setTiffFields(TIFF* tiff, const TiffFile& file) {
  TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, file.width);
  TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, file.height);
  TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, file.bits);
  TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, file.samples);
  TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, file.photometric);
  TIFFSetField(tiff, TIFFTAG_COMPRESSION, file.compression);
  TIFFSetField(tiff, TIFFTAG_ORIENTATION, file.orientation);
  TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, file.planes ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG);
  if (file.isFloat) TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_IEEEFP);
  if (file.extra >= 0) {
    const auto extra = static_cast<std::uint16_t>(file.extra);
    TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &extra);
  }
  if (!file.table.empty()) {
    std::vector<std::uint16_t> channel[3];
    for (const Colour c : file.table) {
      for (int i = 0; i < 3; ++i) channel[i].push_back(static_cast<std::uint16_t>((c >> (8 * i) & 255) * 257));
    }
    TIFFSetField(tiff, TIFFTAG_COLORMAP, channel[0].data(), channel[1].data(), channel[2].data());
  }
  if (file.tile > 0) {
    TIFFSetField(tiff, TIFFTAG_TILEWIDTH, file.tile);
    TIFFSetField(tiff, TIFFTAG_TILELENGTH, file.tile);
  } else {
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, file.rowsPerStrip);
  }
}

}  // namespace

Bytes makeTiff(const TiffFile& file, const SampleOf& sample) {
  imaging::TiffOutput output;
  {
    const imaging::TiffHandle tiff = imaging::createTiff(output);
    setTiffFields(tiff.get(), file);
    for (int plane = 0; plane < (file.planes ? file.samples : 1); ++plane) {
      const int stepY = file.tile > 0 ? file.tile : file.rowsPerStrip;
      const int stepX = file.tile > 0 ? file.tile : file.width;
      for (int y = 0; y < file.height; y += stepY) {
        for (int x = 0; x < file.width; x += stepX) {
          const int height = file.tile > 0 ? stepY : std::min(stepY, file.height - y);
          Bytes block = packBlock(file, x, y, stepX, height, plane, sample);
          const auto at = static_cast<std::uint16_t>(plane);
          const auto size = static_cast<tmsize_t>(block.size());
          if (file.tile > 0) {
            TIFFWriteEncodedTile(tiff.get(), TIFFComputeTile(tiff.get(), x, y, 0, at), block.data(), size);
          } else {
            TIFFWriteEncodedStrip(tiff.get(), TIFFComputeStrip(tiff.get(), y, at), block.data(), size);
          }
        }
      }
    }
    TIFFWriteDirectory(tiff.get());
  }
  return output.bytes;
}

}  // namespace ruvo::test
