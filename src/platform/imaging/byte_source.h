// Where a decoder takes its bytes from: a file that is read in pieces (never mapped, so that a file that shrinks while
// it is read can not end the program) or bytes that are already in memory.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

#include "base/file_source.h"

namespace ruvo::imaging {

class ByteSource {
 public:
  virtual ~ByteSource() = default;
  virtual std::uint64_t size() const = 0;
  // Copies the bytes from `offset` on into `target`. Answers how many came: fewer than asked for only at the end of the
  // source or after a read error.
  virtual std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> target) = 0;
};

class MemorySource final : public ByteSource {
 public:
  explicit MemorySource(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
  std::uint64_t size() const override { return bytes_.size(); }
  std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> target) override;

 private:
  std::span<const std::uint8_t> bytes_;
};

class FileBytes final : public ByteSource {
 public:
  explicit FileBytes(const std::filesystem::path& path) : file_(path) {}
  bool isOpen() const { return file_.isOpen(); }
  std::uint64_t size() const override { return file_.size(); }
  std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> target) override {
    return file_.readAt(offset, target);
  }

 private:
  FileSource file_;
};

// Reads a source from its start to its end through a buffer, for libraries that ask for a few bytes at a time.
class SequentialReader {
 public:
  explicit SequentialReader(ByteSource& source) : source_(source), buffer_(kBufferBytes) {}
  // Answers how many bytes came; fewer than asked for only at the end.
  std::size_t read(std::span<std::uint8_t> target);

 private:
  static constexpr std::size_t kBufferBytes = 1 << 16;

  ByteSource& source_;
  std::vector<std::uint8_t> buffer_;
  std::uint64_t offset_ = 0;  // of the first byte behind the buffer
  std::size_t next_ = 0;
  std::size_t filled_ = 0;
};

}  // namespace ruvo::imaging
