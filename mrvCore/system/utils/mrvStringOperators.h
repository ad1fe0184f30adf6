// mrvCore/system/utils/mrvStringOperators.h
// Free functions on MrvString: tests, copies, identifiers, numbers, lists, paths.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"

#include <cstdint>

namespace mrv {

// Numbers and letters are those of the "C" locale throughout, whatever the locale of the host is.
// All functions but alphaNumerizeNameStr are free of shared state.

/// True if `prefix` stands at `position`; an empty prefix stands at every position up to the end.
MRV_CORE_API bool startsWith(const MrvString& text, const MrvString& prefix, size_t position = 0);
/// True if `suffix` stands at the end; an empty one always does.
MRV_CORE_API bool endsWith(const MrvString& text, const MrvString& suffix);

/// The text with one character in place of another.
MRV_CORE_API MrvString replaceChar(const MrvString& text, char from, char to);
/// Replaces every occurrence from left to right; what was put in is not searched again. An empty `from`
/// gives the text as it is.
MRV_CORE_API MrvString replaceString(const MrvString& text, const MrvString& from, const MrvString& to);
MRV_CORE_API MrvString toUpper(const MrvString& text);
MRV_CORE_API MrvString toLower(const MrvString& text);

/// Turns any name into an identifier: letters and digits stay, a blank goes and the character behind it
/// becomes upper case and is otherwise kept as it is, whatever it is; all else becomes '_'.
/// "run cycle" gives "runCycle". Names in files went through these rules, so they never change.
MRV_CORE_API void alphaNumerizeName(MrvString& name);

/// The same into a caller's buffer of at least strlen(source) + 1 bytes, apart from the source. Returns
/// whether anything was changed.
MRV_CORE_API bool alphaNumerizeNameWithCopy(const char* source, char* destination);

/// The same without a buffer of the caller: returns the source itself if nothing had to change, otherwise
/// a copy in a global arena, which is valid until the process ends or the library starts anew.
/// The arena is never reclaimed, and its exhaustion is fatal. One thread at a time.
MRV_CORE_API const char* alphaNumerizeNameStr(const char* source);

/// Size of that arena in bytes, and how many of them are in use; the start of the library rewinds it.
constexpr size_t ALPHANUM_BUFFER_SIZE = 65536;
extern MRV_CORE_API size_t alphaNumericCopiesBufferIndex;

/// The text followed by the number; six significant digits for `float` and `double`.
MRV_CORE_API MrvString operator+(const MrvString& text, float value);
MRV_CORE_API MrvString operator+(const MrvString& text, double value);
MRV_CORE_API MrvString operator+(const MrvString& text, int value);
MRV_CORE_API MrvString operator+(const MrvString& text, unsigned int value);

/// Reads a value as a stream does: leading white space is skipped, what follows the value is ignored.
/// Returns false if there is no such value, which then is what the stream makes of it.
/// Here for `float`, `int` and `long`; a type of a higher layer brings its own specialisation.
template <typename T>
MRV_CORE_API bool fromString(const MrvString& text, T& value);

/// All pieces between the separators, empty ones included: ",a," gives "", "a" and "". The text is the one
/// piece if it or the separator is empty. `out` is emptied first and may not hold the arguments.
MRV_CORE_API void split(const MrvString& text, const MrvString& separator, Array<MrvString>& out);
/// The same as a result.
MRV_CORE_API Array<MrvString> stringToStringArray(const MrvString& text, const MrvString& separator);

/// @{
/// The elements with the separator between them; numbers as operator+ writes them.
MRV_CORE_API MrvString stringArrayToString(const Array<MrvString>& array, const MrvString& separator);
MRV_CORE_API MrvString doubleArrayToString(const PODArray<double>& array, const MrvString& separator);
MRV_CORE_API MrvString intArrayToString(const PODArray<int>& array, const MrvString& separator);
MRV_CORE_API MrvString int64ArrayToString(const PODArray<int64_t>& array, const MrvString& separator);
/// @}

/// Reads a list in the style of a printer's page dialog, such as "1,3,5-9", into `out`, emptied first.
///
/// Blanks are allowed, and the extra characters where they do no harm to a number. A character that is
/// neither makes the list empty; a part that is not a number or a rising range is left out, and so is a
/// range that would bring the list above 2^24 values. Each of these is a warning in the log.
/// Here for `unsigned int`.
template <typename T>
MRV_CORE_API void convertPrinterString(const MrvString& text, PODArray<T>& out,
                                       const MrvString& extraValidCharacters = MrvString());

/// The longest text that stands in both `a` and `b`, and its length. Of several equally long ones the first
/// in the order of `a`. Time a.length() * b.length(), no memory.
MRV_CORE_API int longuestCommonSubstring(MrvString& out, const MrvString& a, const MrvString& b);

/// Maps the start of a path: a path that starts with `from` starts with `to` instead, any other comes back
/// as it is. A '^' in front of `from` is allowed and means the same.
MRV_CORE_API MrvString dirmap(const MrvString& path, const MrvString& from, const MrvString& to);

/// Replaces references to environment variables, `open` + name + `close`, by their values.
///
/// A name may hold references itself, which are resolved first, to any depth; values are not expanded
/// again. An unset variable gives nothing. From a reference that is not closed on, the text stays as it
/// is, and so it does altogether if a marker is empty. The markers may be equal; then nothing nests.
MRV_CORE_API MrvString replaceEnvVars(const MrvString& text, const MrvString& open, const MrvString& close);

} // namespace mrv
