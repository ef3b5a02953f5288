#include "animation/model/work_copy.h"

#include <iterator>
#include <system_error>
#include <utility>

#include "base/paths.h"

namespace ruvo {

WorkCopy::WorkCopy(std::filesystem::path file) : file_(std::move(file)) {
  if (gif_.LoadFromGIFFile(file_) != kGifOk) return;
  for (int frame = 1; frame <= gif_.FramesCount(); ++frame) originals_.push_back(framePalette(gif_, frame));
  std::error_code unknown;
  const auto size = std::filesystem::file_size(file_, unknown);
  if (!unknown) originalSize_ = static_cast<std::int64_t>(size);
}

const FramePalette& WorkCopy::originalPalette(int frame) const {
  return originals_[static_cast<std::size_t>(frame) - 1];
}

std::int64_t WorkCopy::measure() const {
  return std::ssize(gif_.saveBytes(0, gif_.CommentText()));
}

std::string WorkCopy::restore() {
  if (!fileExists(file_)) return "Backup file missing; cannot Restore.";
  clsGIF backup;
  if (backup.LoadFromGIFFile(file_) != kGifOk) return "Failed to restore.";
  gif_ = std::move(backup);
  touched_ = false;
  return {};
}

bool WorkCopy::store() {
  if (!touched_) return true;
  if (!gif_.Save(file_, 0, gif_.CommentText())) return false;
  touched_ = false;
  stored_ = true;
  return true;
}

}  // namespace ruvo
