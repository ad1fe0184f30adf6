// hosts/mrvcharacter/mrvCsvCells.h
// What tables of comma-separated values have in common.
#pragma once

#include "mrvCore/math/rotations/mrvQuaternion.h"

#include <charconv>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace mrvcharacter::csv {

std::vector<std::string_view> split(std::string_view line);

/// The whole cell and nothing else, whatever the locale.
template <typename T>
bool parse(std::string_view cell, T& value)
{
    const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), value);
    return error == std::errc() && end == cell.data() + cell.size();
}

/// Four cells as a quaternion, which is normalised; false where that is no rotation.
bool parseRotation(const std::vector<std::string_view>& cells, size_t first, mrv::Quaternion& rotation);

/// Gives each line below the heading to `readLine`, which returns what is wrong with it, null if nothing is.
/// False, with a `failure` that names the line, if something is. An empty line at the end does not count.
bool readTable(const std::string& file, std::string_view heading,
               const std::function<const char*(std::string_view)>& readLine, std::string& failure);

} // namespace mrvcharacter::csv
