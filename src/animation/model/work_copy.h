// The copy of an animation that a window works on by itself: loaded from a file that the session wrote, and stored there
// again when the window closes with changes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "animation/model/palette_texts.h"
#include "formats/clsGIF.h"

namespace ruvo {

class WorkCopy {
 public:
  explicit WorkCopy(std::filesystem::path file);

  bool loaded() const { return gif_.FramesCount() > 0; }
  clsGIF& gif() { return gif_; }
  const clsGIF& gif() const { return gif_; }

  // As the file was when it was loaded.
  const FramePalette& originalPalette(int frame) const;  // of a frame that there is
  std::int64_t originalSize() const { return originalSize_; }
  // Bytes of a file of what the model is now; 0 when that can not be told.
  std::int64_t measure() const;

  // The model was changed.
  void touch() { touched_ = true; }
  // Goes back to the file. Words when that can not be done; the model is then as it was.
  std::string restore();
  // Writes a changed model into the file. False leaves the file as it was.
  bool store();
  // The file holds a result of the window's work.
  bool stored() const { return stored_; }

 private:
  std::filesystem::path file_;
  clsGIF gif_;
  std::vector<FramePalette> originals_;
  std::int64_t originalSize_ = 0;
  bool touched_ = false;
  bool stored_ = false;
};

}  // namespace ruvo
