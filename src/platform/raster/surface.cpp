#include "platform/raster/surface.h"

#include <sys/mman.h>

#include <limits>
#include <utility>

namespace ruvo::raster {

namespace {

// A large surface is touched whole sooner or later: with large pages that costs a fraction of the page faults. Only a
// hint, so its outcome does not matter.
void adviseLargePages([[maybe_unused]] std::uint8_t* bits, [[maybe_unused]] std::size_t bytes) {
#ifdef MADV_HUGEPAGE
  constexpr std::size_t kPage = std::size_t{1} << 21;
  if (bytes < 2 * kPage) return;
  const std::size_t skipped = (kPage - reinterpret_cast<std::uintptr_t>(bits) % kPage) % kPage;
  ::madvise(bits + skipped, (bytes - skipped) / kPage * kPage, MADV_HUGEPAGE);
#endif
}

}  // namespace

Surface& Surface::operator=(Surface&& other) noexcept {
  if (this == &other) return *this;
  bits_ = std::move(other.bits_);
  table_ = std::move(other.table_);
  width_ = std::exchange(other.width_, 0);
  height_ = std::exchange(other.height_, 0);
  depth_ = std::exchange(other.depth_, 0);
  stride_ = std::exchange(other.stride_, 0);
  order_ = std::exchange(other.order_, RowOrder::BottomUp);
  return *this;
}

bool Surface::create(int width, int height, int depth, RowOrder order) {
  clear();
  const bool depthKnown = depth == 1 || depth == 4 || depth == 8 || depth == 24 || depth == 32;
  if (width < 1 || height < 1 || !depthKnown) return false;
  const std::int64_t stride = strideFor(width, depth);
  if (stride > std::numeric_limits<std::int32_t>::max() / height) return false;
  bits_.reset(
      static_cast<std::uint8_t*>(std::calloc(static_cast<std::size_t>(stride), static_cast<std::size_t>(height))));
  if (!bits_) return false;
  adviseLargePages(bits_.get(), static_cast<std::size_t>(stride) * static_cast<std::size_t>(height));
  width_ = width;
  height_ = height;
  depth_ = depth;
  stride_ = static_cast<int>(stride);
  order_ = order;
  if (depth <= 8) table_.assign(std::size_t{1} << depth, TableEntry{});
  return true;
}

void Surface::clear() {
  *this = Surface();
}

}  // namespace ruvo::raster
