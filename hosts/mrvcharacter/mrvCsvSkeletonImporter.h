// hosts/mrvcharacter/mrvCsvSkeletonImporter.h
// Rigs as tables of comma-separated values.
#pragma once

#include <string>

namespace mrvcharacter {

struct ImportedSkeleton;

/// Reads a table of one joint a row, under the heading "index,name,parent,px,py,pz,qx,qy,qz,qw".
///
/// Index: the number of the row, from 0. Parent: an earlier index, -1 for a root; position and quaternion are
/// relative to it. Z is up. Names have no quotes and no commas. Empty lines at the end do not count.
/// False, with a `failure` that names the line, for anything else.
bool readCsvSkeleton(const std::string& file, ImportedSkeleton& skeleton, std::string& failure);

} // namespace mrvcharacter
