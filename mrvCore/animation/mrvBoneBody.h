// mrvCore/animation/mrvBoneBody.h
// Where the body or shape of a bone is, given its offsets. Internal.
#pragma once

#include "mrvCore/math/rotations/mrvQuaternion.h"

namespace mrv::internal {

struct BodyTransform
{
    Vector3 position;
    Quaternion orientation;
};

/// World transform of a body. `offset` is relative to the bone, without the half length by which the body's
/// centre lies along local Z. `inverseRestOrientation` is the conjugate (x, y, z, -w) of the rest
/// orientation.
BodyTransform getBodyTransform(const BodyTransform& offset, float halfLength,
                               const Quaternion& inverseRestOrientation, const BodyTransform& bone);

/// The inverse: the offset that puts the body at `body`.
BodyTransform getBodyOffset(const BodyTransform& body, float halfLength, const Quaternion& restOrientation,
                            const BodyTransform& bone);

} // namespace mrv::internal
