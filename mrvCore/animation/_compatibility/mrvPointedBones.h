// mrvCore/animation/_compatibility/mrvPointedBones.h
// The skeleton of the mappings up to version 4, and what they point at in it.
#pragma once

#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterBoneV0.h"
#include "mrvCore/system/containers/mrvArray.h"

namespace mrv {

class HierarchicalBoneV0;
class HierarchicalSkeletonDescriptionV0;

namespace internal {

/// Owns the skeleton. What points at its bones owns nothing; but a damaged file may tell bones outside of it,
/// or without it, and those go with the mapping, since nothing else has them.
class MRV_CORE_API PointedBones
{
public:
    PointedBones() = default;
    PointedBones(const PointedBones&) = delete;
    PointedBones& operator=(const PointedBones&) = delete;
    ~PointedBones();

    HierarchicalSkeletonDescriptionV0* _skeletonDescription = nullptr; ///< null where a file has none
    const HierarchicalBoneV0* _pelvisBone = nullptr;
    Array<GenericSpecificConverterBoneV0> _spineBones;
    Array<GenericSpecificConverterBoneV0> _limbBones;
    Array<GenericSpecificConverterBoneV0> _effectorBones;
    Array<const HierarchicalBoneV0*> _ikExcludedBones;
};

} // namespace internal
} // namespace mrv
