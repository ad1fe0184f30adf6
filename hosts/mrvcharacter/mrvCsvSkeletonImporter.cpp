// hosts/mrvcharacter/mrvCsvSkeletonImporter.cpp
#include "hosts/mrvcharacter/mrvCsvSkeletonImporter.h"

#include "hosts/mrvcharacter/mrvSkeletonImporter.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <string_view>
#include <vector>

namespace mrvcharacter {

namespace {

constexpr std::string_view heading = "index,name,parent,px,py,pz,qx,qy,qz,qw";
constexpr size_t columnCount = 10;
constexpr size_t firstNumber = 3;

std::vector<std::string_view> split(std::string_view line)
{
    std::vector<std::string_view> cells;
    for (size_t end = line.find(','); end != std::string_view::npos; end = line.find(','))
    {
        cells.push_back(line.substr(0, end));
        line.remove_prefix(end + 1);
    }
    cells.push_back(line);
    return cells;
}

/// The whole cell and nothing else, whatever the locale.
template <typename T>
bool parse(std::string_view cell, T& value)
{
    const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), value);
    return error == std::errc() && end == cell.data() + cell.size();
}

bool parseTransform(const std::vector<std::string_view>& cells, ImportedBone& bone)
{
    float numbers[columnCount - firstNumber];
    for (size_t i = firstNumber; i < columnCount; ++i)
        if (!parse(cells[i], numbers[i - firstNumber]) || !std::isfinite(numbers[i - firstNumber]))
            return false;
    bone.position = mrv::Vector3(numbers);
    bone.orientation = mrv::Quaternion(numbers + 3).computeNormalize();
    // The length was neither about null nor beyond what a float holds.
    return std::abs(bone.orientation.norm2() - 1.0f) < 1e-3f;
}

/// Appends the joint of one row; returns what is wrong with the row, null if nothing is.
const char* addRow(std::string_view line, std::vector<ImportedBone>& bones)
{
    const std::vector<std::string_view> cells = split(line);
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

std::string_view withoutLineEnd(const std::string& line)
{
    return std::string_view(line).substr(0, line.find_last_not_of("\r \t") + 1);
}

} // namespace

bool readCsvSkeleton(const std::string& file, ImportedSkeleton& skeleton, std::string& failure)
{
    std::ifstream stream(file, std::ios::binary);
    std::string line;
    if (!std::getline(stream, line) || withoutLineEnd(line) != heading)
    {
        failure = "the file does not begin with the line " + std::string(heading);
        return false;
    }
    for (int number = 2; std::getline(stream, line); ++number)
    {
        if (withoutLineEnd(line).empty() && stream.peek() == std::ifstream::traits_type::eof())
            break;
        if (const char* fault = addRow(withoutLineEnd(line), skeleton.bones))
        {
            failure = "line " + std::to_string(number) + ": " + fault;
            return false;
        }
    }
    if (skeleton.bones.empty())
        failure = "there is no joint in the table";
    return !skeleton.bones.empty();
}

} // namespace mrvcharacter
