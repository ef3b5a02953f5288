// The pointers that the canvas shows, by the words of the tools.
#pragma once

#include <QCursor>

#include "canvas/engine/canvas_events.h"

namespace ruvo {

// The drawn pointer of a word at a screen scale, or a system shape where no drawing exists.
QCursor canvasCursor(CursorWord word, double scale);

}  // namespace ruvo
