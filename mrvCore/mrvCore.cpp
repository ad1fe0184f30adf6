// mrvCore/mrvCore.cpp
#include "mrvCore/mrvCore.h"

#include "mrvCore/animation/_compatibility/mrvBonePhysicConfigurationV0.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterBoneV0.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV0.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV1.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV2.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV3.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV4.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV6.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h"
#include "mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.h"
#include "mrvCore/animation/_compatibility/mrvHierarchicalSkeletonDescriptionV0.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV0.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV1.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV10.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV11.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV12.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV13.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV14.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV15.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV16.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV17.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV18.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV19.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV2.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV20.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV21.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV22.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV23.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV3.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV4.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV5.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV6.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV7.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV8.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV9.h"
#include "mrvCore/animation/mrvBlindDataOverride.h"
#include "mrvCore/animation/mrvBoneDisplayConfiguration.h"
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/animation/mrvCharacterUserData.h"
#include "mrvCore/animation/mrvEffectorMirrorSource.h"
#include "mrvCore/animation/mrvGenericSpecificConverterBone.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/animation/mrvMaravoCharacterInterface.h"
#include "mrvCore/animation/mrvPhysicsOverride.h"
#include "mrvCore/animation/mrvRollAttributes.h"
#include "mrvCore/animation/mrvSkeletonOverride.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetGroupV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetUnitV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetsGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvBlendShapeGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvBlindDataV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryAssetV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvGeometryGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV4.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV5.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV6.h"
#include "mrvCore/assetManagement/_compatibility/mrvMeshAssetV7.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvRenderingTypeV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAssetV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderAttributeV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvShaderGroupV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvWeightOverrideV0.h"
#include "mrvCore/assetManagement/mrvAssetAssociations.h"
#include "mrvCore/assetManagement/mrvAssetGroup.h"
#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/assetManagement/mrvClothAsset.h"
#include "mrvCore/assetManagement/mrvDeepDeformerAsset.h"
#include "mrvCore/assetManagement/mrvFurAsset.h"
#include "mrvCore/assetManagement/mrvGeometryAsset.h"
#include "mrvCore/assetManagement/mrvMeshAsset.h"
#include "mrvCore/assetManagement/mrvRenderInfo.h"
#include "mrvCore/assetManagement/mrvRenderingType.h"
#include "mrvCore/assetManagement/mrvShaderAsset.h"
#include "mrvCore/assetManagement/mrvShaderAttribute.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"
#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/inspection/mrvRTTIConcat.h"
#include "mrvCore/system/inspection/mrvTypesManager.h"
#include "mrvCore/system/log/mrvLog.h"
#include "mrvCore/system/progress/mrvPerfAnalysisManager.h"
#include "mrvCore/system/thread/mrvMutex.h"
#include "mrvCore/system/thread/mrvScopedLock.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

#include <array>
#include <cstdint>

namespace mrv {

namespace {

uint32_t s_initCount = 0;
Mutex s_initLock;

struct Registration
{
    void (*create)(bool withAttributes);
    void (*destroy)(bool withAttributes);
};

template <typename... Classes>
constexpr std::array<Registration, sizeof...(Classes)> makeRegistrations()
{
    return { { { &Classes::createClassRTTI, &Classes::destroyClassRTTI }... } };
}

// The persistent classes in the order of their registration, which is permanent.
constexpr auto registrations = makeRegistrations<
    EffectorMirrorSourceV0, GenericSpecificConverterMappingV0, GenericSpecificConverterMappingV1,
    GenericSpecificConverterMappingV2, GenericSpecificConverterMappingV3, GenericSpecificConverterMappingV4,
    GenericSpecificConverterMappingV5, GenericSpecificConverterMappingV6, GenericSpecificConverterMappingV7,
    GenericSpecificConverterMappingV8, GenericSpecificConverterBoneV0, GenericSpecificConverterBoneV1,
    BonePhysicConfigurationV0, BonePhysicConfigurationV1, BoneDisplayConfigurationV0, RollAttributesV0,
    HierarchicalBoneV0, HierarchicalBoneV1, AssetAssociationsV0, GeometryAssetV0, GeometryAssetV1,
    GeometryAssetV2, GeometryAssetV3, GeometryAssetV4, GeometryGroupV0, ShaderAttributeV0, ShaderAttributeV1,
    ShaderAttributeV2, ShaderAttributeV3, ShaderAssetV0, ShaderAssetV1, ShaderAssetV2, ShaderGroupV0,
    ShadingGroupV1, ClothAssetV0, FurAssetV0, MeshAssetV0, MeshAssetV1, MeshAssetV2, MeshAssetV3, MeshAssetV4,
    MeshAssetV5, MeshAssetV6, MeshAssetV7, MeshAssetV8, DeepDeformerAssetV0, AssetsGroupV0, AssetGroupV0,
    AssetGroupV1, AssetGroupV2, AssetGroupV3, AssetGroupV4, AssetUnitV0, AssetUnitV1, AssetUnitV2,
    AssetUnitV3, WeightOverrideV0, WeightOverrideV1, RenderingTypeV0, RenderingTypeV1, RenderingTypeV2,
    RenderingTypeV3, RenderingTypeV4, AssetManagerV0, AssetManagerV1, AssetManagerV2, AssetManagerV3,
    BlendShapeGroupV0, BlindDataV0, BlindDataV1, SkeletonOverrideV0, BlindDataOverrideV0, PhysicsOverrideV0,
    MaravoCharacterInterface, MaravoCharacterV0, MaravoCharacterV1, MaravoCharacterV2, MaravoCharacterV3,
    MaravoCharacterV4, MaravoCharacterV5, MaravoCharacterV6, MaravoCharacterV7, MaravoCharacterV8,
    MaravoCharacterV9, MaravoCharacterV10, MaravoCharacterV11, MaravoCharacterV12, MaravoCharacterV13,
    MaravoCharacterV14, MaravoCharacterV15, MaravoCharacterV16, MaravoCharacterV17, MaravoCharacterV18,
    MaravoCharacterV19, MaravoCharacterV20, MaravoCharacterV21, MaravoCharacterV22, MaravoCharacterV23,
    MaravoCharacterV24, RenderInfoV0, CharacterUserDataV0, HierarchicalSkeletonDescriptionV0,
    HierarchicalSkeletonDescriptionV1>();

void registerClasses()
{
    for (const Registration& registration : registrations)
        registration.create(true);
}

// In reverse, but for the two versions of the blind data, which go in the order in which they came.
void removeClasses()
{
    for (size_t i = registrations.size(); i-- > 0;)
    {
        if (registrations[i].destroy == &BlindDataV1::destroyClassRTTI)
        {
            BlindDataV0::destroyClassRTTI(true);
            BlindDataV1::destroyClassRTTI(true);
            --i;
        }
        else
            registrations[i].destroy(true);
    }
}

} // namespace

void initCore()
{
    const ScopedLock<Mutex> lock(s_initLock);
    if (s_initCount != 0)
    {
        ++s_initCount;
        return;
    }
    // The name arenas are rewound here alone: the names of a former start are reused from now on.
    alphaNumericCopiesBufferIndex = 0;
    RTTIConcatBufferIndex = 0;
    allocateLog();
    RTTI::allocateStaticRTTIs();
    RTTI::createRTTIs();
    // Built here, before any thread could race to build them.
    Vector3::getNullVector();
    Quaternion::getNullVector();
    Quaternion::getIdentity();
    registerClasses();
    Singleton<RandomNumberGenerator>::create();
    Singleton<PerfAnalysisManager>::create();
    Singleton<TypesManager>::create();
    if (!Singleton<MultiThreadProcessor>::hasInstance())
        Singleton<MultiThreadProcessor>::_instance = new MultiThreadProcessor("MrvMultiThreadProcessor");
    getMultiThreadProcessor()->init(getSupportedConcurrentThreadCount());
    ++s_initCount;
}

void finishCore(bool)
{
    const ScopedLock<Mutex> lock(s_initLock);
    if (--s_initCount != 0)
        return;
    getMultiThreadProcessor()->finish();
    Singleton<MultiThreadProcessor>::destroy();
    Singleton<TypesManager>::destroy();
    Singleton<PerfAnalysisManager>::destroy();
    Singleton<RandomNumberGenerator>::destroy();
    removeClasses();
    RTTI::destroyRTTIs();
    RTTI::deallocateStaticRTTIs();
    deallocateLog();
}

bool isCoreFinished()
{
    const ScopedLock<Mutex> lock(s_initLock);
    return s_initCount == 0;
}

} // namespace mrv
