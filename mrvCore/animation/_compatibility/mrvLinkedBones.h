// mrvCore/animation/_compatibility/mrvLinkedBones.h
// Bones of version 0 that are deleted together, whatever their links are.
#pragma once

#include "mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.h"
#include "mrvCore/animation/_compatibility/mrvHierarchicalSkeletonDescriptionV0.h"

#include <unordered_set>
#include <vector>

namespace mrv::internal {

/// Each bone once; nulls are passed over.
class LinkedBones
{
public:
    void add(const HierarchicalBoneV0* bone)
    {
        if (bone != nullptr && _known.insert(bone).second)
            _bones.push_back(bone);
    }
    /// The skeleton has no bones afterwards.
    void takeFrom(HierarchicalSkeletonDescriptionV0& skeleton)
    {
        add(skeleton._rootBone);
        skeleton._rootBone = nullptr;
        for (const HierarchicalBoneV0* bone : skeleton._bones)
            add(bone);
        skeleton._bones.clear();
    }
    /// Deletes the bones and all that are linked to them.
    void deleteAll()
    {
        size_t next = 0;
        while (next < _bones.size())
        {
            const HierarchicalBoneV0& bone = *_bones[next++];
            add(bone._father);
            for (const HierarchicalBoneV0* child : bone._children)
                add(child);
        }
        for (const HierarchicalBoneV0* bone : _bones)
            delete bone;
    }

private:
    std::vector<const HierarchicalBoneV0*> _bones;
    std::unordered_set<const HierarchicalBoneV0*> _known;
};

} // namespace mrv::internal
