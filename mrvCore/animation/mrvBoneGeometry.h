// mrvCore/animation/mrvBoneGeometry.h
// Where branches and chains of bones lie in the bind pose.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class HierarchicalBoneV1;
class Vector3;

/// The extent of a branch along three axes of any length: mean, least and greatest dot product of the world
/// positions of all its bones with each axis.
MRV_CORE_API void getPlanesValuesOnHierarchy(float& averageA, float& minA, float& maxA, float& averageB,
                                             float& minB, float& maxB, float& averageC, float& minC,
                                             float& maxC, const HierarchicalBoneV1* bone,
                                             const Vector3& axisA, const Vector3& axisB,
                                             const Vector3& axisC);

/// The bone nearest to the midpoint of the two, on the way from `last` up to below `first`; of equally near
/// ones that nearer to `last`. Null if they are the same bone.
MRV_CORE_API const HierarchicalBoneV1* findGeometricMiddleBone(const HierarchicalBoneV1* first,
                                                               const HierarchicalBoneV1* last);

/// Where the part of the body that goes from `first` down to `last` really ends: a row of finger bones past
/// the wrist is not the arm. The end is the bone nearest to the point twice as far from `first` as the bone
/// in the middle. `last` if there is no better one, and where it does not hang below `first`.
MRV_CORE_API const HierarchicalBoneV1* trimEndOfChainFromGeometricMiddle(const HierarchicalBoneV1* first,
                                                                         const HierarchicalBoneV1* last);

} // namespace mrv
