// What effect windows are given by the document that opens them.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "effects/model/effect.h"

class QWidget;

namespace ruvo {

// Told when an effect, or another command that makes a new picture, has no room for it.
inline constexpr const char* kNoMemoryText = "Not enough memory for this operation.";

// What an effect is to change; the picture outlives the window.
struct EffectSubject {
  const clsDIB& picture;
  bool region = false;              // what a region holds, which keeps its size
  const clsDIB* beneath = nullptr;  // of a region that can be seen through: what lies under it, of its size
};

struct EffectHost {
  // Lets the user choose a picture of a file; null when cancelled or refused (in words).
  std::function<std::shared_ptr<const clsDIB>(QWidget* parent)> loadPicture;
  // What was entered last in each window, by its name.
  std::map<std::string, std::vector<EffectValue>> remembered;
};

}  // namespace ruvo
