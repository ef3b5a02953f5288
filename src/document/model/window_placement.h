// Where a window stood when it was closed, and where it comes up again.
#pragma once

#include <optional>

#include "base/geometry.h"

namespace ruvo {

enum class WindowState { Normal = 0, Minimised = 1, Maximised = 2 };

// In logical pixels; what was never stored is absent.
struct WindowPlacement {
  std::optional<int> left;
  std::optional<int> top;
  std::optional<int> width;
  std::optional<int> height;
  WindowState state = WindowState::Normal;
};

// The smallest screen on which a stored size is used.
inline constexpr Size kLeastScreenForStoredSize = {800, 600};

// The window's place on a screen's free area: of the stored size where the screen is large enough for one, else of the
// usual size, not below the least size; where it was, but wholly on the screen if it fits there, else in the middle.
Rect placeOnScreen(const WindowPlacement& stored, const Rect& screen, Size usual, Size least);

}  // namespace ruvo
