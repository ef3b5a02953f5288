// The slots of the paint document windows: an array of flags parallel to the windows. A closed window's slot is used
// again.
#pragma once

#include <vector>

#include "document/model/session_state.h"

namespace ruvo {

// The lowest free slot, or a new one at the end; it is no longer free. An empty list becomes the single slot 0.
int allocateSlot(std::vector<DocumentFlags>& documents);
// Slots not free; 0 while `loadedForms` (all windows of the program that are loaded) is 1, the main window alone.
int countDocuments(const std::vector<DocumentFlags>& documents, int loadedForms);
bool anyDocumentOpen(const std::vector<DocumentFlags>& documents, int loadedForms);
// A window with changes that no file has.
bool anyUnsavedDocument(const std::vector<DocumentFlags>& documents);

}  // namespace ruvo
