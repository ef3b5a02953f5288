#include "animation/model/series_resize.h"

#include <cmath>

#include "animation/model/gif_change.h"
#include "animation/model/palette_maps.h"
#include "animation/model/session_limits.h"
#include "formats/gif_player.h"
#include "platform/raster/blit.h"
#include "platform/raster/stretch.h"

namespace ruvo {
namespace {

std::string sizeText(Size size) {
  return std::to_string(size.width) + " x " + std::to_string(size.height);
}

// A frame whose place the smaller screen would not reach.
std::optional<std::string> placeRefusal(const clsGIF& gif, Size screen) {
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    const int left = gif.FrameLeft(frame), top = gif.FrameTop(frame);
    if (left <= screen.width && top <= screen.height) continue;
    return "Cannot reduce screen size beyond [left, top] position of smaller frames,\ne.g. Frame " +
           std::to_string(frame) + " starts at [" + std::to_string(left) + ", " + std::to_string(top) + "]";
  }
  return std::nullopt;
}

std::optional<std::string> backgroundRefusal(const clsGIF& gif, const ResizeOrder& order, Size screen) {
  if (screen == GifPlayer::screenSize(gif) && order.offsetX == 0 && order.offsetY == 0) {
    return "New setting does not result in any change in screen width and height.\n"
           "(Please change resize value, offset value and/or Preserve selection)";
  }
  return order.percent < 100 ? placeRefusal(gif, screen) : std::nullopt;
}

// What is left of a frame on the screen. A later frame may reach one column and one row past it, where no viewer shows
// them, as long as it can be read back; a first frame may not, since viewers take a larger one for the screen.
Size cutToScreen(Point place, Size size, Size screen, bool first) {
  const auto cut = [](int at, int side, int reach) { return at + side > reach ? std::max(1, reach - at) : side; };
  const Size loose{cut(place.x, size.width, screen.width + 1), cut(place.y, size.height, screen.height + 1)};
  const bool readable = std::max(loose.width, loose.height) <= clsGIF::kMostLaterSide &&
                        std::int64_t{loose.width} * loose.height <= clsGIF::kMostLaterPixels;
  if (!first && readable) return loose;
  return {cut(place.x, size.width, screen.width), cut(place.y, size.height, screen.height)};
}

// The index of what a picture does not cover.
int surroundIndex(const clsGIF& gif, int frame) {
  if (gif.FrameUseTransparentColor(frame)) return gif.FrameTransparentColorIndex(frame);
  const int background = gif.BgdColorIndex();
  return !gif.LocalPaletteUsed(frame) && background < gif.GlobalPaletteEntries() ? background : 0;
}

// From each index to the lowest of its colour. What is see-through stays so, and nothing else becomes it.
IndexMap lowestOfColour(const clsGIF& gif, int frame) {
  const GifTable& table = gif.getLocalPalette(frame);
  const int transparent = gif.FrameUseTransparentColor(frame) ? gif.FrameTransparentColorIndex(frame) : -1;
  IndexMap map = identityMap();
  for (int i = 0; i < 256; ++i) {
    for (int lower = 0; lower < i && i != transparent; ++lower) {
      if (lower == transparent ||
          !sameColour(table[static_cast<std::size_t>(lower)], table[static_cast<std::size_t>(i)])) {
        continue;
      }
      map[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(lower);
      break;
    }
  }
  return map;
}

class Resizer {
 public:
  Resizer(const clsGIF& from, clsGIF& to, const ResizeOrder& order)
      : from_(from), to_(to), order_(order), screen_(resizedScreen(GifPlayer::screenSize(from), order)) {}

  bool run(const Progress& progress) {
    to_.setBgdWidth(screen_.width);
    to_.setBgdHeight(screen_.height);
    for (int frame = 1; frame <= from_.FramesCount(); ++frame) {
      if (!resize(frame)) return false;
      progress.report(frame * 100 / from_.FramesCount());
    }
    return reload();
  }

 private:
  bool resize(int frame) {
    setPlace(frame, placeOf(frame));
    if (!order_.backgroundOnly) return scale(frame);
    return order_.percent > 100 ? shift(frame) : cut(frame);
  }

  Point placeOf(int frame) const { return GifPlayer::framePlace(from_, frame); }
  Size sizeOf(int frame) const { return {from_.FrameWidth(frame), from_.FrameHeight(frame)}; }
  void setPlace(int frame, Point place) {
    to_.setFrameLeft(frame, place.x);
    to_.setFrameTop(frame, place.y);
  }
  Point offsetFrom(Point place) const { return {place.x + order_.offsetX, place.y + order_.offsetY}; }

  // A picture of another size, into which `draw` brings the old one as indices.
  template <typename Draw>
  bool redraw(int frame, Size size, const Draw& draw) {
    const raster::Surface& old = from_.FrameDIBXOR(frame).surface();
    clsDIB* picture = to_.ownFrameDIBXOR(frame);
    if (!picture || old.depth() != 8) return false;
    if (!picture->CreateBlankDIB(size.width, size.height, 8, kWhite, true, true)) return false;
    std::ranges::copy(old.table(), picture->surface().table().begin());
    std::ranges::fill(picture->surface().bytes(), static_cast<std::uint8_t>(surroundIndex(from_, frame)));
    draw(picture->surface(), old);
    return mapFramePixels(to_, frame, lowestOfColour(from_, frame));
  }
  bool redrawAt(int frame, Size size, Point at) {
    return redraw(frame, size, [at](auto& picture, const auto& old) { raster::blit(picture, at.x, at.y, old); });
  }

  bool scale(int frame) {
    const auto scaled = [this](int value) { return resizedSide(value, order_); };
    const Point old = placeOf(frame);
    const Point place = offsetFrom({scaled(old.x), scaled(old.y)});
    const Size whole{std::max(1, scaled(sizeOf(frame).width)), std::max(1, scaled(sizeOf(frame).height))};
    setPlace(frame, place);
    return redraw(frame, cutToScreen(place, whole, screen_, frame == 1), [&](auto& picture, const auto& source) {
      raster::stretchBlit(picture, {0, 0, whole.width, whole.height}, source, raster::Extent::of(source),
                          raster::StretchMode::ColorOnColor);
    });
  }

  bool shift(int frame) {
    if (order_.offsetX == 0 && order_.offsetY == 0) return true;
    const Point place = offsetFrom(placeOf(frame));
    setPlace(frame, frame == 1 ? Point{} : place);
    return frame != 1 || redrawAt(1, screen_, place);
  }

  bool cut(int frame) {
    const Point place = placeOf(frame);
    const bool atOrigin = place == Point{};
    const Point at = atOrigin && frame != 1 ? Point{-order_.offsetX, -order_.offsetY} : Point{};
    if (!atOrigin) {
      const Point back{place.x - order_.offsetX, place.y - order_.offsetY};
      setPlace(frame, {back.x < 0 ? place.x : back.x, back.y < 0 ? place.y : back.y});
    }
    return redrawAt(frame, cutToScreen(offsetFrom(place), sizeOf(frame), screen_, frame == 1), at);
  }

  // The comment is kept as it is: a file holds less of it.
  bool reload() {
    const std::string comment = to_.CommentText();
    std::vector<std::uint8_t> bytes = to_.saveBytes();
    if (bytes.empty() || to_.LoadStream(bytes) != kGifOk) return false;
    to_.setCommentText(comment);
    return true;
  }

  const clsGIF& from_;
  clsGIF& to_;
  const ResizeOrder& order_;
  Size screen_;
};

}  // namespace

int resizedSide(int side, const ResizeOrder& order) {
  const std::int64_t wide = side;
  if (!order.area) return static_cast<int>(wide * order.percent / 100);
  // The largest whole number whose square is within the share of the side's square.
  const std::int64_t share = wide * wide * order.percent / 100;
  auto root = static_cast<std::int64_t>(std::sqrt(static_cast<double>(share)));
  while (root * root > share) --root;
  while ((root + 1) * (root + 1) <= share) ++root;
  return static_cast<int>(root);
}

Size resizedScreen(Size screen, const ResizeOrder& order) {
  const auto kept = [&order](ResizeKeep side) {
    return order.backgroundOnly && (order.keep == side || order.keep == ResizeKeep::Both);
  };
  const int width = kept(ResizeKeep::Width) ? screen.width : resizedSide(screen.width, order);
  const int height = kept(ResizeKeep::Height) ? screen.height : resizedSide(screen.height, order);
  return {std::max(1, width), std::max(1, height)};
}

std::optional<std::string> resizeRefusal(const clsGIF& gif, const ResizeOrder& order) {
  if (order.percent == 100) return "Please select a size other than 100%";
  if (order.percent < kLeastResizePercent || order.percent > kMostResizePercent) {
    return "Resize value must be from " + std::to_string(kLeastResizePercent) + "% to " +
           std::to_string(kMostResizePercent) + '%';
  }
  const Size screen = resizedScreen(GifPlayer::screenSize(gif), order);
  if (order.backgroundOnly) {
    if (auto refusal = backgroundRefusal(gif, order, screen)) return refusal;
  }
  if (!screenAreaAllowed(screen)) return screenAreaText();
  if (screen.width > kMostScreenSide || screen.height > kMostScreenSide) {
    return "New width or height cannot exceed " + formatNumber(kMostScreenSide, kFormatSideLimit) + " pixels.";
  }
  return std::nullopt;
}

std::vector<std::string> resizeQuestions(const clsGIF& gif, const ResizeOrder& order) {
  const Size screen = resizedScreen(GifPlayer::screenSize(gif), order);
  std::vector<std::string> questions;
  if (isUnusuallyLarge(screen)) questions.push_back(unusuallyLargeQuestion("Background/screen", screen));
  if (screen.width < kLeastScreenSide && screen.height < kLeastScreenSide) {
    questions.push_back("Background both width and height less then " + std::to_string(kLeastScreenSide) + " (at " +
                        sizeText(screen) + ")\nappears to be too small.  Proceed still?");
  }
  questions.push_back(order.backgroundOnly ? "Resize background/screen only?" : "Proceed to resize frame series?");
  return questions;
}

bool resizeGif(clsGIF& gif, const ResizeOrder& order, const Progress& progress) {
  const bool done = changeWhole(gif, [&](clsGIF& copy) { return Resizer(gif, copy, order).run(progress); });
  progress.finish();
  return done;
}

}  // namespace ruvo
