// A fresh folder for one test, removed with everything in it.
#pragma once

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace ruvo::test {

// The names of all entries, sorted.
inline std::vector<std::string> namesIn(const std::filesystem::path& folder) {
  std::vector<std::string> all;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) all.push_back(entry.path().filename().string());
  std::sort(all.begin(), all.end());
  return all;
}

class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "ruvo-test-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
  std::vector<std::string> names() const { return namesIn(path_); }

 private:
  std::filesystem::path path_;
};

}  // namespace ruvo::test
