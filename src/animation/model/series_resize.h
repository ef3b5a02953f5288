// The resize panel's arithmetic, limits and questions, and the resizing itself.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/geometry.h"
#include "base/progress.h"
#include "formats/clsGIF.h"

namespace ruvo {

// Items of `cboRightBottom`.
enum class ResizeKeep { None = 0, Width = 1, Height = 2, Both = 3 };

inline constexpr int kLeastResizePercent = 10;
inline constexpr int kMostResizePercent = 300;

struct ResizeOrder {
  int percent = 100;  // 10 to 300
  bool area = false;  // of the area; otherwise of each side
  bool backgroundOnly = false;
  ResizeKeep keep = ResizeKeep::None;  // background only
  int offsetX = 0;
  int offsetY = 0;
};

// A side or a place after the order's ratio: exact, truncated.
int resizedSide(int side, const ResizeOrder& order);
// Each side at least 1. The screen to start from is GifPlayer::screenSize.
Size resizedScreen(Size screen, const ResizeOrder& order);
// Why it can not be done; the questions to be asked one after the other (the last one always stands).
std::optional<std::string> resizeRefusal(const clsGIF& gif, const ResizeOrder& order);
std::vector<std::string> resizeQuestions(const clsGIF& gif, const ResizeOrder& order);

// Resizes the screen and each frame with it; pixels are picked, so no new colours arise. With offsets frames move right
// and down, and what reaches past the screen is cut off.
//
// Background only: the pictures keep their scale. A growing screen moves them by the offsets, and the first frame then
// fills the whole screen; a shrinking one cuts them and moves them back by the offsets.
//
// The model is then as if it had been saved and read again. False when there is no memory; it is then as it was.
bool resizeGif(clsGIF& gif, const ResizeOrder& order, const Progress& progress = {});

}  // namespace ruvo
