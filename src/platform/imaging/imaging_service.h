// Whether the imaging service (PNG, TIFF, the encoders and the quality resizer) is there and started. The libraries behind
// it are linked in, so it is found and starts; the switches exist so that each worded refusal can be seen.
#pragma once

namespace ruvo::imaging {

struct ServiceFaults {
  bool notFound = false;      // as if the library were missing
  bool failsToStart = false;  // as if its start-up call failed
  bool noZlib = false;        // as if the compression library were missing
};
// For tests: takes effect at the next startImagingService(), noZlib at once.
void setServiceFaults(const ServiceFaults& faults);

// True when the library is there at all.
bool imagingFound();
// Starts the service; false when it failed.
bool startImagingService();
void stopImagingService();
// Found and started.
bool imagingUsable();
bool zlibPresent();

}  // namespace ruvo::imaging
