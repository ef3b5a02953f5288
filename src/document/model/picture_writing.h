// Writes a picture in the format of a Save As item, and makes the copies that this needs.
#pragma once

#include <filesystem>

#include "base/progress.h"
#include "document/model/save_rules.h"
#include "image/clsDIB.h"

namespace ruvo {

// A copy of a picture at another size, resampled by the imaging service when that is usable. False for lack of memory.
bool resizedCopy(const clsDIB& picture, int width, int height, clsDIB& copy);
// A copy with its alpha composed over white, as it is shown.
bool flattenedCopy(const clsDIB& picture, clsDIB& copy);

// Reduces a picture in place to at most 256 colours with diffusion; one that has no more stays as it is. Alpha is first
// composed over white. False for lack of memory.
bool reduceTo256(clsDIB& picture, const Progress& progress = {});

// Writes the file whole or not at all. Never changes `picture`. `bits` receives the depth written. Reports
// progress where colours are reduced.
bool writePicture(const clsDIB& picture, const SaveItem& item, const std::filesystem::path& file, int& bits,
                  const Progress& progress = {});

}  // namespace ruvo
