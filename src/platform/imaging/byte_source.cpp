#include "platform/imaging/byte_source.h"

#include <algorithm>
#include <cstring>

namespace ruvo::imaging {

std::size_t MemorySource::readAt(std::uint64_t offset, std::span<std::uint8_t> target) {
  if (offset >= bytes_.size()) return 0;
  const std::size_t count = std::min<std::size_t>(target.size(), bytes_.size() - static_cast<std::size_t>(offset));
  if (count > 0) std::memcpy(target.data(), bytes_.data() + offset, count);
  return count;
}

std::size_t SequentialReader::read(std::span<std::uint8_t> target) {
  std::size_t done = 0;
  while (done < target.size()) {
    if (next_ == filled_) {
      next_ = 0;
      filled_ = source_.readAt(offset_, buffer_);
      offset_ += filled_;
      if (filled_ == 0) break;
    }
    const std::size_t count = std::min(target.size() - done, filled_ - next_);
    std::memcpy(target.data() + done, buffer_.data() + next_, count);
    next_ += count;
    done += count;
  }
  return done;
}

}  // namespace ruvo::imaging
