// From the frames back to the bytes of a GIF89a, part by part in the order of the file.
#include <atomic>
#include <bit>

#include "base/byte_writer.h"
#include "base/file_io.h"
#include "base/latin1.h"
#include "base/parallel.h"
#include "formats/basGIFLZWEnc.h"
#include "formats/clsGIF_Model.h"
#include "formats/gif_lines.h"

namespace ruvo {
namespace {

void writeTable(ByteWriter& out, const raster::TableEntry* table, int entries, int bits) {
  for (int i = 0; i < 1 << bits; ++i) {
    const raster::TableEntry e = i < entries ? table[i] : raster::TableEntry{};
    out.u8(e.red);
    out.u8(e.green);
    out.u8(e.blue);
  }
}

void writeScreen(ByteWriter& out, bool newer, Size size, int packed, std::uint8_t background, std::uint8_t aspect) {
  for (const char c : std::string_view(newer ? "GIF89a" : "GIF87a")) out.u8(static_cast<std::uint8_t>(c));
  out.u16(static_cast<std::uint16_t>(size.width));
  out.u16(static_cast<std::uint16_t>(size.height));
  out.u8(static_cast<std::uint8_t>(packed));
  out.u8(background);
  out.u8(aspect);
}

void writeLoops(ByteWriter& out, int loops) {
  out.append("\x21\xFF\x0BNETSCAPE2.0\x03\x01");
  out.u16(static_cast<std::uint16_t>(loops));
  out.u8(0);
}

void writeComment(ByteWriter& out, const std::optional<std::string>& comment) {
  constexpr std::size_t kMostBlock = 255;
  if (!comment || comment->empty()) return;
  const std::string text = latin1FromUtf8(*comment);
  out.append("\x21\xFE");
  for (std::size_t at = 0; at < text.size(); at += kMostBlock) {
    const std::string_view block = std::string_view(text).substr(at, kMostBlock);
    out.u8(static_cast<std::uint8_t>(block.size()));
    out.append(block);
  }
  out.u8(0);
}

void writeControl(ByteWriter& out, const GifControl& control) {
  out.append("\x21\xF9\x04");
  out.u8(static_cast<std::uint8_t>(control.UseTransparentColor | control.UserInput << 1 | control.DisposalMethod << 2));
  out.u16(control.Delay);
  out.u8(control.UseTransparentColor ? control.TransparentColorIndex : 0);
  out.u8(0);
}

void writePixels(ByteWriter& out, const clsDIB& dib, int tableBits, bool interlaced) {
  const int codeSize = std::max({2, tableBits, static_cast<int>(std::bit_width(unsigned(highestIndex(dib))))});
  out.u8(static_cast<std::uint8_t>(codeSize));
  basGIFLZWEnc::Encode(out, dib, codeSize + 1, interlaced);
  out.u8(0);
}

void writeDescriptor(ByteWriter& out, int left, int top, const clsDIB& dib, int packed, bool interlaced) {
  out.u8(0x2C);
  out.u16(static_cast<std::uint16_t>(left));
  out.u16(static_cast<std::uint16_t>(top));
  out.u16(static_cast<std::uint16_t>(dib.DIBWidth()));
  out.u16(static_cast<std::uint16_t>(dib.DIBHeight()));
  // The lines of lower pictures are written as they stand, and with the bit other programs would reorder them.
  const bool reordered = interlaced && dib.DIBHeight() >= GifLines::kLeastInterlaced;
  out.u8(static_cast<std::uint8_t>(packed | (reordered ? 64 : 0)));
}

// All but the pixels.
void writeFrameHead(ByteWriter& out, const GifFrame& frame) {
  const GifImage& image = frame.image;
  writeControl(out, frame.control);
  const int localBits = image.LocalPaletteUsed ? gifTableBits(image.LocalPaletteEntries) : 0;
  int packed = image.LocalPaletteSorted ? 32 : 0;
  if (image.LocalPaletteUsed) packed |= 128 | (localBits - 1);
  writeDescriptor(out, image.Left, image.Top, *image.XOR, packed, image.Interlaced);
  if (image.LocalPaletteUsed) writeTable(out, image.LocalPalette.data(), image.LocalPaletteEntries, localBits);
}

// The frames' pixels as they stand in the file. Coding them is nearly all of the work, and each is coded by itself.
std::vector<ByteWriter> codeFrames(std::span<const GifFrame> frames, int globalBits) {
  std::vector<ByteWriter> coded(frames.size());
  std::atomic<bool> noMemory = false;
  forEachParallel(static_cast<int>(frames.size()), [&](int number) {
    const auto i = static_cast<std::size_t>(number);
    const GifImage& image = frames[i].image;
    const int bits = image.LocalPaletteUsed ? gifTableBits(image.LocalPaletteEntries) : globalBits;
    try {
      writePixels(coded[i], *image.XOR, bits, image.Interlaced);
    } catch (const std::bad_alloc&) {
      noMemory = true;
    }
  });
  if (noMemory) throw std::bad_alloc();
  return coded;
}

bool isWritable(const clsDIB& dib) {
  return dib.surface().depth() == 8 && dib.DIBWidth() <= 65535 && dib.DIBHeight() <= 65535;
}

// Readers that follow the rule of kSmallestFile refuse a shorter file; every reader stops at the trailer.
std::vector<std::uint8_t> finished(ByteWriter& out) {
  out.u8(0x3B);
  if (out.size() < clsGIF::kSmallestFile) out.zeros(clsGIF::kSmallestFile - out.size());
  return out.take();
}

std::vector<std::uint8_t> modelBytes(const GifModel& model, int onlyFrame, const std::optional<std::string>& comment) {
  ByteWriter out;
  const bool newer = !model.frames.empty() || (comment && !comment->empty());
  const int bits = model.globalExists ? gifTableBits(model.globalEntries) : 0;
  const int packed = bits == 0 ? 0 : (bits - 1) | (model.globalSorted ? 8 : 0) | (bits - 1) << 4 | 128;
  writeScreen(out, newer, {model.width, model.height}, packed, model.background, model.aspect);
  if (bits != 0) writeTable(out, model.global.data(), model.globalEntries, bits);
  if (!model.frames.empty()) writeLoops(out, model.loops);
  writeComment(out, comment);
  const auto frames = onlyFrame > 0 ? std::span(model.frames).subspan(static_cast<std::size_t>(onlyFrame) - 1, 1)
                                    : std::span(model.frames);
  std::vector<ByteWriter> coded = codeFrames(frames, bits);
  for (std::size_t i = 0; i < frames.size(); ++i) {
    writeFrameHead(out, frames[i]);
    out.append(coded[i].take());
  }
  return finished(out);
}

// The colour's first entry among those in use that the file's table holds too; -1 for none.
int entryOf(const clsPal& pal, Colour colour, int tableEntries) {
  const auto entries = pal.entriesInUse();
  for (int i = 0; i < std::min(pal.MaxCount(), tableEntries); ++i) {
    if (entries[static_cast<std::size_t>(i)].colour() == (colour & kWhite)) return i;
  }
  return -1;
}

}  // namespace

int gifTableBits(int entries) {
  return std::max(1, static_cast<int>(std::bit_width(static_cast<unsigned>(std::max(entries, 1) - 1))));
}

std::vector<std::uint8_t> clsGIF::saveBytes(int OnlyFrame, const std::optional<std::string>& CommentText) const {
  if (OnlyFrame > model_->count()) return {};
  const auto writable = [](const GifFrame& frame) { return isWritable(*frame.image.XOR); };
  if (!std::ranges::all_of(model_->frames, writable)) return {};
  try {
    return modelBytes(*model_, OnlyFrame, CommentText);
  } catch (const std::bad_alloc&) {
    return {};
  }
}

bool clsGIF::Save(const std::filesystem::path& FileName, int OnlyFrame,
                  const std::optional<std::string>& CommentText) const {
  const std::vector<std::uint8_t> bytes = saveBytes(OnlyFrame, CommentText);
  return !bytes.empty() && replaceFile(FileName, bytes);
}

bool clsGIF::SaveGIFFrom_BPP8_DIB(const std::filesystem::path& FileName, const clsDIB& Dib, const clsPal& Pal,
                                  int BitsPerPixel, bool Interlaced, bool Transparent, Colour TransparentColor,
                                  const std::optional<std::string>& CommentText) {
  if (!isWritable(Dib) || BitsPerPixel < 1 || BitsPerPixel > 8) return false;
  const int entries = 1 << BitsPerPixel;
  try {
    ByteWriter out;
    writeScreen(out, true, Dib.size(), (BitsPerPixel - 1) | 240, 0, 0);
    writeTable(out, Pal.PalettePtr(), entries, BitsPerPixel);
    writeComment(out, CommentText);
    GifControl control;
    const int index = Transparent ? entryOf(Pal, TransparentColor, entries) : -1;
    if (index >= 0) {
      control.UseTransparentColor = true;
      control.TransparentColorIndex = static_cast<std::uint8_t>(index);
    }
    writeControl(out, control);
    writeDescriptor(out, 0, 0, Dib, 0, Interlaced);
    writePixels(out, Dib, BitsPerPixel, Interlaced);
    return replaceFile(FileName, finished(out));
  } catch (const std::bad_alloc&) {
    return false;
  }
}

}  // namespace ruvo
