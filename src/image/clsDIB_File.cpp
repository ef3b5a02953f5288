#include <algorithm>
#include <cstring>
#include <system_error>
#include <vector>

#include "base/byte_writer.h"
#include "base/file_io.h"
#include "image/clsDIB.h"
#include "image/clsPal.h"
#include "image/clsPalDither.h"
#include "image/row_reader.h"

namespace ruvo {
namespace {

constexpr std::uint32_t kHeadersBytes = 14 + 40;
constexpr std::size_t kChunkBytes = 256 * 1024;  // converted rows are written while they are still in the cache

// Both headers for `table` bytes of colour table; `stated` is what the size field is to say.
ByteWriter bmpHeaders(Size size, int depth, std::uint32_t table, std::uint32_t stated) {
  ByteWriter out;
  out.u16(0x4D42);  // "BM"
  out.u32(stated);
  out.u32(0);
  out.u32(kHeadersBytes + table);
  out.u32(40);
  out.i32(size.width);
  out.i32(size.height);
  out.u16(1);
  out.u16(static_cast<std::uint16_t>(depth));
  out.zeros(24);
  return out;
}

// The rows of a picture at 24 or 32 bits, bottom line first.
void writeDeepRows(FileReplacement& file, const raster::Surface& surface, int depth) {
  if (surface.depth() == depth && surface.order() == raster::RowOrder::BottomUp) {
    file.write(surface.bytes());
    return;
  }
  const auto stride = static_cast<std::size_t>(raster::strideFor(surface.width(), depth));
  const std::size_t used = static_cast<std::size_t>(surface.width()) * (depth / 8);
  const int rows = std::clamp(static_cast<int>(kChunkBytes / stride), 1, surface.height());
  std::vector<std::uint8_t> chunk(stride * static_cast<std::size_t>(rows));  // its padding stays zero
  RowReader reader(surface, depth);
  for (int first = 0; first < surface.height() && file.ok(); first += rows) {
    const int count = std::min(rows, surface.height() - first);
    for (int i = 0; i < count; ++i) {
      const int memoryRow = surface.memoryRowOf(surface.height() - 1 - first - i);
      std::memcpy(chunk.data() + stride * static_cast<std::size_t>(i), reader.bytes(memoryRow), used);
    }
    file.write(std::span(chunk).first(stride * static_cast<std::size_t>(count)));
  }
}

void writePackedRows(FileReplacement& file, const raster::Surface& surface, const clsPalDither& dither) {
  if (surface.order() == raster::RowOrder::BottomUp) {
    file.write(dither.TableEntry());
    return;
  }
  for (int y = surface.height() - 1; y >= 0; --y) file.write(dither.row(y));
}

bool finish(FileReplacement& file, std::string* reason) {
  if (file.commit()) return true;
  if (reason) *reason = file.reason();
  return false;
}

bool refuse(const char* why, std::string* reason) {
  if (reason) *reason = why;
  return false;
}

}  // namespace

bool clsDIB::Save_DIB_To_File(const std::filesystem::path& FileName, const clsDIB& Dib, std::string* reason) const {
  if (Dib.empty()) return refuse("no picture", reason);
  const int depth = bpp_ == 32 && hasAlpha_ ? 32 : 24;
  const std::int64_t rows = raster::strideFor(Dib.DIBWidth(), depth) * Dib.DIBHeight();
  FileReplacement file(FileName);
  file.write(bmpHeaders(Dib.size(), depth, 0, static_cast<std::uint32_t>(rows + 40)).bytes());
  writeDeepRows(file, Dib.surface_, depth);
  return finish(file, reason);
}

bool clsDIB::Save_DIB_To_File_Paletted(const std::filesystem::path& FileName, const clsDIB& Dib, const clsPal& Pal,
                                       const clsPalDither& Dither, int Bpp, std::string* reason) {
  const bool packed = Bpp == 1 || Bpp == 4 || Bpp == 8;
  if (Dib.empty() || (!packed && Bpp != 24)) return refuse("no picture", reason);
  if (packed && (Dither.bits() != Bpp || Dither.width() != Dib.DIBWidth() || Dither.height() != Dib.DIBHeight())) {
    return refuse("rows of another picture", reason);
  }
  const std::uint32_t table = packed ? 4u << Bpp : 0;
  const std::int64_t rows = raster::strideFor(Dib.DIBWidth(), Bpp) * Dib.DIBHeight();
  FileReplacement file(FileName);
  ByteWriter head = bmpHeaders(Dib.size(), Bpp, table, static_cast<std::uint32_t>(rows + kHeadersBytes + table));
  for (int i = 0; packed && i < 1 << Bpp; ++i) {
    head.u8(Pal.rgbB(i));
    head.u8(Pal.rgbG(i));
    head.u8(Pal.rgbR(i));
    head.u8(0);
  }
  file.write(head.bytes());
  if (packed) {
    writePackedRows(file, Dib.surface_, Dither);
  } else {
    writeDeepRows(file, Dib.surface_, 24);
  }
  return finish(file, reason);
}

bool clsDIB::ConvertDIB_To_DIB8BPP(clsDIB& Src, clsDIB& Dst, clsPal& Pal, clsPalDither& Dither,
                                   const std::filesystem::path& tempFolder) {
  if (Src.empty()) return false;
  const std::filesystem::path file = tempFolder / "tmpGIFPal.bmp";
  Pal.ClearUp();
  if (!Dither.ExactRows(Src, Pal, 8)) {
    Pal.CreateOptimal(Src, 256, 8);
    Dither.DitherToPalette256(Src, Pal);
  }
  const bool saved = Save_DIB_To_File_Paletted(file, Src, Pal, Dither, 8);
  if (&Src != &Dst) Dst.ClearUp();
  const bool made = saved && Dst.CreateDIBFromFile(file);
  std::error_code ignored;
  std::filesystem::remove(file, ignored);
  return made;
}

}  // namespace ruvo
