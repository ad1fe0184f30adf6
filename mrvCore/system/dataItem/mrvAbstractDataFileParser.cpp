// mrvCore/system/dataItem/mrvAbstractDataFileParser.cpp
// What reads and writes data item trees as files.
#include "mrvCore/system/dataItem/mrvAbstractDataFileParser.h"

#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/utils/mrvFileDir.h"

namespace mrv {

AbstractDataFileParser::AbstractDataFileParser(const char* fileName, DataItem&)
{
    if (fileName == nullptr || *fileName == '\0')
    {
        MRV_LOG(SDK, LOG_ERROR, "filename missing");
        return;
    }
    FILE* const probe = FileDir::open(fileName, "rb");
    if (probe == nullptr)
        MRV_LOG(SDK, LOG_ERROR, "Could not open file " << fileName);
    else
        std::fclose(probe);
}

} // namespace mrv
