// mrvCore/animation/mrvSkeletonOverrideScales.cpp
#include "mrvCore/animation/mrvSkeletonOverrideScales.h"

#include "mrvCore/animation/mrvBoneLookup.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"

#include <cmath>

namespace mrv {

namespace {

constexpr float tolerance = 0.001f;

// Calls apply(bone index, value) for each entry that names a bone and has a value.
template <class Values, class Apply>
void forEachEntry(const PODArray<unsigned int>& indices, const Values& values, size_t boneCount, Apply apply)
{
    for (size_t k = 0; k < indices.size() && k < values.size(); ++k)
    {
        if (indices[k] < boneCount)
            apply(indices[k], values[k]);
    }
}

// The scale from one position to another; false if it counts as none. The last axis that has lengths to
// compare decides for all three: existing variations were recorded so.
bool findScale(Vector3& scale, const Vector3& from, const Vector3& to)
{
    bool isScaled = false;
    scale = Vector3(1.0f);
    for (unsigned int axis = Axis::BEGIN; axis < Axis::END; ++axis)
    {
        if (std::abs(from[axis]) > tolerance && std::abs(to[axis]) > tolerance)
        {
            scale[axis] = to[axis] / from[axis];
            isScaled = std::abs(scale[axis] - 1.0f) > tolerance;
        }
    }
    return isScaled;
}

bool isNearNull(const Quaternion& q)
{
    return std::abs(q.x) <= tolerance && std::abs(q.y) <= tolerance && std::abs(q.z) <= tolerance &&
           std::abs(q.w) <= tolerance;
}

// A quaternion and its negative are one orientation.
bool isSameOrientation(const Quaternion& a, const Quaternion& b)
{
    return isNearNull(a - b) || isNearNull(a + b);
}

bool isUnitScale(const Vector3& scale)
{
    const Vector3 difference = scale - Vector3(1.0f);
    return !(std::abs(difference.x) > tolerance || std::abs(difference.y) > tolerance ||
             std::abs(difference.z) > tolerance);
}

} // namespace

void skeletonOverrideFromOverrideScales(HierarchicalSkeletonDescriptionV1::Override& result,
                                        const HierarchicalSkeletonDescriptionV1::OverrideScales& scales,
                                        const GenericSpecificConverterMappingV8& mapping)
{
    const PODArray<HierarchicalBoneV1*>& bones = internal::bonesOf(mapping.getSkeletonDescription());
    const size_t count = bones.size();
    result._boneslocalPos.resize(count);
    result._boneslocalOri.resize(count);
    result._bonesSkinningScale.assign(count, Vector3(1.0f));
    for (size_t i = 0; i < count; ++i)
    {
        const HierarchicalBoneV1* bone = bones[i];
        result._boneslocalPos[i] = bone != nullptr ? bone->getLocalPosUnscaled() : Vector3::getNullVector();
        result._boneslocalOri[i] = bone != nullptr ? bone->getLocalOri() : Quaternion::getIdentity();
    }
    forEachEntry(
        scales._bonesLocalPosScalesIndices, scales._bonesLocalPosScales, count,
        [&result](size_t bone, const Vector3& scale) { result._boneslocalPos[bone].mulSelf(scale); });
    forEachEntry(scales._bonesLocalOriOffsetsIndices, scales._bonesLocalOriOffsets, count,
                 [&result](size_t bone, const Quaternion& offset) { result._boneslocalOri[bone] *= offset; });
    forEachEntry(
        scales._bonesAdditionalSkinningScalesIndices, scales._bonesAdditionalSkinningScales, count,
        [&result](size_t bone, const Vector3& scale) { result._bonesSkinningScale[bone].mulSelf(scale); });
    result._rootHeightUnscaled = mapping.computeRootHeight(result._boneslocalPos, result._boneslocalOri);
}

void skeletonOverrideToOverrideScales(HierarchicalSkeletonDescriptionV1::OverrideScales& result,
                                      const HierarchicalSkeletonDescriptionV1::Override& override,
                                      const GenericSpecificConverterMappingV8& mapping)
{
    const PODArray<HierarchicalBoneV1*>& bones = internal::bonesOf(mapping.getSkeletonDescription());
    for (size_t i = 0; i < bones.size(); ++i)
    {
        const HierarchicalBoneV1* bone = bones[i];
        if (bone == nullptr)
            continue;
        const unsigned int index = static_cast<unsigned int>(i);
        Vector3 scale;
        if (i < override._boneslocalPos.size() &&
            findScale(scale, bone->getLocalPosUnscaled(), override._boneslocalPos[i]))
        {
            result._bonesLocalPosScalesIndices.push_back(index);
            result._bonesLocalPosScales.push_back(scale);
        }
        // Without an orientation the skinning scale is not looked at either.
        if (i >= override._boneslocalOri.size())
            continue;
        if (!isSameOrientation(bone->getLocalOri(), override._boneslocalOri[i]))
        {
            result._bonesLocalOriOffsetsIndices.push_back(index);
            result._bonesLocalOriOffsets.push_back(bone->getLocalOri().computeInverse() *
                                                   override._boneslocalOri[i]);
        }
        if (i < override._bonesSkinningScale.size() && !isUnitScale(override._bonesSkinningScale[i]))
        {
            result._bonesAdditionalSkinningScalesIndices.push_back(index);
            result._bonesAdditionalSkinningScales.push_back(override._bonesSkinningScale[i]);
        }
    }
}

} // namespace mrv
