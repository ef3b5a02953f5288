// Gathers the colours of a picture in a tree of eight-fold splits and merges the deepest nodes whenever there are more
// leaves than wanted.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "base/colour.h"

namespace ruvo {

class Octree {
 public:
  // `depth` is 2 to 8: leaves lie at that level, the root at 1.
  Octree(int colours, int depth);

  void add(Colour colour);
  // The mean colour of each leaf, in the order in which the nodes lie.
  std::vector<Colour> leafColours() const;

 private:
  struct Node {
    bool isLeaf = false;
    std::uint32_t count = 0;              // pixels of a leaf, children of an inner node
    std::array<std::uint64_t, 3> sums{};  // red, green, blue; 64 bits since 25 million pixels of 255 pass 32
    std::array<std::int32_t, 8> child{};  // by red + 2 x (green + 2 x blue); 0 is none
    std::int32_t next = 0;                // in the list of its level or the free list
  };
  static constexpr std::int32_t kRoot = 1;
  static constexpr int kLevels = 8;

  std::int32_t findLeaf(Colour colour);
  std::int32_t allocate(int level);
  void release(std::int32_t index);
  bool reduce();
  static void addTo(Node& leaf, Colour colour);

  int colours_;
  int depth_;
  int leaves_ = 0;
  std::int32_t free_ = 0;
  std::array<std::int32_t, kLevels + 1> reducible_{};  // heads by level
  std::vector<Node> nodes_;
  // Leaves found lately, by a hash of the colour. A merge may free any of them, so it empties all by a new epoch.
  struct Recent {
    Colour colour = 0;
    std::int32_t leaf = 0;
    std::uint32_t epoch = 0;
  };
  std::vector<Recent> recent_;
  std::uint32_t epoch_ = 1;
};

}  // namespace ruvo
