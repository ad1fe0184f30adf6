// hosts/mrvcharacter/mrvMappingTable.h
// The parts of a body for people to read.
#pragma once

#include <iosfwd>

namespace mrv {
class GenericSpecificConverterMappingV8;
}

namespace mrvcharacter {

/// Prints a table of the pelvis, the spines, and each limb with its effectors below it, and then the bones
/// that IK leaves out.
void printMapping(const mrv::GenericSpecificConverterMappingV8& mapping, std::ostream& stream);

} // namespace mrvcharacter
