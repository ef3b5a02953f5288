// The surfaces of a frame: how they are made, masked and drawn. Drawing is AND with the mask, then OR with the picture,
// which is black where the mask is white.
#include "formats/clsGIF_Model.h"
#include "platform/raster/blit.h"

namespace ruvo {

bool createSurfaces(GifImage& image, Size size) {
  image.XOR = std::make_shared<clsDIB>();
  image.AND = std::make_shared<clsDIB>();
  return image.XOR->CreateBlankDIB(size.width, size.height, 8, kWhite, true, true) &&
         image.AND->CreateBlankDIB(size.width, size.height, 1, kWhite, true);
}

int highestIndex(const clsDIB& dib) {
  std::uint8_t highest = 0;
  for (int y = 0; y < dib.DIBHeight(); ++y) {
    const std::uint8_t* row = dib.surface().memoryRow(y);
    highest = std::max(highest, *std::max_element(row, row + dib.DIBWidth()));
  }
  return highest;
}

clsDIB* ownSurface(std::shared_ptr<clsDIB>& surface) {
  if (surface.use_count() == 1) return surface.get();
  try {
    auto own = std::make_shared<clsDIB>();
    if (!clsDIB::CloneDIB(*surface, *own, surface->DIBBackColor(), surface->BottomUp())) return nullptr;
    surface = std::move(own);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
  return surface.get();
}

void maskFrame(GifFrame& frame, int transparentIndex) {
  if (!isTableIndex(transparentIndex)) return;
  clsDIB* picture = ownSurface(frame.image.XOR);
  clsDIB* mask = ownSurface(frame.image.AND);
  if (!picture || !mask) return;
  GifTable working = frame.image.LocalPalette;
  if (frame.control.UseTransparentColor) {
    // With one white entry in a black table the conversion to one bit finds exactly the pixels of that index.
    const auto index = static_cast<std::size_t>(transparentIndex);
    GifTable onlyIndex{};
    onlyIndex[index] = raster::TableEntry::of(kWhite);
    setTable(*picture, onlyIndex);
    clsDIB::PaintFromDIBtoDIB(*picture, *mask);
    working[index] = {};
  } else {
    clsDIB::ColorBackGroundDIB(*mask, kBlack);
  }
  setTable(*picture, working);
}

void clsGIF::FrameMask(int Frame, int TransparentIndex) {
  if (GifFrame* frame = model_->frame(Frame)) maskFrame(*frame, TransparentIndex);
}

void clsGIF::Remask_All_Frames() {
  for (GifFrame& frame : model_->frames) maskFrame(frame, frame.control.TransparentColorIndex);
}

namespace {

// One line of the colour serves every line of the rectangle.
void fillBehind(raster::Surface& target, int x, int y, Size size, Colour colour) {
  clsDIB line;
  if (!line.CreateBlankDIB(size.width, 1, 32, colour)) return;
  const int bottom = std::min(y + size.height, target.height());
  for (int row = std::max(y, 0); row < bottom; ++row) raster::blit(target, x, row, line.surface());
}

}  // namespace

void clsGIF::FrameDraw(raster::Surface& Target, int Frame, int X, int Y, bool FillBackground, bool AtOrigin) const {
  const GifFrame* frame = model_->frame(Frame);
  if (!frame || frame->width() < 1 || frame->height() < 1) return;
  const raster::Surface& picture = frame->image.XOR->surface();
  // Wide sums: X and Y are any numbers and may lie far outside.
  constexpr std::int64_t kFar = 1 << 30;
  const int x = static_cast<int>(std::clamp<std::int64_t>(std::int64_t{X} + frame->image.Left, -kFar, kFar));
  const int y = static_cast<int>(std::clamp<std::int64_t>(std::int64_t{Y} + frame->image.Top, -kFar, kFar));
  if (!frame->control.UseTransparentColor) {
    raster::blit(Target, x, y, picture);
    return;
  }
  if (FillBackground) {
    fillBehind(Target, AtOrigin ? 0 : x, AtOrigin ? 0 : y, picture.size(), FrameTransparentColor(Frame));
  }
  raster::blit(Target, x, y, frame->image.AND->surface(), raster::RasterOp::SrcAnd);
  raster::blit(Target, x, y, picture, raster::RasterOp::SrcPaint);
}

}  // namespace ruvo
