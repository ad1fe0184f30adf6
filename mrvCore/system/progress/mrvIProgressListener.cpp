// mrvCore/system/progress/mrvIProgressListener.cpp
// Receives the events of processes.
#include "mrvCore/system/progress/mrvIProgressListener.h"

namespace mrv {

IProgressListener::~IProgressListener() = default;

} // namespace mrv
