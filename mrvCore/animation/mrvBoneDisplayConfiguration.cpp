// mrvCore/animation/mrvBoneDisplayConfiguration.cpp
#include "mrvCore/animation/mrvBoneDisplayConfiguration.h"

#include "mrvCore/animation/mrvBoneBody.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(BoneDisplayConfigurationV0, "mrv::BoneDisplayConfigurationV0",
                            "67ff76a6-ebc9-48bb-a621-69ce9dc6a13b")

void BoneDisplayConfigurationV0::addAttributes()
{
    using Record = BoneDisplayConfigurationV0;
    addAttribute<uint32_t>("color", &Record::_colorABGR);
    addAttribute<bool>("enabled", &Record::_enabled);
    addAttribute<Vector3>("scale", &Record::_scale);
    addAttribute<Vector3>("halfExtents", &Record::_halfExtents);
    addAccessorsAttribute<int>("shape", &Record::getShapeAsInt, &Record::setShapeFromInt);
    addAttribute<Quaternion>("localOrientationOffset", &Record::_localOrientationOffset);
    addAttribute<Vector3>("localPositionOffset", &Record::_localPositionOffset);
}

void BoneDisplayConfigurationV0::setLocalOffsetFromWordTransforms(const Quaternion& restOrientation,
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

void BoneDisplayConfigurationV0::getShapeWordTransformsFromPosture(Vector3& bodyPosition,
                                                                   Quaternion& bodyOrientation,
                                                                   const Quaternion& inverseRestOrientation,
                                                                   const Vector3& bonePosition,
                                                                   const Quaternion& boneOrientation) const
{
    const internal::BodyTransform body =
        internal::getBodyTransform({ _localPositionOffset, _localOrientationOffset }, _halfExtents.z,
                                   inverseRestOrientation, { bonePosition, boneOrientation });
    bodyPosition = body.position;
    bodyOrientation = body.orientation;
}

} // namespace mrv
