// A regular file that is read at offsets, for readers that want a part of it or want to keep it out of memory.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

namespace ruvo {

class FileSource {
 public:
  // Not open when the path is missing, a folder, a pipe or unreadable.
  explicit FileSource(const std::filesystem::path& path);
  ~FileSource();
  FileSource(const FileSource&) = delete;
  FileSource& operator=(const FileSource&) = delete;

  bool isOpen() const { return descriptor_ >= 0; }
  // Length when it was opened; the file may since have changed, so readAt() has the last word.
  std::uint64_t size() const { return size_; }
  // Fills `out` from the offset on; fewer bytes at the end of the file or after an error.
  std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> out) const;

 private:
  int descriptor_ = -1;
  std::uint64_t size_ = 0;
};

}  // namespace ruvo
