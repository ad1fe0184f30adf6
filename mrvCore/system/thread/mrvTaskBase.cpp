// mrvCore/system/thread/mrvTaskBase.cpp
// A unit of long-running work with its own thread.
#include "mrvCore/system/thread/mrvTaskBase.h"

namespace mrv {

const size_t TaskBase::s_defaultStackSizeInBytes = 0x100000;

TaskBase::~TaskBase() = default;

size_t TaskBase::getRequiredStackSize()
{
    return s_defaultStackSizeInBytes;
}

} // namespace mrv
