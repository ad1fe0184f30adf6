// mrvCore/animation/mrvSpecificPosture.cpp
#include "mrvCore/animation/mrvSpecificPosture.h"

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/math/conversions/mrvEulerConversions.h"
#include "mrvCore/system/debug/mrvAssert.h"

#include <algorithm>

namespace mrv {

namespace {

using Bones = SpecificPosture::Bones;

constexpr int noFather = -1;

int getFatherIndex(const HierarchicalBoneV1& bone, size_t boneCount)
{
    const HierarchicalBoneV1* father = bone.getFather();
    const int index = father != nullptr ? father->getSpecificBoneIndex() : noFather;
    return static_cast<size_t>(index) < boneCount ? index : noFather;
}

/// Places a bone relative to its father, which has its place already.
inline void placeBone(Vector3* positions, Quaternion* orientations, size_t index, size_t father,
                      const HierarchicalBoneV1& bone, const Quaternion& restRelative,
                      const Vector3& localPosition)
{
    const Quaternion fatherOrientation = orientations[father];
    orientations[index] = fatherOrientation * bone.getLocalOri() * restRelative;
    positions[index] = positions[father] + fatherOrientation * localPosition;
}

/// One pass over the bones, with the local position of each by `getLocalPosition`.
template <class GetLocalPosition>
void computePosture(Array<Vector3>& positions, Array<Quaternion>& orientations, const Bones& bones,
                    const Vector3& rootPosition, const Quaternion& rootOrientation,
                    const Array<Quaternion>& restRelatives, GetLocalPosition getLocalPosition)
{
    Vector3* const position = positions.begin();
    Quaternion* const orientation = orientations.begin();
    const size_t count = bones.size();
    for (size_t i = 0; i < count; ++i)
    {
        const HierarchicalBoneV1& bone = *bones[i];
        const int father = getFatherIndex(bone, count);
        if (father == noFather)
        {
            position[i] = rootPosition;
            orientation[i] = rootOrientation;
            continue;
        }
        placeBone(position, orientation, i, static_cast<size_t>(father), bone, restRelatives[i],
                  getLocalPosition(bone, i));
    }
}

Vector3 scaled(const Vector3& position, const Vector3& scale)
{
    Vector3 result = position;
    result.mulSelf(scale);
    return result;
}

template <class Value>
bool areNear(const Value& a, const Value& b, unsigned int componentCount)
{
    constexpr float tolerance = 0.001f;
    for (unsigned int i = 0; i < componentCount; ++i)
        if (!(__builtin_fabsf(a[i] - b[i]) <= tolerance))
            return false;
    return true;
}

bool areNear(const Vector3& a, const Vector3& b)
{
    return areNear(a, b, 3);
}

bool areNear(const Quaternion& a, const Quaternion& b)
{
    return areNear(a, b, 4) || areNear(a, -b, 4);
}

template <class Value>
bool areNear(const Array<Value>& a, const Array<Value>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Value& left, const Value& right) { return areNear(left, right); });
}

float getHeading(const Quaternion& orientation)
{
    float heading = 0.0f;
    toEulerHeadingZYX(heading, orientation);
    return heading;
}

} // namespace

void SpecificPosture::finish()
{
    _worldPositions.clear();
    _worldOrientations.clear();
    _skinningScales.clear();
    _boneCount = 0;
    _useSkinningScales = false;
}

void SpecificPosture::init(size_t boneCount)
{
    finish();
    _boneCount = boneCount;
    _worldPositions.resize(boneCount);
    _worldOrientations.resize(boneCount);
}

void SpecificPosture::initFromEntity(const Bones& bones, float scale, const Vector3& position,
                                     const Quaternion& orientation, const Quaternion& coordinate)
{
    init(bones.size());
    computePostureFromEntity(_worldPositions, _worldOrientations, bones, scale, position, orientation,
                             coordinate);
}

void SpecificPosture::initFromSkeleton(const Bones& bones, float scale)
{
    init(bones.size());
    computePostureFromSkeleton(_worldPositions, _worldOrientations, bones, scale);
}

void SpecificPosture::initFromSkeleton(const Bones& bones, const Array<Vector3>& scales)
{
    init(bones.size());
    computePostureFromSkeleton(_worldPositions, _worldOrientations, bones, scales);
}

void SpecificPosture::initFromRestRelativesOrientation(const Bones& bones, const Vector3& rootPosition,
                                                       const Quaternion& rootOrientation,
                                                       const Array<Quaternion>& restRelatives, float scale)
{
    init(bones.size());
    computePostureFromRestRelativeOrientations(_worldPositions, _worldOrientations, bones, rootPosition,
                                               rootOrientation, restRelatives, scale);
}

void SpecificPosture::initFromRestRelativesOrientation(const Bones& bones, const Vector3& rootPosition,
                                                       const Quaternion& rootOrientation,
                                                       const Array<Quaternion>& restRelatives,
                                                       const Array<Vector3>& scales)
{
    init(bones.size());
    computePostureFromRestRelativeOrientations(_worldPositions, _worldOrientations, bones, rootPosition,
                                               rootOrientation, restRelatives, scales);
}

void SpecificPosture::initFromRestRelativesOrientationAndLocalPositions(
    const Bones& bones, const Vector3& rootPosition, const Quaternion& rootOrientation,
    const Array<Quaternion>& restRelatives, const Array<Vector3>& localPositions)
{
    init(bones.size());
    computePostureFromRestRelativeOrientationsAndLocalPositions(_worldPositions, _worldOrientations, bones,
                                                                rootPosition, rootOrientation, restRelatives,
                                                                localPositions);
}

void SpecificPosture::updateFromEntity(const Bones& bones, float scale, const Vector3& position,
                                       const Quaternion& orientation, const Quaternion& coordinate)
{
    MRV_ASSERT(bones.size() == _boneCount);
    computePostureFromEntity(_worldPositions, _worldOrientations, bones, scale, position, orientation,
                             coordinate);
}

void SpecificPosture::setUseSkinningScales(bool use)
{
    if (!use)
        _skinningScales.clear();
    else if (!_useSkinningScales)
        _skinningScales.assign(_boneCount, Vector3(1.0f));
    _useSkinningScales = use;
}

void SpecificPosture::applyCoordinateTransform(const Quaternion& q)
{
    for (Vector3& position : _worldPositions)
        position = q * position;
    for (Quaternion& orientation : _worldOrientations)
        orientation = q * orientation;
}

bool SpecificPosture::operator==(const SpecificPosture& other) const
{
    return _boneCount == other._boneCount && _useSkinningScales == other._useSkinningScales &&
           areNear(_worldPositions, other._worldPositions) &&
           areNear(_worldOrientations, other._worldOrientations) &&
           (!_useSkinningScales || areNear(_skinningScales, other._skinningScales));
}

float SpecificPosture::computeSummedSquareDitanceWith(const SpecificPosture& other) const
{
    const size_t count = std::min(_boneCount, other._boneCount);
    if (count == 0)
        return 0.0f;
    const float heading = getHeading(_worldOrientations[0]);
    const float otherHeading = getHeading(other._worldOrientations[0]);
    float sum = 0.0f;
    for (size_t i = 0; i < count; ++i)
    {
        const Vector3 own = _worldPositions[i] - _worldPositions[0];
        const Vector3 others = other._worldPositions[i] - other._worldPositions[0];
        sum += (own.computeRotateZ(-heading) - others.computeRotateZ(-otherHeading)).norm2();
    }
    return sum;
}

void SpecificPosture::computePostureFromSkeleton(Array<Vector3>& positions, Array<Quaternion>& orientations,
                                                 const Bones& bones, float scale)
{
    for (size_t i = 0; i < bones.size(); ++i)
    {
        positions[i] = bones[i]->getWorldPosUnscaled() * scale;
        orientations[i] = bones[i]->getWorldOri();
    }
}

void SpecificPosture::computePostureFromSkeleton(Array<Vector3>& positions, Array<Quaternion>& orientations,
                                                 const Bones& bones, const Array<Vector3>& scales)
{
    for (size_t i = 0; i < bones.size(); ++i)
    {
        const HierarchicalBoneV1& bone = *bones[i];
        const int father = getFatherIndex(bone, bones.size());
        if (father == noFather)
        {
            positions[i] = bone.getWorldPosUnscaled();
            orientations[i] = bone.getWorldOri();
            continue;
        }
        const size_t f = static_cast<size_t>(father);
        positions[i] = positions[f] + orientations[f] * scaled(bone.getLocalPosUnscaled(), scales[i]);
        orientations[i] = bone.getFather()->getWorldOri() * bone.getLocalOri();
    }
}

void SpecificPosture::computePostureFromEntity(Array<Vector3>& positions, Array<Quaternion>& orientations,
                                               const Bones& bones, float scale, const Vector3& position,
                                               const Quaternion& orientation, const Quaternion& coordinate)
{
    const Quaternion turn = orientation * coordinate;
    for (size_t i = 0; i < bones.size(); ++i)
    {
        positions[i] = position + turn * (bones[i]->getWorldPosUnscaled() * scale);
        orientations[i] = turn * bones[i]->getWorldOri();
    }
}

void SpecificPosture::computePostureFromRestRelativeOrientations(
    Array<Vector3>& positions, Array<Quaternion>& orientations, const Bones& bones,
    const Vector3& rootPosition, const Quaternion& rootOrientation, const Array<Quaternion>& restRelatives,
    float scale)
{
    computePosture(
        positions, orientations, bones, rootPosition, rootOrientation, restRelatives,
        [scale](const HierarchicalBoneV1& bone, size_t) { return bone.getLocalPosUnscaled() * scale; });
}

void SpecificPosture::computePostureFromRestRelativeOrientations(
    Array<Vector3>& positions, Array<Quaternion>& orientations, const Bones& bones,
    const Vector3& rootPosition, const Quaternion& rootOrientation, const Array<Quaternion>& restRelatives,
    const Array<Vector3>& scales)
{
    computePosture(positions, orientations, bones, rootPosition, rootOrientation, restRelatives,
                   [&scales](const HierarchicalBoneV1& bone, size_t i) {
                       return scaled(bone.getLocalPosUnscaled(), scales[i]);
                   });
}

void SpecificPosture::computePostureFromRestRelativeOrientations(
    Array<Vector3>& positions, Array<Quaternion>& orientations, const Bones& bones,
    const Vector3& rootPosition, const Quaternion& rootOrientation, const Array<Quaternion>& restRelatives,
    float scale, const PODArray<int>& boneIndices, bool updateRoots)
{
    for (const int index : boneIndices)
    {
        const size_t i = static_cast<size_t>(index);
        if (i >= bones.size())
            continue;
        const int father = getFatherIndex(*bones[i], bones.size());
        if (father != noFather)
        {
            placeBone(positions.begin(), orientations.begin(), i, static_cast<size_t>(father), *bones[i],
                      restRelatives[i], bones[i]->getLocalPosUnscaled() * scale);
        }
        else if (updateRoots)
        {
            positions[i] = rootPosition;
            orientations[i] = rootOrientation;
        }
    }
}

void SpecificPosture::computePostureFromRestRelativeOrientationsAndLocalPositions(
    Array<Vector3>& positions, Array<Quaternion>& orientations, const Bones& bones,
    const Vector3& rootPosition, const Quaternion& rootOrientation, const Array<Quaternion>& restRelatives,
    const Array<Vector3>& localPositions)
{
    computePosture(positions, orientations, bones, rootPosition, rootOrientation, restRelatives,
                   [&localPositions](const HierarchicalBoneV1&, size_t i) { return localPositions[i]; });
}

void SpecificPosture::computeRestRelativesOrientationFromPosture(const Array<Quaternion>& orientations,
                                                                 const Bones& bones,
                                                                 const Quaternion& rootOrientation,
                                                                 Array<Quaternion>& result)
{
    for (size_t i = 0; i < bones.size(); ++i)
    {
        const int father = getFatherIndex(*bones[i], bones.size());
        const Quaternion rest = father == noFather
                                    ? rootOrientation
                                    : orientations[static_cast<size_t>(father)] * bones[i]->getLocalOri();
        result[i] = rest.computeInverse() * orientations[i];
    }
}

void SpecificPosture::computeLocalPositionsFromPosture(const Array<Vector3>& positions,
                                                       const Array<Quaternion>& orientations,
                                                       const Bones& bones, Array<Vector3>& localPositions)
{
    localPositions.resize(bones.size());
    for (size_t i = 0; i < bones.size(); ++i)
    {
        const int father = getFatherIndex(*bones[i], bones.size());
        const size_t f = static_cast<size_t>(father);
        localPositions[i] =
            father == noFather ? Vector3() : orientations[f].computeInverse() * (positions[i] - positions[f]);
    }
}

} // namespace mrv
