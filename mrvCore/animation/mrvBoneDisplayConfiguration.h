// mrvCore/animation/mrvBoneDisplayConfiguration.h
// The shape that shows a bone in an editor.
#pragma once

#include "mrvCore/animation/mrvRagdollRigidBodyShape.h"
#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// Sizes and offsets have the meaning of those in BonePhysicConfigurationV1. Held in arrays by specific bone
/// index.
class MRV_CORE_API BoneDisplayConfigurationV0
{
public:
    MRV_PERSISTENT_CLASS(BoneDisplayConfigurationV0)

    /// Takes the offsets over from world transforms of bone and shape.
    void setLocalOffsetFromWordTransforms(const Quaternion& restOrientation, const Vector3& bonePosition,
                                          const Quaternion& boneOrientation, const Vector3& bodyPosition,
                                          const Quaternion& bodyOrientation);
    /// The inverse of that. The rest orientation comes in as its conjugate (x, y, z, -w).
    void getShapeWordTransformsFromPosture(Vector3& bodyPosition, Quaternion& bodyOrientation,
                                           const Quaternion& inverseRestOrientation,
                                           const Vector3& bonePosition,
                                           const Quaternion& boneOrientation) const;

    int getShapeAsInt() const { return _shape; }
    /// Not checked: files keep the numbers of shapes that this version does not know.
    void setShapeFromInt(int shape) { _shape = static_cast<RagdollRigidBodyShape::Value>(shape); }

    uint32_t _colorABGR = 0x808080;
    bool _enabled = true; ///< the shape is drawn
    Vector3 _scale = Vector3(1.0f);
    Vector3 _halfExtents = Vector3(0.1f);
    RagdollRigidBodyShape::Value _shape = RagdollRigidBodyShape::CYLINDER;
    Quaternion _localOrientationOffset = Quaternion::getIdentity();
    Vector3 _localPositionOffset;
};

} // namespace mrv
