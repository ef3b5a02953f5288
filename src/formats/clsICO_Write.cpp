#include <algorithm>
#include <array>

#include "base/byte_writer.h"
#include "base/file_io.h"
#include "formats/clsICO.h"
#include "formats/ico_layout.h"
#include "platform/imaging/encoders.h"

namespace ruvo {
namespace {

constexpr int kPngBits = 32;

// An image as it goes into a file: the picture at its depth and a mask of 1 bit, or a PNG.
struct Part {
  const raster::Surface* XOR = nullptr;
  const raster::Surface* AND = nullptr;
  int hotSpotX = 0;
  int hotSpotY = 0;
  std::vector<std::uint8_t> png = {};

  int bpp() const { return png.empty() ? XOR->depth() : kPngBits; }
  std::size_t pixelBytes() const { return XOR->byteCount() + AND->byteCount(); }
  std::size_t bytes() const {
    return png.empty() ? ico::kInfoBytes + ico::tableEntries(bpp()) * 4 + pixelBytes() : png.size();
  }
};

bool writable(const Part& part) {
  const Size size = part.XOR->size();
  return !part.XOR->empty() && part.AND->size() == size && part.AND->depth() == 1 &&
         std::max(size.width, size.height) <= clsICO::kMostSide;
}

void writeEntry(ByteWriter& out, const Part& part, int type, std::size_t offset) {
  const std::size_t colours = ico::tableEntries(part.bpp());
  out.u8(static_cast<std::uint8_t>(part.XOR->width()));
  out.u8(static_cast<std::uint8_t>(part.XOR->height()));
  out.u8(static_cast<std::uint8_t>(part.bpp() < 8 ? colours : 0));
  out.u8(0);
  out.u16(static_cast<std::uint16_t>(type == kCursorType ? part.hotSpotX : 1));
  out.u16(static_cast<std::uint16_t>(type == kCursorType ? part.hotSpotY : part.bpp()));
  out.u32(static_cast<std::uint32_t>(part.bytes()));
  out.u32(static_cast<std::uint32_t>(offset));
}

// Bottom line first, whatever the order in memory.
void writeRows(ByteWriter& out, const raster::Surface& surface) {
  for (int y = surface.height() - 1; y >= 0; --y) {
    out.append(std::span(surface.pictureRow(y), static_cast<std::size_t>(surface.stride())));
  }
}

void writeImage(ByteWriter& out, const Part& part) {
  if (!part.png.empty()) return out.append(part.png);
  out.u32(static_cast<std::uint32_t>(ico::kInfoBytes));
  out.i32(part.XOR->width());
  out.i32(part.XOR->height() * 2);
  out.u16(1);
  out.u16(static_cast<std::uint16_t>(part.bpp()));
  out.u32(0);
  out.u32(static_cast<std::uint32_t>(part.pixelBytes()));
  out.zeros(16);
  for (const raster::TableEntry& entry : part.XOR->table()) {
    out.append(std::to_array<std::uint8_t>({entry.blue, entry.green, entry.red, 0}));
  }
  writeRows(out, *part.XOR);
  writeRows(out, *part.AND);
}

bool writeFile(const std::filesystem::path& fileName, int type, std::span<const Part> parts, std::string* reason) {
  if (type != kIconType && type != kCursorType) return false;
  if (parts.empty() || parts.size() > 0xFFFF) return false;
  ByteWriter out;
  out.u16(0);
  out.u16(static_cast<std::uint16_t>(type));
  out.u16(static_cast<std::uint16_t>(parts.size()));
  std::size_t offset = ico::kHeaderBytes + ico::kEntryBytes * parts.size();
  for (const Part& part : parts) {
    writeEntry(out, part, type, offset);
    offset += part.bytes();
  }
  for (const Part& part : parts) writeImage(out, part);
  return replaceFile(fileName, out.bytes(), reason);
}

bool copyAtDepth(const clsDIB& from, int bpp, clsDIB& to) {
  if (bpp <= 8) return clsDIB::CloneDIB(from, to, kWhite, from.BottomUp());
  if (!to.CreateBlankDIB(from.DIBWidth(), from.DIBHeight(), bpp, kWhite)) return false;
  clsDIB::PaintFromDIBtoDIB(from, to);
  return true;
}

// Brings picture and mask of 32 bits with alpha together: under white mask alpha is 0; without a mask alpha makes one.
void settleAlpha(clsDIB& picture, clsDIB& mask, bool hasMask) {
  for (int y = 0; y < picture.DIBHeight(); ++y) {
    auto* row = reinterpret_cast<Pixel32*>(picture.surface().pictureRow(y));
    std::uint8_t* bits = mask.surface().pictureRow(y);
    for (int x = 0; x < picture.DIBWidth(); ++x) {
      if (!hasMask && row[x].alpha == 0) bits[x / 8] |= ico::maskBit(x);
      if (bits[x / 8] & ico::maskBit(x)) row[x].alpha = 0;
    }
  }
}

std::vector<std::uint8_t> pngOf(const clsDIB& withAlpha) {
  bool opaque = true;
  for (int y = 0; y < withAlpha.DIBHeight(); ++y) {
    const auto* row = reinterpret_cast<const Pixel32*>(withAlpha.surface().pictureRow(y));
    opaque = opaque && std::all_of(row, row + withAlpha.DIBWidth(), [](Pixel32 p) { return p.alpha == 255; });
  }
  return imaging::pngBytes(withAlpha.surface(), !opaque);
}

}  // namespace

bool clsICO::SaveICO_Single(const std::filesystem::path& FileName, const clsDIB& Image, const clsDIB& Mask, int Type,
                            int HotX, int HotY) {
  if (Image.empty() || (!Mask.empty() && Mask.size() != Image.size())) return false;
  if (std::max(Image.DIBWidth(), Image.DIBHeight()) > kMostSide) return false;
  const bool alpha = Image.DIBbpp() == 32 && Image.DIBhasAlpha();
  struct Image part;
  part.hotSpotX = HotX;
  part.hotSpotY = HotY;
  if (!copyAtDepth(Image, alpha ? 32 : std::min(Image.DIBbpp(), 24), part.XOR)) return false;
  // Two entries, black and white: the nearest one is taken for every colour of the mask.
  if (!part.AND.CreateBlankDIB(Image.DIBWidth(), Image.DIBHeight(), 1, kWhite)) return false;
  if (!Mask.empty()) clsDIB::PaintFromDIBtoDIB(Mask, part.AND);
  if (alpha) settleAlpha(part.XOR, part.AND, !Mask.empty());
  part.XOR.setDIBhasAlpha(alpha);
  clsICO file;
  file.setFileType(Type);
  file.add(std::move(part));
  return file.SaveICO_All(FileName);
}

bool clsICO::SaveICO_All(const std::filesystem::path& FileName, std::string* reason) const {
  std::vector<Part> parts;
  for (int i = 0; i < IconCount(); ++i) {
    if (SeekIcon(IconWidth(i), IconHeight(i), IconBPP(i)) != i) {
      if (reason) *reason = kSameSizeAndDepth;
      return false;
    }
    parts.push_back({&DIBXOR(i).surface(), &DIBAND(i).surface(), HotSpotX(i), HotSpotY(i)});
    if (!writable(parts.back())) return false;
    if (std::max(IconWidth(i), IconHeight(i)) == kMostSide) parts.back().png = pngOf(withAlpha(i));
  }
  return writeFile(FileName, type_, parts, reason);
}

}  // namespace ruvo
