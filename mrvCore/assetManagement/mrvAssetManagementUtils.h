// mrvCore/assetManagement/mrvAssetManagementUtils.h
// Operations over the assets of characters.
#pragma once

#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"

namespace mrv {

class MeshAssetV8;

/// How automapBlindData pairs channels.
struct BlindDataMappingMode
{
    enum Value { BY_POSITION, BY_NAME, END };
};

/// For each source channel the index of the target channel that it feeds, -1 for none.
///
/// By position the first channels are paired as far as both go. By name a channel takes the first target
/// of its type and name whose group matches; an empty group on either side matches any. `types` limits the
/// pairing by name to some types; all take part if it is empty. A target may be taken twice. Any other mode
/// pairs nothing.
MRV_CORE_API void automapBlindData(PODArray<int>& mapping, const Array<BlindDataV1>& source,
                                   const Array<BlindDataV1>& target, int mode,
                                   const Array<BlindDataV1::Type::Value>& types);

/// Whether a mesh is shown at any of these levels of detail in the geometry of this tag. The tag 0 stands
/// for every geometry, and so does a mesh without tags or with the tag 0.
MRV_CORE_API bool mrvMeshAssetIsInGeoAsset(const MeshAssetV8& mesh, unsigned int lodFlags, short geometryTag);

} // namespace mrv
