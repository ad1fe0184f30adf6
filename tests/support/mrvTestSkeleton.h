// tests/support/mrvTestSkeleton.h
// Small skeletons from a table of text.
#pragma once

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"

#include <string>

namespace mrv::test {

/// Replaces the bones of a description by those of a table with one bone a line: its name, its father's name
/// ("-" for none) and its local position (x y z), which may be left out for a null one.
///
/// Specific indices are the places in the table; a father may stand behind its children. The root is the
/// first bone without a father. Orientations are identities, and initSortedBones() has been called.
void fillSkeleton(HierarchicalSkeletonDescriptionV1& description, const char* table);

/// The first bone of that name; one that is not there fails the running test and gives null.
HierarchicalBoneV1* findBone(const HierarchicalSkeletonDescriptionV1& description, const std::string& name);

/// The names of bones, each with a blank behind it, in the order of the set.
std::string namesOf(const MrvSet<const HierarchicalBoneV1*>& bones);

/// The same for each set, with "| " behind the set.
std::string namesOf(const Array<MrvSet<const HierarchicalBoneV1*>>& sets);

} // namespace mrv::test
