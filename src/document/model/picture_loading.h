// Reads a picture file into a surface of its own: the canvas takes it over only when everything went well.
#pragma once

#include <optional>
#include <string>

#include "document/model/file_record.h"
#include "document/model/open_rules.h"
#include "image/clsDIB.h"

namespace ruvo {

struct LoadedPicture {
  OpenFault fault = OpenFault::None;
  clsDIB dib;       // 32 bits; real alpha in byte 3 when DIBhasAlpha
  clsDIB iconMask;  // of an icon or cursor: 1 bit, white where see-through
  FileRecord record;
};

// Follows a plan without fault.
LoadedPicture loadPicture(const std::string& path, const OpenPlan& plan, const ReadRequest& request = {});

// Planning and loading in one, for pictures that are loaded into a document and not as one (brush, pattern, stamp).
LoadedPicture loadPicture(const std::string& path);

// The picture of an undo state, 32 bits, with its alpha if it had one.
std::optional<clsDIB> loadUndoState(const std::filesystem::path& file);

}  // namespace ruvo
