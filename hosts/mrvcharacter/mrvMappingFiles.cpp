// hosts/mrvcharacter/mrvMappingFiles.cpp
#include "hosts/mrvcharacter/mrvMappingFiles.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvErrorCodeNames.h"

#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/system/dataItem/mrvDataItem.h"
#include "mrvCore/system/utils/mrvSafeFileReader.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"

#include <cstdint>
#include <string_view>

namespace mrvcharacter {

namespace {

using Load = mrv::LoadSkeletonMappingErrorCode;
using Save = mrv::SaveSkeletonMappingErrorCode;

bool endsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

bool isXMLFile(const std::string& file)
{
    return endsWith(file, ".mvsm.xml");
}

int readVersion(const std::string& file)
{
    int32_t version = -1;
    if (!isXMLFile(file))
        return mrv::SafeFileReader(file.c_str()).read(&version, sizeof(version)) ? version : -1;
    mrv::DataItem root;
    mrv::MrvString ignored; // told when the mapping is read
    const bool isRead = mrv::XMLDataFileParser().tryRead(file.c_str(), root, ignored);
    return isRead ? root.getAttribute<int>("Version", 0) : -1;
}

} // namespace

bool isMappingFile(const std::string& file)
{
    return endsWith(file, ".mvsm") || isXMLFile(file);
}

Load::Value readMapping(const std::string& file, mrv::GenericSpecificConverterMappingV8& mapping,
                        int& version)
{
    version = -1;
    const Load::Value result =
        isXMLFile(file) ? mapping.loadMappingXML(file.c_str()) : mapping.loadMapping(file.c_str());
    if (result != Load::FILE_NOT_FOUND)
        version = readVersion(file);
    if (result == Load::SUCCESS)
        mapping.touchSkeletonDescription()->initSortedBones();
    return result;
}

bool saveMapping(const std::string& file, const mrv::GenericSpecificConverterMappingV8& mapping)
{
    const Save::Value result =
        isXMLFile(file) ? mapping.saveMappingXML(file.c_str()) : mapping.saveMapping(file.c_str());
    if (result != Save::SUCCESS)
        reportError(file, getSaveSkeletonMappingErrorCodeName(result));
    return result == Save::SUCCESS;
}

} // namespace mrvcharacter
