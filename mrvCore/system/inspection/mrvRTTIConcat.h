// mrvCore/system/inspection/mrvRTTIConcat.h
// Arena of the type names: texts are appended and stay until the library starts anew.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstdint>

namespace mrv {

class MrvString;

/// Size of the arena in bytes.
constexpr uint64_t RTTI_STRING_CONCAT_LENGTH = 262144;

/// Write position in the arena. Only the start of the library sets it back.
extern MRV_CORE_API uint64_t RTTIConcatBufferIndex;

/// Appends a type name to the arena and returns its address: the name itself, or a template-like name
/// such as "Array<int>" from its parts. The text lives until the library starts the next time.
/// A full arena is fatal. Threads: only during start and stop, or in registration code run alike.
MRV_CORE_API const char* RTTIConcat(const char* name);
MRV_CORE_API const char* RTTIConcat(const char* name, const char* first);
MRV_CORE_API const char* RTTIConcat(const char* name, const char* first, const char* second);
MRV_CORE_API const char* RTTIConcat(const char* name, const char* first, const char* second,
                                    const char* third);
MRV_CORE_API const char* RTTIConcat(const char* name, const char* first, const char* second,
                                    const char* third, const char* fourth);
MRV_CORE_API const char* RTTIConcat(const char* name, const char* first, const MrvString& second);

} // namespace mrv
