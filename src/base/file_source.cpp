#include "base/file_source.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace ruvo {

FileSource::FileSource(const std::filesystem::path& path) {
  // Not blocking, so that a named pipe in place of a file can not hang the program.
  descriptor_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor_ < 0) return;
  struct stat info {};
  if (::fstat(descriptor_, &info) != 0 || !S_ISREG(info.st_mode)) {
    ::close(descriptor_);
    descriptor_ = -1;
    return;
  }
  size_ = static_cast<std::uint64_t>(info.st_size);
}

FileSource::~FileSource() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

std::size_t FileSource::readAt(std::uint64_t offset, std::span<std::uint8_t> out) const {
  std::size_t done = 0;
  while (isOpen() && done < out.size()) {
    const ssize_t got = ::pread(descriptor_, out.data() + done, out.size() - done, static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

}  // namespace ruvo
