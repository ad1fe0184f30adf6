// hosts/mrvcharacter/mrvCsvSkeletonImporter.cpp
#include "hosts/mrvcharacter/mrvCsvSkeletonImporter.h"

#include "hosts/mrvcharacter/mrvCsvCells.h"
#include "hosts/mrvcharacter/mrvSkeletonImporter.h"

#include <cmath>
#include <string_view>
#include <vector>

namespace mrvcharacter {

namespace {

using csv::parse;

constexpr std::string_view heading = "index,name,parent,px,py,pz,qx,qy,qz,qw";
constexpr size_t columnCount = 10;
constexpr size_t firstNumber = 3;

bool parseTransform(const std::vector<std::string_view>& cells, ImportedBone& bone)
{
    for (unsigned int i = 0; i < 3; ++i)
        if (!parse(cells[firstNumber + i], bone.position[i]) || !std::isfinite(bone.position[i]))
            return false;
    return csv::parseRotation(cells, firstNumber + 3, bone.orientation);
}

/// Appends the joint of one row; returns what is wrong with the row, null if nothing is.
const char* addRow(std::string_view line, std::vector<ImportedBone>& bones)
{
    const std::vector<std::string_view> cells = csv::split(line);
    if (cells.size() != columnCount)
        return "a row has ten values";
    size_t index = 0;
    if (!parse(cells[0], index) || index != bones.size())
        return "the index is not the number of the row";
    ImportedBone bone;
    bone.name = cells[1];
    if (bone.name.empty())
        return "the joint has no name";
    if (!parse(cells[2], bone.father) || bone.father < -1)
        return "the parent is no index";
    if (bone.father >= static_cast<int>(bones.size()))
        return "the parent does not come before its child";
    if (!parseTransform(cells, bone))
        return "position and quaternion are not seven numbers that can be used";
    bones.push_back(bone);
    return nullptr;
}

} // namespace

bool readCsvSkeleton(const std::string& file, ImportedSkeleton& skeleton, std::string& failure)
{
    const auto readLine = [&skeleton](std::string_view line) { return addRow(line, skeleton.bones); };
    if (!csv::readTable(file, heading, readLine, failure))
        return false;
    if (skeleton.bones.empty())
        failure = "there is no joint in the table";
    return !skeleton.bones.empty();
}

} // namespace mrvcharacter
