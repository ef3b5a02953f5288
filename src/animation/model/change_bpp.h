// The run of "Optimize &/or change BPP": its choices, order and words.
#pragma once

#include <array>
#include <string>

#include "base/progress.h"
#include "formats/clsGIF.h"

namespace ruvo {

// Target entries of the list's items (0 to 4), in order, and their texts.
inline constexpr std::array<int, 5> kBppTargets = {256, 128, 64, 32, 16};
std::string bppItemText(std::size_t item);

struct ChangeBppOrder {
  int entries = 256;  // 2 to 256
  bool globalise = false;
};
// Runs it on the model, masks included: unused and duplicate entries go, then the global table and each local one are
// reduced and their transparent entries come first, or all are brought together to one. Empty when done, else the words;
// the model is then in the state reached.
std::string changeBpp(clsGIF& Gif, const ChangeBppOrder& Order, const Progress& progress = {});

}  // namespace ruvo
