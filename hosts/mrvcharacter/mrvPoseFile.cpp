// hosts/mrvcharacter/mrvPoseFile.cpp
#include "hosts/mrvcharacter/mrvPoseFile.h"

#include "hosts/mrvcharacter/mrvCsvCells.h"

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvSpecificPosture.h"

#include <string_view>
#include <vector>

namespace mrvcharacter {

namespace {

constexpr std::string_view heading = "bone,qx,qy,qz,qw";
constexpr size_t columnCount = 5;

using Bones = mrv::PODArray<mrv::HierarchicalBoneV1*>;

/// The position of a bone, that of none being the number of bones.
size_t findBone(const Bones& bones, std::string_view cell)
{
    for (size_t i = 0; i < bones.size(); ++i)
        if (bones[i]->getName().c_str() == cell)
            return i;
    size_t index = 0;
    return csv::parse(cell, index) && index < bones.size() ? index : bones.size();
}

/// Returns what is wrong with the row, null if nothing is.
const char* readRow(std::string_view line, const Bones& bones, mrv::Array<mrv::Quaternion>& restRelatives)
{
    const std::vector<std::string_view> cells = csv::split(line);
    if (cells.size() != columnCount)
        return "a row has five values";
    const size_t bone = findBone(bones, cells[0]);
    if (bone == bones.size())
        return "the skeleton has no such bone";
    if (!csv::parseRotation(cells, 1, restRelatives[bone]))
        return "the quaternion is not four numbers that can be used";
    return nullptr;
}

} // namespace

void initBindPose(const mrv::HierarchicalSkeletonDescriptionV1& skeleton, mrv::SpecificPosture& posture)
{
    posture.initFromSkeleton(skeleton.getBones(), 1.0f);
}

bool readPose(const std::string& file, const mrv::HierarchicalSkeletonDescriptionV1& skeleton,
              mrv::SpecificPosture& posture, std::string& failure)
{
    const Bones& bones = skeleton.getBones();
    mrv::Array<mrv::Quaternion> restRelatives;
    restRelatives.resize(bones.size(), mrv::Quaternion::getIdentity());
    const auto readLine = [&](std::string_view line) { return readRow(line, bones, restRelatives); };
    if (!csv::readTable(file, heading, readLine, failure))
        return false;
    const mrv::HierarchicalBoneV1& root = *skeleton.getRootBone();
    const mrv::Quaternion turn = restRelatives[static_cast<size_t>(root.getSpecificBoneIndex())];
    posture.initFromRestRelativesOrientation(bones, root.getWorldPosUnscaled(), root.getWorldOri() * turn,
                                             restRelatives, 1.0f);
    return true;
}

} // namespace mrvcharacter
