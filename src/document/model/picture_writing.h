// Writes a picture in the format of a Save As item, and makes the copies that this needs.
#pragma once

#include <filesystem>

#include "base/progress.h"
#include "document/model/save_rules.h"
#include "image/clsDIB.h"

namespace ruvo {

// A copy of a picture at another size, resampled by the imaging service when that is usable. False for lack of memory.
bool resizedCopy(const clsDIB& picture, int width, int height, clsDIB& copy);
// Writes the file whole or not at all. Never changes `picture`. `bits` receives the depth written. Reports
// progress where colours are reduced.
bool writePicture(const clsDIB& picture, const SaveItem& item, const std::filesystem::path& file, int& bits,
                  const Progress& progress = {});

}  // namespace ruvo
