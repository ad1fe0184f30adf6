// mrvCore/system/inspection/mrvRTTIConcat.cpp
#include "mrvCore/system/inspection/mrvRTTIConcat.h"

#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/debug/mrvAssert.h"

#include <cstdio>

namespace mrv {

uint64_t RTTIConcatBufferIndex = 0;

namespace {

char RTTIConcatBuffer[RTTI_STRING_CONCAT_LENGTH];

template <typename... Texts>
const char* append(const char* format, Texts... texts)
{
    const size_t length = static_cast<size_t>(std::snprintf(nullptr, 0, format, texts...)) + 1;
    char* address = RTTIConcatBuffer + RTTIConcatBufferIndex;
    RTTIConcatBufferIndex += length;
    MRV_ASSERT(RTTIConcatBufferIndex < RTTI_STRING_CONCAT_LENGTH);
    std::snprintf(address, length, format, texts...);
    return address;
}

} // namespace

const char* RTTIConcat(const char* name)
{
    return append("%s", name);
}

const char* RTTIConcat(const char* name, const char* first)
{
    return append("%s<%s>", name, first);
}

const char* RTTIConcat(const char* name, const char* first, const char* second)
{
    return append("%s<%s,%s>", name, first, second);
}

const char* RTTIConcat(const char* name, const char* first, const char* second, const char* third)
{
    return append("%s<%s,%s,%s>", name, first, second, third);
}

const char* RTTIConcat(const char* name, const char* first, const char* second, const char* third,
                       const char* fourth)
{
    return append("%s<%s,%s,%s,%s>", name, first, second, third, fourth);
}

const char* RTTIConcat(const char* name, const char* first, const MrvString& second)
{
    return append("%s<%s,%s>", name, first, second.c_str());
}

} // namespace mrv
