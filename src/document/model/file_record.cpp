#include "document/model/file_record.h"

#include "base/letter_case.h"
#include "base/paths.h"

namespace ruvo {

std::string yesNo(bool value) {
  return value ? "Yes" : "No";
}

std::string untitledName(int number) {
  return "Untitled_" + std::to_string(number);
}

std::string untitledFrameName(int number) {
  return untitledName(number) + "_Frame";
}

FileRecord untitledRecord(std::string name, int width, int height) {
  FileRecord record;
  record.name = std::move(name);
  record.type = "bmp";
  record.bitsPerPixel = 24;
  record.width = record.originalWidth = width;
  record.height = record.originalHeight = height;
  return record;
}

std::string typeOfPath(const std::string& path) {
  const std::string_view extension = extensionOf(path);
  return extension.empty() ? std::string() : upperCase(extension.substr(1, 4));
}

}  // namespace ruvo
