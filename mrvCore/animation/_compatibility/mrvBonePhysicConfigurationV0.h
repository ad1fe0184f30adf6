// mrvCore/animation/_compatibility/mrvBonePhysicConfigurationV0.h
// The rigid body of a bone in version 0, as files hold it.
#pragma once

#include "mrvCore/animation/mrvRagdollRigidBodyShape.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// A body without colour and without a place of its own. Its linear damping began at another value.
class MRV_CORE_API BonePhysicConfigurationV0
{
public:
    MRV_PERSISTENT_CLASS(BonePhysicConfigurationV0)

    /// As in the next version.
    bool operator==(const BonePhysicConfigurationV0& other) const;

    bool _inUse = true;
    bool _automaticDimensions = true;
    Vector3 _halfExtents = Vector3(1.0f);
    bool _useMassInsteadOfBodyDensity = false;
    float _bodyDensity = 985.0f;
    int _bodyShape = RagdollRigidBodyShape::CAPSULE;
    float _restitution = 0.1f;
    float _friction = 0.8f;
    float _linearDamping = 0.05f;
    float _angularDamping = 0.85f;
    float _deactivationTime = 0.05f;
    float _linearSleepingThreshold = 1.6f;
    float _angularSleepingThreshold = 2.5f;
    Vector3 _jointAngularLowerLimit;
    Vector3 _jointAngularUpperLimit;
    float _linearConstraintForceMixing = 0.2f;
    float _angularConstraintForceMixing = 0.2f;
    float _linearErrorReductionParameter = 0.4f;
    float _angularErrorReductionParameter = 0.2f;
};

} // namespace mrv
