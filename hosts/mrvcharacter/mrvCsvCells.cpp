// hosts/mrvcharacter/mrvCsvCells.cpp
#include "hosts/mrvcharacter/mrvCsvCells.h"

#include <cmath>
#include <fstream>

namespace mrvcharacter::csv {

namespace {

std::string_view withoutLineEnd(const std::string& line)
{
    return std::string_view(line).substr(0, line.find_last_not_of("\r \t") + 1);
}

} // namespace

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

bool parseRotation(const std::vector<std::string_view>& cells, size_t first, mrv::Quaternion& rotation)
{
    float numbers[4];
    for (size_t i = 0; i < 4; ++i)
        if (!parse(cells[first + i], numbers[i]))
            return false;
    rotation = mrv::Quaternion(numbers).computeNormalize();
    // The length was neither about null nor beyond what a float holds.
    return std::abs(rotation.norm2() - 1.0f) < 1e-3f;
}

bool readTable(const std::string& file, std::string_view heading,
               const std::function<const char*(std::string_view)>& readLine, std::string& failure)
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
        if (const char* fault = readLine(withoutLineEnd(line)))
        {
            failure = "line " + std::to_string(number) + ": " + fault;
            return false;
        }
    }
    return true;
}

} // namespace mrvcharacter::csv
