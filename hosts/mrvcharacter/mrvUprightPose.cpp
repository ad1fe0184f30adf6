// hosts/mrvcharacter/mrvUprightPose.cpp
#include "hosts/mrvcharacter/mrvUprightPose.h"

#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvSpecificPosture.h"

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

std::vector<mrv::Vector3> getUprightPose(const mrv::GenericSpecificConverterMappingV8& mapping,
                                         const mrv::SpecificPosture& posture)
{
    std::vector<mrv::Vector3> positions;
    for (const mrv::Vector3& position : posture.getWorldPositions())
        positions.push_back(mapping.getOrientationToZUpXFront() * position);
    return positions;
}

} // namespace mrvcharacter
