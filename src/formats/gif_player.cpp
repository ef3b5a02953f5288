#include "formats/gif_player.h"

#include <algorithm>
#include <cstring>

namespace ruvo {
namespace {

Pixel32* pixelsAt(raster::Surface& screen, int x, int y) {
  return reinterpret_cast<Pixel32*>(screen.pictureRow(y)) + x;
}

void clearArea(raster::Surface& screen, Rect area) {
  for (int y = area.top; y < area.bottom; ++y) {
    std::fill_n(pixelsAt(screen, area.left, y), area.width(), Pixel32{});
  }
}

void copyArea(raster::Surface& to, Point at, raster::Surface& from, Rect area) {
  const std::size_t bytes = static_cast<std::size_t>(area.width()) * sizeof(Pixel32);
  for (int y = 0; y < area.height(); ++y) {
    std::memcpy(pixelsAt(to, at.x, at.y + y), pixelsAt(from, area.left, area.top + y), bytes);
  }
}

}  // namespace

Size GifPlayer::screenSize(const clsGIF& gif) {
  const Size screen{gif.BgdWidth(), gif.BgdHeight()};
  const Size first{gif.FrameWidth(1), gif.FrameHeight(1)};
  return screen.width < first.width || screen.height < first.height ? first : screen;
}

Point GifPlayer::framePlace(const clsGIF& gif, int frame) {
  if (frame == 1 && screenSize(gif) != Size{gif.BgdWidth(), gif.BgdHeight()}) return {};
  return {gif.FrameLeft(frame), gif.FrameTop(frame)};
}

GifPlayer::GifPlayer(const clsGIF& gif) : gif_(gif) {
  const Size size = screenSize(gif);
  screen_.create(size.width, size.height, 32);
}

Rect GifPlayer::areaOf(int frame) const {
  const Point at = framePlace(gif_, frame);
  return Rect::fromSize(at.x, at.y, gif_.FrameWidth(frame), gif_.FrameHeight(frame)).intersected(screen_.bounds());
}

int GifPlayer::next() {
  if (screen_.empty() || frame_ >= gif_.FramesCount()) return 0;
  dispose();
  ++frame_;
  const Rect area = areaOf(frame_);
  saved_.clear();
  if (!area.empty()) {
    if (gif_.FrameDisposalMethod(frame_) == kDisposalToPrevious) {
      if (!saved_.create(area.width(), area.height(), 32)) return 0;
      copyArea(saved_, {0, 0}, screen_, area);
    }
    draw(area);
  }
  return frame_;
}

void GifPlayer::dispose() {
  if (frame_ == 0) return;
  const Rect area = areaOf(frame_);
  if (area.empty()) return;
  const int method = gif_.FrameDisposalMethod(frame_);
  if (method == kDisposalToBackground) clearArea(screen_, area);
  if (method == kDisposalToPrevious && !saved_.empty())
    copyArea(screen_, {area.left, area.top}, saved_, saved_.bounds());
}

void GifPlayer::draw(Rect area) {
  const GifTable& table = gif_.getLocalPalette(frame_);
  std::array<Pixel32, 256> colours;
  for (std::size_t i = 0; i < colours.size(); ++i) colours[i] = Pixel32::opaque(table[i].colour());
  const int transparent = gif_.FrameUseTransparentColor(frame_) ? gif_.FrameTransparentColorIndex(frame_) : -1;
  const raster::Surface& picture = gif_.FrameDIBXOR(frame_).surface();
  const Point first = framePlace(gif_, frame_);
  for (int y = area.top; y < area.bottom; ++y) {
    const std::uint8_t* indices = picture.pictureRow(y - first.y) + (area.left - first.x);
    Pixel32* out = pixelsAt(screen_, area.left, y);
    for (int x = 0; x < area.width(); ++x) {
      if (indices[x] != transparent) out[x] = colours[indices[x]];
    }
  }
}

}  // namespace ruvo
