// What is inconsistent in the data of an animated GIF, in words.
#pragma once

#include <string>
#include <vector>

#include "formats/clsGIF.h"

namespace ruvo {

// One line for each finding; empty when all is well. Reads only.
std::vector<std::string> gifDiscrepancies(const clsGIF& Gif);
// The whole report with its closing words, lines ended by "\n".
std::string discrepancyReport(const clsGIF& Gif);

}  // namespace ruvo
