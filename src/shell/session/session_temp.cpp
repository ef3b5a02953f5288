#include "shell/session/session_temp.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <system_error>

#include "base/paths.h"

namespace ruvo {
namespace fs = std::filesystem;

namespace {

constexpr const char* kLockName = ".lock";
constexpr const char* kOwnFolderPrefix = "run-";

std::string userFolderName() {
  return "ruvopaint-" + std::to_string(::getuid());
}

// A descriptor that holds the folder's lock, or -1 when another process has it. The system lets go of it when the
// process ends, however it ends.
int lockFolder(const fs::path& folder, int flags) {
  const int file = ::open((folder / kLockName).c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | flags, 0600);
  if (file < 0) return -1;
  if (::flock(file, LOCK_EX | LOCK_NB) == 0) return file;
  ::close(file);
  return -1;
}

// True when `folder` is a folder of this user (not a link to one) that nobody else may enter.
bool isOwnFolder(const fs::path& folder) {
  struct stat info {};
  if (::lstat(folder.c_str(), &info) != 0 || !S_ISDIR(info.st_mode) || info.st_uid != ::getuid()) return false;
  return (info.st_mode & 0777) == 0700 || ::chmod(folder.c_str(), 0700) == 0;
}

fs::path makeUnique(const fs::path& where, const std::string& prefix) {
  std::string pattern = (where / (prefix + "XXXXXX")).string();
  return ::mkdtemp(pattern.data()) ? fs::path(pattern) : fs::path();
}

}  // namespace

fs::path systemTempFolder() {
  const char* named = ::getenv("TMPDIR");
  return named && named[0] == '/' && folderExists(named) ? fs::path(named) : fs::path("/tmp");
}

SessionTemp::SessionTemp(const fs::path& systemTemp, Use use, const fs::path& fallback) {
  openUserFolder(systemTemp);
  if (userFolder_.empty()) {
    userFolder_ = path_ = fallback;
    return;
  }
  if (use == Use::Instance) lock_ = lockFolder(userFolder_, O_CREAT);
  if (lock_ >= 0) {
    path_ = userFolder_;
    removeAbandonedFolders();
  } else {
    makeOwnFolder();
  }
}

SessionTemp::~SessionTemp() {
  std::error_code ignored;
  if (removePath_) fs::remove_all(path_, ignored);
  if (removeUserFolder_) fs::remove_all(userFolder_, ignored);
  if (lock_ >= 0) ::close(lock_);
}

void SessionTemp::openUserFolder(const fs::path& systemTemp) {
  const fs::path folder = systemTemp / userFolderName();
  if (::mkdir(folder.c_str(), 0700) == 0 || isOwnFolder(folder)) {
    userFolder_ = folder;
    return;
  }
  userFolder_ = makeUnique(systemTemp, userFolderName() + '-');
  removeUserFolder_ = !userFolder_.empty();
}

void SessionTemp::makeOwnFolder() {
  // A folder whose lock an instance's clean-up took first is left to it.
  for (int attempt = 0; attempt < 3 && lock_ < 0; ++attempt) {
    path_ = makeUnique(userFolder_, kOwnFolderPrefix);
    if (!path_.empty()) lock_ = lockFolder(path_, O_CREAT);
  }
  removePath_ = lock_ >= 0;
  if (!removePath_) path_ = userFolder_;
}

void SessionTemp::removeAbandonedFolders() const {
  std::error_code error;
  for (fs::directory_iterator entry(userFolder_, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path folder = entry->path();
    if (!folder.filename().string().starts_with(kOwnFolderPrefix) || !isOwnFolder(folder)) continue;
    const int lock = lockFolder(folder, 0);
    if (lock < 0) continue;
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    ::close(lock);
  }
}

}  // namespace ruvo
