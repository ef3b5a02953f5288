#include "document/model/window_placement.h"

#include <algorithm>

namespace ruvo {
namespace {

// Begins at `at` if all of it is seen then, else as near as that is possible; its beginning is seen in any case.
int within(int at, int length, int from, int to) {
  return std::max(from, std::min(at, to - length));
}

}  // namespace

Rect placeOnScreen(const WindowPlacement& stored, const Rect& screen, Size usual, Size least) {
  const bool large =
      screen.width() >= kLeastScreenForStoredSize.width && screen.height() >= kLeastScreenForStoredSize.height;
  const auto side = [large](std::optional<int> kept, int plain, int lowest, int room) {
    return std::max(lowest, std::min(large ? kept.value_or(plain) : plain, room));
  };
  const int width = side(stored.width, usual.width, least.width, screen.width());
  const int height = side(stored.height, usual.height, least.height, screen.height());
  const int left = stored.left.value_or(screen.left + (screen.width() - width) / 2);
  const int top = stored.top.value_or(screen.top + (screen.height() - height) / 2);
  return Rect::fromSize(within(left, width, screen.left, screen.right), within(top, height, screen.top, screen.bottom),
                        width, height);
}

}  // namespace ruvo
