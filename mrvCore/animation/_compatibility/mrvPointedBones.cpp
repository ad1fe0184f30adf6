// mrvCore/animation/_compatibility/mrvPointedBones.cpp
#include "mrvCore/animation/_compatibility/mrvPointedBones.h"

#include "mrvCore/animation/_compatibility/mrvHierarchicalSkeletonDescriptionV0.h"
#include "mrvCore/animation/_compatibility/mrvLinkedBones.h"

namespace mrv::internal {

PointedBones::~PointedBones()
{
    LinkedBones bones;
    bones.add(_pelvisBone);
    for (const Array<GenericSpecificConverterBoneV0>* parts : { &_spineBones, &_limbBones, &_effectorBones })
    {
        for (const GenericSpecificConverterBoneV0& part : *parts)
        {
            for (const unsigned int chain : { 0u, 1u })
            {
                bones.add(part._firstBoneOfChain[chain]);
                bones.add(part._lastBoneOfChain[chain]);
            }
        }
    }
    for (const HierarchicalBoneV0* bone : _ikExcludedBones)
        bones.add(bone);
    if (_skeletonDescription != nullptr)
        bones.takeFrom(*_skeletonDescription);
    delete _skeletonDescription;
    bones.deleteAll();
}

} // namespace mrv::internal
