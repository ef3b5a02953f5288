#include "shell/session/document_list.h"

#include <algorithm>

namespace ruvo {

int allocateSlot(std::vector<DocumentFlags>& documents) {
  auto slot = std::find_if(documents.begin(), documents.end(), [](const DocumentFlags& d) { return d.free; });
  if (slot == documents.end()) slot = documents.emplace(slot);
  *slot = DocumentFlags{};
  return static_cast<int>(slot - documents.begin());
}

int countDocuments(const std::vector<DocumentFlags>& documents, int loadedForms) {
  if (loadedForms <= 1) return 0;
  return static_cast<int>(
      std::count_if(documents.begin(), documents.end(), [](const DocumentFlags& d) { return !d.free; }));
}

bool anyDocumentOpen(const std::vector<DocumentFlags>& documents, int loadedForms) {
  return loadedForms > 1 &&
         std::any_of(documents.begin(), documents.end(), [](const DocumentFlags& d) { return !d.free; });
}

bool anyUnsavedDocument(const std::vector<DocumentFlags>& documents) {
  return std::any_of(documents.begin(), documents.end(), [](const DocumentFlags& d) { return !d.free && d.changed; });
}

}  // namespace ruvo
