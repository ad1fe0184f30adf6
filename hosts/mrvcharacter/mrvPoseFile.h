// hosts/mrvcharacter/mrvPoseFile.h
// Poses as tables of comma-separated values.
#pragma once

#include <string>

namespace mrv {
class HierarchicalSkeletonDescriptionV1;
class SpecificPosture;
} // namespace mrv

namespace mrvcharacter {

/// The bind pose.
void initBindPose(const mrv::HierarchicalSkeletonDescriptionV1& skeleton, mrv::SpecificPosture& posture);

/// Reads a table of one bone a row, under the heading "bone,qx,qy,qz,qw": its name, or its index where no
/// bone has such a name, and its orientation relative to that of the bind pose. Bones that are not listed
/// stay as they are in it. False, with a `failure` that names the line, for anything else.
bool readPose(const std::string& file, const mrv::HierarchicalSkeletonDescriptionV1& skeleton,
              mrv::SpecificPosture& posture, std::string& failure);

} // namespace mrvcharacter
