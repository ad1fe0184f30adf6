// mrvCore/animation/_compatibility/mrvBonePhysicConfigurationV0.cpp
#include "mrvCore/animation/_compatibility/mrvBonePhysicConfigurationV0.h"

#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(BonePhysicConfigurationV0, "mrv::BonePhysicConfigurationV0",
                            "c08ffbba-a551-4052-b795-4122adc81f85")

void BonePhysicConfigurationV0::addAttributes()
{
    using V0 = BonePhysicConfigurationV0;
    addAttribute<bool>("inUse", &V0::_inUse);
    addAttribute<bool>("automaticDimensions", &V0::_automaticDimensions);
    addAttribute<Vector3>("halfExtents", &V0::_halfExtents);
    addAttribute<bool>("useMassInsteadOfBodyDensity", &V0::_useMassInsteadOfBodyDensity);
    addAttribute<float>("bodyDensity", &V0::_bodyDensity);
    addAttribute<int>("bodyShape", &V0::_bodyShape);
    addAttribute<float>("restitution", &V0::_restitution);
    addAttribute<float>("friction", &V0::_friction);
    addAttribute<float>("linearDamping", &V0::_linearDamping);
    addAttribute<float>("angularDamping", &V0::_angularDamping);
    addAttribute<float>("deactivationTime", &V0::_deactivationTime);
    addAttribute<float>("linearSleepingThreshold", &V0::_linearSleepingThreshold);
    addAttribute<float>("angularSleepingThreshold", &V0::_angularSleepingThreshold);
    addAttribute<Vector3>("_jointAngularLowerLimit", &V0::_jointAngularLowerLimit);
    addAttribute<Vector3>("_jointAngularUpperLimit", &V0::_jointAngularUpperLimit);
    addAttribute<float>("_linearConstraintForceMixing", &V0::_linearConstraintForceMixing);
    addAttribute<float>("_angularConstraintForceMixing", &V0::_angularConstraintForceMixing);
    addAttribute<float>("_linearErrorReductionParameter", &V0::_linearErrorReductionParameter);
    addAttribute<float>("_angularErrorReductionParameter", &V0::_angularErrorReductionParameter);
}

bool BonePhysicConfigurationV0::operator==(const BonePhysicConfigurationV0& other) const
{
    return BonePhysicConfigurationV1(*this) == BonePhysicConfigurationV1(other);
}

BonePhysicConfigurationV1::BonePhysicConfigurationV1(const BonePhysicConfigurationV0& old)
    : _inUse(old._inUse)
    , _automaticDimensions(old._automaticDimensions)
    , _halfExtents(old._halfExtents)
    , _useMassInsteadOfBodyDensity(old._useMassInsteadOfBodyDensity)
    , _bodyDensity(old._bodyDensity)
    , _bodyShape(old._bodyShape)
    , _restitution(old._restitution)
    , _friction(old._friction)
    , _linearDamping(old._linearDamping)
    , _angularDamping(old._angularDamping)
    , _deactivationTime(old._deactivationTime)
    , _linearSleepingThreshold(old._linearSleepingThreshold)
    , _angularSleepingThreshold(old._angularSleepingThreshold)
    , _jointAngularLowerLimit(old._jointAngularLowerLimit)
    , _jointAngularUpperLimit(old._jointAngularUpperLimit)
    , _linearConstraintForceMixing(old._linearConstraintForceMixing)
    , _angularConstraintForceMixing(old._angularConstraintForceMixing)
    , _linearErrorReductionParameter(old._linearErrorReductionParameter)
    , _angularErrorReductionParameter(old._angularErrorReductionParameter)
{}

BonePhysicConfigurationV1& BonePhysicConfigurationV1::operator=(const BonePhysicConfigurationV0& old)
{
    return *this = BonePhysicConfigurationV1(old);
}

} // namespace mrv
