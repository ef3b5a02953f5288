// Pictures of the program's own kind on their way to and from the desktop's clipboard.
#pragma once

#include "platform/imaging/picture_loader.h"
#include "platform/raster/surface.h"

class QMimeData;

namespace ruvo::desktop {

// Puts a copy of a 32-bit surface on the clipboard, with its alpha when it has any. The copy lives on its own: later
// changes of the surface do not reach it. False for another depth or when there is no memory.
bool putOnClipboard(const raster::Surface& picture, bool hasAlpha);

// Some form in which the data are offered is one that pictureOf() takes. Nothing is fetched.
bool holdsPicture(const QMimeData& data);

// The picture in the best form that can be read (imaging::clipboardRank, then what other image readers there are). Each
// fetch may ask another program, which may answer nothing: a form that comes empty or damaged gives way to the next one,
// but not for longer than a few seconds. Missing when no form of a picture is offered, Broken when none could be read,
// TooLarge, with the size, above `maxPixels`: its pixels are not decoded.
imaging::LoadResult pictureOf(const QMimeData& data, std::int64_t maxPixels);

}  // namespace ruvo::desktop
