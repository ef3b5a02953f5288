#include "shell/basWinVer.h"

namespace ruvo::basWinVer {

int versionCode(const std::optional<PlatformVersion>& version) {
  if (!version) return 0;
  struct Row {
    int platform, major, minor, code;
  };
  static constexpr Row kRows[] = {{1, 4, 0, 3}, {1, 4, 10, 4}, {1, 4, 90, 5}, {2, 3, 51, 1},
                                  {2, 4, 0, 2}, {2, 5, 0, 6},  {2, 5, 1, 7}};
  for (const Row& row : kRows) {
    if (row.platform == version->platform && row.major == version->major && row.minor == version->minor)
      return row.code;
  }
  return 0;
}

std::optional<PlatformVersion> platformVersion() {
  return std::nullopt;
}

}  // namespace ruvo::basWinVer
