// mrvCore/system/containers/mrvStaticString.h
// A text that lives somewhere else, for use as a map key.
#pragma once

#include <cstring>

namespace mrv {

/// Pointer to a zero-terminated text. It does not own or copy the text, which must outlive it.
/// Ordered by strcmp; equal where neither is less.
class MrvStaticString
{
public:
    MrvStaticString() = default;
    MrvStaticString(const char* text) : _ptr(text) {}

    const char* c_str() const { return _ptr; }
    bool operator<(const MrvStaticString& other) const { return std::strcmp(_ptr, other._ptr) < 0; }
    bool operator==(const MrvStaticString& other) const { return std::strcmp(_ptr, other._ptr) == 0; }
    bool operator!=(const MrvStaticString& other) const { return !(*this == other); }

private:
    const char* _ptr = "";
};

} // namespace mrv
