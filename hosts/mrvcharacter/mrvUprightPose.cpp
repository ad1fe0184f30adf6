// hosts/mrvcharacter/mrvUprightPose.cpp
#include "hosts/mrvcharacter/mrvUprightPose.h"

#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"

namespace mrvcharacter {

std::vector<mrv::Vector3> getUprightPose(const mrv::GenericSpecificConverterMappingV8& mapping)
{
    std::vector<mrv::Vector3> positions;
    if (mapping.getSkeletonDescription() == nullptr)
        return positions;
    for (const mrv::HierarchicalBoneV1* bone : mapping.getSkeletonDescription()->getBones())
        positions.push_back(mapping.getOrientationToZUpXFront() * bone->getWorldPosUnscaled());
    return positions;
}

} // namespace mrvcharacter
