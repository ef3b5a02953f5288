#include <cstdio>  // jpeglib.h needs FILE

#include <jpeglib.h>

#include <cmath>
#include <numeric>

#include "base/file_io.h"
#include "base/limits.h"
#include "base/random_source.h"
#include "base/rounding.h"
#include "formats/clsJPG.h"
#include "formats/clsJPG_Rows.h"
#include "formats/clsJPG_Scan.h"
#include "platform/imaging/codecs.h"
#include "platform/raster/blit.h"
#include "platform/raster/stretch.h"
#include "support/file_size_limit.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace ruvo {
namespace {

using namespace test;
using raster::Surface;
using Bytes = std::vector<std::uint8_t>;

Surface smooth(int width, int height) {
  return surfaceOf(width, height, [&](int x, int y) {
    return Pixel32{clampToByte(255 * x / width), clampToByte(255 * y / height), clampToByte(40 + 3 * (x + y) / 2), 0};
  });
}

Bytes written(const Surface& surface, int quality, std::array<int, 6> rates = {2, 2, 1, 1, 1, 1}) {
  clsJPG jpg;
  jpg.setQuality(quality);
  jpg.SetSamplingFrequencies(rates[0], rates[1], rates[2], rates[3], rates[4], rates[5]);
  EXPECT_TRUE(jpg.SampleHDC(surface, surface.width(), surface.height()));
  return jpg.saveBytes();
}

// libjpeg's reader over some bytes. Its warnings count as errors.
struct Decoder {
  explicit Decoder(const Bytes& bytes) {
    info.err = jpeg_std_error(&errors);
    errors.error_exit = [](j_common_ptr i) {
      char text[JMSG_LENGTH_MAX];
      i->err->format_message(i, text);
      throw std::runtime_error(text);
    };
    errors.emit_message = [](j_common_ptr i, int level) {
      if (level < 0) i->err->error_exit(i);
    };
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, bytes.data(), bytes.size());
    jpeg_save_markers(&info, JPEG_COM, 0xFFFF);
    jpeg_read_header(&info, TRUE);
  }
  ~Decoder() { jpeg_destroy_decompress(&info); }

  jpeg_error_mgr errors;
  jpeg_decompress_struct info;
};

// The picture as the platform reads it by libjpeg.
Surface pixelsOf(const Bytes& bytes) {
  imaging::MemorySource source(bytes);
  return raster::copyOf(*imaging::readJpeg(source, kMaxPicturePixels).picture.bitmap);
}

// The same coefficients as libjpeg codes them with tables of its own making.
Bytes recoded(const Bytes& bytes) {
  Decoder in(bytes);
  jvirt_barray_ptr* coefficients = jpeg_read_coefficients(&in.info);
  jpeg_compress_struct out;
  out.err = in.info.err;
  jpeg_create_compress(&out);
  unsigned char* memory = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&out, &memory, &size);
  jpeg_copy_critical_parameters(&in.info, &out);
  out.optimize_coding = TRUE;
  jpeg_write_coefficients(&out, coefficients);
  jpeg_finish_compress(&out);
  Bytes result(memory, memory + size);
  jpeg_destroy_compress(&out);
  std::free(memory);
  return result;
}

double psnr(const Surface& a, const Surface& b) {
  double squares = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const Pixel32 p = pixelAt(a, x, y), q = pixelAt(b, x, y);
      for (const int d : {p.blue - q.blue, p.green - q.green, p.red - q.red}) squares += d * d;
    }
  }
  return 10 * std::log10(255 * 255 * 3.0 * a.width() * a.height() / squares);
}

Pixel32 decodedColour(Colour colour, int quality) {
  const Surface flat = surfaceOf(16, 16, [&](int, int) { return Pixel32::plain(colour); });
  return pixelAt(pixelsOf(written(flat, quality)), 5, 5);
}

// Each legal set of factors gives a file that libjpeg reads and would code in the very same bytes; where its decoder
// can enlarge by the ratios, the picture comes back.
TEST(Jpg, EverySamplingIsLegalAndCodedBest) {
  const Surface picture = smooth(53, 45);
  for (int i = 0; i < 4096; ++i) {
    const std::array<int, 6> f = {1 + i / 1024,   1 + i / 256 % 4, 1 + i / 64 % 4,
                                  1 + i / 16 % 4, 1 + i / 4 % 4,   1 + i % 4};
    SCOPED_TRACE(testing::PrintToString(f));
    if (f[0] * f[1] + f[2] * f[3] + f[4] * f[5] > 10) {
      EXPECT_THROW(clsJPG().SetSamplingFrequencies(f[0], f[1], f[2], f[3], f[4], f[5]), JpgError);
      continue;
    }
    const Bytes bytes = written(picture, 75, f);
    ASSERT_EQ(recoded(bytes), bytes);
    const int h = std::max({f[0], f[2], f[4]}), v = std::max({f[1], f[3], f[5]});
    if (h % f[0] || h % f[2] || h % f[4] || v % f[1] || v % f[3] || v % f[5]) continue;
    ASSERT_GT(psnr(pixelsOf(bytes), picture), 26);
  }
}

TEST(Jpg, GreyPicturesHaveOneComponent) {
  const Surface picture = surfaceOf(21, 35, [](int x, int y) {
    const auto grey = static_cast<std::uint8_t>(6 * x + 3 * y);
    return Pixel32{grey, grey, grey, 0};
  });
  const Bytes plain = written(picture, 90, {1, 1, 0, 0, 0, 0});
  EXPECT_EQ(recoded(plain), plain);
  EXPECT_GT(psnr(pixelsOf(plain), picture), 38);
  // The factors stand in the header and change nothing else.
  Bytes sampled = written(picture, 90, {3, 4, 0, 0, 0, 0});
  ASSERT_EQ(sampled.size(), plain.size());
  EXPECT_EQ(std::inner_product(plain.begin(), plain.end(), sampled.begin(), 0, std::plus<>(), std::not_equal_to<>()),
            1);
  EXPECT_GT(psnr(pixelsOf(sampled), picture), 38);
}

TEST(Jpg, QualityGivesTheUsualTables) {
  for (int quality = 1; quality <= 100; ++quality) {
    const Bytes bytes = written(smooth(8, 8), quality);
    const Decoder ours(bytes);
    jpeg_error_mgr errors;
    jpeg_compress_struct peer;
    peer.err = jpeg_std_error(&errors);
    jpeg_create_compress(&peer);
    peer.in_color_space = JCS_RGB;
    jpeg_set_defaults(&peer);
    jpeg_set_quality(&peer, quality, TRUE);
    for (int i = 0; i < 2; ++i) {
      EXPECT_TRUE(std::ranges::equal(ours.info.quant_tbl_ptrs[i]->quantval, peer.quant_tbl_ptrs[i]->quantval))
          << quality;
    }
    jpeg_destroy_compress(&peer);
  }
  clsJPG jpg;
  for (const int odd : {0, 101, -5}) {
    jpg.setQuality(20);
    jpg.setQuality(odd);
    EXPECT_EQ(jpg.Quality(), 75);
  }
}

TEST(Jpg, NegativeLevelsLoseUpToOneStep) {
  EXPECT_EQ(decodedColour(rgb(128, 128, 128), 75).green, 128);
  EXPECT_EQ(decodedColour(kWhite, 75).green, 255);
  EXPECT_EQ(decodedColour(kBlack, 75).green, 1);
  EXPECT_GT(psnr(pixelsOf(written(smooth(64, 64), 100, {1, 1, 1, 1, 1, 1})), smooth(64, 64)), 44);
}

TEST(Jpg, CodesAreAtMost16BitsAndNeverAllOnes) {
  jpg::SymbolCounts counts{};
  std::uint32_t a = 1, b = 1;
  for (int symbol = 0; symbol < 40; ++symbol, std::swap(a, b), b += a) counts[symbol] = a;
  const jpg::HuffmanTable table = jpg::huffmanTable(counts);
  double used = 0;
  for (int symbol = 0; symbol < 40; ++symbol) {
    ASSERT_TRUE(table.lengths[symbol] >= 1 && table.lengths[symbol] <= 16);
    EXPECT_NE(table.codes[symbol], (1u << table.lengths[symbol]) - 1);
    used += std::ldexp(1.0, -table.lengths[symbol]);
  }
  EXPECT_LT(used, 1);
}

TEST(Jpg, BadFactorsAndCommentsAreRefused) {
  for (const auto& [h1, v3] : {std::pair{0, 1}, {5, 1}, {1, 0}}) {
    EXPECT_THROW(clsJPG().SetSamplingFrequencies(h1, 1, 1, 1, 1, v3), JpgError);
  }
  EXPECT_THROW(clsJPG().setComment(std::string(65536, 'x')), JpgError);
}

TEST(Jpg, CommentsOfAnyLengthComeBack) {
  for (const std::size_t length : {0u, 65533u, 65534u, 65535u}) {
    std::string text(length, '-');
    std::iota(text.begin(), text.end(), '\0');
    clsJPG jpg;
    jpg.setComment(text);
    ASSERT_TRUE(jpg.SampleHDC(smooth(8, 8), 8, 8));
    const Bytes bytes = jpg.saveBytes();
    const Decoder decoder(bytes);
    std::string read;
    for (auto* marker = decoder.info.marker_list; marker; marker = marker->next) {
      read.append(reinterpret_cast<char*>(marker->data), marker->data_length);
    }
    EXPECT_EQ(read, text);
    EXPECT_TRUE(decoder.info.saw_JFIF_marker);
    EXPECT_EQ(decoder.info.density_unit, 0);
  }
}

TEST(Jpg, CapturesTheTopLeftOfAnyDepthAndBlackBeyond) {
  const Rows rows = {"#.#..####", ".##...#.#", "#########", "........."};
  Surface other;
  other.create(9, 4, 24, raster::RowOrder::TopDown);
  raster::blit(other, 0, 0, surfaceOf(rows));
  EXPECT_EQ(written(other, 75), written(surfaceOf(rows), 75));

  const Surface picture = smooth(40, 30);
  for (const Size size : {Size{1, 1}, {50, 33}}) {
    clsJPG jpg;
    EXPECT_TRUE(jpg.SampleHDC(picture, size.width, size.height));
    const PixelOf cut = [&](int x, int y) { return x < 40 && y < 30 ? pixelAt(picture, x, y) : Pixel32(); };
    EXPECT_EQ(jpg.saveBytes(), written(surfaceOf(size.width, size.height, cut), 75));
  }
  clsJPG jpg;
  for (const Size size : {Size{0, 5}, {5, -1}, {65536, 1}})
    EXPECT_FALSE(jpg.SampleHDC(picture, size.width, size.height));
  EXPECT_FALSE(jpg.SampleHDC(Surface(), 1, 1));
  EXPECT_TRUE(jpg.saveBytes().empty());
}

TEST(Jpg, HalvedRowsAreThoseOfTheSmoothStretch) {
  RandomSource random;
  for (const Size size : {Size{64, 34}, {37, 21}, {1, 1}, {2, 9}, {15, 1}}) {
    const auto byte = [&] { return static_cast<std::uint8_t>(random.next() * 256); };
    const Surface picture = surfaceOf(size.width, size.height, [&](int, int) {
      return Pixel32{byte(), byte(), byte(), byte()};
    });
    const int width = (size.width + 1) / 2, height = (size.height + 1) / 2;
    Surface half;
    half.create(width, height, 32);
    raster::stretchBlit(half, {0, 0, width, height}, picture, {0, 0, 2 * width, 2 * height},
                        raster::StretchMode::Halftone);
    jpg::BlockRows rows(picture, true);
    for (int y = 0; y < height; ++y) {
      const Pixel32* halved = rows.load(y / 8) + y % 8 * rows.stride();
      for (int x = 0; x < width; ++x) ASSERT_EQ(halved[x].colour(), pixelAt(half, x, y).colour()) << x << ' ' << y;
    }
  }
}

TEST(Jpg, SavesWholeOrNotAtAll) {
  const TempFolder folder;
  const auto path = folder / "new.jpg";
  clsJPG jpg;
  EXPECT_EQ(jpg.SaveFile(path), 3) << "nothing captured";
  ASSERT_TRUE(jpg.SampleHDC(smooth(100, 80), 100, 80));
  EXPECT_EQ(jpg.SaveFile({}), 1);
  EXPECT_EQ(jpg.SaveFile(folder / "none" / "new.jpg"), 3);
  {
    const FileSizeLimit full(200);
    EXPECT_EQ(jpg.SaveFile(path), 3);
  }
  EXPECT_TRUE(folder.names().empty());
  EXPECT_EQ(jpg.SaveFile(path), 0);
  EXPECT_EQ(readWholeFile(path, 1 << 20), jpg.saveBytes());
  ASSERT_TRUE(replaceFile(path, Bytes{1, 2, 3}));
  EXPECT_EQ(jpg.SaveFile(path), 2);
  EXPECT_EQ(readWholeFile(path, 100), (Bytes{1, 2, 3}));
}

}  // namespace
}  // namespace ruvo
