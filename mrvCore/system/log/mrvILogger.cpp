// mrvCore/system/log/mrvILogger.cpp
// Registration of loggers.
#include "mrvCore/system/log/mrvILogger.h"

#include "mrvCore/system/debug/mrvAssert.h"

namespace mrv {

ILogger::ILogger()
{
    MRV_ASSERT(getLog() != nullptr, "A logger needs the log to exist.");
    getLog()->addLogger(this);
}

ILogger::~ILogger()
{
    if (Log* log = getLog())
        log->removeLogger(this);
}

} // namespace mrv
