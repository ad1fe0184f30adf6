// mrvCore/animation/_compatibility/mrvHierarchicalSkeletonDescriptionV0.h
// A skeleton of version 0, as files hold it.
#pragma once

#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class HierarchicalBoneV0;

/// Owns its bones, and those that are linked to them: a file that is cut off may tell a tree of bones without
/// telling the list.
class MRV_CORE_API HierarchicalSkeletonDescriptionV0
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(HierarchicalSkeletonDescriptionV0)

    HierarchicalSkeletonDescriptionV0() = default;
    HierarchicalSkeletonDescriptionV0(const HierarchicalSkeletonDescriptionV0&) = delete;
    HierarchicalSkeletonDescriptionV0& operator=(const HierarchicalSkeletonDescriptionV0&) = delete;
    virtual ~HierarchicalSkeletonDescriptionV0();

    MrvString _name;
    HierarchicalBoneV0* _rootBone = nullptr;
    Array<HierarchicalBoneV0*> _bones;
};

} // namespace mrv
