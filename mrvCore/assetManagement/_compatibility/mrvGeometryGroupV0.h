// mrvCore/assetManagement/_compatibility/mrvGeometryGroupV0.h
// The geometry files of the pointer tree, as files up to version 4 hold them.
#pragma once

#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class GeometryAssetV0;

/// Owns its assets; an asset may be null or stand twice in a damaged file.
class MRV_CORE_API GeometryGroupV0
{
public:
    MRV_PERSISTENT_CLASS(GeometryGroupV0)

    GeometryGroupV0() = default;
    GeometryGroupV0(const GeometryGroupV0&) = delete;
    GeometryGroupV0& operator=(const GeometryGroupV0&) = delete;
    ~GeometryGroupV0();

    MrvString _name;
    Array<GeometryAssetV0*> _assets;
};

} // namespace mrv
