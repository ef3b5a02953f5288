#include "animation/model/gif_view.h"

#include "base/paths.h"
#include "platform/raster/blit.h"

namespace ruvo {
namespace {

constexpr int kLeastMilliseconds = 10;

clsDIB checks() {
  constexpr int kCell = 8;
  constexpr Colour kGrey = rgb(204, 204, 204);
  clsDIB pattern;
  if (!pattern.CreateBlankDIB(2 * kCell, 2 * kCell, 24, kWhite, true)) return pattern;
  raster::fillRect(pattern.surface(), Rect::fromSize(kCell, 0, kCell, kCell), kGrey);
  raster::fillRect(pattern.surface(), Rect::fromSize(0, kCell, kCell, kCell), kGrey);
  return pattern;
}

}  // namespace

const clsDIB& transparentPattern() {
  static const clsDIB pattern = checks();
  return pattern;
}

bool GifView::create(const clsGIF& gif, Colour ground) {
  clear();
  transparentPattern();  // is made when it is first asked for, which no tick shall be
  for (clsDIB* surface : {&ground_, &still_, &animation_}) {
    if (surface->CreateBlankDIB(gif.BgdWidth(), gif.BgdHeight(), 24, ground, true)) continue;
    clear();
    return false;
  }
  area_ = shown().bounds();
  return true;
}

// What is behind the frame: its transparent colour or the pattern where one shows through, else the display's colour.
void GifView::prepare(clsDIB& target, const clsGIF& gif, int frame, BgdPattern pattern) {
  if (!gif.FrameUseTransparentColor(frame) || pattern == kPatternOriginal) {
    clsDIB::PaintFromDIBtoDIB(ground_, target);
  } else if (pattern == kPatternTile) {
    clsDIB::TileDIB(transparentPattern(), target);
  } else {
    clsDIB::ColorBackGroundDIB(target, gif.FrameTransparentColor(frame));
  }
}

void GifView::composeStill(const clsGIF& gif, int frame, BgdPattern pattern) {
  running_ = false;
  area_ = still_.surface().bounds();
  prepare(still_, gif, frame, pattern);
  gif.FrameDraw(still_.surface(), frame, 0, 0);
  if (pattern != kPatternFrameSize) return;
  area_ = area_.intersected(
      Rect::fromSize(gif.FrameLeft(frame), gif.FrameTop(frame), gif.FrameWidth(frame), gif.FrameHeight(frame)));
  if (area_.empty()) area_ = {};
}

void GifView::start() {
  frame_ = 0;
  clsDIB::PaintFromDIBtoDIB(ground_, animation_);
}

GifView::Tick GifView::tick(const clsGIF& gif, BgdPattern pattern) {
  if (gif.FramesCount() < 2 || animation_.empty()) return {};
  frame_ = frame_ < gif.FramesCount() ? frame_ + 1 : 1;
  const int method = gif.FrameDisposalMethod(frame_);
  if (method == kDisposalToBackground || method == kDisposalToPrevious) prepare(animation_, gif, frame_, pattern);
  gif.FrameDraw(animation_.surface(), frame_, 0, 0);
  running_ = true;
  area_ = animation_.surface().bounds();
  return {frame_, tickMilliseconds(gif, frame_)};
}

int tickMilliseconds(const clsGIF& gif, int frame) {
  return std::max(kLeastMilliseconds, gif.FrameDelay(frame) * 10);
}

Size displaySize(Size picture, Size room) {
  if (picture.empty() || room.empty()) return {};
  return fitSize(picture, room, false).value_or(Size{});
}

}  // namespace ruvo
