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

// A side after the order's ratio, before any floor: exact, truncated.
int resizedSide(int side, const ResizeOrder& order);
Size resizedScreen(Size screen, const ResizeOrder& order);
// Why it can not be done; the questions to be asked one after the other (the last one always stands).
std::optional<std::string> resizeRefusal(const clsGIF& gif, const ResizeOrder& order);
std::vector<std::string> resizeQuestions(const clsGIF& gif, const ResizeOrder& order);
// False when there is no memory; the model is then as it was. Masks are made anew.
bool resizeGif(clsGIF& gif, const ResizeOrder& order, const Progress& progress = {});

}  // namespace ruvo
