// The extensions of the files that the program opens. The list is a text with slashes between, and membership is a
// search within it, so a part of an extension (".t", ".jpe") passes too; whoever opens the file decides what becomes of
// it.
#pragma once

#include <string_view>

#include "base/letter_case.h"

namespace ruvo {

inline constexpr std::string_view kOpenableExtensions =
    ".bmp/.gif/.jpg/.jpeg/.wmf/.emf/.png/.tif/.tiff/.tga/.pcx/.ico/.cur";

// `extension` begins with its dot; letter case does not matter. No extension is in no list.
inline bool extensionInList(std::string_view extension, std::string_view list) {
  return !extension.empty() && upperCase(list).find(upperCase(extension)) != std::string::npos;
}

inline bool isOpenableExtension(std::string_view extension) {
  return extensionInList(extension, kOpenableExtensions);
}

}  // namespace ruvo
