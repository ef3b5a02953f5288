// The path bracket: figures that are collected instead of drawn.
#pragma once

#include <span>

#include "platform/imaging/metafile_geometry.h"

namespace ruvo::imaging::meta {

class PathRecorder {
 public:
  void begin();
  void end() { open_ = false; }
  void abort();

  bool open() const { return open_; }
  // What the last bracket collected; empty while one is open.
  const Outline& outline() const;
  Outline take();
  // The path became its own outline as the pen draws it.
  bool widened() const { return widened_; }
  void setWidened() { widened_ = !open_; }

  // --- Inside the bracket, in pixels. Points beyond a sum of two million are left out.
  void moveTo() { joined_ = false; }
  // Goes on from `from`, as a new figure unless the last one ended there.
  void lineThrough(Point from, std::span<const Point> points);
  void add(const Outline& figures);
  void closeFigure();

 private:
  bool room(std::size_t points);

  bool open_ = false;
  bool joined_ = false;
  bool widened_ = false;
  std::size_t points_ = 0;
  Outline outline_;
};

}  // namespace ruvo::imaging::meta
