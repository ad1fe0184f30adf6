// mrvCore/system/utils/mrvStringOperators.cpp
// Free functions on MrvString: tests, copies, identifiers, numbers, lists, paths.
#include "mrvCore/system/utils/mrvStringOperators.h"

#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/utils/mrvEnvironment.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <locale>
#include <numeric>
#include <sstream>
#include <string>
#include <type_traits>

namespace mrv {

size_t alphaNumericCopiesBufferIndex = 0;

namespace {

char alphaNumericCopiesBuffer[ALPHANUM_BUFFER_SIZE];

/// Above this a range in a printer-style list is a slip of the finger, not a list.
constexpr uint64_t longestPrinterList = uint64_t(1) << 24;

bool isAlphanumeric(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

char upperCase(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
char lowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Writes the identifier made from `length` characters, without a terminator, and returns its length. The
/// destination may be the source: nothing is written in front of what is still to be read.
size_t writeIdentifier(const char* source, size_t length, char* destination)
{
    char* end = destination;
    for (size_t i = 0; i < length; ++i)
    {
        if (source[i] != ' ')
            *end++ = isAlphanumeric(source[i]) ? source[i] : '_';
        else if (++i < length)
            *end++ = upperCase(source[i]); // not examined: names in files rely on "a  b" giving "a b"
    }
    return static_cast<size_t>(end - destination);
}

/// A number as a stream of default format writes it in the classic locale.
class ShortNumberText
{
public:
    template <typename T>
    explicit ShortNumberText(T value)
    {
        char* const last = _text + sizeof(_text) - 1;
        if constexpr (std::is_floating_point_v<T>)
            *std::to_chars(_text, last, value, std::chars_format::general, 6).ptr = '\0';
        else
            *std::to_chars(_text, last, value).ptr = '\0';
    }
    const char* getCString() const { return _text; }

private:
    char _text[32];
};

const MrvString& textOf(const MrvString& element)
{
    return element;
}

template <typename T>
MrvString textOf(T element)
{
    return MrvString(ShortNumberText(element).getCString());
}

template <typename Elements>
MrvString join(const Elements& elements, const MrvString& separator)
{
    MrvString text;
    for (const auto& element : elements)
    {
        if (&element != elements.begin())
            text += separator;
        text += textOf(element);
    }
    return text;
}

std::istringstream classicStream(const MrvString& text)
{
    std::istringstream stream(std::string(text.c_str(), text.length()));
    stream.imbue(std::locale::classic());
    return stream;
}

/// A number with nothing but blanks around it. A sign is refused, since a stream reads "-1" as unsigned too.
template <typename T>
bool readPrinterNumber(const MrvString& text, T& value)
{
    std::istringstream stream = classicStream(text);
    return text.find('-') == MrvString::npos && (stream >> value) && (stream >> std::ws).eof();
}

template <typename T>
void appendPrinterToken(const MrvString& token, PODArray<T>& out)
{
    const size_t dash = token.find('-');
    T first = 0;
    T last = 0;
    const bool isRange = dash != MrvString::npos;
    const bool isRead = isRange ? readPrinterNumber(token.substr(0, dash), first) &&
                                      readPrinterNumber(token.substr(dash + 1), last)
                                : readPrinterNumber(token, first);
    if (!isRead)
        MRV_LOG(ORVEL, LOG_WARNING, "Unable to parse string: " << token);
    else if (!isRange)
        out.push_back(first);
    else if (first > last)
        MRV_LOG(ORVEL, LOG_WARNING,
                "While parsing string token " << first << " to " << last << " ( " << first << "-" << last
                                              << " ), " << first << " is greater than " << last);
    else if (uint64_t(last) - first + 1 + out.size() > longestPrinterList)
        MRV_LOG(ORVEL, LOG_WARNING,
                "Unable to parse string: " << token << ". It makes the list longer than "
                                           << longestPrinterList);
    else
    {
        const size_t former = out.size();
        out.resize(former + (last - first + size_t(1)));
        std::iota(out.begin() + former, out.end(), first);
    }
}

} // namespace

bool startsWith(const MrvString& text, const MrvString& prefix, size_t position)
{
    return position <= text.length() && prefix.length() <= text.length() - position &&
           std::memcmp(text.c_str() + position, prefix.c_str(), prefix.length()) == 0;
}

bool endsWith(const MrvString& text, const MrvString& suffix)
{
    return suffix.length() <= text.length() && startsWith(text, suffix, text.length() - suffix.length());
}

MrvString replaceChar(const MrvString& text, char from, char to)
{
    MrvString result(text);
    std::replace(result.begin(), result.end(), from, to);
    return result;
}

MrvString replaceString(const MrvString& text, const MrvString& from, const MrvString& to)
{
    if (from.empty())
        return text;
    MrvString result;
    size_t copied = 0;
    for (size_t found = text.find(from); found != MrvString::npos; found = text.find(from, copied))
    {
        result.append(text, copied, found - copied);
        result += to;
        copied = found + from.length();
    }
    result.append(text, copied, text.length() - copied);
    return result;
}

MrvString toUpper(const MrvString& text)
{
    MrvString result(text);
    std::transform(result.begin(), result.end(), result.begin(), upperCase);
    return result;
}

MrvString toLower(const MrvString& text)
{
    MrvString result(text);
    std::transform(result.begin(), result.end(), result.begin(), lowerCase);
    return result;
}

void alphaNumerizeName(MrvString& name)
{
    name.resize(writeIdentifier(name.c_str(), name.length(), name.begin()));
}

bool alphaNumerizeNameWithCopy(const char* source, char* destination)
{
    const size_t sourceLength = std::strlen(source);
    const size_t length = writeIdentifier(source, sourceLength, destination);
    destination[length] = '\0';
    return length != sourceLength || std::memcmp(source, destination, length) != 0;
}

const char* alphaNumerizeNameStr(const char* source)
{
    MrvString name(source);
    alphaNumerizeName(name);
    if (name == source)
        return source;

    char* copy = alphaNumericCopiesBuffer + alphaNumericCopiesBufferIndex;
    alphaNumericCopiesBufferIndex += name.length() + 1;
    MRV_ASSERT(alphaNumericCopiesBufferIndex <= ALPHANUM_BUFFER_SIZE);
    std::memcpy(copy, name.c_str(), name.length() + 1);
    return copy;
}

MrvString operator+(const MrvString& text, float value)
{
    return text + ShortNumberText(value).getCString();
}
MrvString operator+(const MrvString& text, double value)
{
    return text + ShortNumberText(value).getCString();
}
MrvString operator+(const MrvString& text, int value)
{
    return text + ShortNumberText(value).getCString();
}
MrvString operator+(const MrvString& text, unsigned int value)
{
    return text + ShortNumberText(value).getCString();
}

template <typename T>
bool fromString(const MrvString& text, T& value)
{
    return static_cast<bool>(classicStream(text) >> value);
}

template bool fromString(const MrvString&, float&);
template bool fromString(const MrvString&, int&);
template bool fromString(const MrvString&, long&);

void split(const MrvString& text, const MrvString& separator, Array<MrvString>& out)
{
    out.clear();
    size_t begin = 0;
    if (!separator.empty())
    {
        for (size_t end = text.find(separator); end != MrvString::npos; end = text.find(separator, begin))
        {
            out.push_back(text.substr(begin, end - begin));
            begin = end + separator.length();
        }
    }
    out.push_back(text.substr(begin));
}

Array<MrvString> stringToStringArray(const MrvString& text, const MrvString& separator)
{
    Array<MrvString> pieces;
    split(text, separator, pieces);
    return pieces;
}

MrvString stringArrayToString(const Array<MrvString>& array, const MrvString& separator)
{
    return join(array, separator);
}

MrvString doubleArrayToString(const PODArray<double>& array, const MrvString& separator)
{
    return join(array, separator);
}

MrvString intArrayToString(const PODArray<int>& array, const MrvString& separator)
{
    return join(array, separator);
}

MrvString int64ArrayToString(const PODArray<int64_t>& array, const MrvString& separator)
{
    return join(array, separator);
}

template <typename T>
void convertPrinterString(const MrvString& text, PODArray<T>& out, const MrvString& extraValidCharacters)
{
    out.clear();
    if (text.empty())
        return;

    const MrvString validCharacters = MrvString("0123456789-, ") + extraValidCharacters;
    if (text.find_first_not_of(validCharacters) != MrvString::npos)
    {
        MRV_LOG(ORVEL, LOG_WARNING,
                "Invalid string '" << text
                                   << "'. The valid characters for the list are: " << validCharacters);
        return;
    }
    for (const MrvString& token : stringToStringArray(text, ","))
        appendPrinterToken(token, out);
}

template void convertPrinterString(const MrvString&, PODArray<unsigned int>&, const MrvString&);

int longuestCommonSubstring(MrvString& out, const MrvString& a, const MrvString& b)
{
    // The table of run lengths is walked along its diagonals, on each of which a run depends on the run
    // before it alone; so no row has to be kept, however long the texts are.
    size_t longest = 0;
    size_t longestEnd = 0;
    for (size_t diagonal = 1; diagonal < a.length() + b.length(); ++diagonal)
    {
        size_t i = diagonal > b.length() ? diagonal - b.length() : 0;
        size_t j = diagonal > b.length() ? 0 : b.length() - diagonal;
        for (size_t run = 0; i < a.length() && j < b.length(); ++i, ++j)
        {
            run = a[i] == b[j] ? run + 1 : 0;
            if (run > longest || (run == longest && i + 1 < longestEnd))
            {
                longest = run;
                longestEnd = i + 1;
            }
        }
    }
    out = a.substr(longestEnd - longest, longest);
    return static_cast<int>(longest);
}

MrvString dirmap(const MrvString& path, const MrvString& from, const MrvString& to)
{
    const MrvString prefix = startsWith(from, "^") ? from.substr(1) : from;
    return startsWith(path, prefix) ? to + path.substr(prefix.length()) : path;
}

MrvString replaceEnvVars(const MrvString& text, const MrvString& open, const MrvString& close)
{
    if (open.empty() || close.empty())
        return text;

    MrvString result;
    size_t copied = 0; // what is in front of it is in the result
    size_t referenceStart = 0;
    MrvString names;             // of the references being read, outermost first, in one text
    PODArray<size_t> nameStarts; // where each of them begins
    const bool sameMarkers = open == close;
    int64_t depth = 0; // a closing marker too many takes it below 0, and the next opening one makes up for it
    for (size_t position = 0; position < text.length();)
    {
        if (startsWith(text, open, position) && !(sameMarkers && depth != 0))
        {
            if (depth == 0)
                referenceStart = position;
            if (depth >= 0)
                nameStarts.push_back(names.length());
            ++depth;
            position += open.length();
        }
        else if (startsWith(text, close, position))
        {
            --depth;
            position += close.length();
            if (depth < 0)
                continue;
            const MrvString value = getEnvironmentVariable(names.substr(nameStarts.back()));
            names.resize(nameStarts.back());
            nameStarts.pop_back();
            if (depth > 0)
            {
                names += value;
                continue;
            }
            result.append(text, copied, referenceStart - copied);
            result += value;
            copied = position;
        }
        else
        {
            if (depth > 0)
                names += text[position];
            ++position;
        }
    }
    result.append(text, copied, text.length() - copied);
    return result;
}

} // namespace mrv
