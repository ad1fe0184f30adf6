// mrvCore/assetManagement/mrvDeepDeformerAsset.h
// A learned deformer of a character.
#pragma once

#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

#include <cstdint>

namespace mrv {

/// Reference to the configuration file of a deformer, and where it applies.
class MRV_CORE_API DeepDeformerAssetV0
{
public:
    MRV_PERSISTENT_CLASS(DeepDeformerAssetV0)

    /// See mrv::getAbsoluteFile of mrvGeometryAsset.h.
    void getAbsoluteFile(const MrvString& file, MrvString& absoluteFile, const char* rootPath) const;
    void getAbsoluteDeepFile(MrvString& absoluteFile, const char* rootPath) const;

    MrvString _name;
    uint32_t _lodLevel = 0xFFFFFFFF; ///< see LODLevelFlags
    PODArray<short> _geometryTags;
    MrvString _deepFilename;
};

} // namespace mrv
