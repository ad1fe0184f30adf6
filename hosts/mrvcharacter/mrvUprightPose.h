// hosts/mrvcharacter/mrvUprightPose.h
// The bind pose of a character standing upright, whatever its own axes are.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"

#include <vector>

namespace mrv {
class GenericSpecificConverterMappingV8;
}

namespace mrvcharacter {

/// World positions of the bones by specific index, with Z up and the front towards X.
std::vector<mrv::Vector3> getUprightPose(const mrv::GenericSpecificConverterMappingV8& mapping);

} // namespace mrvcharacter
