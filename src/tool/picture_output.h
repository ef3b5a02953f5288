// Writing a picture in the format of a file's extension, reduced and marked as asked for.
#pragma once

#include <string>
#include <string_view>

#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo::tool {

struct OutputRequest {
  int bits = 0;  // 1, 4, 8, 24 or 32; 0 is the format's choice
  std::string_view dither = "stucki";
  int quality = 75;  // of a JPEG
  bool interlaced = false;
  bool transparentTopPixel = false;
  bool native = false;
  Point hotSpot;  // of a cursor
};

// How a picture gets into files of one kind.
struct WriterRow;

class PictureOutput {
 public:
  // `fault()` says why nothing can be written to such a file, or with such a request; empty when all is well.
  PictureOutput(const std::string& file, const OutputRequest& request);
  const std::string& fault() const { return fault_; }
  // Whether see-through parts of the picture get into the file.
  bool keepsAlpha() const;

  // The file is written whole or not at all. Takes 32 bits. Answers nothing, or why not.
  std::string write(clsDIB&& picture) const;

 private:
  std::string file_;
  OutputRequest request_;
  const WriterRow* row_ = nullptr;
  std::string fault_;
};

}  // namespace ruvo::tool
