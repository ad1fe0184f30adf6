// mrvCore/assetManagement/_compatibility/mrvAssetSteps.cpp
// The steps of the current classes, whose own sources do not know older ones.
#include "mrvCore/assetManagement/_compatibility/mrvAssetSteps.h"

#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvBlindDataV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV7.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvWeightOverrideV0.h"
#include "mrvCore/assetManagement/mrvGeometryAsset.h"
#include "mrvCore/assetManagement/mrvRenderingType.h"
#include "mrvCore/assetManagement/mrvShaderAsset.h"

namespace mrv {

void AssetUnitV3::createFromV2(AssetUnitV2 old)
{
    _meshAssetIdx = old._meshAssetIdx;
    _assetGroupIdx = old._assetGroupIdx;
    _skeletonOverrideIdx = old._skeletonOverrideIdx;
    _blindDataOverrideIdx = old._blindDataOverrideIdx;
    _physicsOverrideIdx = old._physicsOverrideIdx;
    _deepDeformerAssetIdx = -1;
}

void AssetGroupV4::createFromV3(AssetGroupV3 old)
{
    _name = std::move(old._name);
    _weights = std::move(old._weights);
    _children = std::move(old._children);
    _excludedAssets = std::move(old._excludedAssets);
}

// The character makes a deep deformer of the deformer, the levels and the tags; the mesh itself is from now
// on shown at every level and in every geometry, as it was before version 22.
MeshAssetV8::MeshAssetV8(MeshAssetV7 old)
    : _name(std::move(old._name))
    , _exportAlias(std::move(old._exportAlias))
    , _shadingGroups(std::move(old._shadingGroups))
    , _clothAsset(std::move(old._clothAsset))
    , _furAsset(std::move(old._furAsset))
    , _isFur(old._isFur)
{
    stepUp(_excludedAssets, old._excludedAssets);
}

void GeometryAssetV4::createFromV3(GeometryAssetV3 old)
{
    _filename = std::move(old._filename);
    _halfExtentsYUp = old._halfExtentsYUp;
    _lodLevel = 0xFFFFFFFF;
    _LODMinDistance = old._LODMinDistance;
    _LODMaxDistance = old._LODMaxDistance;
}

void ShaderAttributeV3::createFromV2(ShaderAttributeV2 old)
{
    _name = std::move(old._name);
    _type = old._type;
    setMinValue(std::move(old._minValue));
    setMaxValue(std::move(old._maxValue));
    _stringValue = std::move(old._stringValue);
    _valueType = old._valueType;
    _ppAttr = std::move(old._ppAttr);
    _weights = std::move(old._weights);
}

void ShaderAssetV2::createFromV1(ShaderAssetV1 old)
{
    _name = std::move(old._name);
    _category = std::move(old._category);
}

void WeightOverrideV1::createFromV0(WeightOverrideV0 old)
{
    _assetIndex = old._groupIdx;
    _weights = std::move(old._groupWeights);
    _type = WeightOverrideType::GROUP;
}

void RenderingTypeV4::createFromV3(RenderingTypeV3 old)
{
    _name = std::move(old._name);
    stepUp(_weightOverrides, old._weightOverrides);
    _parentRenderingType = old._parentRenderingType;
}

void BlindDataV1::createfromPreviousVersion(BlindDataV0 old)
{
    _groupName = std::move(old._groupName);
    _name = std::move(old._name);
    _type = old._type;
    _floatCount = 1;
}

} // namespace mrv
