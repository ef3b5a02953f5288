#include "platform/imaging/byte_source.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace ruvo::imaging {

std::size_t MemorySource::readAt(std::uint64_t offset, std::span<std::uint8_t> target) {
  if (offset >= bytes_.size()) return 0;
  const std::size_t count = std::min<std::size_t>(target.size(), bytes_.size() - static_cast<std::size_t>(offset));
  if (count > 0) std::memcpy(target.data(), bytes_.data() + offset, count);
  return count;
}

FileSource::FileSource(const std::filesystem::path& path) {
  // Not blocking, so that a named pipe in place of a file can not hang the program.
  descriptor_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  struct stat info {};
  if (descriptor_ >= 0 && ::fstat(descriptor_, &info) == 0 && S_ISREG(info.st_mode)) {
    size_ = static_cast<std::uint64_t>(info.st_size);
  } else if (descriptor_ >= 0) {
    ::close(descriptor_);
    descriptor_ = -1;
  }
}

FileSource::~FileSource() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

std::size_t FileSource::readAt(std::uint64_t offset, std::span<std::uint8_t> target) {
  std::size_t done = 0;
  while (done < target.size() && offset + done < size_) {
    const ssize_t got = ::pread(descriptor_, target.data() + done, target.size() - done, static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

std::size_t SequentialReader::read(std::span<std::uint8_t> target) {
  std::size_t done = 0;
  while (done < target.size()) {
    if (next_ == filled_) {
      next_ = 0;
      filled_ = source_.readAt(offset_, buffer_);
      offset_ += filled_;
      if (filled_ == 0) break;
    }
    const std::size_t count = std::min(target.size() - done, filled_ - next_);
    std::memcpy(target.data() + done, buffer_.data() + next_, count);
    next_ += count;
    done += count;
  }
  return done;
}

}  // namespace ruvo::imaging
