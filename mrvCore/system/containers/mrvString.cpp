// mrvCore/system/containers/mrvString.cpp
// Text operations.
#include "mrvCore/system/containers/mrvString.h"

#include <cctype>
#include <climits>
#include <istream>
#include <ostream>
#include <string>
#include <string_view>

namespace mrv {

namespace {

size_t smaller(size_t a, size_t b)
{
    return a < b ? a : b;
}

/// What of `count` characters is left from `position` on.
size_t remaining(const MrvString& text, size_t position, size_t count)
{
    return position < text.size() ? smaller(count, text.size() - position) : 0;
}

/// The characters of a set, to be asked in one step each.
class CharacterSet
{
public:
    explicit CharacterSet(const MrvString& set)
    {
        for (const char character : set)
            _has[static_cast<unsigned char>(character)] = true;
    }
    bool has(char character) const { return _has[static_cast<unsigned char>(character)]; }

private:
    bool _has[UCHAR_MAX + 1] = {};
};

template <class Wanted>
size_t findForwards(const MrvString& text, size_t start, const Wanted& wanted)
{
    for (size_t i = start; i < text.size(); ++i)
        if (wanted(text[i]))
            return i;
    return MrvString::npos;
}

template <class Wanted>
size_t findBackwards(const MrvString& text, size_t start, const Wanted& wanted)
{
    for (size_t i = start < text.size() ? start + 1 : text.size(); i-- > 0;)
        if (wanted(text[i]))
            return i;
    return MrvString::npos;
}

MrvString joined(const char* a, size_t sizeOfA, const char* b, size_t sizeOfB)
{
    MrvString result;
    result.reserve(internal::saturatedSum(sizeOfA, sizeOfB));
    result.append(a, sizeOfA);
    result.append(b, sizeOfB);
    return result;
}

} // namespace

MrvString::MrvString(const MrvString& source, size_t position, size_t count)
    : MrvString(source.c_str() + smaller(position, source.size()), remaining(source, position, count))
{}

void MrvString::resize(size_t size, char character)
{
    if (size > this->size())
        append(size - this->size(), character);
    else if (size < this->size())
    {
        _data.resize(size + 1);
        _data[size] = '\0';
    }
}

MrvString& MrvString::append(const char* text, size_t count)
{
    if (count == 0)
        return *this; // the terminator may be the shared one, which is not written
    const size_t former = size();
    const bool isOwn = owns(text);
    const size_t ownPosition = isOwn ? static_cast<size_t>(text - begin()) : 0;
    _data.resize(internal::saturatedSum(former + 1, count));
    if (isOwn)
        text = begin() + ownPosition;            // the block may have moved
    std::memmove(begin() + former, text, count); // may reach over the own terminator
    _data[former + count] = '\0';
    return *this;
}

MrvString& MrvString::append(const MrvString& text, size_t position, size_t count)
{
    return append(text.c_str() + smaller(position, text.size()), remaining(text, position, count));
}

MrvString& MrvString::append(size_t count, char character)
{
    if (count != 0)
        _data.insert(end(), count, character);
    return *this;
}

MrvString& MrvString::operator+=(int64_t number)
{
    char digits[24];
    char* const last = digits + sizeof(digits);
    char* first = last;
    // The unsigned magnitude: the smallest number has no positive counterpart.
    uint64_t rest = number < 0 ? 0 - static_cast<uint64_t>(number) : static_cast<uint64_t>(number);
    do
    {
        *--first = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    if (number < 0)
        *--first = '-';
    return append(first, static_cast<size_t>(last - first));
}

MrvString& MrvString::assign(const MrvString& text, size_t position, size_t count)
{
    return assign(text.c_str() + smaller(position, text.size()), remaining(text, position, count));
}

MrvString& MrvString::assign(const char* text, size_t count)
{
    if (count == 0 || owns(text))
        return replace(0, npos, text, count);
    _data.clear();
    _data.resize(internal::saturatedSum(count, 1));
    std::memcpy(begin(), text, count);
    _data[count] = '\0';
    return *this;
}

MrvString& MrvString::assign(size_t count, char character)
{
    clear();
    return append(count, character);
}

MrvString& MrvString::insert(size_t position, size_t count, char character)
{
    if (count != 0)
        _data.insert(begin() + smaller(position, size()), count, character);
    return *this;
}

MrvString& MrvString::replace(size_t position, size_t count, const char* text, size_t textCount)
{
    if (textCount != 0 && owns(text))
    {
        const MrvString copy(text, textCount);
        return replace(position, count, copy);
    }
    position = smaller(position, size());
    count = remaining(*this, position, count);
    if (textCount > count)
        _data.shiftForward(position + count, textCount - count);
    else if (textCount < count)
        _data.shiftBackward(position + count, count - textCount);
    if (textCount != 0)
        std::memcpy(begin() + position, text, textCount);
    return *this;
}

MrvString& MrvString::replace(size_t position, size_t count, const MrvString& text, size_t textPosition,
                              size_t textCount)
{
    return replace(position, count, text.c_str() + smaller(textPosition, text.size()),
                   remaining(text, textPosition, textCount));
}

void MrvString::replaceAll(char from, char to)
{
    for (char& character : *this)
        if (character == from)
            character = to;
}

size_t MrvString::find(const char* text, size_t start, size_t count) const
{
    if (start > size())
        return npos;
    const void* const found = memmem(begin() + start, size() - start, text, count);
    return found == nullptr ? npos : static_cast<size_t>(static_cast<const char*>(found) - begin());
}

size_t MrvString::find(char character, size_t start) const
{
    if (start >= size())
        return npos;
    const void* const found = std::memchr(begin() + start, character, size() - start);
    return found == nullptr ? npos : static_cast<size_t>(static_cast<const char*>(found) - begin());
}

size_t MrvString::rfind(const char* text, size_t start, size_t count) const
{
    if (count > size())
        return npos;
    for (size_t i = smaller(start, size() - count) + 1; i-- > 0;)
        if (std::memcmp(begin() + i, text, count) == 0)
            return i;
    return npos;
}

size_t MrvString::rfind(char character, size_t start) const
{
    const void* const found = memrchr(begin(), character, start < size() ? start + 1 : size());
    return found == nullptr ? npos : static_cast<size_t>(static_cast<const char*>(found) - begin());
}

size_t MrvString::find_first_of(const MrvString& set, size_t start) const
{
    const CharacterSet wanted(set);
    return findForwards(*this, start, [&](char c) { return wanted.has(c); });
}

size_t MrvString::find_last_of(const MrvString& set, size_t start) const
{
    const CharacterSet wanted(set);
    return findBackwards(*this, start, [&](char c) { return wanted.has(c); });
}

size_t MrvString::find_first_not_of(const MrvString& set, size_t start) const
{
    const CharacterSet unwanted(set);
    return findForwards(*this, start, [&](char c) { return !unwanted.has(c); });
}

size_t MrvString::find_first_not_of(char character, size_t start) const
{
    return findForwards(*this, start, [&](char c) { return c != character; });
}

size_t MrvString::find_last_not_of(const MrvString& set, size_t start) const
{
    const CharacterSet unwanted(set);
    return findBackwards(*this, start, [&](char c) { return !unwanted.has(c); });
}

size_t MrvString::find_last_not_of(char character, size_t start) const
{
    return findBackwards(*this, start, [&](char c) { return c != character; });
}

MrvString MrvString::getStringBeforeFirst(char character) const
{
    const size_t position = find(character);
    return position == npos || position == 0 ? *this : substr(0, position);
}

MrvString MrvString::getStringAfterlast(char character) const
{
    const size_t position = rfind(character);
    return position == npos || position == 0 ? *this : substr(position + 1);
}

int MrvString::compare(const char* text, size_t count) const
{
    const size_t common = smaller(size(), count);
    for (size_t i = 0; i < common; ++i)
        if (_data[i] != text[i])
            return static_cast<signed char>(_data[i]) - static_cast<signed char>(text[i]);
    const int64_t difference = static_cast<int64_t>(size()) - static_cast<int64_t>(count);
    return static_cast<int>(difference < INT_MIN ? INT_MIN : difference > INT_MAX ? INT_MAX : difference);
}

void MrvString::toUpperSelf()
{
    for (char& character : *this)
        character = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
}

void MrvString::toLowerSelf()
{
    for (char& character : *this)
        character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
}

MrvString& MrvString::ltrim(const MrvString& set)
{
    return erase(0, find_first_not_of(set));
}

MrvString& MrvString::rtrim(const MrvString& set)
{
    const size_t last = find_last_not_of(set);
    resize(last == npos ? 0 : last + 1);
    return *this;
}

MrvString& MrvString::trim(const MrvString& set)
{
    return rtrim(set).ltrim(set);
}

MrvString operator+(const MrvString& a, const MrvString& b)
{
    return joined(a.c_str(), a.size(), b.c_str(), b.size());
}

MrvString operator+(const MrvString& a, const char* b)
{
    return joined(a.c_str(), a.size(), b, std::strlen(b));
}

MrvString operator+(const char* a, const MrvString& b)
{
    return joined(a, std::strlen(a), b.c_str(), b.size());
}

MrvString operator+(const MrvString& a, char b)
{
    return joined(a.c_str(), a.size(), &b, 1);
}

MrvString operator+(char a, const MrvString& b)
{
    return joined(&a, 1, b.c_str(), b.size());
}

std::ostream& operator<<(std::ostream& stream, const MrvString& text)
{
    return stream << std::string_view(text.c_str(), text.size());
}

std::istream& operator>>(std::istream& stream, MrvString& text)
{
    std::string read;
    if (stream >> read)
        text = read;
    return stream;
}

} // namespace mrv
