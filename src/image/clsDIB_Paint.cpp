#include <algorithm>
#include <vector>

#include "base/rounding.h"
#include "image/clsDIB.h"
#include "platform/raster/blit.h"
#include "platform/raster/stretch.h"

namespace ruvo {
namespace {

raster::StretchMode modeOf(bool halftone) {
  return halftone ? raster::StretchMode::Halftone : raster::StretchMode::ColorOnColor;
}

int orAll(int asked, int all) {
  return asked < 1 ? all : asked;
}

// A stretch of a surface onto itself reads a copy.
void stretch(raster::Surface& dst, const Rect& to, const raster::Surface& src, const Rect& from, bool halftone) {
  if (&dst == &src) {
    const raster::Surface copy = raster::copyOf(src);
    if (!copy.empty())
      raster::stretchBlit(dst, raster::Extent::of(to), copy, raster::Extent::of(from), modeOf(halftone));
    return;
  }
  raster::stretchBlit(dst, raster::Extent::of(to), src, raster::Extent::of(from), modeOf(halftone));
}

// Two source columns (or rows) and the weight of the second. The last one is only reached by a whole number.
struct Neighbours {
  int first, second;
  float fraction;

  static Neighbours of(int i, float ratio, int count) {
    const float at = ratio * static_cast<float>(i);
    const int first = static_cast<int>(at);
    return {first, first + 1 < count - 1 ? first + 1 : first, at - static_cast<float>(first)};
  }
};

double between(double a, double b, float fraction) {
  return a + (b - a) * fraction;
}

std::uint8_t meanOfFour(std::uint8_t a, std::uint8_t b, std::uint8_t c, std::uint8_t d, float fx, float fy) {
  return clampToByte(roundToInt(between(between(a, b, fx), between(c, d, fx), fy)));
}

}  // namespace

void clsDIB::PaintFromDIBtoDIB(const clsDIB& Src, clsDIB& Dst, int DestX, int DestY, int Width, int Height, int SrcX,
                               int SrcY) {
  PaintFromPicToDIB(Src.surface_, Dst, DestX, DestY, Width, Height, SrcX, SrcY);
}

void clsDIB::PaintFromPicToDIB(const raster::Surface& Picture, clsDIB& Dst, int DestX, int DestY, int Width, int Height,
                               int SrcX, int SrcY) {
  if (Picture.empty() || Dst.empty()) return;
  raster::blit(Dst.surface_, DestX, DestY, orAll(Width, Picture.width()), orAll(Height, Picture.height()), Picture,
               SrcX, SrcY);
}

void clsDIB::PaintFromDIBToPic(const clsDIB& Src, raster::Surface& Picture, int DestX, int DestY, int Width, int Height,
                               int SrcX, int SrcY) {
  if (Src.empty() || Picture.empty()) return;
  raster::blit(Picture, DestX, DestY, orAll(Width, Src.DIBWidth()), orAll(Height, Src.DIBHeight()), Src.surface_, SrcX,
               SrcY);
}

void clsDIB::FillDIBFromPic(const imaging::Picture& Picture) {
  if (Picture.kind != imaging::Picture::Kind::Bitmap || !Picture.bitmap || empty()) return;
  raster::blit(surface_, 0, 0, DIBWidth(), DIBHeight(), *Picture.bitmap, 0, 0);
}

void clsDIB::StretchPaintFromDIBtoDIB(const clsDIB& Src, clsDIB& Dst, bool Halftone, int DestX, int DestY, int DestW,
                                      int DestH, int SrcX, int SrcY, int SrcW, int SrcH) {
  if (Src.empty() || Dst.empty()) return;
  stretch(Dst.surface_, Rect::fromSize(DestX, DestY, orAll(DestW, Dst.DIBWidth()), orAll(DestH, Dst.DIBHeight())),
          Src.surface_, Rect::fromSize(SrcX, SrcY, orAll(SrcW, Src.DIBWidth()), orAll(SrcH, Src.DIBHeight())),
          Halftone);
}

void clsDIB::StretchPaintFromDIBToPic(const clsDIB& Src, raster::Surface& Picture, bool Halftone, const Rect& Dest,
                                      const Rect& Source) {
  if (!Src.empty() && !Picture.empty()) stretch(Picture, Dest, Src.surface_, Source, Halftone);
}

void clsDIB::StretchPaintFromPicToDIB(const raster::Surface& Picture, clsDIB& Dst, bool Halftone, const Rect& Dest,
                                      const Rect& Source) {
  if (!Picture.empty() && !Dst.empty()) stretch(Dst.surface_, Dest, Picture, Source, Halftone);
}

void clsDIB::StretchPaintFromDIBtoDIB_Antialias_NativeDB(const clsDIB& Src, clsDIB& Dst) {
  if (Src.empty() || Dst.empty() || Src.surface_.depth() != 32 || Dst.surface_.depth() != 32) return;
  const float ratioX = static_cast<float>(Src.DIBWidth() - 1) / static_cast<float>(Dst.DIBWidth());
  const float ratioY = static_cast<float>(Src.DIBHeight() - 1) / static_cast<float>(Dst.DIBHeight());
  std::vector<Neighbours> columns;
  columns.reserve(static_cast<std::size_t>(Dst.DIBWidth()));
  for (int x = 0; x < Dst.DIBWidth(); ++x) columns.push_back(Neighbours::of(x, ratioX, Src.DIBWidth()));
  const auto source = Src.surface_.view32();
  for (int y = 0; y < Dst.DIBHeight(); ++y) {
    const Neighbours rows = Neighbours::of(y, ratioY, Src.DIBHeight());
    const Pixel32* upper = source.row(rows.first);
    const Pixel32* lower = source.row(rows.second);
    Pixel32* out = Dst.surface_.view32().row(y);
    for (int x = 0; x < Dst.DIBWidth(); ++x) {
      const auto [i, j, fx] = columns[static_cast<std::size_t>(x)];
      const Pixel32 a = upper[i], b = upper[j], c = lower[i], d = lower[j];
      out[x].blue = meanOfFour(a.blue, b.blue, c.blue, d.blue, fx, rows.fraction);
      out[x].green = meanOfFour(a.green, b.green, c.green, d.green, fx, rows.fraction);
      out[x].red = meanOfFour(a.red, b.red, c.red, d.red, fx, rows.fraction);
    }
  }
}

void clsDIB::TileDIB(const clsDIB& Src, clsDIB& Dst) {
  if (Src.empty() || Dst.empty() || &Src == &Dst) return;
  // One tile, then what is there is doubled: a tile of one pixel costs no more than a large one.
  raster::blit(Dst.surface_, 0, 0, Src.surface_);
  const int height = std::min(Src.DIBHeight(), Dst.DIBHeight());
  for (int done = Src.DIBWidth(); done < Dst.DIBWidth(); done *= 2) {
    raster::blit(Dst.surface_, done, 0, std::min(done, Dst.DIBWidth() - done), height, Dst.surface_, 0, 0);
  }
  for (int done = height; done < Dst.DIBHeight(); done *= 2) {
    raster::blit(Dst.surface_, 0, done, Dst.DIBWidth(), std::min(done, Dst.DIBHeight() - done), Dst.surface_, 0, 0);
  }
}

void clsDIB::ColorBackGroundDIB(clsDIB& Dib, Colour colour) {
  if (Dib.empty()) return;
  raster::fillRect(Dib.surface_, Dib.surface_.bounds(), colour & kWhite);
  Dib.backColour_ = colour & kWhite;
}

void clsDIB::GetBestFitPointAndSize(int MaxW, int MaxH, int& X, int& Y, int& W, int& H, bool Force) const {
  W = DIBWidth();
  H = DIBHeight();
  X = Y = 0;
  if (empty()) return;
  if (Force || H > MaxH || W > MaxW) {
    const float rx = static_cast<float>(MaxW) / static_cast<float>(W);
    const float ry = static_cast<float>(MaxH) / static_cast<float>(H);
    if (rx >= ry) {
      W = std::max(1, roundToInt(static_cast<double>(W) * ry));
      H = MaxH;
    } else {
      H = std::max(1, roundToInt(static_cast<double>(H) * rx));
      W = MaxW;
    }
  }
  X = (MaxW - W) / 2;
  Y = (MaxH - H) / 2;
}

}  // namespace ruvo
