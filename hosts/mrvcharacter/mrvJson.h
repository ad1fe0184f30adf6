// hosts/mrvcharacter/mrvJson.h
// Answers for programs: one JSON value a line.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace mrvcharacter {

using Json = nlohmann::ordered_json;

/// On one line. Names in files may hold any bytes; those that are no UTF-8 are replaced.
inline std::string toLine(const Json& value)
{
    return value.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

/// The double that prints as shortly as the float does: 1.78 and not 1.7799999713897705.
double toJsonNumber(float value);

} // namespace mrvcharacter
