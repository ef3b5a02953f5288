// Texts and paths between the core, which has UTF-8, and the windows.
#pragma once

#include <QString>

#include "base/paths.h"

namespace ruvo {

inline QString qt(const std::string& text) {
  return QString::fromStdString(text);
}
inline QString toText(const std::filesystem::path& path) {
  return qt(utf8Of(path));
}
inline std::filesystem::path toPath(const QString& text) {
  return pathOf(text.toStdString());
}

}  // namespace ruvo
