#include "platform/base/lok_GlobalLock.h"

#include <mutex>

namespace {

// Initialised without code and never destroyed in effect, so that exit handlers can use it.
constinit std::mutex globalMutex;

} // namespace

lok_GlobalLock::lok_GlobalLock() { globalMutex.lock(); }

lok_GlobalLock::~lok_GlobalLock() { globalMutex.unlock(); }
