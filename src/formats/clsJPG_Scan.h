// The coefficients of a picture and their entropy coding (ISO 10918-1, F.1.2), sequential Huffman.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "formats/clsJPG_Tables.h"
#include "formats/clsJPG_Transform.h"

namespace ruvo::jpg {

// A block without its zeros: most coefficients of a photograph are none.
struct CodedBlock {
  std::uint64_t mask = 0;   // bit k: zigzag place k is not zero; bit 0 is never set
  std::uint32_t first = 0;  // of the component's levels: the one of the mask's lowest bit
  std::int16_t dc = 0;
};

struct Component {
  int h = 1;  // sampling factors, 1 to 4
  int v = 1;
  int tables = 0;      // number of its quantisation and Huffman tables
  int blocksWide = 0;  // only those that hold some of the picture
  int blocksHigh = 0;
  std::vector<CodedBlock> blocks;    // rows from the top
  std::vector<std::int16_t> levels;  // of all blocks

  void append(const Levels& block);
};

struct Picture {
  int width = 0;
  int height = 0;
  std::vector<Component> components;  // 1 or 3
  std::array<QuantTable, 2> quantTables;

  bool empty() const { return components.empty(); }
  int tableCount() const { return components.size() > 1 ? 2 : 1; }
};

struct CodeTables {
  HuffmanTable dc;
  HuffmanTable ac;
};

// The data of the one scan that holds all components. Blocks that an MCU needs and the components do not have are coded
// with the last DC and no AC.
class Scan {
 public:
  explicit Scan(const Picture& picture) : picture_(picture) {}

  // The tables that suit this picture best. Throws JpgError.
  std::array<CodeTables, 2> makeTables();
  // Most bytes that write() can need. After makeTables().
  std::size_t byteLimit() const;
  // Writes the data with stuffed bytes, without a marker; answers its end.
  std::uint8_t* write(const std::array<CodeTables, 2>& tables, std::uint8_t* to) const;

 private:
  const Picture& picture_;
  std::uint64_t bits_ = 0;
};

}  // namespace ruvo::jpg
