#include "tool/picture_output.h"

#include <algorithm>
#include <cstring>

#include "base/letter_case.h"
#include "base/paths.h"
#include "document/model/colour_reduction.h"
#include "document/model/save_rules.h"
#include "formats/clsGIF.h"
#include "formats/clsICO.h"
#include "formats/clsJPG.h"
#include "formats/clsPCX.h"
#include "formats/clsPNG.h"
#include "formats/clsTGA.h"
#include "formats/format_table.h"
#include "image/basGDIProc.h"
#include "platform/imaging/pixel_rows.h"
#include "tool/rgba_rows.h"

namespace ruvo::tool {

// A picture on its way into a file.
struct Prepared {
  std::filesystem::path path;
  const OutputRequest& request;
  clsDIB picture;  // 32 bits; after a reduction what the reduced picture looks like
  clsDIB mask;     // of an icon that gets its transparency from one: white where see-through
  int bits = 0;
  // Of 8 bits and fewer.
  clsPal pal;
  clsPalDither dither;
};

struct WriterRow {
  std::string_view extension;  // a name of the format, or our own
  int mostBits;
  bool paletted;    // has files of 8 bits and fewer; the others only get the reduced colours
  bool interlaced;  // can be
  bool keyed;       // can hold transparency below 32 bits
  std::string (*write)(Prepared& prepared);
};

namespace {

std::string toldBy(bool written) {
  return written ? std::string() : kSaveFailed;
}

// The rows of the reduction as a surface of `depth` bits: their own, or 8.
clsDIB indexed(const Prepared& from, int depth) {
  clsDIB dib;
  const clsPalDither& rows = from.dither;
  if (!dib.CreateBlankDIB(rows.width(), rows.height(), depth, kBlack)) return dib;
  for (int y = 0; y < rows.height(); ++y) {
    const auto packed = rows.row(y);
    std::uint8_t* to = dib.surface().memoryRow(y);
    if (depth == rows.bits()) {
      std::memcpy(to, packed.data(), packed.size());
    } else {
      for (int x = 0; x < rows.width(); ++x) {
        to[x] = static_cast<std::uint8_t>(imaging::indexAt(packed.data(), x, rows.bits()));
      }
    }
  }
  const auto table = dib.surface().table();
  std::copy_n(from.pal.PalettePtr(), table.size(), table.begin());
  return dib;
}

std::string writeBmp(Prepared& p) {
  std::string reason;
  const bool written = p.bits <= 8
                           ? clsDIB::Save_DIB_To_File_Paletted(p.path, p.picture, p.pal, p.dither, p.bits, &reason)
                           : p.picture.Save_DIB_To_File(p.path, p.picture, &reason);
  return written || reason.empty() ? toldBy(written) : reason;
}

std::string writeGif(Prepared& p) {
  const clsDIB picture = indexed(p, 8);
  return toldBy(clsGIF::SaveGIFFrom_BPP8_DIB(p.path, picture, p.pal, p.bits, p.request.interlaced,
                                             p.request.transparentTopPixel,
                                             clsDIB::GetTopPixelColor(p.picture, !p.picture.BottomUp())));
}

std::string writeJpeg(Prepared& p) {
  if (!p.request.native) return toldBy(SaveDIBWithEncoder(p.picture, p.path, kEncodeJpeg, p.request.quality));
  try {
    clsJPG jpeg;
    jpeg.setQuality(p.request.quality);
    if (!jpeg.SampleHDC(p.picture.surface(), p.picture.DIBWidth(), p.picture.DIBHeight())) return kSaveFailed;
    std::string reason;
    return replaceFile(p.path, jpeg.saveBytes(), &reason) ? std::string() : reason;
  } catch (const JpgError& error) {
    return error.what();
  }
}

std::vector<std::uint8_t> alphaBytes(const clsDIB& picture) {
  std::vector<std::uint8_t> alpha;
  alpha.reserve(static_cast<std::size_t>(picture.DIBWidth()) * static_cast<std::size_t>(picture.DIBHeight()));
  for (int y = 0; y < picture.DIBHeight(); ++y) {
    const auto* row = reinterpret_cast<const Pixel32*>(picture.surface().pictureRow(y));
    for (int x = 0; x < picture.DIBWidth(); ++x) alpha.push_back(row[x].alpha);
  }
  return alpha;
}

std::string writePngNatively(Prepared& p) {
  clsPNG png;
  png.Interlacing = p.request.interlaced ? 1 : 0;
  clsDIB reduced;
  if (p.bits <= 8) {
    reduced = indexed(p, 8);
    if (reduced.empty()) return kSaveFailed;
  }
  const clsDIB& source = p.bits <= 8 ? reduced : p.picture;
  if (p.bits == 32) {
    png.SetAlphaBytes(alphaBytes(p.picture));
  } else if (p.request.transparentTopPixel) {
    png.HasTranspColor = true;
    png.TranspColor = p.bits == 24 ? clsDIB::GetTopPixelColor(source, !source.BottomUp())
                                   : static_cast<Colour>(*source.surface().pictureRow(0));
  }
  const int code = png.SavePNG(p.path, source.surface(), source.DIBWidth(), source.DIBHeight(), std::max(p.bits, 8));
  return code == kPngSaved ? std::string() : clsPNG::FlagErrMsgSave(code);
}

std::string writePng(Prepared& p) {
  if (p.request.native || p.request.interlaced || p.request.transparentTopPixel) return writePngNatively(p);
  if (p.bits > 8) return toldBy(SaveDIBWithEncoder(p.picture, p.path, kEncodePng));
  return toldBy(SaveDIBWithEncoder(indexed(p, p.bits), p.path, kEncodePng));
}

std::string writeTiff(Prepared& p) {
  return toldBy(SaveTIFFWithDepth(p.picture, p.path, p.bits));
}

std::string writeTga(Prepared& p) {
  return toldBy(clsTGA().SaveTGAinFile(p.path, p.picture.surface(), p.picture.DIBWidth(), p.picture.DIBHeight()));
}

std::string writePcx(Prepared& p) {
  clsPCX pcx;
  pcx.Compressed = true;
  return toldBy(pcx.SavePCXinFile(p.path, p.picture.surface(), p.picture.DIBWidth(), p.picture.DIBHeight()));
}

std::string writeIconOfType(Prepared& p, int type) {
  if (std::max(p.picture.DIBWidth(), p.picture.DIBHeight()) > clsICO::kMostSide) {
    return "a side of an icon or cursor is at most " + std::to_string(clsICO::kMostSide) + " pixels (see --resize)";
  }
  clsDIB reduced;
  if (p.bits <= 8) {
    reduced = indexed(p, p.bits);
    if (reduced.empty()) return kSaveFailed;
  }
  return toldBy(clsICO::SaveICO_Single(p.path, p.bits <= 8 ? reduced : p.picture, p.mask, type, p.request.hotSpot.x,
                                       p.request.hotSpot.y));
}
std::string writeIcon(Prepared& p) {
  return writeIconOfType(p, kIconType);
}
std::string writeCursor(Prepared& p) {
  return writeIconOfType(p, kCursorType);
}

std::string writeRaw(Prepared& p) {
  FileReplacement file(p.path);
  writeRgba(file, p.picture.surface(), p.picture.DIBhasAlpha());
  file.commit();
  return file.reason();
}

constexpr WriterRow kWriters[] = {
    {".bmp", 32, true, false, false, writeBmp},   {".gif", 8, true, true, true, writeGif},
    {".jpg", 24, false, false, false, writeJpeg}, {".png", 32, true, true, true, writePng},
    {".tif", 32, true, false, false, writeTiff},  {".tga", 24, false, false, false, writeTga},
    {".pcx", 24, false, false, false, writePcx},  {".ico", 32, true, false, true, writeIcon},
    {".cur", 32, true, false, true, writeCursor}, {".rgba", 32, false, false, false, writeRaw},
};

const WriterRow* writerOf(std::string_view extension) {
  const FormatRow* format = formatOfExtension(extension);
  for (const WriterRow& row : kWriters) {
    if (format ? formatOfExtension(row.extension) == format : upperCase(row.extension) == upperCase(extension))
      return &row;
  }
  return nullptr;
}

template <typename Change>
void changePixels(clsDIB& picture, const Change& change) {
  const raster::View32 view = picture.surface().view32();
  for (int y = 0; y < view.height(); ++y) {
    for (int x = 0; x < view.width(); ++x) change(view.at(x, y));
  }
}

bool isOpaque(const clsDIB& picture) {
  if (!picture.DIBhasAlpha()) return true;
  const auto view = picture.surface().view32();
  for (int y = 0; y < view.height(); ++y) {
    const Pixel32* row = view.row(y);
    if (std::any_of(row, row + view.width(), [](Pixel32 p) { return p.alpha != 255; })) return false;
  }
  return true;
}

bool flatten(clsDIB& picture) {
  if (!picture.DIBhasAlpha()) return true;
  clsDIB flat;
  if (!flattenedCopy(picture, flat)) return false;
  picture = std::move(flat);
  return true;
}

// Real alpha in every pixel; the top left colour see-through when that is asked for.
void makeAlpha(clsDIB& picture, bool transparentTopPixel) {
  if (!picture.DIBhasAlpha()) changePixels(picture, [](Pixel32& p) { p.alpha = 255; });
  picture.setDIBhasAlpha(true);
  if (!transparentTopPixel) return;
  const Colour top = clsDIB::GetTopPixelColor(picture, !picture.BottomUp());
  changePixels(picture, [&](Pixel32& p) {
    if (p.colour() == top) p = {};
  });
}

// An icon below 32 bits has a mask instead of alpha: white where that is less than half, and the picture black there.
bool maskFromAlpha(clsDIB& picture, clsDIB& mask) {
  if (!mask.CreateBlankDIB(picture.DIBWidth(), picture.DIBHeight(), 32, kBlack)) return false;
  for (int y = 0; y < picture.DIBHeight(); ++y) {
    auto* row = reinterpret_cast<Pixel32*>(picture.surface().pictureRow(y));
    auto* masked = reinterpret_cast<Pixel32*>(mask.surface().pictureRow(y));
    for (int x = 0; x < picture.DIBWidth(); ++x) {
      if (row[x].alpha >= 128) continue;
      masked[x] = Pixel32::plain(kWhite);
      row[x] = Pixel32::opaque(kBlack);
    }
  }
  return true;
}

bool makeMask(Prepared& p) {
  if (p.picture.DIBhasAlpha() && !maskFromAlpha(p.picture, p.mask)) return false;
  if (!flatten(p.picture)) return false;
  if (p.request.transparentTopPixel) clsDIB::Create_ImageMask_Pair(p.picture, p.mask, -1);
  return true;
}

void dither(Prepared& p) {
  // Bits that nobody asked for are those that the picture's own colours need.
  if (p.request.bits == 0 || p.bits == 8) return paletteRows(p.picture, p.bits, p.pal, p.dither, {});
  if (p.bits == 4) {
    p.pal.CreatePalette16();
    return p.dither.DitherToPalette16(p.picture, p.pal);
  }
  p.pal.CreatePalette2();
  if (p.request.dither == "ordered") return p.dither.DitherToBW_Ordered(p.picture);
  if (p.request.dither == "floyd") return p.dither.DitherToBW_FloydSteinberg(p.picture);
  if (p.request.dither == "burke") return p.dither.DitherToBW_Burke(p.picture);
  p.dither.DitherToBW_Stucki(p.picture);
}

// The bits of the file: those asked for, else those that suit the format and the picture.
int bitsFor(const WriterRow& row, const OutputRequest& request, const clsDIB& picture) {
  if (request.bits != 0) return request.bits;
  if (row.mostBits < 32) return row.mostBits;
  if (!row.keyed && request.transparentTopPixel) return 32;
  if (row.write == writeBmp) return clsDIB::BPPperActualDIB(picture);
  return picture.DIBhasAlpha() ? 32 : 24;
}

// False for lack of memory.
bool prepare(Prepared& p, const WriterRow& row) {
  if (isOpaque(p.picture)) p.picture.setDIBhasAlpha(false);
  p.bits = bitsFor(row, p.request, p.picture);
  if (p.bits == 32) {
    makeAlpha(p.picture, p.request.transparentTopPixel);
    return true;
  }
  const bool masked = row.write == writeIcon || row.write == writeCursor;
  if (masked ? !makeMask(p) : !flatten(p.picture)) return false;
  if (p.bits <= 8) dither(p);
  return true;
}

}  // namespace

PictureOutput::PictureOutput(const std::string& file, const OutputRequest& request)
    : file_(file), request_(request), row_(writerOf(extensionOf(file))) {
  if (!row_) {
    fault_ = "no format that this program writes";
    return;
  }
  const std::string name = upperCase(row_->extension.substr(1));
  if (request.bits > row_->mostBits) {
    fault_ = name + " has at most " + std::to_string(row_->mostBits) + " bits a pixel";
  } else if (request.interlaced && !row_->interlaced) {
    fault_ = name + " can not be interlaced";
  } else if (request.transparentTopPixel && !row_->keyed &&
             (row_->mostBits < 32 || (request.bits != 0 && request.bits != 32))) {
    fault_ = name + " can not be transparent" + (row_->mostBits < 32 ? "" : " below 32 bits a pixel");
  }
}

bool PictureOutput::keepsAlpha() const {
  const bool masked = row_->write == writeIcon || row_->write == writeCursor;
  return row_->mostBits == 32 && (request_.bits == 0 || request_.bits == 32 || masked);
}

std::string PictureOutput::write(clsDIB&& picture) const {
  Prepared prepared{pathOf(file_), request_, std::move(picture), {}, 0, {}, {}};
  if (!prepare(prepared, *row_)) return "not enough memory";
  return row_->write(prepared);
}

}  // namespace ruvo::tool
