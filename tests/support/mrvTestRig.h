// tests/support/mrvTestRig.h
// Whole rigs from a table of text, and mappings as text.
#pragma once

#include <string>

namespace mrv {
class GenericSpecificConverterMappingV8;
}

namespace mrv::test {

/// Starts the mapping with the skeleton of a table with one bone a line: its name, its father's name ("-" for
/// none) and its position in the world. X is the front, Y the left side, Z up.
///
/// A name that ends in "*" stands for two bones, on the right ("R", with y turned round) and then on the left
/// ("L"); so does a father's. With an `order` other than 0 the bones stand in another order in the skeleton's
/// list, the same for the same number.
void fillRig(GenericSpecificConverterMappingV8& mapping, const std::string& table, unsigned int order = 0);

/// Everything that automatic mapping writes, one part a line, bones and mirrors by name:
///     pelvis BONE
///     spine CHAIN LOCATIONS PLANES ~MIRROR
///     limb NAME TYPE CHAIN LOCATIONS PLANES ~MIRROR [EFFECTORS' SOURCES] rolls at BONE
///     effector NAME TYPE CHAIN LOCATIONS
///     excluded BONES
/// A chain is first>last, first>joint>last with an auxiliary chain. Locations are the first letters of the
/// three, "-" for an unknown one. Planes are those that are not null, "aux" or "ext" and an axis.
std::string describe(const GenericSpecificConverterMappingV8& mapping);

} // namespace mrv::test
