// Whole-file reading, and writing that never leaves half a file in place of a whole one.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ruvo {

// The bytes of a regular file of at most `limit` bytes. Nothing when it is missing, a folder, larger, or unreadable.
std::optional<std::vector<std::uint8_t>> readWholeFile(const std::filesystem::path& path, std::int64_t limit);

// A file that is written beside its target and takes the target's place on commit() (same folder, so the rename is one
// step). Destroyed without a commit it removes itself and the target stays as it was. Only a regular file is ever
// replaced, and none that is read-only: a target that is a folder, a pipe or a device fails at once too.
class FileReplacement {
 public:
  explicit FileReplacement(std::filesystem::path target);
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  // False after any failed step; later steps then do nothing. reason() says why in the system's words.
  bool ok() const { return ok_; }
  const std::string& reason() const { return reason_; }
  // The neighbour's path, for libraries that insist on opening a file themselves.
  const std::filesystem::path& temporaryPath() const { return temporary_; }

  bool write(std::span<const std::uint8_t> bytes);
  // Closes the neighbour and renames it over the target. The target's permissions are kept when it existed.
  bool commit();

 private:
  bool followLinks();
  void refuse(const char* step, int error);

  std::filesystem::path target_;
  std::filesystem::path temporary_;
  std::string reason_;
  int descriptor_ = -1;
  bool ok_ = false;
  bool committed_ = false;
};

// All of the above in one call.
bool replaceFile(const std::filesystem::path& target, std::span<const std::uint8_t> bytes,
                 std::string* reason = nullptr);

}  // namespace ruvo
