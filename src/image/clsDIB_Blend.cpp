#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "base/rounding.h"
#include "image/clsDIB.h"
#include "image/pixel_mix.h"
#include "image/row_reader.h"
#include "image/work_pixels.h"
#include "platform/raster/blit.h"

namespace ruvo {
namespace {

Size smallerOf(Size a, Size b) {
  return {std::min(a.width, b.width), std::min(a.height, b.height)};
}

Pixel32* pixelsOf(raster::Surface& surface, int pictureRow) {
  return reinterpret_cast<Pixel32*>(surface.pictureRow(pictureRow));
}
const Pixel32* pixelsOf(const raster::Surface& surface, int pictureRow) {
  return reinterpret_cast<const Pixel32*>(surface.pictureRow(pictureRow));
}

}  // namespace

void clsDIB::Fill_DIB_With_AlphaValues(clsDIB& Dib32, const raster::Surface& Mask,
                                       std::span<const std::uint8_t> AlphaArray) {
  if (Dib32.empty() || Dib32.surface_.depth() != 32 || Mask.empty()) return;
  const int width = Dib32.DIBWidth();
  if (AlphaArray.size() < static_cast<std::size_t>(width) * static_cast<std::size_t>(Dib32.DIBHeight())) return;
  RowReader reader(Mask);
  for (int y = 0; y < Dib32.DIBHeight(); ++y) {
    Pixel32* row = pixelsOf(Dib32.surface_, y);
    const Pixel32* mask = y < Mask.height() ? reader.pixels(Mask.memoryRowOf(y)) : nullptr;
    const std::uint8_t* alpha = AlphaArray.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    for (int x = 0; x < width; ++x) {
      // Outside the mask there is no black.
      if (mask && x < Mask.width() && mask[x].colour() == kBlack) {
        row[x].alpha = alpha[x];
      } else {
        row[x] = {255, 255, 255, 255};
      }
    }
  }
}

void clsDIB::Display_DIB_With_Alpha(const clsDIB& Dib32, raster::Surface& Target, Colour BackColor, bool Flip) {
  if (Dib32.empty() || Target.empty()) return;
  if (Dib32.surface_.depth() != 32 || Target.depth() != 32) {
    // Other depths have no alpha to compose with, or need a nearest entry each pixel.
    clsDIB composed;
    if (!composed.CreateBlankDIB(Dib32.DIBWidth(), Dib32.DIBHeight(), 32, kBlack)) return;
    if (Dib32.surface_.depth() == 32) {
      Display_DIB_With_Alpha(Dib32, composed.surface_, BackColor, Flip);
    } else {
      PaintFromDIBtoDIB(Dib32, composed);
      if (Flip) RotateDIB(composed, 1);
    }
    raster::blit(Target, 0, 0, composed.surface_);
    return;
  }
  const Composer composer(BackColor);
  const Size area = smallerOf(Dib32.size(), Target.size());
  for (int y = 0; y < area.height; ++y) {
    const Pixel32* from = pixelsOf(Dib32.surface_, Flip ? Dib32.DIBHeight() - 1 - y : y);
    Pixel32* to = pixelsOf(Target, y);
    if (!Dib32.hasAlpha_) {
      std::memmove(to, from, static_cast<std::size_t>(area.width) * sizeof(Pixel32));
    } else {
      for (int x = 0; x < area.width; ++x) to[x] = composer.over(from[x]);
    }
  }
}

void clsDIB::CreateMask_viaDC(clsDIB& Dib) {
  Dib.hasAlpha_ = false;
  if (Dib.empty() || Dib.surface_.depth() != 32) return;
  for (int y = 0; y < Dib.DIBHeight(); ++y) {
    Pixel32* row = pixelsOf(Dib.surface_, y);
    for (int x = 0; x < Dib.DIBWidth(); ++x) row[x].alpha = 0;
  }
}

void clsDIB::Create_ImageMask_Pair(clsDIB& Image, clsDIB& Mask, std::int64_t TransparentColor) {
  if (Image.empty() || Image.surface_.depth() != 32 || &Image == &Mask) return;
  if (Mask.size() != Image.size() || Mask.surface_.depth() != 32) {
    if (!Mask.CreateBlankDIB(Image.DIBWidth(), Image.DIBHeight(), 32, kWhite)) return;
  }
  const Colour key = TransparentColor >= 0 ? static_cast<Colour>(TransparentColor & kWhite)
                                           : GetTopPixelColor(Image, !Image.bottomUp_);
  const Pixel32 transparent = Pixel32::plain(key);
  for (int y = 0; y < Image.DIBHeight(); ++y) {
    Pixel32* image = pixelsOf(Image.surface_, y);
    Pixel32* mask = pixelsOf(Mask.surface_, y);
    for (int x = 0; x < Image.DIBWidth(); ++x) {
      const bool through = image[x].sameColour(transparent);
      mask[x] = {static_cast<std::uint8_t>(through ? 255 : 0), static_cast<std::uint8_t>(through ? 255 : 0),
                 static_cast<std::uint8_t>(through ? 255 : 0), mask[x].alpha};
      if (through) image[x] = {0, 0, 0, image[x].alpha};
    }
  }
}

void clsDIB::BlendIn(clsDIB& Dst, const clsDIB& Src, int Percent, std::int64_t colour, const Progress& progress) {
  if (Dst.empty() || Src.empty()) return;
  {
    WorkPixels work(Dst);
    if (work.surface().empty()) return;
    const Mixer mixer(Percent);
    const Size area = smallerOf(Dst.size(), Src.size());
    const bool skips = colour >= 0;
    const Pixel32 skipped = Pixel32::plain(static_cast<Colour>(colour & kWhite));
    RowReader source(Src.surface_);
    for (int y = 0; y < area.height; ++y) {
      const Pixel32* from = source.pixels(Src.surface_.memoryRowOf(y));
      Pixel32* to = pixelsOf(work.surface(), y);
      for (int x = 0; x < area.width; ++x) {
        if (!skips || !from[x].sameColour(skipped)) mixer.mix(to[x], from[x]);
      }
      progress.report(100 * (y + 1) / area.height);
    }
  }
  progress.finish();
}

void clsDIB::BlendIn_Masked(clsDIB& Dst, const clsDIB& Src, const clsDIB& Mask, int Percent, const Progress& progress) {
  for (const clsDIB* dib : {static_cast<const clsDIB*>(&Dst), &Src, &Mask}) {
    if (dib->empty() || dib->surface_.depth() != 32) return;
  }
  const Mixer mixer(Percent);
  const Size area = smallerOf(smallerOf(Dst.size(), Src.size()), Mask.size());
  for (int y = 0; y < area.height; ++y) {
    const Pixel32* from = pixelsOf(Src.surface_, y);
    const Pixel32* mask = pixelsOf(Mask.surface_, y);
    Pixel32* to = pixelsOf(Dst.surface_, y);
    for (int x = 0; x < area.width; ++x) {
      if (mask[x].colour() == kBlack) mixer.mix(to[x], from[x]);
    }
    progress.report(100 * (y + 1) / area.height);
  }
  progress.finish();
}

}  // namespace ruvo
