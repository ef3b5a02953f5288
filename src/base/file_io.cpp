#include "base/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

#include "base/paths.h"

namespace ruvo {
namespace fs = std::filesystem;

namespace {
// Closes a descriptor on every way out.
struct Descriptor {
  int fd;
  ~Descriptor() {
    if (fd >= 0) ::close(fd);
  }
};
}  // namespace

std::optional<std::vector<std::uint8_t>> readWholeFile(const fs::path& path, std::int64_t limit) {
  // Not blocking, so that a named pipe in place of a file can not hang the program.
  const Descriptor file{::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)};
  struct stat info {};
  if (file.fd < 0 || ::fstat(file.fd, &info) != 0 || !S_ISREG(info.st_mode) || info.st_size > limit)
    return std::nullopt;
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(info.st_size));
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t got = ::read(file.fd, bytes.data() + done, bytes.size() - done);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::nullopt;
    if (got == 0) break;  // The file became shorter while it was read.
    done += static_cast<std::size_t>(got);
  }
  bytes.resize(done);
  return bytes;
}

FileReplacement::FileReplacement(fs::path target) : target_(std::move(target)) {
  if (!followLinks()) return;
  struct stat old {};
  const bool present = ::stat(target_.c_str(), &old) == 0;
  // A pipe or a device would be gone for whoever uses it.
  if (present && !S_ISREG(old.st_mode)) {
    refuse("replace", S_ISDIR(old.st_mode) ? EISDIR : EINVAL);
    return;
  }
  // The folder would let a rename through.
  if (present && isReadOnlyHiddenOrSystem(target_)) {
    refuse("replace", EACCES);
    return;
  }
  std::string pattern = (target_.parent_path() / ".ruvo-XXXXXX").string();
  descriptor_ = ::mkostemp(pattern.data(), O_CLOEXEC);
  if (descriptor_ < 0) {
    refuse("create", errno);
    return;
  }
  temporary_ = pattern;
  ok_ = true;
  if (present) {
    // The owner stays where the system lets it; where it does not, that is no reason not to save.
    [[maybe_unused]] const int ignored = ::fchown(descriptor_, old.st_uid, old.st_gid);
    if (::fchmod(descriptor_, old.st_mode & 07777) != 0 && errno != EPERM) refuse("permit", errno);
  } else {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(descriptor_, 0666 & ~mask);
  }
}

// Saving through a link changes the file and not the link, also when the file is not there yet.
bool FileReplacement::followLinks() {
  constexpr int kMostLinks = 40;
  std::error_code error;
  for (int links = 0; fs::is_symlink(fs::symlink_status(target_, error)); ++links) {
    if (links == kMostLinks) error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
    if (!error) target_ = target_.parent_path() / fs::read_symlink(target_, error);
    if (error) {
      refuse("follow", error.value());
      return false;
    }
  }
  return true;
}

FileReplacement::~FileReplacement() {
  if (descriptor_ >= 0) ::close(descriptor_);
  if (!committed_ && !temporary_.empty()) ::unlink(temporary_.c_str());
}

void FileReplacement::refuse(const char* step, int error) {
  if (reason_.empty()) reason_ = std::string(step) + ": " + std::strerror(error);
  ok_ = false;
}

bool FileReplacement::write(std::span<const std::uint8_t> bytes) {
  while (ok_ && !bytes.empty()) {
    const ssize_t put = ::write(descriptor_, bytes.data(), bytes.size());
    if (put < 0 && errno == EINTR) continue;
    if (put < 0) {
      refuse("write", errno);
    } else {
      bytes = bytes.subspan(static_cast<std::size_t>(put));
    }
  }
  return ok_;
}

bool FileReplacement::commit() {
  if (!ok_) return false;
  const int descriptor = descriptor_;
  descriptor_ = -1;
  if (::close(descriptor) != 0) {
    refuse("close", errno);
  } else if (::rename(temporary_.c_str(), target_.c_str()) != 0) {
    refuse("rename", errno);
  } else {
    committed_ = true;
  }
  return committed_;
}

bool replaceFile(const fs::path& target, std::span<const std::uint8_t> bytes, std::string* reason) {
  FileReplacement file(target);
  file.write(bytes);
  const bool done = file.commit();
  if (!done && reason) *reason = file.reason();
  return done;
}

}  // namespace ruvo
