// The code of the desktop platform's version, which decides what is said about the imaging library.
#pragma once

#include <optional>

namespace ruvo::basWinVer {

struct PlatformVersion {
  int platform = 0;  // 1 and 2 are the two families that have codes
  int major = 0;
  int minor = 0;
};
// 1 to 7, or 0 for any other version and for a call that failed.
int versionCode(const std::optional<PlatformVersion>& version);
// Of the platform that this program runs on; nothing where it has no such numbers.
std::optional<PlatformVersion> platformVersion();

}  // namespace ruvo::basWinVer
