// The tests that every file passes before it is taken apart, and loading.
#include <cstring>

#include "base/file_io.h"
#include "base/file_source.h"
#include "base/limits.h"
#include "base/paths.h"
#include "formats/clsGIF_Model.h"

namespace ruvo {
namespace {

// The trailer is not among the tests: files without one are whole enough to be shown.
int testFile(const std::filesystem::path& path, std::vector<std::uint8_t>& data, Size& stated) {
  data.clear();
  stated = {};
  if (!fileExists(path)) return kGifNotFound;
  std::array<std::uint8_t, 10> head{};
  const FileSource file(path);
  if (!file.isOpen()) return kGifOpenFailed;
  if (file.size() < static_cast<std::uint64_t>(clsGIF::kSmallestFile)) return kGifNotGif;
  if (file.readAt(0, head) != head.size()) return kGifOpenFailed;
  if (std::memcmp(head.data(), "GIF", 3) != 0) return kGifNoSignature;
  if (std::memcmp(&head[3], "89a", 3) != 0 && std::memcmp(&head[3], "87a", 3) != 0) return kGifUnknownVersion;
  stated = {head[6] | head[7] << 8, head[8] | head[9] << 8};
  const std::int64_t pixels = static_cast<std::int64_t>(stated.width) * stated.height;
  if (pixels < 1 || pixels > kMaxPicturePixels) return kGifBadSize;
  auto bytes = readWholeFile(path, kMaxFileBytes);
  if (!bytes) return kGifOpenFailed;
  data = std::move(*bytes);
  return kGifOk;
}

}  // namespace

int readFirstImage(const std::filesystem::path& path, GifModel& model) {
  try {
    std::vector<std::uint8_t> data;
    const int code = testFile(path, data, model.stated);
    return code == kGifOk ? readGifModel(data, model, true) : code;
  } catch (const std::bad_alloc&) {
    return kGifUnknownError;
  }
}

int clsGIF::PreliminaryTest(const std::filesystem::path& FileName, std::vector<std::uint8_t>& Data) {
  Size stated;
  try {
    return testFile(FileName, Data, stated);
  } catch (const std::bad_alloc&) {
    return kGifUnknownError;
  }
}

int clsGIF::LoadFromGIFFile(const std::filesystem::path& FileName) {
  ClearUp();
  std::vector<std::uint8_t> data;
  try {
    const int code = testFile(FileName, data, model_->stated);
    if (code != kGifOk) return code;
  } catch (const std::bad_alloc&) {
    return kGifUnknownError;
  }
  return LoadStream(data);
}

}  // namespace ruvo
