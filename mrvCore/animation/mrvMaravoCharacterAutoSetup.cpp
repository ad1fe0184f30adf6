// mrvCore/animation/mrvMaravoCharacterAutoSetup.cpp
// What a character works out from its skeleton, and the paths of its assets.
#include "mrvCore/animation/mrvMaravoCharacter.h"

#include "mrvCore/animation/mrvBoneLookup.h"
#include "mrvCore/math/geometry3/mrvFastBoundingBox.h"
#include "mrvCore/system/utils/mrvFileDir.h"
#include "mrvCore/system/utils/mrvFileName.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

namespace mrv {

namespace {

/// Sum of the distances from a bone to its children.
float sumOfChildDistances(const HierarchicalBoneV1& bone, const Quaternion& toZUp)
{
    const Vector3 position = toZUp * bone.getWorldPosUnscaled();
    float sum = 0.0f;
    for (const HierarchicalBoneV1* child : bone.getChildren())
        sum += (toZUp * child->getWorldPosUnscaled() - position).norm();
    return sum;
}

/// A box along the bone, as long as its children are away on average.
void fitDisplay(BoneDisplayConfigurationV0& display, const HierarchicalBoneV1& bone, const Quaternion& toZUp)
{
    display._shape = RagdollRigidBodyShape::BOX;
    const float sum = sumOfChildDistances(bone, toZUp);
    if (bone.getNbChildren() == 0 || sum < 0.0001f)
    {
        display._enabled = false;
        return;
    }
    const float average = sum / static_cast<float>(bone.getNbChildren());
    display._scale = Vector3(1.0f);
    display._localOrientationOffset.setToIdentity();
    display._localPositionOffset.setNull();
    display._halfExtents = Vector3(0.2f * average, 0.2f * average, 0.5f * average);
}

} // namespace

void MaravoCharacterV24::updateRelativePaths(const MrvString& characterFile)
{
    const MrvString directory = FileName(characterFile).pathname();
    const auto update = [&directory](MrvString& path) {
        path = FileDir::correctPath(dirmap(path, "^.", directory));
    };
    for (auto entry = _geometryAssetsPerTags.begin(); entry != _geometryAssetsPerTags.end(); ++entry)
        for (GeometryAssetV4& asset : entry.getValue())
            update(asset._filename);
    for (MeshAssetV8& mesh : _meshAssets)
    {
        MrvString furFile;
        if (mesh.isFur() && mesh.getFurProperty("furFile", furFile))
        {
            update(furFile);
            mesh.setFurProperty("furFile", furFile);
        }
        if (!mesh._clothAsset._filename.empty())
            update(mesh._clothAsset._filename);
    }
    for (DeepDeformerAssetV0& deformer : _deepDeformerAssets)
        if (!deformer._deepFilename.empty())
            update(deformer._deepFilename);
}

void MaravoCharacterV24::autoComputePerceptionShape()
{
    _perceptionShapeExtents = Vector3(1.0f);
    _perceptionShapeOffset.setNull();
    FastBoundingBox box;
    _converterMapping.computePerceptionBoundingBox(box);
    if (box.isEmpty())
        return;
    const Vector3 size = box._max - box._min;
    if (!(size.norm() > 0.001f))
        return;
    const HierarchicalSkeletonDescriptionV1* skeleton = _converterMapping.getSkeletonDescription();
    const HierarchicalBoneV1* root = skeleton != nullptr ? skeleton->getRootBone() : nullptr;
    _perceptionShapeExtents = size;
    _perceptionShapeOffset = (box._min + box._max) * 0.5f;
    if (root != nullptr)
        _perceptionShapeOffset -= root->getWorldPosUnscaled();
}

void MaravoCharacterV24::autoComputeSkeletonDisplay(const PODArray<int>& bones)
{
    const PODArray<HierarchicalBoneV1*>& skeleton =
        internal::bonesOf(_converterMapping.getSkeletonDescription());
    const HierarchicalBoneV1* pelvis = internal::boneAt(skeleton, _converterMapping.getPelvisBone());
    const auto isAbovePelvis = [&](const HierarchicalBoneV1* bone) {
        return pelvis != nullptr &&
               internal::findUpwards(pelvis->getFather(), skeleton.size(),
                                     [bone](const HierarchicalBoneV1& above) { return &above == bone; });
    };
    _skeletonDisplay.resize(skeleton.size());
    for (size_t b = 0; b < skeleton.size(); ++b)
    {
        if (skeleton[b] == nullptr || bones.find(static_cast<int>(b)) == bones.end())
            continue;
        if (isAbovePelvis(skeleton[b]) && skeleton.size() > 1)
            _skeletonDisplay[b]._enabled = false;
        else
            fitDisplay(_skeletonDisplay[b], *skeleton[b], _converterMapping.getOrientationToZUpXFront());
    }
}

} // namespace mrv
