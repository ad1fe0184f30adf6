// mrvCore/assetManagement/mrvAssetAssociations.h
// Which character and rendering type each entity of a population has.
#pragma once

#include "mrvCore/assetManagement/mrvRenderInfo.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"

namespace mrv {

/// The content of an association file.
class MRV_CORE_API AssetAssociationsV0
{
public:
    MRV_PERSISTENT_CLASS(AssetAssociationsV0)

    unsigned int _rngSeed = 0; ///< of the population, for the application; nothing in the library uses it
    Array<RenderInfoV0> _entityRenderInfo;
};

/// Reads an association file, whatever class name it declares; `associations` is left alone where the file
/// holds no such object.
///
/// False, with an error in the log, for a file that does not exist. Faults inside the file are logged too,
/// and the result is true, with what could be read.
MRV_CORE_API bool loadCAAFile(AssetAssociationsV0& associations, const MrvString& file);

/// Gives the records back; the seed stays.
MRV_CORE_API void clearAssetAssociation(AssetAssociationsV0& associations);

/// The chosen meshes of a population; applications fill it.
struct MeshAssetAssociation
{
    /// The mesh assets of the entity at this position, which must exist.
    PODArray<int>& getMeshAssetAssociationForEntity(int entityIndex)
    {
        return _meshAssociations[static_cast<size_t>(entityIndex)];
    }

    Array<PODArray<int>> _meshAssociations; ///< indices into the meshes of the character, by entity
};

/// Gives all memory back.
MRV_CORE_API void clearMeshAssetAssociations(MeshAssetAssociation& associations);

} // namespace mrv
