// mrvCore/assetManagement/mrvFurAsset.cpp
#include "mrvCore/assetManagement/mrvFurAsset.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(FurAssetV0, "FurAssetV0", "20c9040c-84de-4df2-82c6-aff647504f44")

// This list is the file format: order, names and types stay. A change is a FurAssetV1.
void FurAssetV0::addAttributes()
{
    addAttribute<MrvString>("furInformation", &FurAssetV0::_furInformation);
}

namespace {

bool isFurKey(const MrvString& name)
{
    constexpr const char* keys[] = { "furFile", "meshNames", "enabledMeshes", "furFileContentDescription" };
    for (const char* key : keys)
        if (name == key)
            return true;
    return false;
}

} // namespace

void FurInformationManipulator::init(const MrvString& furInformation)
{
    parseFurInfo(furInformation, _furAttributes);
    _furInformationDirty = true;
}

bool FurInformationManipulator::getFurProperty(const MrvString& name, MrvString& value) const
{
    const auto property = _furAttributes.find(name);
    if (property == _furAttributes.end())
        return false;
    value = property.getValue();
    return true;
}

void FurInformationManipulator::setFurProperty(const MrvString& name, const MrvString& value)
{
    if (!isFurKey(name))
        return;
    _furAttributes[name] = value;
    _furInformationDirty = true;
}

const MrvString& FurInformationManipulator::getModifiedFurInformation()
{
    if (!_furInformationDirty)
        return _furInformation;
    _furInformation.clear();
    for (auto property = _furAttributes.begin(); property != _furAttributes.end(); ++property)
        _furInformation += property.getKey() + "=" + property.getValue() + ";";
    _furInformation.trim(";");
    _furInformationDirty = false;
    return _furInformation;
}

void FurInformationManipulator::parseFurInfo(const MrvString& furInformation,
                                             MrvMap<MrvString, MrvString>& attributes)
{
    Array<MrvString> parts;
    for (const MrvString& entry : stringToStringArray(furInformation, ";"))
    {
        split(entry, "=", parts);
        if (parts.size() == 2 && isFurKey(parts[0]))
            attributes[parts[0]] = parts[1];
    }
}

} // namespace mrv
