// tests/project/consumer/smallHost.cpp
// The smallest host: what README shows, built against the installed package.
#include "mrvCore/mrvCore.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/log/mrvConsoleLogger.h"
#include "mrvCore/system/utils/mrvProductInformation.h"
#include "mrvCore/version/mrvCoreProductInformation.h"

#include <cstdio>

int main()
{
    mrv::initCore();
    {
        const mrv::ConsoleLogger logger;
        std::printf("%s\n", mrv::getCoreProductInformation().getCString());
        std::printf("%zu registered types\n", mrv::RTTI::getRTTIs().size());
    }
    mrv::finishCore(true);
    return mrv::isCoreFinished() ? 0 : 1;
}
