#include <algorithm>
#include <cstring>
#include <utility>

#include "image/clsDIB.h"
#include "platform/imaging/bmp_reader.h"
#include "platform/imaging/metafile.h"
#include "platform/raster/blit.h"

namespace ruvo {

clsDIB::clsDIB(clsDIB&& other) noexcept {
  *this = std::move(other);
}

clsDIB& clsDIB::operator=(clsDIB&& other) noexcept {
  if (this == &other) return *this;
  surface_ = std::move(other.surface_);
  bpp_ = std::exchange(other.bpp_, 0);
  bytesPerScanline_ = std::exchange(other.bytesPerScanline_, 0);
  backColour_ = std::exchange(other.backColour_, 0);
  bottomUp_ = std::exchange(other.bottomUp_, false);
  hasAlpha_ = std::exchange(other.hasAlpha_, false);
  return *this;
}

void clsDIB::ClearUp() {
  *this = clsDIB();
}

bool clsDIB::CreateBlankDIB(int Width, int Height, int Bpp, Colour BackColor, bool BottomUp, bool Force32) {
  ClearUp();
  const int depth = Bpp > 8 && Force32 ? 32 : Bpp;
  const bool depthKnown = Bpp == 1 || Bpp == 4 || Bpp == 8 || Bpp == 24 || Bpp == 32;
  const auto order = BottomUp ? raster::RowOrder::TopDown : raster::RowOrder::BottomUp;
  if (!depthKnown || !surface_.create(Width, Height, depth, order)) return false;
  bpp_ = Bpp;
  bytesPerScanline_ = static_cast<int>(raster::strideFor(Width, Bpp));
  backColour_ = BackColor & kWhite;
  bottomUp_ = BottomUp;
  if (depth <= 8) {
    // Only entry 1 takes the colour and the bits stay at index 0: a new indexed surface is black whatever is asked for.
    surface_.table()[1] = raster::TableEntry::of(BackColor);
  } else if (backColour_ != kBlack) {
    raster::fillRect(surface_, surface_.bounds(), backColour_);
  }
  return true;
}

void clsDIB::adopt(raster::Surface&& surface, bool hasAlpha) {
  ClearUp();
  surface_ = std::move(surface);
  if (surface_.empty()) return;
  bpp_ = surface_.depth();
  bytesPerScanline_ = surface_.stride();
  bottomUp_ = surface_.order() == raster::RowOrder::TopDown;
  hasAlpha_ = hasAlpha && bpp_ == 32;
}

bool clsDIB::CreateDIBFromPic(const imaging::Picture& Picture, bool Force32Bit) {
  if (Picture.kind == imaging::Picture::Kind::Metafile && Picture.metafile) {
    // Held as below.
    const imaging::Picture drawing = Picture;
    if (!CreateBlankDIB(drawing.width, drawing.height, Force32Bit ? 32 : 24, kWhite, false, true)) return false;
    if (!imaging::playMetafile(drawing, surface_, surface_.bounds())) ClearUp();
    return !empty();
  }
  if (Picture.kind != imaging::Picture::Kind::Bitmap || !Picture.bitmap || Picture.bitmap->empty()) return false;
  // Kept alive in case the picture belongs to what ClearUp releases.
  const std::shared_ptr<raster::Surface> source = Picture.bitmap;
  if (!CreateBlankDIB(source->width(), source->height(), Force32Bit ? 32 : source->depth(), kWhite, false, true)) {
    return false;
  }
  if (bpp_ <= 8) std::copy(source->table().begin(), source->table().end(), surface_.table().begin());
  raster::blit(surface_, 0, 0, *source);
  return true;
}

bool clsDIB::CreateDIBFromFile(const std::filesystem::path& FileName, bool FlipVertical) {
  ClearUp();
  imaging::BmpResult file = imaging::readBmpFile(FileName);
  if (!file || file.truncated) return false;
  adopt(std::move(file.surface), file.hasAlpha);
  if (FlipVertical && !hasAlpha_) RotateDIB(*this, 1);
  return true;
}

void clsDIB::Post_Icon_Arrays_To_DIB(clsDIB& Dib, std::span<const Colour> ColourArray,
                                     std::span<const std::uint8_t> MaskArray,
                                     std::span<const std::uint8_t> AlphaArray) {
  if (Dib.empty() || Dib.surface_.depth() != 32) return;
  const auto count = static_cast<std::size_t>(Dib.DIBWidth()) * static_cast<std::size_t>(Dib.DIBHeight());
  if (std::min({ColourArray.size(), MaskArray.size(), AlphaArray.size()}) < count) return;
  std::size_t i = 0;
  for (int y = 0; y < Dib.DIBHeight(); ++y) {
    auto* row = reinterpret_cast<Pixel32*>(Dib.surface_.pictureRow(y));
    for (int x = 0; x < Dib.DIBWidth(); ++x, ++i) {
      const Colour c = ColourArray[i];
      row[x] =
          MaskArray[i] == 0 ? Pixel32{blueOf(c), greenOf(c), redOf(c), AlphaArray[i]} : Pixel32{255, 255, 255, 255};
    }
  }
}

bool clsDIB::CloneDIB(const clsDIB& Src, clsDIB& Dst, Colour BackColor, bool BottomUp) {
  if (Src.empty()) return false;
  if (&Src == &Dst) return true;
  Dst.ClearUp();
  const auto order = BottomUp ? raster::RowOrder::TopDown : raster::RowOrder::BottomUp;
  if (!Dst.surface_.create(Src.DIBWidth(), Src.DIBHeight(), Src.surface_.depth(), order)) return false;
  Dst.bpp_ = Src.bpp_;
  Dst.bytesPerScanline_ = Src.bytesPerScanline_;
  Dst.backColour_ = BackColor & kWhite;
  Dst.bottomUp_ = BottomUp;
  Dst.hasAlpha_ = Src.hasAlpha_;
  std::copy(Src.surface_.table().begin(), Src.surface_.table().end(), Dst.surface_.table().begin());
  std::memcpy(Dst.surface_.bits(), Src.surface_.bits(), Src.surface_.byteCount());
  return true;
}

}  // namespace ruvo
