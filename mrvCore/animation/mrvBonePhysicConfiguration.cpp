// mrvCore/animation/mrvBonePhysicConfiguration.cpp
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"

#include "mrvCore/animation/mrvBoneBody.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <cmath>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(BonePhysicConfigurationV1, "mrv::BonePhysicConfigurationV1",
                            "de6f6c55-e703-4602-9288-f3ceeb51c44f")

// This list is the file format. The last six names begin with an underscore in the files.
void BonePhysicConfigurationV1::addAttributes()
{
    using Record = BonePhysicConfigurationV1;
    addAttribute<uint32_t>("color", &Record::_colorABGR);
    addAttribute<bool>("inUse", &Record::_inUse);
    addAttribute<bool>("automaticDimensions", &Record::_automaticDimensions);
    addAttribute<Vector3>("halfExtents", &Record::_halfExtents);
    addAttribute<bool>("useMassInsteadOfBodyDensity", &Record::_useMassInsteadOfBodyDensity);
    addAttribute<float>("bodyDensity", &Record::_bodyDensity);
    addAttribute<int32_t>("bodyShape", &Record::_bodyShape);
    addAttribute<Quaternion>("localOrientationOffset", &Record::_localOrientationOffset);
    addAttribute<Vector3>("localPositionOffset", &Record::_localPositionOffset);
    addAttribute<float>("restitution", &Record::_restitution);
    addAttribute<float>("friction", &Record::_friction);
    addAttribute<float>("linearDamping", &Record::_linearDamping);
    addAttribute<float>("angularDamping", &Record::_angularDamping);
    addAttribute<float>("deactivationTime", &Record::_deactivationTime);
    addAttribute<float>("linearSleepingThreshold", &Record::_linearSleepingThreshold);
    addAttribute<float>("angularSleepingThreshold", &Record::_angularSleepingThreshold);
    addAttribute<Vector3>("_jointAngularLowerLimit", &Record::_jointAngularLowerLimit);
    addAttribute<Vector3>("_jointAngularUpperLimit", &Record::_jointAngularUpperLimit);
    addAttribute<float>("_linearConstraintForceMixing", &Record::_linearConstraintForceMixing);
    addAttribute<float>("_angularConstraintForceMixing", &Record::_angularConstraintForceMixing);
    addAttribute<float>("_linearErrorReductionParameter", &Record::_linearErrorReductionParameter);
    addAttribute<float>("_angularErrorReductionParameter", &Record::_angularErrorReductionParameter);
}

namespace {

// What two equal records agree in to the bit.
constexpr float BonePhysicConfigurationV1::*exactFloats[] = {
    &BonePhysicConfigurationV1::_bodyDensity,
    &BonePhysicConfigurationV1::_restitution,
    &BonePhysicConfigurationV1::_friction,
    &BonePhysicConfigurationV1::_linearDamping,
    &BonePhysicConfigurationV1::_angularDamping,
    &BonePhysicConfigurationV1::_deactivationTime,
    &BonePhysicConfigurationV1::_linearSleepingThreshold,
    &BonePhysicConfigurationV1::_angularSleepingThreshold,
    &BonePhysicConfigurationV1::_linearConstraintForceMixing,
    &BonePhysicConfigurationV1::_angularConstraintForceMixing,
    &BonePhysicConfigurationV1::_linearErrorReductionParameter,
    &BonePhysicConfigurationV1::_angularErrorReductionParameter,
};

bool areNear(float a, float b)
{
    constexpr float tolerance = 0.001f;
    return std::abs(a - b) <= tolerance;
}

bool areNear(const Vector3& a, const Vector3& b)
{
    return areNear(a.x, b.x) && areNear(a.y, b.y) && areNear(a.z, b.z);
}

bool areNear(const Quaternion& a, const Quaternion& b)
{
    return areNear(a.x, b.x) && areNear(a.y, b.y) && areNear(a.z, b.z) && areNear(a.w, b.w);
}

} // namespace

float BonePhysicConfigurationV1::getVolume() const
{
    constexpr float pi = 3.1415927f;
    constexpr float volumeOfUnitSphere = 4.1887903f;
    const float radius = _halfExtents.x;
    const float halfLength = _halfExtents.z;
    const float sphere = volumeOfUnitSphere * radius * radius * radius;
    const float cylinder = halfLength * (2.0f * pi * radius * radius);
    switch (_bodyShape)
    {
    case RagdollRigidBodyShape::CAPSULE:
        return sphere + cylinder;
    case RagdollRigidBodyShape::CYLINDER:
        return cylinder;
    case RagdollRigidBodyShape::BOX:
        return 8.0f * _halfExtents.x * _halfExtents.y * _halfExtents.z;
    case RagdollRigidBodyShape::SPHERE:
        return sphere;
    default:
        return 1.0f;
    }
}

float BonePhysicConfigurationV1::getMass() const
{
    return _useMassInsteadOfBodyDensity ? _bodyDensity : getVolume() * _bodyDensity;
}

float BonePhysicConfigurationV1::getDensity() const
{
    constexpr float smallestVolume = 1e-5f;
    if (!_useMassInsteadOfBodyDensity)
        return _bodyDensity;
    const float volume = getVolume();
    return volume > smallestVolume ? _bodyDensity / volume : 0.0f;
}

bool BonePhysicConfigurationV1::operator==(const BonePhysicConfigurationV1& other) const
{
    for (float BonePhysicConfigurationV1::*const member : exactFloats)
        if (this->*member != other.*member)
            return false;
    return _inUse == other._inUse && _automaticDimensions == other._automaticDimensions &&
           _useMassInsteadOfBodyDensity == other._useMassInsteadOfBodyDensity &&
           _bodyShape == other._bodyShape && _jointAngularLowerLimit == other._jointAngularLowerLimit &&
           _jointAngularUpperLimit == other._jointAngularUpperLimit &&
           (_automaticDimensions || _halfExtents == other._halfExtents) &&
           areNear(_localPositionOffset, other._localPositionOffset) &&
           (areNear(_localOrientationOffset, other._localOrientationOffset) ||
            areNear(_localOrientationOffset, -other._localOrientationOffset));
}

void BonePhysicConfigurationV1::setLocalOffsetFromWordTransforms(const Quaternion& restOrientation,
                                                                 const Vector3& bonePosition,
                                                                 const Quaternion& boneOrientation,
                                                                 const Vector3& bodyPosition,
                                                                 const Quaternion& bodyOrientation)
{
    const internal::BodyTransform offset =
        internal::getBodyOffset({ bodyPosition, bodyOrientation }, _halfExtents.z, restOrientation,
                                { bonePosition, boneOrientation });
    _localPositionOffset = offset.position;
    _localOrientationOffset = offset.orientation;
}

void BonePhysicConfigurationV1::getRigidBodyWordTransformsFromPosture(
    Vector3& bodyPosition, Quaternion& bodyOrientation, const Quaternion& inverseRestOrientation,
    const Vector3& bonePosition, const Quaternion& boneOrientation) const
{
    const internal::BodyTransform body =
        internal::getBodyTransform({ _localPositionOffset, _localOrientationOffset }, _halfExtents.z,
                                   inverseRestOrientation, { bonePosition, boneOrientation });
    bodyPosition = body.position;
    bodyOrientation = body.orientation;
}

} // namespace mrv
