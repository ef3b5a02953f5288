// See-through margins of frames, and of the whole animation.
#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include "animation/model/basGIFaniMinimize.h"
#include "formats/gif_player.h"

namespace ruvo {
namespace {

struct Trim {
  Rect box;            // what stays of the frame, in its own coordinates
  bool empty = false;  // all of it is see-through
};

Rect fullRect(const clsGIF& gif, int frame) {
  return {0, 0, gif.FrameWidth(frame), gif.FrameHeight(frame)};
}

// The box of the pixels that are not of that index; empty when all are.
Rect opaqueBox(const raster::Surface& picture, std::uint8_t transparent) {
  const int width = picture.width();
  const auto opaque = [transparent](std::uint8_t index) { return index != transparent; };
  const auto blank = [&](int y) {
    const std::uint8_t* row = picture.pictureRow(y);
    return std::none_of(row, row + width, opaque);
  };
  Rect box{width, 0, 0, picture.height()};
  while (box.top < box.bottom && blank(box.top)) ++box.top;
  if (box.top == box.bottom) return {};
  while (blank(box.bottom - 1)) --box.bottom;
  for (int y = box.top; y < box.bottom; ++y) {
    const std::uint8_t* row = picture.pictureRow(y);
    // Only the columns outside the box of the rows before can widen it.
    box.left = static_cast<int>(std::find_if(row, row + box.left, opaque) - row);
    const auto end = std::find_if(std::reverse_iterator(row + width), std::reverse_iterator(row + box.right), opaque);
    box.right = static_cast<int>(end.base() - row);
  }
  return box;
}

bool hasSlack(const clsGIF& gif, int frame, const Trim& trim) {
  return trim.box != fullRect(gif, frame);
}

// True when something shows in the frame's rectangle, but outside its box.
bool paintedAround(const raster::Surface& screen, Rect full, Rect box, Point at) {
  const Rect strips[] = {{full.left, full.top, full.right, box.top},
                         {full.left, box.top, box.left, box.bottom},
                         {box.right, box.top, full.right, box.bottom},
                         {full.left, box.bottom, full.right, full.bottom}};
  return std::ranges::any_of(strips, [&](const Rect& strip) {
    const Rect area =
        Rect::fromSize(strip.left + at.x, strip.top + at.y, strip.width(), strip.height()).intersected(screen.bounds());
    for (int y = area.top; y < area.bottom && !area.empty(); ++y) {
      const auto* row = reinterpret_cast<const Pixel32*>(screen.pictureRow(y));
      const auto painted = [](const Pixel32& pixel) { return pixel.alpha != 0; };
      if (std::any_of(row + area.left, row + area.right, painted)) return true;
    }
    return false;
  });
}

class SlackTrimmer {
 public:
  explicit SlackTrimmer(clsGIF& gif) : gif_(gif), trims_(static_cast<std::size_t>(gif.FramesCount()) + 1) {}

  bool run() {
    findBoxes();
    keepClearedAreas();
    layOut();
    return cutPictures() && putIn();
  }

 private:
  Trim& trim(int frame) { return trims_[static_cast<std::size_t>(frame)]; }
  const Trim& trim(int frame) const { return trims_[static_cast<std::size_t>(frame)]; }
  void keepWhole(int frame) { trim(frame) = {fullRect(gif_, frame), false}; }

  void findBoxes();
  void keepClearedAreas();
  void layOut();
  bool cutPictures();
  bool putIn();

  clsGIF& gif_;
  std::vector<Trim> trims_;  // by frame number
  bool firstCovers_ = false;
  bool larger_ = false;  // the first frame, than the screen
  struct Cut {
    int frame;
    clsDIB picture;
    clsDIB mask;  // blank
  };
  std::vector<Cut> cuts_;
};

void SlackTrimmer::findBoxes() {
  for (int frame = 1; frame <= gif_.FramesCount(); ++frame) {
    keepWhole(frame);
    if (!gif_.FrameUseTransparentColor(frame)) continue;
    const auto index = static_cast<std::uint8_t>(gif_.FrameTransparentColorIndex(frame));
    trim(frame).box = opaqueBox(gif_.FrameDIBXOR(frame).surface(), index);
    trim(frame).empty = trim(frame).box.empty();
  }
}

// A frame that is disposed of to the background clears all of its rectangle. What was drawn there before would stay
// when the rectangle became smaller. One without a picture is there for nothing else.
void SlackTrimmer::keepClearedAreas() {
  const auto clears = [this](int frame) {
    return gif_.FrameDisposalMethod(frame) == kDisposalToBackground && hasSlack(gif_, frame, trim(frame));
  };
  int last = 0;
  for (int frame = 2; frame <= gif_.FramesCount(); ++frame) {
    if (clears(frame)) last = frame;
  }
  GifPlayer player(gif_);
  for (int frame = 1; frame <= last; ++frame) {
    const bool shown = player.next() == frame;
    if (frame == 1 || !clears(frame)) continue;
    const Point at{gif_.FrameLeft(frame), gif_.FrameTop(frame)};
    const Trim& cut = trim(frame);
    if (!shown || cut.empty || paintedAround(player.screen(), fullRect(gif_, frame), cut.box, at)) keepWhole(frame);
  }
}

// The first frame's box grows to hold all others, for it becomes the screen.
void SlackTrimmer::layOut() {
  firstCovers_ = gif_.FrameWidth(1) >= gif_.BgdWidth() && gif_.FrameHeight(1) >= gif_.BgdHeight();
  larger_ = gif_.FrameWidth(1) > gif_.BgdWidth() || gif_.FrameHeight(1) > gif_.BgdHeight();
  const bool atOrigin = gif_.FrameLeft(1) == 0 && gif_.FrameTop(1) == 0;
  Trim& first = trim(1);
  // A first frame that is larger than the screen is shown from its corner, wherever it says to stand.
  if (first.empty || !(firstCovers_ ? larger_ || atOrigin : atOrigin && !larger_)) keepWhole(1);
  if (!hasSlack(gif_, 1, first)) return;
  // On a screen that keeps its size nothing may move.
  if (!firstCovers_) first.box.left = first.box.top = 0;
  for (int frame = 2; frame <= gif_.FramesCount(); ++frame) {
    if (trim(frame).empty) continue;
    const Rect& box = trim(frame).box;
    const int left = gif_.FrameLeft(frame), top = gif_.FrameTop(frame);
    // The frame's own corner and not the sum: more than is needed, and so it has always been done.
    if (box.left + left < first.box.left) first.box.left = box.left;
    if (box.top + top < first.box.top) first.box.top = box.top;
    first.box.right = std::max(first.box.right, std::min(box.right + left, gif_.FrameWidth(1)));
    first.box.bottom = std::max(first.box.bottom, std::min(box.bottom + top, gif_.FrameHeight(1)));
  }
}

// All new pictures stand, and nothing has changed, before the first one is put in.
bool SlackTrimmer::cutPictures() {
  for (int frame = 1; frame <= gif_.FramesCount(); ++frame) {
    if (trim(frame).empty || !hasSlack(gif_, frame, trim(frame))) continue;
    const Rect box = trim(frame).box;
    Cut cut{frame, {}, {}};
    if (!cut.picture.CreateBlankDIB(box.width(), box.height(), 8, kWhite, true, true) ||
        !cut.mask.CreateBlankDIB(box.width(), box.height(), 1, kWhite, true) || !gif_.ownFrameDIBXOR(frame) ||
        !gif_.ownFrameDIBAND(frame)) {
      return false;
    }
    const raster::Surface& from = gif_.FrameDIBXOR(frame).surface();
    for (int y = 0; y < box.height(); ++y) {
      std::memcpy(cut.picture.surface().pictureRow(y), from.pictureRow(box.top + y) + box.left,
                  static_cast<std::size_t>(box.width()));
    }
    const GifTable& table = gif_.getLocalPalette(frame);
    cut.picture.SetPaletteToDIB8BPP({reinterpret_cast<const std::uint8_t*>(table.data()), sizeof(table)});
    cuts_.push_back(std::move(cut));
  }
  return true;
}

// True when anything is other than it was.
bool SlackTrimmer::putIn() {
  const Size before{gif_.BgdWidth(), gif_.BgdHeight()};
  const Rect window = trim(1).box;
  for (Cut& cut : cuts_) {
    *gif_.ownFrameDIBXOR(cut.frame) = std::move(cut.picture);
    *gif_.ownFrameDIBAND(cut.frame) = std::move(cut.mask);
  }
  for (int frame = 2; frame <= gif_.FramesCount(); ++frame) {
    if (trim(frame).empty) continue;
    gif_.setFrameLeft(frame, gif_.FrameLeft(frame) + trim(frame).box.left - window.left);
    gif_.setFrameTop(frame, gif_.FrameTop(frame) + trim(frame).box.top - window.top);
  }
  if (firstCovers_) {
    if (larger_) {
      gif_.setFrameLeft(1, 0);
      gif_.setFrameTop(1, 0);
    }
    gif_.setBgdWidth(window.width());
    gif_.setBgdHeight(window.height());
  }
  return !cuts_.empty() || before != Size{gif_.BgdWidth(), gif_.BgdHeight()};
}

}  // namespace

bool RemoveSlackTransparentAreas(clsGIF& Gif) {
  for (int frame = 1; frame <= Gif.FramesCount(); ++frame) {
    if (Gif.FrameUseTransparentColor(frame)) return SlackTrimmer(Gif).run();
  }
  return false;
}

}  // namespace ruvo
