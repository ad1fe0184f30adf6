// mrvCore/animation/_compatibility/mrvBoneSteps.h
// From bones that are told by pointers, as in the mappings up to version 4, to indices, for stepUp().
#pragma once

#include "mrvCore/animation/_compatibility/mrvBonePhysicConfigurationV0.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterBoneV0.h"
#include "mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.h"
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/animation/mrvGenericSpecificConverterBone.h"
#include "mrvCore/assetManagement/_compatibility/mrvStepUp.h"
#include "mrvCore/system/containers/mrvPODArray.h"

namespace mrv {

class HierarchicalSkeletonDescriptionV0;
class HierarchicalSkeletonDescriptionV1;

MRV_STEP_UP_BY_CONSTRUCTOR(GenericSpecificConverterBoneV1, GenericSpecificConverterBoneV0)
MRV_STEP_UP_BY_CONSTRUCTOR(BonePhysicConfigurationV1, BonePhysicConfigurationV0)

/// Null is no bone.
inline void stepUp(int& to, const HierarchicalBoneV0* from)
{
    to = from != nullptr ? from->_specificBoneIndex : -1;
}

/// Nulls are left out.
inline void stepUp(PODArray<int>& to, const Array<const HierarchicalBoneV0*>& from)
{
    to.clear();
    for (const HierarchicalBoneV0* bone : from)
        if (bone != nullptr)
            to.push_back(bone->_specificBoneIndex);
}

/// Makes a skeleton of its own, of nothing where there is none.
void stepUp(HierarchicalSkeletonDescriptionV1*& to, const HierarchicalSkeletonDescriptionV0* from);

} // namespace mrv
