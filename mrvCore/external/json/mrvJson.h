// mrvCore/external/json/mrvJson.h
// The library's text type as a JSON string.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <nlohmann/json_fwd.hpp>

namespace mrv {

class MrvString;

// Found by the JSON library where a text is put into a value or got from it.

/// Makes a JSON string of the text.
MRV_CORE_API void to_json(nlohmann::json& json, const MrvString& text);

/// Throws the JSON library's type_error 302 for a value that is no string; the text then stays.
MRV_CORE_API void from_json(const nlohmann::json& json, MrvString& text);

} // namespace mrv
