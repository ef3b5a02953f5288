// Writes a picture in the format of a Save As item, and makes the copies that this needs.
#pragma once

#include <filesystem>

#include "document/model/save_rules.h"
#include "image/clsDIB.h"

namespace ruvo {

// A copy of a picture at another size, resampled by the imaging service when that is usable. False for lack of memory.
bool resizedCopy(const clsDIB& picture, int width, int height, clsDIB& copy);
// A copy with its alpha composed over white, as it is shown.
bool flattenedCopy(const clsDIB& picture, clsDIB& copy);

// Reduces a picture in place to at most 256 colours with diffusion; one that has no more stays as it is. Alpha is first
// composed over white.
bool reduceTo256(clsDIB& picture);

// Writes the file whole or not at all. Never changes `picture`. `bits` receives the depth written.
bool writePicture(const clsDIB& picture, const SaveItem& item, const std::filesystem::path& file, int& bits);

}  // namespace ruvo
