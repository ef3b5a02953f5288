// What a document knows of the file behind its picture.
#pragma once

#include <cstdint>
#include <string>

namespace ruvo {

struct FileRecord {
  std::string name;  // whole path, or "Untitled_1" and the like
  std::string type;  // extension without its dot, at most 4 characters, upper case when it came from a file
  int bitsPerPixel = 0;
  int width = 0;
  int height = 0;
  int originalWidth = 0;
  int originalHeight = 0;
  std::int64_t fileSize = 0;
  // "Yes" or "No", empty where the format does not tell.
  std::string transparent;
  std::string interlaced;
  std::string severalFrames;
  std::string fromCamera;

  bool untitled() const { return name.rfind("Untitled", 0) == 0; }
};

std::string yesNo(bool value);

// "Untitled_3"; the first picture made while no document is open is "Untitled:1" in its title.
std::string untitledName(int number);
std::string untitledFrameName(int number);
inline constexpr const char* kFirstUntitledName = "Untitled:1";

FileRecord untitledRecord(std::string name, int width, int height);
// The record's type for a path: the letters after the dot, upper case, cut to 4.
std::string typeOfPath(const std::string& path);

}  // namespace ruvo
