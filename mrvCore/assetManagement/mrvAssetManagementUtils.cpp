// mrvCore/assetManagement/mrvAssetManagementUtils.cpp
#include "mrvCore/assetManagement/mrvAssetManagementUtils.h"

#include "mrvCore/assetManagement/mrvMeshAsset.h"

#include <algorithm>

namespace mrv {

namespace {

template <typename Elements, typename T>
bool holds(const Elements& elements, const T& value)
{
    return elements.find(value) != elements.end();
}

bool isSameChannel(const BlindDataV1& a, const BlindDataV1& b)
{
    const bool groupsMatch = a._groupName.empty() || b._groupName.empty() || a._groupName == b._groupName;
    return a._type == b._type && groupsMatch && a._name == b._name;
}

int findChannel(const BlindDataV1& channel, const Array<BlindDataV1>& channels)
{
    for (int i = 0; i < channels.sizeInt(); ++i)
        if (isSameChannel(channel, channels[static_cast<size_t>(i)]))
            return i;
    return -1;
}

} // namespace

void automapBlindData(PODArray<int>& mapping, const Array<BlindDataV1>& source,
                      const Array<BlindDataV1>& target, int mode,
                      const Array<BlindDataV1::Type::Value>& types)
{
    mapping.assign(source.size(), -1);
    if (mode == BlindDataMappingMode::BY_POSITION)
    {
        for (size_t i = 0; i < std::min(source.size(), target.size()); ++i)
            mapping[i] = static_cast<int>(i);
    }
    else if (mode == BlindDataMappingMode::BY_NAME)
    {
        for (size_t i = 0; i < source.size(); ++i)
            if (types.empty() || holds(types, source[i]._type))
                mapping[i] = findChannel(source[i], target);
    }
}

bool mrvMeshAssetIsInGeoAsset(const MeshAssetV8& mesh, unsigned int lodFlags, short geometryTag)
{
    const bool isInLod = (lodFlags & mesh._lodLevelFlags) != 0;
    const PODArray<short>& tags = mesh._geometryTags;
    if (geometryTag == 0 || tags.empty() || holds(tags, short(0)))
        return isInLod;
    return isInLod && holds(tags, geometryTag);
}

} // namespace mrv
