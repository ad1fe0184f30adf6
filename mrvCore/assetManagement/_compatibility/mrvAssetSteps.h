// mrvCore/assetManagement/_compatibility/mrvAssetSteps.h
// The steps of the asset classes, for stepUp(). Users include the classes that they convert.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvStepUp.h"

namespace mrv {

MRV_STEP_UP(AssetUnitV1, createFromV0, AssetUnitV0)
MRV_STEP_UP(AssetUnitV2, createFromV1, AssetUnitV1)
MRV_STEP_UP(AssetUnitV3, createFromV2, AssetUnitV2)

MRV_STEP_UP(AssetGroupV1, createFromV0, AssetGroupV0)
MRV_STEP_UP(AssetGroupV2, createFromV1, AssetGroupV1)
MRV_STEP_UP(AssetGroupV3, createFromV2, AssetGroupV2)
MRV_STEP_UP(AssetGroupV4, createFromV3, AssetGroupV3)

MRV_STEP_UP(MeshAssetV2, createFromV1, MeshAssetV1)
MRV_STEP_UP(MeshAssetV3, createFromV2, MeshAssetV2)
MRV_STEP_UP(MeshAssetV4, createFromV3, MeshAssetV3)
MRV_STEP_UP(MeshAssetV5, createFromV4, MeshAssetV4)
MRV_STEP_UP(MeshAssetV6, createFromV5, MeshAssetV5)
MRV_STEP_UP(MeshAssetV7, createFromV6, MeshAssetV6)
MRV_STEP_UP_BY_CONSTRUCTOR(MeshAssetV8, MeshAssetV7)

MRV_STEP_UP(GeometryAssetV1, createFromV0, GeometryAssetV0)
MRV_STEP_UP(GeometryAssetV2, createFromV1, GeometryAssetV1)
MRV_STEP_UP(GeometryAssetV3, createFromV2, GeometryAssetV2)
MRV_STEP_UP(GeometryAssetV4, createFromV3, GeometryAssetV3)

MRV_STEP_UP(ShaderAttributeV1, createFromV0, ShaderAttributeV0)
MRV_STEP_UP(ShaderAttributeV2, createFromV1, ShaderAttributeV1)
MRV_STEP_UP(ShaderAttributeV3, createFromV2, ShaderAttributeV2)

MRV_STEP_UP(ShaderAssetV1, createFromV0, ShaderAssetV0)
MRV_STEP_UP(ShaderAssetV2, createFromV1, ShaderAssetV1)

MRV_STEP_UP(WeightOverrideV1, createFromV0, WeightOverrideV0)

MRV_STEP_UP(RenderingTypeV1, createFromV0, RenderingTypeV0)
MRV_STEP_UP(RenderingTypeV3, createFromV2, RenderingTypeV2)
MRV_STEP_UP(RenderingTypeV4, createFromV3, RenderingTypeV3)

MRV_STEP_UP(BlindDataV1, createfromPreviousVersion, BlindDataV0)

} // namespace mrv
