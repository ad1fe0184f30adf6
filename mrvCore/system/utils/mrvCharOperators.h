// mrvCore/system/utils/mrvCharOperators.h
// Bounded forms of the C calls that write into plain character arrays.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstdarg>
#include <cstddef>

namespace mrv {

/// Formats into a buffer of `size` bytes; what does not fit is cut, and the text is always terminated.
///
/// Numbers are written as the "C" locale writes them, whatever the locale of the host is.
/// Returns the length of the text that stands in the buffer, always below `size`, so that
/// `buffer + result` is where an appended text begins. A format that fails leaves an empty text and
/// gives 0; a size of 0 writes nothing and gives 0.
MRV_CORE_API int sprintfSafe(char* buffer, size_t size, const char* format, ...)
    __attribute__((format(printf, 3, 4)));

/// The same for arguments already gathered; `arguments` is used up.
MRV_CORE_API int vsprintfSafe(char* buffer, size_t size, const char* format, va_list arguments)
    __attribute__((format(printf, 3, 0)));

/// Copies a text into a buffer of `size` bytes: cut at size - 1, always terminated, the rest of the
/// buffer zero-filled. A size of 0 writes nothing. The two may not overlap.
MRV_CORE_API void strcpySafe(char* destination, size_t size, const char* source);

/// Replaces a character over the whole `size` given, not just up to a terminator.
MRV_CORE_API void strReplaceCharSafe(char* buffer, size_t size, char from, char to);

} // namespace mrv
