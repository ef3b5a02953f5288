// Writes a picture in the format of a Save As item, and makes the copies that this needs.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "base/progress.h"
#include "document/model/save_rules.h"
#include "image/clsDIB.h"

namespace ruvo {

// A copy of a picture at another size, resampled by the imaging service when that is usable. False for lack of memory.
bool resizedCopy(const clsDIB& picture, int width, int height, clsDIB& copy);

struct WriteOrder {
  SaveItem item;
  std::filesystem::path file;
  std::filesystem::path tempFolder;     // for working files; they are gone afterwards
  std::vector<std::uint8_t> exifBlock;  // of the photograph that a JPEG comes from; empty for none
  Point transparentAt;                  // of a GIF: the picture point whose colour becomes see-through
};

// Writes the file whole or not at all. Never changes `picture`. `bits` receives the depth written. Reports
// progress where colours are reduced.
bool writePicture(const clsDIB& picture, const WriteOrder& order, int& bits, const Progress& progress = {});

}  // namespace ruvo
