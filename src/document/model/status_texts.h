// The texts of the main window's status panels, as a document writes them.
#pragma once

#include <string>

#include "base/colour.h"

namespace ruvo {

std::string sizeText(int width, int height);
std::string clickText(int x, int y, Colour colour);
std::string rectangleText(int x, int y, int width, int height);
std::string lineText(int x1, int y1, int x2, int y2, double angle);
std::string arcText(int x1, int y1, int x2, int y2, int cx, int cy, double radius);
std::string ovalText(int x, int y, double radius, int width, int height);

}  // namespace ruvo
