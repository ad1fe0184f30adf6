// mrvCore/animation/mrvBoneBody.cpp
#include "mrvCore/animation/mrvBoneBody.h"

namespace mrv::internal {

BodyTransform getBodyTransform(const BodyTransform& offset, float halfLength,
                               const Quaternion& inverseRestOrientation, const BodyTransform& bone)
{
    const Quaternion turn = bone.orientation * inverseRestOrientation;
    Vector3 centre = offset.position;
    centre.z += halfLength;
    return { bone.position + turn * centre, turn * offset.orientation };
}

BodyTransform getBodyOffset(const BodyTransform& body, float halfLength, const Quaternion& restOrientation,
                            const BodyTransform& bone)
{
    const Quaternion turn = bone.orientation * restOrientation.computeConjugate();
    BodyTransform offset;
    offset.orientation = (restOrientation * bone.orientation.computeConjugate()) * body.orientation;
    offset.position = turn.computeConjugate() * (body.position - bone.position);
    offset.position.z -= halfLength;
    return offset;
}

} // namespace mrv::internal
