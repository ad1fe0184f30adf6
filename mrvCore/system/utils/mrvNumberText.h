// mrvCore/system/utils/mrvNumberText.h
// Numbers as the text of files: exactly what a standard stream writes and reads, without making a stream.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvString.h"

#include <cstdint>
#include <type_traits>

namespace mrv {

/// The text of one number, as an output stream of precision 32 writes it in the classic locale.
///
/// Floating numbers in the default format with up to 32 significant digits, which is more than it takes to
/// read back the same number; integers in decimal; `bool` as 1 or 0. Holds its text itself, no allocation.
class MRV_CORE_API NumberText
{
public:
    template <class T>
    explicit NumberText(T value) : _size(static_cast<size_t>(put(_text, value) - _text))
    {
        _text[_size] = '\0';
    }

    const char* c_str() const { return _text; }
    size_t size() const { return _size; }

    /// What a text may take where it is put: 40 for the longest and its terminator, 43 while it is made.
    static constexpr size_t room = 48;

    /// Puts the text of a number at `to`, without a terminator. Returns the place behind it.
    template <class T>
    static char* put(char* to, T value)
    {
        static_assert(std::is_arithmetic_v<T> && !std::is_same_v<T, char> && sizeof(T) <= sizeof(double),
                      "a number of at most 64 bits");
        if constexpr (std::is_floating_point_v<T>)
            return putNumber(to, static_cast<double>(value));
        else if constexpr (std::is_signed_v<T>)
            return putNumber(to, static_cast<int64_t>(value));
        else
            return putNumber(to, static_cast<uint64_t>(value));
    }

private:
    static char* putNumber(char* to, double value);
    static char* putNumber(char* to, int64_t value);
    static char* putNumber(char* to, uint64_t value);

    char _text[room];
    size_t _size;
};

/// Reads a number from `size` bytes as an input stream does in the classic locale: white space in front is
/// skipped, what follows the number is ignored ("1x" reads as 1), and there are no hexadecimal numbers, "inf"
/// or "nan".
///
/// False where the extraction fails. `value` is then what the stream leaves: untouched for a blank text, 0
/// for one that is no number, the nearest value of T for one beyond its range. A minus sign in front of an
/// unsigned number negates it.
/// Here for `short`, `int`, `long`, their unsigned forms, `float` and `double`.
template <class T>
MRV_CORE_API bool parseNumber(const char* text, size_t size, T& value);
template <class T>
bool parseNumber(const MrvString& text, T& value)
{
    return parseNumber(text.c_str(), text.size(), value);
}

} // namespace mrv
