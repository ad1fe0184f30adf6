// mrvCore/assetManagement/_compatibility/mrvBlindDataV0.h
// A channel that no bone carries, as mappings of versions 6 and 7 hold it.
#pragma once

#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// A channel of one float.
class MRV_CORE_API BlindDataV0
{
public:
    MRV_PERSISTENT_CLASS(BlindDataV0)

    unsigned int getTypeUInt() const { return _type; }
    void setTypeUInt(unsigned int type) { _type = static_cast<BlindDataV1::Type::Value>(type); }

    MrvString _groupName;
    MrvString _name;
    BlindDataV1::Type::Value _type = BlindDataV1::Type::BLENDSHAPE;
};

} // namespace mrv
