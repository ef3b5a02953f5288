#include "document/model/undo_history.h"

#include <algorithm>
#include <cstdio>
#include <system_error>

namespace ruvo {
namespace fs = std::filesystem;

namespace {
// The place of a state that is written while all eleven are taken, and the number of one that could not be written
// then.
constexpr int kOverflow = UndoHistory::kDepth + 1;

void removeFile(const fs::path& file) {
  std::error_code ignored;
  fs::remove(file, ignored);
}

bool isFile(const fs::path& file) {
  std::error_code ignored;
  return fs::is_regular_file(file, ignored);
}
}  // namespace

UndoHistory::UndoHistory(fs::path folder, std::string tag, FileAction save, FileAction load)
    : folder_(std::move(folder)), tag_(std::move(tag)), save_(std::move(save)), load_(std::move(load)) {}

fs::path UndoHistory::fileOf(int number) const {
  char digits[16];
  std::snprintf(digits, sizeof digits, "%03d", number);
  return folder_ / (tag_ + digits + ".m_Temp");
}

void UndoHistory::removeFrom(int number) {
  for (int i = number; i <= kOverflow; ++i) removeFile(fileOf(i));
}

void UndoHistory::reset() {
  removeFrom(1);
  position_ = top_ = 0;
}

// Runs only once the newest state is safe in the overflow place, so that a full disk never costs an older state.
void UndoHistory::dropOldest() {
  removeFile(fileOf(1));
  for (int i = 1; i < kOverflow; ++i) {
    std::error_code missing;
    fs::rename(fileOf(i + 1), fileOf(i), missing);
  }
}

bool UndoHistory::push() {
  const int number = std::min(position_ + 1, kOverflow);
  // The undone states ahead are dead from here on; gone first, they leave their room to the new one.
  removeFrom(number);
  const bool written = save_(fileOf(number));
  if (!written) removeFile(fileOf(number));
  position_ = number;
  if (written && number == kOverflow) {
    dropOldest();
    position_ = kDepth;
  }
  top_ = position_;
  return written;
}

bool UndoHistory::undo() {
  if (!canUndo()) return false;
  --position_;
  return isFile(fileOf(position_)) && load_(fileOf(position_));
}

bool UndoHistory::redo() {
  if (!canRedo() || !isFile(fileOf(position_ + 1))) return false;
  ++position_;
  return load_(fileOf(position_));
}

bool UndoHistory::undoAll() {
  if (!canUndo()) return false;
  const bool present = isFile(fileOf(1));
  if (present && !load_(fileOf(1))) return false;
  removeFrom(2);
  position_ = top_ = 1;
  if (!present) save_(fileOf(1));
  return present;
}

}  // namespace ruvo
