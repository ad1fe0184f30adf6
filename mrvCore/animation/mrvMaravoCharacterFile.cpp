// mrvCore/animation/mrvMaravoCharacterFile.cpp
// Characters as files, in their two forms.
#include "mrvCore/animation/mrvMaravoCharacter.h"

#include "mrvCore/animation/mrvCharacterVersions.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/serialization/mrvBinaryStream.h"
#include "mrvCore/system/serialization/mrvXMLStream.h"
#include "mrvCore/system/utils/mrvFileDir.h"
#include "mrvCore/system/utils/mrvFileName.h"
#include "mrvCore/system/utils/mrvSafeFileReader.h"
#include "mrvCore/system/utils/mrvSafeFileWriter.h"
#include "mrvCore/system/utils/mrvStringOperators.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"

#include <cstdint>
#include <memory>
#include <sstream>

namespace mrv {

namespace {

using Load = LoadCharacterFileErrorCode;
using Save = SaveCharacterFileErrorCode;

/// A character of any version.
using AnyCharacter = std::unique_ptr<MaravoCharacterInterface>;

constexpr uint16_t magic = 0x6C11;

bool isXMLFile(const MrvString& fileName)
{
    return FileName(fileName).extension() == "mvcf";
}

// A file of an older version may name the current class: its version decides.
void renameClass(DataItem& root, int fileVersion)
{
    if (fileVersion >= MRV_MVC_VERSION || root.getChildrenCount() == 0)
        return;
    DataItem& object = root.touchChild(0u);
    if (object.getAttribute("typeName") != nullptr)
        object.setAttribute("typeName", (MrvString("mrv::MaravoCharacterV") + fileVersion).c_str());
}

Load::Value readXML(const MrvString& path, int& fileVersion, AnyCharacter& character)
{
    DataItem root;
    MrvString failure;
    // What cannot be read is an empty item, and as such an object of version 0 without a skeleton.
    if (!XMLDataFileParser().tryRead(path.c_str(), root, failure))
        MRV_LOG(SDK, LOG_ERROR, failure);
    fileVersion = root.getAttribute<int>("Version", 0);
    renameClass(root, fileVersion);
    character.reset(createCharacter(fileVersion));
    if (character == nullptr)
        return Load::INCORRECT_VERSION;
    XMLStream().unpack(root, *character);
    return Load::SUCCESS;
}

Load::Value readBinary(const MrvString& path, int& fileVersion, AnyCharacter& character)
{
    SafeFileReader file(path.c_str());
    if (!file.isOpen())
        return Load::FILE_NOT_FOUND;
    fileVersion = -1;
    uint16_t fileMagic = 0;
    int32_t version = 0;
    if (!file.read(&fileMagic, sizeof(fileMagic)) || fileMagic != magic ||
        !file.read(&version, sizeof(version)))
        return Load::INVALID_FILE;
    fileVersion = version;
    character.reset(createCharacter(fileVersion));
    if (character == nullptr)
        return Load::INCORRECT_VERSION;
    PODArray<char> bytes;
    if (file.readRest(bytes))
    {
        BinaryStream stream;
        stream.importFrom(std::move(bytes));
        stream.unpack(*character);
        if (!stream.hasFailed())
            return Load::SUCCESS;
    }
    MRV_LOG(SDK, LOG_ERROR, "Character file '" << path << "' is cut off or damaged");
    return Load::INVALID_FILE;
}

} // namespace

Load::Value MaravoCharacterV24::loadCharacterFile(const MrvString& fileName, bool updateRelativePaths)
{
    const MrvString path = FileDir::correctPath(replaceEnvVars(fileName, "%", "%"));
    if (!FileDir::exist(path))
        return Load::FILE_NOT_FOUND;
    AnyCharacter read;
    const Load::Value result =
        isXMLFile(fileName) ? readXML(path, _fileVersion, read) : readBinary(path, _fileVersion, read);
    if (result != Load::SUCCESS)
        return result;
    MaravoCharacterInterface* converted = nullptr;
    convertFrom(read.release(), converted, _fileVersion);
    read.reset(converted);
    // Not copied: two of a large character would be the peak of memory.
    takeCharacter(static_cast<MaravoCharacterV24&>(*converted));
    read.reset();

    HierarchicalSkeletonDescriptionV1* skeleton = _converterMapping.touchSkeletonDescription();
    if (skeleton == nullptr || !skeleton->isSkeletonDescriptionValid(true))
        return Load::INVALID_SKELETON_DESCRIPTION;
    skeleton->initSortedBones();
    if (updateRelativePaths)
        this->updateRelativePaths(path);
    _runtimeFilePath = path;
    return Load::SUCCESS;
}

Save::Value MaravoCharacterV24::saveCharacterFile(const MrvString& fileName)
{
    const Array<BlindDataV1> allBlindData = _converterMapping.getBlindDataInfo();
    _converterMapping.clearSpecificAnimationBlindData();
    const Save::Value result =
        isXMLFile(fileName) ? saveCharacterFileXML(fileName) : saveCharacterFileBinary(fileName);
    _converterMapping.touchBlindDataInfo() = allBlindData;
    if (result == Save::SUCCESS)
        _runtimeFilePath = fileName;
    return result;
}

Save::Value MaravoCharacterV24::saveCharacterFileXML(const MrvString& fileName) const
{
    DataItem root("maravoObject");
    root.addAttribute("Version", MRV_MVC_VERSION);
    const bool isWritten =
        XMLStream().exportObject(fileName.c_str(), root, *this) == SaveXMLDataFileErrorCode::SUCCESS;
    return isWritten ? Save::SUCCESS : Save::FILE_CREATION_FAILED;
}

Save::Value MaravoCharacterV24::saveCharacterFileBinary(const MrvString& fileName) const
{
    SafeFileWriter file(fileName.c_str());
    if (!file.isOpen())
        return Save::FILE_CREATION_FAILED;
    BinaryStream stream;
    stream.pack(*this);
    if (stream.getStream().fail())
        return Save::FILE_CREATION_FAILED;
    const int32_t version = MRV_MVC_VERSION;
    file.write(&magic, sizeof(magic));
    file.write(&version, sizeof(version));
    char block[65536];
    while (const std::streamsize count = stream.getStream().rdbuf()->sgetn(block, sizeof(block)))
        file.write(block, static_cast<size_t>(count));
    return file.commit() ? Save::SUCCESS : Save::FILE_CREATION_FAILED;
}

} // namespace mrv
