// mrvCore/animation/mrvBoneChain.h
// Rows of bones from father to child. Internal to the animation folder.
#pragma once

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/system/containers/mrvPODArray.h"

#include <cstddef>

namespace mrv::internal {

/// From the bone nearest to the root on downwards; positions count the depth.
using BoneChain = PODArray<const HierarchicalBoneV1*>;

/// Both ends included; empty if `first` is not on the way up from `last`.
BoneChain getChain(const HierarchicalBoneV1* first, const HierarchicalBoneV1* last);

Vector3 getMidpoint(const HierarchicalBoneV1& a, const HierarchicalBoneV1& b);

/// The position in [begin, end) whose bone is nearest to the point, the first of equally near ones; `begin`
/// if the range is empty.
size_t findNearest(const BoneChain& chain, size_t begin, size_t end, const Vector3& point);

} // namespace mrv::internal
