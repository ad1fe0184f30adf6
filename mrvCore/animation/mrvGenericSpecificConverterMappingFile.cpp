// mrvCore/animation/mrvGenericSpecificConverterMappingFile.cpp
// Mappings as files of their own, in their two forms.
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"

#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV0.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV1.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV2.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV3.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV4.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV6.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h"
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/serialization/mrvBinaryStream.h"
#include "mrvCore/system/serialization/mrvXMLStream.h"
#include "mrvCore/system/utils/mrvFileDir.h"
#include "mrvCore/system/utils/mrvSafeFileReader.h"
#include "mrvCore/system/utils/mrvSafeFileWriter.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"

#include <cstdint>
#include <fstream>
#include <sstream>
#include <type_traits>

namespace mrv {

namespace {

using Mapping = GenericSpecificConverterMappingV8;
using Load = LoadSkeletonMappingErrorCode;
using Save = SaveSkeletonMappingErrorCode;

constexpr const char* rootName = "mvsmContainer";

struct MappingVersion
{
    void (*read)(Mapping&, BinaryStream&);
    void (*readXML)(Mapping&, XMLStream&, const DataItem&);
};

/// Unpacks an object of an older version and, unless it is cut off, makes the mapping of it.
template <class Old, void (Mapping::*createFrom)(Old&)>
constexpr MappingVersion makeVersion()
{
    return { [](Mapping& mapping, BinaryStream& stream) {
                std::remove_const_t<Old> old;
                stream.unpack(old);
                if (!stream.hasFailed())
                    (mapping.*createFrom)(old);
            },
             [](Mapping& mapping, XMLStream& stream, const DataItem& item) {
                 std::remove_const_t<Old> old;
                 stream.unpack(item, old);
                 (mapping.*createFrom)(old);
             } };
}

// By version number. The last step before the current one is that which copies the skeleton.
constexpr MappingVersion versions[] = {
    makeVersion<GenericSpecificConverterMappingV0, &Mapping::createFromV0>(),
    makeVersion<GenericSpecificConverterMappingV1, &Mapping::createFromV1>(),
    makeVersion<GenericSpecificConverterMappingV2, &Mapping::createFromV2>(),
    makeVersion<GenericSpecificConverterMappingV3, &Mapping::createFromV3>(),
    makeVersion<GenericSpecificConverterMappingV4, &Mapping::createFromV4>(),
    makeVersion<GenericSpecificConverterMappingV5, &Mapping::createFromV5>(),
    makeVersion<GenericSpecificConverterMappingV6, &Mapping::createFromV6>(),
    makeVersion<const GenericSpecificConverterMappingV7, &Mapping::createFromV7>(),
    { [](Mapping& mapping, BinaryStream& stream) { stream.unpack(mapping); },
      [](Mapping& mapping, XMLStream& stream, const DataItem& item) { stream.unpack(item, mapping); } },
};
static_assert(sizeof(versions) / sizeof(versions[0]) == Mapping::_currentVersionNumber + 1,
              "one entry per version");

bool isVersion(int version)
{
    return version >= 0 && version <= Mapping::_currentVersionNumber;
}

} // namespace

Load::Value GenericSpecificConverterMappingV8::loadMapping(const char* fileName)
{
    if (!FileDir::exist(fileName))
        return Load::FILE_NOT_FOUND;
    SafeFileReader file(fileName);
    int32_t version = -1;
    PODArray<char> bytes;
    if (!file.read(&version, sizeof(version)) || (isVersion(version) && !file.readRest(bytes)))
        version = -1;
    BinaryStream stream;
    stream.importFrom(std::move(bytes));
    const Load::Value result = loadBinary(version, stream);
    if (result == Load::INVALID_FILE)
        MRV_LOG(SDK, LOG_ERROR, "Mapping file '" << fileName << "' has no skeleton or is cut off");
    return result;
}

Load::Value GenericSpecificConverterMappingV8::loadMapping(std::ifstream& stream)
{
    const std::streamoff start = stream.tellg();
    int32_t version = -1;
    BinaryStream object;
    if (!stream.read(reinterpret_cast<char*>(&version), sizeof(version)))
        version = -1;
    else if (isVersion(version) && stream.peek() != std::ifstream::traits_type::eof())
        object.getStream() << stream.rdbuf();
    const Load::Value result = loadBinary(version, object);
    if (isVersion(version) && !object.hasFailed())
    {
        stream.clear(); // all of it has been read
        stream.seekg(start + static_cast<std::streamoff>(sizeof(version) + object.getPosition()));
    }
    return result;
}

Load::Value GenericSpecificConverterMappingV8::loadBinary(int version, BinaryStream& stream)
{
    finish();
    if (!isVersion(version))
        return Load::INCORRECT_VERSION;
    versions[version].read(*this, stream);
    if (stream.hasFailed())
        finish(); // what is cut off has no skeleton
    if (version == _currentVersionNumber && _skeletonDescription != nullptr)
        _bonesSnsScaleModes.resize(_skeletonDescription->getBones().size(), 0);
    const Load::Value result = checkLoaded(version);
    if (result == Load::SUCCESS)
        _skeletonDescription->initSortedBones();
    return result;
}

Load::Value GenericSpecificConverterMappingV8::loadMappingXML(const char* fileName)
{
    if (!FileDir::exist(fileName))
        return Load::FILE_NOT_FOUND;
    DataItem root(rootName);
    MrvString failure;
    // What cannot be read is an empty item.
    if (!XMLDataFileParser().tryRead(fileName, root, failure))
        MRV_LOG(SDK, LOG_ERROR, failure);
    XMLStream stream;
    return loadMappingXML(stream, root);
}

Load::Value GenericSpecificConverterMappingV8::loadMappingXML(XMLStream& stream, DataItem& item)
{
    finish();
    const int version = item.getAttribute<int>("Version", 0);
    if (item.getChildrenCount() == 0 || version > _currentVersionNumber)
        return Load::INCORRECT_VERSION;
    if (!isVersion(version))
        return Load::INVALID_FILE;
    versions[version].readXML(*this, stream, item);
    // The order of the bones is the caller's: callers rely on its being empty here.
    return checkLoaded(version);
}

/// The result of a load, and what the first version lacks.
Load::Value GenericSpecificConverterMappingV8::checkLoaded(int version)
{
    if (_skeletonDescription == nullptr)
        return Load::INVALID_FILE;
    if (!_skeletonDescription->isSkeletonDescriptionValid(true))
        return Load::INVALID_SKELETON_DESCRIPTION;
    if (version != 0)
        return Load::SUCCESS;
    const size_t boneCount = _skeletonDescription->getBones().size();
    if (_boneConfigurations.size() != boneCount)
    {
        _boneConfigurations.resize(boneCount);
        autoConfigureRagdoll(true);
    }
    if (_groundHeightArray.empty())
        setGroundHeights(0.0f);
    return Load::SUCCESS;
}

Save::Value GenericSpecificConverterMappingV8::saveMapping(const char* fileName) const
{
    SafeFileWriter file(fileName);
    if (!file.isOpen())
        return Save::FILE_CREATION_FAILED;
    BinaryStream stream;
    stream.pack(*this);
    const int32_t version = _currentVersionNumber;
    file.write(&version, sizeof(version));
    char block[65536];
    while (const std::streamsize count = stream.getStream().rdbuf()->sgetn(block, sizeof(block)))
        file.write(block, static_cast<size_t>(count));
    return !stream.getStream().fail() && file.commit() ? Save::SUCCESS : Save::FILE_CREATION_FAILED;
}

void GenericSpecificConverterMappingV8::saveMapping(std::ofstream& stream) const
{
    BinaryStream object;
    object.pack(*this);
    const int32_t version = _currentVersionNumber;
    stream.write(reinterpret_cast<const char*>(&version), sizeof(version));
    stream << object.getStream().rdbuf();
}

Save::Value GenericSpecificConverterMappingV8::saveMappingXML(const char* fileName) const
{
    DataItem root(rootName);
    XMLStream stream;
    saveMappingXMLStream(stream, root);
    const bool isWritten = XMLDataFileParser().write(fileName, root) == SaveXMLDataFileErrorCode::SUCCESS;
    return isWritten ? Save::SUCCESS : Save::FILE_CREATION_FAILED;
}

Save::Value GenericSpecificConverterMappingV8::saveMappingXMLStream(XMLStream& stream, DataItem& item) const
{
    item.addAttribute("Version", _currentVersionNumber);
    stream.pack(item, *this);
    return Save::SUCCESS;
}

} // namespace mrv
