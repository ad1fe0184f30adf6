// mrvCore/external/json/mrvJson.cpp
#include "mrvCore/external/json/mrvJson.h"

#include "mrvCore/system/containers/mrvString.h"

#include <nlohmann/json.hpp>

#include <string>

namespace mrv {

void to_json(nlohmann::json& json, const MrvString& text)
{
    json = std::string(text.data(), text.size());
}

void from_json(const nlohmann::json& json, MrvString& text)
{
    text = json.get<std::string>();
}

} // namespace mrv
