// Drives the verbs of the command line tool in a folder of their own.
#pragma once

#include <gtest/gtest.h>

#include <sstream>

#include "base/file_io.h"
#include "base/limits.h"
#include "image/basGDIProc.h"
#include "platform/imaging/imaging_service.h"
#include "support/pictures.h"
#include "support/temp_folder.h"
#include "tool/tool.h"

namespace ruvo::test {

class ToolTest : public testing::Test {
 protected:
  ToolTest() { imaging::startImagingService(); }
  ~ToolTest() override { imaging::stopImagingService(); }

  // Runs the words; "@name" stands for a file of the folder. The exit status; what was written is in out and err.
  int run(std::vector<std::string> words) {
    for (std::string& word : words) {
      if (word.starts_with('@')) word = at(word.substr(1));
    }
    std::ostringstream outStream, errStream;
    const int status = tool::run(words, outStream, errStream);
    out = outStream.str();
    err = errStream.str();
    return status;
  }
  std::string at(const std::string& name) const { return (folder / name).string(); }
  std::string bytesOf(const std::string& name) const {
    const auto bytes = readWholeFile(folder / name, kMaxFileBytes);
    return bytes ? std::string(bytes->begin(), bytes->end()) : std::string("(no file)");
  }
  void put(const std::string& name, std::string_view bytes) const {
    replaceFile(folder / name, {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
  }
  // With bytes behind its end: the program's own reader takes no file below 100.
  void putPng(const std::string& name, const clsDIB& dib) const {
    ASSERT_TRUE(SaveDIBWithEncoder(dib, folder / name, kEncodePng));
    put(name, bytesOf(name) + std::string(100, '\0'));
  }

  // The pictures of a file as `decode` tells them: "WxH" and after a blank the pixels, each as the letter that stands
  // for its RRGGBBAA in `letters`, or "?".
  std::vector<std::string> pictures(const std::string& name, const std::map<std::string, char>& letters) {
    if (run({"decode", "@" + name, "@out.pam"}) != 0) return {err};
    std::vector<std::string> all;
    const std::string file = bytesOf("out.pam");
    for (std::size_t at = 0; at < file.size();) {
      int width = 0, height = 0;
      if (std::sscanf(file.c_str() + at, "P7\nWIDTH %d\nHEIGHT %d\n", &width, &height) != 2) return {"(no PAM)"};
      static constexpr std::string_view kHeadEnd = "DEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n";
      at = file.find(kHeadEnd, at) + kHeadEnd.size();
      std::string text = std::to_string(width) + 'x' + std::to_string(height) + ' ';
      for (int i = 0; i < width * height; ++i, at += 4) {
        char pixel[9];
        const auto* p = reinterpret_cast<const unsigned char*>(file.data() + at);
        std::snprintf(pixel, sizeof pixel, "%02X%02X%02X%02X", p[0], p[1], p[2], p[3]);
        const auto letter = letters.find(pixel);
        text += letter == letters.end() ? '?' : letter->second;
      }
      all.push_back(text);
    }
    return all;
  }

  TempFolder folder;
  std::string out;
  std::string err;
};

}  // namespace ruvo::test
