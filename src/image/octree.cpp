#include "image/octree.h"

#include "base/rounding.h"

namespace ruvo {
namespace {

constexpr int kRecentBits = 12;

// For each channel value the bits that lead it down the tree, the first split in bit 0. A range is split at the mean of
// its ends; the upper half keeps that mean as its low end instead of the value after it, so ranges end at width two.
std::array<std::uint8_t, 256> makePaths() {
  std::array<std::uint8_t, 256> paths{};
  for (int v = 0; v < 256; ++v) {
    int low = 0, high = 255;
    for (int level = 0; level < 8; ++level) {
      const int mid = roundToInt(low / 2.0 + high / 2.0);
      if (v <= mid) {
        high = mid;
      } else {
        low = mid;
        paths[static_cast<std::size_t>(v)] |= static_cast<std::uint8_t>(1 << level);
      }
    }
  }
  return paths;
}

int childNumber(const std::array<std::uint8_t, 256>& paths, Colour colour, int level) {
  const int shift = level - 1;
  return (paths[redOf(colour)] >> shift & 1) | (paths[greenOf(colour)] >> shift & 1) << 1 |
         (paths[blueOf(colour)] >> shift & 1) << 2;
}

}  // namespace

Octree::Octree(int colours, int depth) : colours_(colours), depth_(depth), recent_(std::size_t{1} << kRecentBits) {
  nodes_.reserve(4096);
  nodes_.resize(2);  // 0 stands for no node; the root is never on a list, so its level is never merged
}

void Octree::addTo(Node& leaf, Colour colour) {
  ++leaf.count;
  leaf.sums[0] += redOf(colour);
  leaf.sums[1] += greenOf(colour);
  leaf.sums[2] += blueOf(colour);
}

void Octree::add(Colour colour) {
  Recent& recent = recent_[(colour * 0x9E3779B1u) >> (32 - kRecentBits)];
  if (recent.epoch == epoch_ && recent.colour == colour) {
    addTo(nodes_[static_cast<std::size_t>(recent.leaf)], colour);
    return;
  }
  const std::int32_t leaf = findLeaf(colour);
  Node& node = nodes_[static_cast<std::size_t>(leaf)];
  if (node.count == 0) ++leaves_;
  addTo(node, colour);
  recent = {colour, leaf, epoch_};
  while (leaves_ > colours_ && reduce()) {
  }
}

std::int32_t Octree::findLeaf(Colour colour) {
  static const std::array<std::uint8_t, 256> paths = makePaths();
  std::int32_t at = kRoot;
  for (int level = 1;; ++level) {
    const auto cell = static_cast<std::size_t>(childNumber(paths, colour, level));
    std::int32_t next = nodes_[static_cast<std::size_t>(at)].child[cell];
    if (next == 0) {
      next = allocate(level + 1);
      Node& parent = nodes_[static_cast<std::size_t>(at)];
      parent.child[cell] = next;
      ++parent.count;
    }
    if (nodes_[static_cast<std::size_t>(next)].isLeaf) return next;
    at = next;
  }
}

std::int32_t Octree::allocate(int level) {
  std::int32_t index = free_;
  if (index != 0) {
    free_ = nodes_[static_cast<std::size_t>(index)].next;
    nodes_[static_cast<std::size_t>(index)] = {};
  } else {
    index = static_cast<std::int32_t>(nodes_.size());
    nodes_.emplace_back();
  }
  Node& node = nodes_[static_cast<std::size_t>(index)];
  node.isLeaf = level == depth_;
  if (!node.isLeaf) {
    std::int32_t& head = reducible_[static_cast<std::size_t>(level)];
    node.next = head;
    head = index;
  }
  return index;
}

void Octree::release(std::int32_t index) {
  Node& node = nodes_[static_cast<std::size_t>(index)];
  node.isLeaf = false;
  node.count = 0;
  node.next = free_;
  free_ = index;
}

// Turns the youngest inner node of the deepest level that has one into a leaf. Its children are leaves by then.
bool Octree::reduce() {
  int level = depth_;
  while (level > 0 && reducible_[static_cast<std::size_t>(level)] == 0) --level;
  if (level == 0) return false;
  const std::int32_t index = reducible_[static_cast<std::size_t>(level)];
  Node& node = nodes_[static_cast<std::size_t>(index)];
  reducible_[static_cast<std::size_t>(level)] = node.next;
  node.count = 0;
  for (std::int32_t& childIndex : node.child) {
    if (childIndex == 0) continue;
    const Node& child = nodes_[static_cast<std::size_t>(childIndex)];
    if (child.isLeaf && child.count > 0) --leaves_;
    node.count += child.count;
    for (std::size_t c = 0; c < 3; ++c) node.sums[c] += child.sums[c];
    release(childIndex);
    childIndex = 0;
  }
  node.isLeaf = true;
  ++leaves_;
  ++epoch_;
  return true;
}

std::vector<Colour> Octree::leafColours() const {
  std::vector<Colour> colours;
  for (const Node& node : nodes_) {
    if (!node.isLeaf || node.count == 0) continue;
    const auto mean = [&](std::size_t c) { return roundToInt(static_cast<double>(node.sums[c]) / node.count); };
    colours.push_back(rgb(mean(0), mean(1), mean(2)));
  }
  return colours;
}

}  // namespace ruvo
