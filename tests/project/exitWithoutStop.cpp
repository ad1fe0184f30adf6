// tests/project/exitWithoutStop.cpp
// A host that starts the library, logs through a static key and exits without stopping the library.
#include "mrvCore/mrvCore.h"
#include "mrvCore/system/log/mrvConsoleLogger.h"
#include "mrvCore/system/log/mrvLogMacros.h"

int main()
{
    mrv::initCore();
    static mrv::ConsoleLogger logger; // destroyed after main, while the log still exists
    MRV_LOG_LIMITED(SDK, LOG_INFO, "this key outlives main");
    return 0;
}
