// hosts/mrvcharacter/mrvPointTable.cpp
#include "hosts/mrvcharacter/mrvPointTable.h"

#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string_view>
#include <type_traits>

namespace mrvcharacter {

namespace {

std::string_view withoutBlanks(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r";
    const size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

/// The whole cell and nothing else, whatever the locale.
bool parse(std::string_view cell, float& value)
{
    cell = withoutBlanks(cell);
    double number = 0.0; // so that what is too small for a float becomes 0
    const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), number);
    if (error != std::errc() || end != cell.data() + cell.size() ||
        !(std::abs(number) <= std::numeric_limits<float>::max()))
        return false;
    value = static_cast<float>(number);
    return true;
}

/// What is wrong with the row, null if nothing is. A point is Vector2 or Vector3.
template <class Point>
const char* parseRow(std::string_view row, Point& point)
{
    constexpr bool isFlat = std::is_same_v<Point, mrv::Vector2>;
    constexpr unsigned int count = isFlat ? 2 : 3;
    const char* const fault = isFlat ? "a row has two values" : "a row has three values";
    for (unsigned int i = 0; i < count; ++i)
    {
        const size_t comma = row.find(',');
        if ((comma == std::string_view::npos) != (i + 1 == count))
            return fault;
        if (!parse(row.substr(0, comma), point[i]))
            return "a coordinate is no number that can be used";
        row.remove_prefix(comma == std::string_view::npos ? row.size() : comma + 1);
    }
    return nullptr;
}

bool isHeading(std::string_view row)
{
    row = withoutBlanks(row.substr(0, row.find(',')));
    double number = 0.0;
    const auto [end, error] = std::from_chars(row.data(), row.data() + row.size(), number);
    return error == std::errc::invalid_argument && !row.empty();
}

template <class Point>
bool readTable(const std::string& file, std::vector<Point>& points, std::string& failure)
{
    std::error_code ignored;
    std::ifstream stream(file, std::ios::binary);
    if (!stream || std::filesystem::is_directory(file, ignored))
    {
        failure = "the file cannot be read";
        return false;
    }
    std::string line;
    for (int number = 1; std::getline(stream, line); ++number)
    {
        if (number == 1 && isHeading(line))
            continue;
        if (withoutBlanks(line).empty() && stream.peek() == std::ifstream::traits_type::eof())
            break;
        Point point;
        if (const char* const fault = parseRow(line, point))
        {
            failure = "line " + std::to_string(number) + ": " + fault;
            return false;
        }
        points.push_back(point);
    }
    if (points.empty())
        failure = "there is no point in the table";
    return !points.empty();
}

} // namespace

bool readPointTable(const std::string& file, std::vector<mrv::Vector2>& points, std::string& failure)
{
    return readTable(file, points, failure);
}

bool readPointTable(const std::string& file, std::vector<mrv::Vector3>& points, std::string& failure)
{
    return readTable(file, points, failure);
}

} // namespace mrvcharacter
