#include "platform/imaging/imaging_service.h"

namespace ruvo::imaging {

namespace {
ServiceFaults currentFaults;
bool started = false;
}  // namespace

void setServiceFaults(const ServiceFaults& faults) {
  currentFaults = faults;
}

bool imagingFound() {
  return !currentFaults.notFound;
}

bool startImagingService() {
  started = imagingFound() && !currentFaults.failsToStart;
  return started;
}

void stopImagingService() {
  started = false;
}

bool imagingUsable() {
  return started;
}

bool zlibPresent() {
  return !currentFaults.noZlib;
}

}  // namespace ruvo::imaging
