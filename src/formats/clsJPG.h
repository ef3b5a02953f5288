// A baseline JPEG writer (ISO 10918-1) in integer arithmetic, with Huffman tables made for each picture.
#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/raster/surface.h"

namespace ruvo {

// The worded errors: "Bad Quantization Table", "Bad Huffman Table", "Invalid Sampling Value", "Illegal Comment Length",
// "Illegal precision in Quantization Table".
class JpgError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class clsJPG {
 public:
  static constexpr int kUsualQuality = 75;
  static constexpr std::size_t kMostCommentBytes = 65535;

  clsJPG();
  ~clsJPG();

  // 1 to 100; others are taken as 75. Quality and sampling count for the next SampleHDC.
  void setQuality(int value);
  int Quality() const;
  // Throws JpgError. One component when H2, V2, H3 and V3 are all zero.
  void SetSamplingFrequencies(int H1, int V1, int H2, int V2, int H3, int V3);
  // Captures the top left Width x Height of a surface of any depth; what it does not have is black. False for no
  // memory, an empty surface, or a size below 1 or above 65535.
  bool SampleHDC(const raster::Surface& hDC, int Width, int Height);
  // Throws JpgError for more than 65535 bytes.
  void setComment(const std::string& text);
  // 0 written, 1 empty name, 2 a file of that name exists (it is left alone), 3 not written or nothing captured.
  int SaveFile(const std::filesystem::path& FileName);
  // The whole file as bytes; none when nothing is captured. Throws JpgError.
  std::vector<std::uint8_t> saveBytes();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace ruvo
