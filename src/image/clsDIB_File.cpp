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

// Gathers what goes to a file into blocks that begin at whole pages of it: parts of a page cost a file system about as
// much as the page. A block is written while the cache still has it.
class BlockWriter {
 public:
  BlockWriter(FileReplacement& file, std::size_t longestPart) : file_(file), buffer_(kBlock + longestPart) {}

  // Room for the next part, of at most longestPart bytes, which took() then adds.
  std::uint8_t* room() { return buffer_.data() + filled_; }
  void took(std::size_t bytes) {
    filled_ += bytes;
    if (filled_ < kBlock) return;
    file_.write(std::span(buffer_).first(kBlock));
    filled_ -= kBlock;
    std::memcpy(buffer_.data(), buffer_.data() + kBlock, filled_);
  }
  void finish() { file_.write(std::span(buffer_).first(filled_)); }

 private:
  static constexpr std::size_t kBlock = std::size_t{256} * 1024;

  FileReplacement& file_;
  std::vector<std::uint8_t> buffer_;
  std::size_t filled_ = 0;
};

// The headers, then the rows of a picture at 24 or 32 bits, bottom line first.
void writeDeep(FileReplacement& file, const ByteWriter& headers, const raster::Surface& surface, int depth) {
  if (surface.depth() == depth && surface.order() == raster::RowOrder::BottomUp) {
    file.write(headers.bytes());
    file.write(surface.bytes());
    return;
  }
  const auto stride = static_cast<std::size_t>(raster::strideFor(surface.width(), depth));
  const std::size_t used = static_cast<std::size_t>(surface.width()) * static_cast<std::size_t>(depth / 8);
  BlockWriter blocks(file, std::max(stride, headers.size()));
  std::copy(headers.bytes().begin(), headers.bytes().end(), blocks.room());
  blocks.took(headers.size());
  RowReader reader(surface, depth);
  for (int y = surface.height() - 1; y >= 0 && file.ok(); --y) {
    std::uint8_t* row = blocks.room();
    reader.read(surface.memoryRowOf(y), row);
    std::fill(row + used, row + stride, std::uint8_t{0});
    blocks.took(stride);
  }
  blocks.finish();
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
  writeDeep(file, bmpHeaders(Dib.size(), depth, 0, static_cast<std::uint32_t>(rows + 40)), Dib.surface_, depth);
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
  if (packed) {
    file.write(head.bytes());
    writePackedRows(file, Dib.surface_, Dither);
  } else {
    writeDeep(file, head, Dib.surface_, 24);
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
