// mrvCore/animation/mrvBonePhysicConfiguration.h
// The rigid body that a bone gets in a ragdoll.
#pragma once

#include "mrvCore/animation/mrvRagdollRigidBodyShape.h"
#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class BonePhysicConfigurationV0;

/// Shape, mass, contact and joint values of one bone's body. Held in arrays by specific bone index.
///
/// Half extents: for a capsule and a cylinder x is the radius and z half the length of the straight part, for
/// a sphere x is the radius, for a box each is half a side.
/// Place: the centre of the body lies half its length along local Z from the bone, plus the position offset.
class MRV_CORE_API BonePhysicConfigurationV1
{
public:
    MRV_PERSISTENT_CLASS(BonePhysicConfigurationV1)

    BonePhysicConfigurationV1() = default;
    /// The step from the version before: default colour, no offsets.
    explicit BonePhysicConfigurationV1(const BonePhysicConfigurationV0& old);
    BonePhysicConfigurationV1& operator=(const BonePhysicConfigurationV0& old);

    /// 1 for a number that is no shape.
    float getVolume() const;
    float getMass() const;
    /// 0 for a mass without volume.
    float getDensity() const;

    /// Exact but for the offsets, which may differ by 0.001 a component, an orientation also from the
    /// negative. Does not look at the colour, nor at dimensions that are computed anyway.
    bool operator==(const BonePhysicConfigurationV1& other) const;
    bool operator!=(const BonePhysicConfigurationV1& other) const { return !(*this == other); }

    /// Takes the offsets over from world transforms of bone and body.
    void setLocalOffsetFromWordTransforms(const Quaternion& restOrientation, const Vector3& bonePosition,
                                          const Quaternion& boneOrientation, const Vector3& bodyPosition,
                                          const Quaternion& bodyOrientation);
    /// The inverse of that. The rest orientation comes in as its conjugate (x, y, z, -w).
    void getRigidBodyWordTransformsFromPosture(Vector3& bodyPosition, Quaternion& bodyOrientation,
                                               const Quaternion& inverseRestOrientation,
                                               const Vector3& bonePosition,
                                               const Quaternion& boneOrientation) const;

    uint32_t _colorABGR = 0x808080;
    bool _inUse = true;               ///< the bone has a body
    bool _automaticDimensions = true; ///< the half extents are computed from the skeleton
    Vector3 _halfExtents = Vector3(1.0f);
    bool _useMassInsteadOfBodyDensity = false;
    float _bodyDensity = 985.0f; ///< the mass if the flag above is set
    int32_t _bodyShape = RagdollRigidBodyShape::CAPSULE;
    Quaternion _localOrientationOffset = Quaternion::getIdentity();
    Vector3 _localPositionOffset;
    float _restitution = 0.1f;
    float _friction = 0.8f;
    float _linearDamping = 0.5f;
    float _angularDamping = 0.85f;
    float _deactivationTime = 0.05f;
    float _linearSleepingThreshold = 1.6f;
    float _angularSleepingThreshold = 2.5f;
    Vector3 _jointAngularLowerLimit; ///< per axis, in degrees
    Vector3 _jointAngularUpperLimit;
    float _linearConstraintForceMixing = 0.2f;
    float _angularConstraintForceMixing = 0.2f;
    float _linearErrorReductionParameter = 0.4f;
    float _angularErrorReductionParameter = 0.2f;
};

} // namespace mrv
