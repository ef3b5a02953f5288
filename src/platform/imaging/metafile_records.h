// A metafile's bytes and the walk through its records.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "base/geometry.h"
#include "platform/imaging/metafile_geometry.h"
#include "platform/imaging/picture_loader.h"

namespace ruvo::imaging {

struct Metafile {
  enum class Form { Wmf, Emf };

  Form form = Form::Wmf;
  std::vector<std::uint8_t> bytes;
  std::size_t firstRecord = 0;
  std::size_t end = 0;  // of the records

  // WMF: the box in logical units that fills the picture. EMF: the frame in pixels of the device it was made for.
  meta::PointF origin;
  meta::PointF extent{1, 1};
  meta::PointF pixelsPerMillimetre{96 / 25.4, 96 / 25.4};
};

namespace meta {

struct Record {
  std::uint32_t type = 0;
  // The whole record, so that offsets count from its start.
  std::span<const std::uint8_t> bytes;
};
// Of a WMF record and of an EMF record, before what is its own.
inline constexpr std::size_t kWmfRecordHead = 6;
inline constexpr std::size_t kEmfRecordHead = 8;

class RecordWalk {
 public:
  explicit RecordWalk(const Metafile& file) : file_(file), at_(file.firstRecord) {}

  // Nothing after the end record, at the end of the file, or where the next record does not fit.
  std::optional<Record> next();
  // The walk met a record that reaches past the end of the file.
  bool cut() const { return cut_; }

 private:
  std::optional<Record> nextWmf();
  std::optional<Record> nextEmf();

  const Metafile& file_;
  std::size_t at_;
  bool cut_ = false;
};

// Fills in everything but the bytes' own records. Size in pixels at 96 an inch, also when the answer is an error.
LoadError readWmfHeader(Metafile& file, int& width, int& height);
LoadError readEmfHeader(Metafile& file, int& width, int& height);

}  // namespace meta
}  // namespace ruvo::imaging
