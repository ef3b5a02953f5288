// The surfaces of a frame: how they are made, masked and drawn. Drawing is AND with the mask, then OR with the picture,
// which is black where the mask is white.
#include <bit>
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

std::uint32_t wordAt(const std::uint8_t* bytes) {
  std::uint32_t word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}
void putWord(std::uint8_t* bytes, std::uint32_t word) {
  std::memcpy(bytes, &word, sizeof word);
}
static_assert(std::endian::native == std::endian::little, "pixels are handled as little-endian words");
// B in the low byte, as pixels lie in memory.
std::uint32_t wordOf(raster::TableEntry entry) {
  return rgb(entry.blue, entry.green, entry.red);
}

// AND with the mask and OR with the picture in one pass, for targets of 24 and 32 bits: an animation draws every frame
// this way while it runs, so it is quick and allocates nothing.
class MaskedDrawing {
 public:
  explicit MaskedDrawing(const GifFrame& frame)
      : picture_(frame.image.XOR->surface()), mask_(frame.image.AND->surface()) {
    std::ranges::transform(picture_.table(), colours_.begin(), wordOf);
    // Without transparency nothing of the target is kept.
    if (frame.control.UseTransparentColor) std::ranges::transform(mask_.table(), keep_.begin(), wordOf);
    for (unsigned bits = 0; bits < keepFour_.size(); ++bits) {
      keepFour_[bits] = packed(keep_[bits >> 3], keep_[bits >> 2 & 1], keep_[bits >> 1 & 1], keep_[bits & 1]);
    }
  }
  static bool fits(const raster::Surface& target, const GifImage& image) {
    return target.depth() >= 24 && image.XOR->surface().depth() == 8 && image.AND->surface().depth() == 1 &&
           image.AND->size() == image.XOR->size();
  }

  void draw(raster::Surface& target, int x, int y) const {
    const Rect area = Rect::fromSize(x, y, picture_.width(), picture_.height()).intersected(target.bounds());
    for (int line = area.top; line < area.bottom; ++line) {
      const Row row{picture_.pictureRow(line - y), mask_.pictureRow(line - y), area.left - x, area.right - x};
      std::uint8_t* out = target.pictureRow(line) + std::ptrdiff_t{target.depth() / 8} * area.left;
      target.depth() == 24 ? draw24(row, out) : draw32(row, out);
    }
  }

 private:
  struct Row {
    const std::uint8_t* indices;
    const std::uint8_t* mask;
    int begin, end;  // columns
  };
  using FourPixels = std::array<std::uint32_t, 3>;

  // Four pixels of 24 bits side by side.
  static FourPixels packed(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
    return {a | b << 24, b >> 8 | c << 16, c >> 16 | d << 8};
  }

  std::uint32_t combined(const Row& row, int x, std::uint32_t under) const {
    return (under & keep_[row.mask[x >> 3] >> (7 - (x & 7)) & 1]) | colours_[row.indices[x]];
  }
  void draw32(const Row& row, std::uint8_t* out) const {
    for (int x = row.begin; x < row.end; ++x, out += 4) putWord(out, combined(row, x, wordAt(out)));
  }
  void drawOne24(const Row& row, int x, std::uint8_t* out) const {
    const Colour pixel = combined(row, x, rgb(out[0], out[1], out[2]));
    out[0] = redOf(pixel);  // the bytes are B, G, R on both sides
    out[1] = greenOf(pixel);
    out[2] = blueOf(pixel);
  }
  void draw24(const Row& row, std::uint8_t* out) const {
    int x = row.begin;
    for (; x < row.end && x % 4 != 0; ++x, out += 3) drawOne24(row, x, out);
    for (; x + 4 <= row.end; x += 4, out += 12) {
      const std::uint8_t* i = row.indices + x;
      const FourPixels colours = packed(colours_[i[0]], colours_[i[1]], colours_[i[2]], colours_[i[3]]);
      const FourPixels& keep = keepFour_[row.mask[x >> 3] >> (4 - (x & 4)) & 15];
      putWord(out, (wordAt(out) & keep[0]) | colours[0]);
      putWord(out + 4, (wordAt(out + 4) & keep[1]) | colours[1]);
      putWord(out + 8, (wordAt(out + 8) & keep[2]) | colours[2]);
    }
    for (; x < row.end; ++x, out += 3) drawOne24(row, x, out);
  }

  const raster::Surface& picture_;
  const raster::Surface& mask_;
  std::array<std::uint32_t, 256> colours_{};
  std::array<std::uint32_t, 2> keep_{};
  std::array<FourPixels, 16> keepFour_{};  // by four bits of the mask
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
