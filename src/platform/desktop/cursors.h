// Cursors that stand for the whole program while something lasts.
#pragma once

#include <QGuiApplication>

namespace ruvo {

class CursorShown {
 public:
  explicit CursorShown(Qt::CursorShape shape) { QGuiApplication::setOverrideCursor(shape); }
  ~CursorShown() { QGuiApplication::restoreOverrideCursor(); }
  CursorShown(const CursorShown&) = delete;
  CursorShown& operator=(const CursorShown&) = delete;
};
struct WaitCursor : CursorShown {
  WaitCursor() : CursorShown(Qt::WaitCursor) {}
};
// For a window within the work of a wait cursor.
struct ArrowCursor : CursorShown {
  ArrowCursor() : CursorShown(Qt::ArrowCursor) {}
};

}  // namespace ruvo
