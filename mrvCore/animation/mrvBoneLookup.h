// mrvCore/animation/mrvBoneLookup.h
// Reaching bones by indices that a file gave. Internal to the animation folder.
#pragma once

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/system/containers/mrvPODArray.h"

#include <cstddef>

namespace mrv::internal {

/// The bones of a description; none without one.
inline const PODArray<HierarchicalBoneV1*>& bonesOf(const HierarchicalSkeletonDescriptionV1* description)
{
    static const PODArray<HierarchicalBoneV1*> none;
    return description != nullptr ? description->getBones() : none;
}

/// The bone at a position, null for a position that is none.
inline const HierarchicalBoneV1* boneAt(const PODArray<HierarchicalBoneV1*>& bones, int index)
{
    return index >= 0 && static_cast<size_t>(index) < bones.size() ? bones[static_cast<size_t>(index)]
                                                                   : nullptr;
}

/// The name of a bone, empty for none.
inline const MrvString& nameOf(const HierarchicalBoneV1* bone)
{
    static const MrvString none;
    return bone != nullptr ? bone->getName() : none;
}

/// The first bone, from `bone` on up through its fathers, that `isWanted` accepts; null if the way ends.
/// It ends after `boneCount` bones too: damaged fathers may form a ring.
template <class IsWanted>
const HierarchicalBoneV1* findUpwards(const HierarchicalBoneV1* bone, size_t boneCount, IsWanted isWanted)
{
    for (size_t left = boneCount; bone != nullptr && left > 0; --left, bone = bone->getFather())
    {
        if (isWanted(*bone))
            return bone;
    }
    return nullptr;
}

} // namespace mrv::internal
