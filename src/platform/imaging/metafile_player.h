// What the records of a playing metafile act on.
#pragma once

#include "base/byte_reader.h"
#include "platform/imaging/metafile_device.h"
#include "platform/imaging/metafile_figures.h"
#include "platform/imaging/metafile_records.h"

namespace ruvo::imaging::meta {

struct Player {
  Device device;
  ObjectTable objects;

  State& now() { return device.now(); }
  Colour colour(std::uint32_t colorRef) const { return colourOf(colorRef, device.now().palette.get()); }
  template <typename T>
  std::shared_ptr<const T> find(std::size_t number) const {
    const auto* held = std::get_if<std::shared_ptr<const T>>(&objects.at(number));
    return held ? *held : nullptr;
  }
};

// Acts on one record. The reader stands behind the record's head and spans the whole record; fields that are not there
// read as zero, and a handler that draws looks at ok() first.
using RecordHandler = void (*)(Player&, ByteReader&);

// Nothing for records that change nothing that is drawn.
RecordHandler wmfHandler(std::uint32_t type);
RecordHandler emfHandler(std::uint32_t type);

// Numbers that have no meaning keep the value that is there.
void setBackMode(State& state, std::uint32_t mode);
void setRop2(State& state, std::uint32_t rop);
void setFillMode(State& state, std::uint32_t mode);
void setStretchMode(State& state, std::uint32_t mode);

}  // namespace ruvo::imaging::meta
