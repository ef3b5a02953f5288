// The surfaces of a frame: how they are made, masked and drawn. Drawing is AND with the mask, then OR with the picture,
// which is black where the mask is white.
#include <cstring>

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

// The bytes of a table's entry as they lie in a pixel.
std::uint32_t wordOf(raster::TableEntry entry) {
  entry.spare = 0;
  std::uint32_t word;
  std::memcpy(&word, &entry, sizeof word);
  return word;
}

// AND with the mask and OR with the picture in one pass, for targets of 24 and 32 bits: an animation draws every frame
// this way while it runs, so nothing is allocated.
class MaskedDrawing {
 public:
  explicit MaskedDrawing(const GifFrame& frame)
      : picture_(frame.image.XOR->surface()), mask_(frame.image.AND->surface()) {
    std::ranges::transform(picture_.table(), colours_.begin(), wordOf);
    // Without transparency nothing of the target is kept.
    if (frame.control.UseTransparentColor) std::ranges::transform(mask_.table(), keep_.begin(), wordOf);
  }
  static bool fits(const raster::Surface& target, const GifImage& image) {
    return target.depth() >= 24 && image.XOR->surface().depth() == 8 && image.AND->surface().depth() == 1 &&
           image.AND->size() == image.XOR->size();
  }

  void draw(raster::Surface& target, int x, int y) const {
    const Rect area = Rect::fromSize(x, y, picture_.width(), picture_.height()).intersected(target.bounds());
    for (int row = area.top; row < area.bottom; ++row) {
      if (target.depth() == 24) {
        drawRow<3>(target.pictureRow(row), area, x, row - y);
      } else {
        drawRow<4>(target.pictureRow(row), area, x, row - y);
      }
    }
  }

 private:
  template <int kBytes>
  void drawRow(std::uint8_t* line, Rect area, int x, int row) const {
    const std::uint8_t* indices = picture_.pictureRow(row);
    const std::uint8_t* mask = mask_.pictureRow(row);
    std::uint8_t* out = line + std::ptrdiff_t{kBytes} * area.left;
    for (int i = area.left - x; i < area.right - x; ++i, out += kBytes) {
      std::uint32_t pixel = 0;
      std::memcpy(&pixel, out, kBytes);
      pixel = (pixel & keep_[mask[i >> 3] >> (7 - (i & 7)) & 1]) | colours_[indices[i]];
      std::memcpy(out, &pixel, kBytes);
    }
  }

  const raster::Surface& picture_;
  const raster::Surface& mask_;
  std::array<std::uint32_t, 256> colours_{};
  std::array<std::uint32_t, 2> keep_{};
};

}  // namespace

void clsGIF::FrameDraw(raster::Surface& Target, int Frame, int X, int Y, bool FillBackground, bool AtOrigin) const {
  const GifFrame* frame = model_->frame(Frame);
  if (!frame || frame->width() < 1 || frame->height() < 1) return;
  const raster::Surface& picture = frame->image.XOR->surface();
  // Wide sums: X and Y are any numbers and may lie far outside.
  constexpr std::int64_t kFar = 1 << 30;
  const int x = static_cast<int>(std::clamp<std::int64_t>(std::int64_t{X} + frame->image.Left, -kFar, kFar));
  const int y = static_cast<int>(std::clamp<std::int64_t>(std::int64_t{Y} + frame->image.Top, -kFar, kFar));
  const bool transparent = frame->control.UseTransparentColor;
  if (transparent && FillBackground) {
    fillBehind(Target, AtOrigin ? 0 : x, AtOrigin ? 0 : y, picture.size(), FrameTransparentColor(Frame));
  }
  if (MaskedDrawing::fits(Target, frame->image)) return MaskedDrawing(*frame).draw(Target, x, y);
  if (!transparent) return raster::blit(Target, x, y, picture);
  raster::blit(Target, x, y, frame->image.AND->surface(), raster::RasterOp::SrcAnd);
  raster::blit(Target, x, y, picture, raster::RasterOp::SrcPaint);
}

}  // namespace ruvo
