// The folder for a session's temporary files: one for each user, which nobody else may enter. The running instance has
// it to itself; any other process of the user works in a folder of its own below it.
#pragma once

#include <filesystem>

namespace ruvo {

// The system's folder for temporary files: TMPDIR when it names a folder, else /tmp.
std::filesystem::path systemTempFolder();

class SessionTemp {
 public:
  enum class Use {
    Instance,  // the user's folder itself, when no other process has it
    Alone,     // a folder of its own
  };
  // Makes the folder (mode 0700). What lies in its place and is not this user's own folder is not touched; a folder
  // with a new name is made instead. `fallback` is used when none can be made.
  SessionTemp(const std::filesystem::path& systemTemp, Use use, const std::filesystem::path& fallback);
  // Removes a folder of its own with everything in it. Files in the user's folder stay.
  ~SessionTemp();
  SessionTemp(const SessionTemp&) = delete;
  SessionTemp& operator=(const SessionTemp&) = delete;

  const std::filesystem::path& path() const { return path_; }
  // The user's folder (where the instances of a user find each other); `path()` is it or lies in it.
  const std::filesystem::path& userFolder() const { return userFolder_; }

 private:
  void openUserFolder(const std::filesystem::path& systemTemp);
  void makeOwnFolder();
  void removeAbandonedFolders() const;

  std::filesystem::path userFolder_;
  std::filesystem::path path_;
  int lock_ = -1;  // held open for as long as the folder is ours
  bool removeUserFolder_ = false;
  bool removePath_ = false;
};

}  // namespace ruvo
