// mrvCore/animation/mrvSpecificPosture.h
// One pose of a character's own skeleton.
#pragma once

#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"

#include <cstddef>

namespace mrv {

class HierarchicalBoneV1;

/// World position and orientation of every bone, with skinning scales if wanted: the form in which a pose
/// goes to rendering and animation, and the conversions between it and the compact forms of an animation.
///
/// Shape: arrays by specific bone index. `bones` is the array of a skeleton description, in which that is the
/// position, fathers before their children. A father that is not among them counts as none.
/// Rest-relative: an orientation that follows the one of the bind pose, in the frame of the bone. Scales
/// multiply local positions, a vector component by component.
/// Threads: one at a time per object. The operations read bones, whose caches must be fresh where several
/// threads read them.
class MRV_CORE_API SpecificPosture
{
public:
    using Bones = PODArray<HierarchicalBoneV1*>;

    /// Empties the posture and turns scales off.
    void finish();
    /// Room for that many bones, without scales.
    void init(size_t boneCount);

    /// @{
    /// Each makes the posture one of these bones, without scales, filled by the static operation below of
    /// that name.
    void initFromEntity(const Bones& bones, float scale, const Vector3& position,
                        const Quaternion& orientation, const Quaternion& coordinate);
    void initFromSkeleton(const Bones& bones, float scale);
    void initFromSkeleton(const Bones& bones, const Array<Vector3>& scales);
    void initFromRestRelativesOrientation(const Bones& bones, const Vector3& rootPosition,
                                          const Quaternion& rootOrientation,
                                          const Array<Quaternion>& restRelatives, float scale);
    void initFromRestRelativesOrientation(const Bones& bones, const Vector3& rootPosition,
                                          const Quaternion& rootOrientation,
                                          const Array<Quaternion>& restRelatives,
                                          const Array<Vector3>& scales);
    void initFromRestRelativesOrientationAndLocalPositions(const Bones& bones, const Vector3& rootPosition,
                                                           const Quaternion& rootOrientation,
                                                           const Array<Quaternion>& restRelatives,
                                                           const Array<Vector3>& localPositions);
    /// @}

    /// As initFromEntity() for a posture that has as many bones already, anything else being fatal; scales
    /// stay.
    void updateFromEntity(const Bones& bones, float scale, const Vector3& position,
                          const Quaternion& orientation, const Quaternion& coordinate);

    /// Turned on, all scales are (1, 1, 1).
    void setUseSkinningScales(bool use);
    /// Turns the whole posture about the origin.
    void applyCoordinateTransform(const Quaternion& q);

    size_t getBonesCount() const { return _boneCount; }
    const Array<Vector3>& getWorldPositions() const { return _worldPositions; }
    Array<Vector3>& touchWorldPositions() { return _worldPositions; }
    const Array<Quaternion>& getWorldOrientations() const { return _worldOrientations; }
    Array<Quaternion>& touchWorldOrientations() { return _worldOrientations; }
    bool isUsingSkinningScales() const { return _useSkinningScales; }
    /// Empty unless scales are in use.
    const Array<Vector3>& getSkinningScales() const { return _skinningScales; }
    Array<Vector3>& touchSkinningScales() { return _skinningScales; }

    /// Within 0.001 a component; an orientation equals its negative.
    bool operator==(const SpecificPosture& other) const;
    bool operator!=(const SpecificPosture& other) const { return !(*this == other); }

    /// How far two postures differ, wherever they stand and whichever way they face: the sum over the bones
    /// that both have of the squared distances, after both are moved by the first bone to the origin and
    /// turned about Z by its heading to the front.
    float computeSummedSquareDitanceWith(const SpecificPosture& other) const;

    // Conversions. The caller sizes what is written, one entry per bone, unless told otherwise.

    /// The bind pose.
    static void computePostureFromSkeleton(Array<Vector3>& positions, Array<Quaternion>& orientations,
                                           const Bones& bones, float scale);
    /// The bind pose with a scale per bone; roots are not scaled.
    static void computePostureFromSkeleton(Array<Vector3>& positions, Array<Quaternion>& orientations,
                                           const Bones& bones, const Array<Vector3>& scales);
    /// The bind pose in the frame of an entity. `coordinate` leads from the axes of the skeleton to those of
    /// the entity.
    static void computePostureFromEntity(Array<Vector3>& positions, Array<Quaternion>& orientations,
                                         const Bones& bones, float scale, const Vector3& position,
                                         const Quaternion& orientation, const Quaternion& coordinate);

    /// From rest-relative orientations, one per bone; every root gets the root's transform.
    static void computePostureFromRestRelativeOrientations(Array<Vector3>& positions,
                                                           Array<Quaternion>& orientations,
                                                           const Bones& bones, const Vector3& rootPosition,
                                                           const Quaternion& rootOrientation,
                                                           const Array<Quaternion>& restRelatives,
                                                           float scale);
    static void computePostureFromRestRelativeOrientations(Array<Vector3>& positions,
                                                           Array<Quaternion>& orientations,
                                                           const Bones& bones, const Vector3& rootPosition,
                                                           const Quaternion& rootOrientation,
                                                           const Array<Quaternion>& restRelatives,
                                                           const Array<Vector3>& scales);
    /// Only the listed bones, in that order; their fathers' values stand already in the arrays. Roots are
    /// written if `updateRoots`.
    static void computePostureFromRestRelativeOrientations(Array<Vector3>& positions,
                                                           Array<Quaternion>& orientations,
                                                           const Bones& bones, const Vector3& rootPosition,
                                                           const Quaternion& rootOrientation,
                                                           const Array<Quaternion>& restRelatives,
                                                           float scale, const PODArray<int>& boneIndices,
                                                           bool updateRoots);
    /// From rest-relative orientations, with local positions in place of those of the bind pose.
    static void computePostureFromRestRelativeOrientationsAndLocalPositions(
        Array<Vector3>& positions, Array<Quaternion>& orientations, const Bones& bones,
        const Vector3& rootPosition, const Quaternion& rootOrientation,
        const Array<Quaternion>& restRelatives, const Array<Vector3>& localPositions);

    /// The way back to rest-relative orientations; those of roots are relative to `rootOrientation`.
    static void computeRestRelativesOrientationFromPosture(const Array<Quaternion>& orientations,
                                                           const Bones& bones,
                                                           const Quaternion& rootOrientation,
                                                           Array<Quaternion>& result);
    /// The way back to local positions, null for roots. Sizes the result.
    static void computeLocalPositionsFromPosture(const Array<Vector3>& positions,
                                                 const Array<Quaternion>& orientations, const Bones& bones,
                                                 Array<Vector3>& localPositions);

private:
    size_t _boneCount = 0;
    Array<Vector3> _worldPositions;
    Array<Quaternion> _worldOrientations;
    bool _useSkinningScales = false;
    Array<Vector3> _skinningScales;
};

} // namespace mrv
