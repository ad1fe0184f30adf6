// hosts/mrvcharacter/mrvUprightPose.h
// A pose of a character standing upright, whatever its own axes are.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"

#include <vector>

namespace mrv {
class GenericSpecificConverterMappingV8;
class SpecificPosture;
} // namespace mrv

namespace mrvcharacter {

/// World positions of the bones by specific index, with Z up and the front towards X: in the bind pose, or in
/// a posture.
std::vector<mrv::Vector3> getUprightPose(const mrv::GenericSpecificConverterMappingV8& mapping);
std::vector<mrv::Vector3> getUprightPose(const mrv::GenericSpecificConverterMappingV8& mapping,
                                         const mrv::SpecificPosture& posture);

} // namespace mrvcharacter
