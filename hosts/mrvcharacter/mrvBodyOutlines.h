// hosts/mrvcharacter/mrvBodyOutlines.h
// The rigid bodies of a ragdoll as they look from one side.
#pragma once

#include "mrvCore/math/rotations/mrvQuaternion.h"

#include <vector>

namespace mrv {
class GenericSpecificConverterMappingV8;
class SpecificPosture;
} // namespace mrv

namespace mrvcharacter {

/// The body of one bone, with Z up and the front towards X.
struct PlacedBody
{
    int bone; ///< specific index
    int shape;
    mrv::Vector3 halfExtents;
    mrv::Vector3 position; ///< of the centre
    mrv::Quaternion orientation;
};

/// The bodies in use, in a posture. A body without offsets of its own lies along its bone.
std::vector<PlacedBody> placeBodies(const mrv::GenericSpecificConverterMappingV8& mapping,
                                    const mrv::SpecificPosture& posture);

/// Points whose convex hull is the outline of a body, seen along the cross product of the two directions.
std::vector<mrv::Vector3> getOutlinePoints(const PlacedBody& body, const mrv::Vector3& right,
                                           const mrv::Vector3& up);

} // namespace mrvcharacter
