// hosts/mrvcharacter/mrvPointTable.h
// Tables of points of the plane or of space.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"

#include <string>
#include <vector>

namespace mrvcharacter {

/// Reads lines "x,y"; the first may be a heading, which is one that begins with no number. Blanks around a
/// number and empty lines at the end are let pass. False with a `failure` for the user: also for a number
/// that is not finite or too large for a float.
bool readPointTable(const std::string& file, std::vector<mrv::Vector2>& points, std::string& failure);
/// The same for lines "x,y,z".
bool readPointTable(const std::string& file, std::vector<mrv::Vector3>& points, std::string& failure);

} // namespace mrvcharacter
