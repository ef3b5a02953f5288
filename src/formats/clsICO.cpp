#include "formats/clsICO.h"

#include <algorithm>

#include "platform/raster/blit.h"

namespace ruvo {
namespace {

const clsDIB& nothing() {
  static const clsDIB empty;
  return empty;
}

}  // namespace

const clsICO::Image* clsICO::at(int Index) const {
  return Index >= 0 && Index < IconCount() ? &images_[static_cast<std::size_t>(Index)] : nullptr;
}

int clsICO::IconWidth(int Index) const {
  return DIBXOR(Index).DIBWidth();
}

int clsICO::IconHeight(int Index) const {
  return DIBXOR(Index).DIBHeight();
}

int clsICO::IconBPP(int Index) const {
  return DIBXOR(Index).DIBbpp();
}

std::uint32_t clsICO::IconBytesInRes(int Index) const {
  const Image* image = at(Index);
  return image ? image->bytesInRes : 0;
}

int clsICO::HotSpotX(int Index) const {
  const Image* image = at(Index);
  return image ? image->hotSpotX : 0;
}

int clsICO::HotSpotY(int Index) const {
  const Image* image = at(Index);
  return image ? image->hotSpotY : 0;
}

const clsDIB& clsICO::DIBXOR(int Index) const {
  const Image* image = at(Index);
  return image ? image->XOR : nothing();
}

const clsDIB& clsICO::DIBAND(int Index) const {
  const Image* image = at(Index);
  return image ? image->AND : nothing();
}

int clsICO::firstReadable() const {
  const auto found = std::find_if(images_.begin(), images_.end(), [](const Image& image) { return image.readable; });
  return found == images_.end() ? -1 : static_cast<int>(found - images_.begin());
}

clsDIB clsICO::withAlpha(int Index) const {
  const clsDIB& XOR = DIBXOR(Index);
  clsDIB made;
  if (XOR.empty() || !made.CreateBlankDIB(XOR.DIBWidth(), XOR.DIBHeight(), 32, kBlack)) return made;
  made.setDIBhasAlpha(true);
  clsDIB::PaintFromDIBtoDIB(XOR, made);
  if (XOR.DIBhasAlpha()) return made;
  raster::Surface mask;
  if (!mask.create(XOR.DIBWidth(), XOR.DIBHeight(), 32)) return clsDIB();
  if (!DIBAND(Index).empty()) raster::blit(mask, 0, 0, DIBAND(Index).surface());
  for (int y = 0; y < made.DIBHeight(); ++y) {
    auto* row = reinterpret_cast<Pixel32*>(made.surface().pictureRow(y));
    const auto* through = reinterpret_cast<const Pixel32*>(mask.pictureRow(y));
    for (int x = 0; x < made.DIBWidth(); ++x) row[x].alpha = through[x].colour() == kWhite ? 0 : 255;
  }
  return made;
}

std::vector<std::uint8_t> clsICO::getArrayAlpha(int Index) const {
  std::vector<std::uint8_t> alpha;
  const raster::Surface& XOR = DIBXOR(Index).surface();
  if (XOR.depth() != 32) return alpha;
  alpha.reserve(static_cast<std::size_t>(XOR.width()) * static_cast<std::size_t>(XOR.height()));
  for (int y = 0; y < XOR.height(); ++y) {
    const auto* row = reinterpret_cast<const Pixel32*>(XOR.pictureRow(y));
    for (int x = 0; x < XOR.width(); ++x) alpha.push_back(row[x].alpha);
  }
  return alpha;
}

void clsICO::putArrayAlpha(int Index, std::span<const std::uint8_t> alpha) {
  if (!at(Index)) return;
  clsDIB& XOR = images_[static_cast<std::size_t>(Index)].XOR;
  raster::Surface& surface = XOR.surface();
  const auto width = static_cast<std::size_t>(surface.width());
  if (surface.depth() != 32 || alpha.size() != width * static_cast<std::size_t>(surface.height())) return;
  for (int y = 0; y < surface.height(); ++y) {
    auto* row = reinterpret_cast<Pixel32*>(surface.pictureRow(y));
    for (std::size_t x = 0; x < width; ++x) row[x].alpha = alpha[static_cast<std::size_t>(y) * width + x];
  }
  XOR.setDIBhasAlpha(std::any_of(alpha.begin(), alpha.end(), [](std::uint8_t a) { return a != 0; }));
}

void clsICO::DrawIcon_To_DIB(int Index, clsDIB& Target, int X, int Y, Colour Background) const {
  const clsDIB& XOR = DIBXOR(Index);
  if (XOR.empty() || Target.empty()) return;
  if (XOR.DIBbpp() == 32 && XOR.DIBhasAlpha()) {
    clsDIB composed;
    if (!composed.CreateBlankDIB(XOR.DIBWidth(), XOR.DIBHeight(), 32, Background)) return;
    clsDIB::Display_DIB_With_Alpha(XOR, composed.surface(), Background);
    // What lands on the target is a plain picture: whatever stood in byte 3 is alpha no more.
    clsDIB::CreateMask_viaDC(composed);
    raster::blit(Target.surface(), X, Y, composed.surface());
    return;
  }
  raster::blit(Target.surface(), X, Y, DIBAND(Index).surface(), raster::RasterOp::SrcAnd);
  // OR, not XOR: a pixel that would turn the ground around in other programs is simply added here.
  raster::blit(Target.surface(), X, Y, XOR.surface(), raster::RasterOp::SrcPaint);
}

void clsICO::DrawImage(int Index, raster::Surface& hDC, int X, int Y) const {
  raster::blit(hDC, X, Y, DIBXOR(Index).surface());
}

void clsICO::DrawMask(int Index, raster::Surface& hDC, int X, int Y) const {
  raster::blit(hDC, X, Y, DIBAND(Index).surface());
}

int clsICO::SeekIcon(int Width, int Height, int Bpp) const {
  for (int i = 0; i < IconCount(); ++i) {
    if (IconWidth(i) == Width && IconHeight(i) == Height && IconBPP(i) == Bpp) return i;
  }
  return -1;
}

int clsICO::SeekIcon_Size(int Width, int Height) const {
  for (int i = 0; i < IconCount(); ++i) {
    if (IconWidth(i) == Width && IconHeight(i) == Height) return i;
  }
  return -1;
}

void clsICO::ClearUp() {
  *this = clsICO();
}

}  // namespace ruvo
