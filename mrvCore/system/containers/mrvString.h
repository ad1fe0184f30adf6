// mrvCore/system/containers/mrvString.h
// The library's text type.
#pragma once

#include "mrvCore/system/containers/mrvPODArray.h"

#include <cstdint>
#include <iosfwd>

namespace mrv {

namespace internal {

/// True for the standard string types of char, without their headers: text with a `traits_type`.
template <class S, class = void>
struct IsStandardString : std::false_type
{};
template <class S>
struct IsStandardString<S, std::void_t<typename S::traits_type, decltype(std::declval<const S&>().size())>>
    : std::is_convertible<decltype(std::declval<const S&>().data()), const char*>
{};
template <class S>
using EnableIfStandardString = std::enable_if_t<IsStandardString<S>::value>;

} // namespace internal

/// Text of bytes with a terminating zero; zeros inside are kept.
///
/// size() and all positions leave the terminator out, capacity() counts it: a default text has size 0 and
/// capacity 1. It grows by the rule of PODArray. Characters compare as signed bytes.
/// A position beyond the text counts as its end, and a count is cut to what remains. A `const char*` must
/// not be null. Any text given to an operation may lie in the text itself.
/// Threads: reading at the same time is safe; a writer needs the caller's lock.
class MRV_CORE_API MrvString
{
public:
    using value_type = char;
    using iterator = char*;
    using const_iterator = const char*;
    static constexpr size_t npos = static_cast<size_t>(-1);

    /// Costs no allocation: all texts without characters share one block until they grow.
    MrvString() noexcept : _data(PODArray<char>::sharingTerminator()) {}
    MrvString(const char* text) : MrvString(text, std::strlen(text)) {}
    /// The first `count` bytes at `text`.
    MrvString(const char* text, size_t count)
        : _data(count == 0 ? PODArray<char>::sharingTerminator() : PODArray<char>::ofText(text, count))
    {}
    MrvString(const MrvString& source, size_t position, size_t count);
    MrvString(const MrvString& other) : MrvString(other.c_str(), other.size())
    {
        _data.setMemoryStatId(other._data.getMemoryStatId());
    }
    /// The source is empty afterwards.
    MrvString(MrvString&& other) noexcept : MrvString() { swap(other); }
    template <class S, class = internal::EnableIfStandardString<S>>
    MrvString(const S& text) : MrvString(text.data(), text.size())
    {}
    ~MrvString() = default;

    MrvString& operator=(const MrvString& other)
    {
        if (!other.empty())
            _data = other._data;
        else
        {
            resize(0); // nothing is written into the shared terminator
            _data.setMemoryStatId(other._data.getMemoryStatId());
        }
        return *this;
    }
    MrvString& operator=(MrvString&& other) noexcept
    {
        swap(other);
        return *this;
    }
    MrvString& operator=(const char* text) { return assign(text); }
    MrvString& operator=(char character) { return assign(1, character); }
    template <class S, class = internal::EnableIfStandardString<S>>
    MrvString& operator=(const S& text)
    {
        return assign(text.data(), text.size());
    }
    void swap(MrvString& other) noexcept { _data.swap(other._data); }

    char* begin() { return _data.begin(); }
    const char* begin() const { return _data.begin(); }
    char* end() { return _data.end() - 1; }
    const char* end() const { return _data.end() - 1; }
    const char* c_str() const { return _data.begin(); }
    char* data() { return _data.begin(); }
    const char* data() const { return _data.begin(); }

    size_t size() const { return _data.size() - 1; }
    size_t length() const { return size(); }
    bool empty() const { return size() == 0; }
    size_t capacity() const { return _data.capacity(); }

    /// The terminator may be read at size().
    char& operator[](size_t index) { return _data[index]; }
    const char& operator[](size_t index) const { return _data[index]; }
    char& at(size_t index) { return _data[index]; }
    const char& at(size_t index) const { return _data[index]; }

    /// Cuts the text, or fills it up with zeros or the given character.
    void resize(size_t size) { resize(size, '\0'); }
    void resize(size_t size, char character);
    /// Room for `size` characters and the terminator, by the growth rule.
    void reserve(size_t size) { _data.reserve(internal::saturatedSum(size, 1)); }
    void clear() { resize(0); }

    /// The characters with their terminator, for code that moves whole blocks. Whoever changes them leaves
    /// exactly one terminator at the end.
    const PODArray<char>& getData() const { return _data; }
    PODArray<char>& getData() { return _data; }

    void push_back(char character)
    {
        _data.addOne() = '\0';
        _data[_data.size() - 2] = character;
    }
    /// Puts text behind this one.
    MrvString& append(const MrvString& text) { return append(text.c_str(), text.size()); }
    MrvString& append(const MrvString& text, size_t position, size_t count);
    MrvString& append(const char* text) { return append(text, std::strlen(text)); }
    MrvString& append(const char* text, size_t count);
    MrvString& append(size_t count, char character);

    MrvString& operator+=(const MrvString& text) { return append(text); }
    MrvString& operator+=(const char* text) { return append(text); }
    MrvString& operator+=(char character)
    {
        push_back(character);
        return *this;
    }
    /// The number in decimal.
    MrvString& operator+=(int number) { return *this += static_cast<int64_t>(number); }
    MrvString& operator+=(int64_t number);

    /// Becomes the given text.
    MrvString& assign(const MrvString& text) { return *this = text; }
    MrvString& assign(const MrvString& text, size_t position, size_t count);
    MrvString& assign(const char* text) { return assign(text, std::strlen(text)); }
    MrvString& assign(const char* text, size_t count);
    MrvString& assign(size_t count, char character);

    MrvString& insert(size_t position, const MrvString& text) { return replace(position, 0, text); }
    MrvString& insert(size_t position, const char* text) { return replace(position, 0, text); }
    MrvString& insert(size_t position, const char* text, size_t count)
    {
        return replace(position, 0, text, count);
    }
    MrvString& insert(size_t position, size_t count, char character);

    MrvString& erase(size_t position = 0, size_t count = npos) { return replace(position, count, "", 0); }

    /// Puts the text in place of `count` characters.
    MrvString& replace(size_t position, size_t count, const MrvString& text)
    {
        return replace(position, count, text.c_str(), text.size());
    }
    MrvString& replace(size_t position, size_t count, const char* text)
    {
        return replace(position, count, text, std::strlen(text));
    }
    /// Puts the first `textCount` bytes at `text` in place of `count` characters.
    MrvString& replace(size_t position, size_t count, const char* text, size_t textCount);
    MrvString& replace(size_t position, size_t count, const MrvString& text, size_t textPosition,
                       size_t textCount);
    /// Puts one character in place of another everywhere.
    void replaceAll(char from, char to);

    /// First place at or after `start`, npos if there is none. An empty text is found at `start` when that
    /// is not beyond the text.
    size_t find(const MrvString& text, size_t start = 0) const
    {
        return find(text.c_str(), start, text.size());
    }
    size_t find(const char* text, size_t start = 0) const { return find(text, start, std::strlen(text)); }
    size_t find(const char* text, size_t start, size_t count) const;
    size_t find(char character, size_t start = 0) const;

    /// Last place that begins at or before `start`, npos if there is none. An empty text is found at the
    /// smaller of `start` and the length.
    size_t rfind(const MrvString& text, size_t start = npos) const
    {
        return rfind(text.c_str(), start, text.size());
    }
    size_t rfind(const char* text, size_t start = npos) const
    {
        return rfind(text, start, std::strlen(text));
    }
    size_t rfind(const char* text, size_t start, size_t count) const;
    size_t rfind(char character, size_t start = npos) const;

    /// @{
    /// First or last character at or after, at or before `start` that is, or is not, in the set.
    size_t find_first_of(const MrvString& set, size_t start = 0) const;
    size_t find_first_of(char character, size_t start = 0) const { return find(character, start); }
    size_t find_last_of(const MrvString& set, size_t start = npos) const;
    size_t find_last_of(char character, size_t start = npos) const { return rfind(character, start); }
    size_t find_first_not_of(const MrvString& set, size_t start = 0) const;
    size_t find_first_not_of(char character, size_t start = 0) const;
    size_t find_last_not_of(const MrvString& set, size_t start = npos) const;
    size_t find_last_not_of(char character, size_t start = npos) const;
    /// @}

    /// A part of the text.
    MrvString substr(size_t position = 0, size_t count = npos) const
    {
        return MrvString(*this, position, count);
    }
    /// The text before the first `character`. The whole text where that is absent, and also, as callers
    /// rely on, where it is the first of the text.
    MrvString getStringBeforeFirst(char character) const;
    /// The text behind the last `character`. The whole text where that is absent, and also, as callers
    /// rely on, where it is only the first of the text.
    MrvString getStringAfterlast(char character) const;

    /// First difference of characters as signed bytes; where one text begins the other, the difference of
    /// the sizes.
    int compare(const MrvString& other) const { return compare(other.c_str(), other.size()); }
    int compare(const char* text) const { return compare(text, std::strlen(text)); }
    bool operator==(const MrvString& other) const { return equals(other.c_str(), other.size()); }
    bool operator==(const char* text) const { return equals(text, std::strlen(text)); }
    bool operator!=(const MrvString& other) const { return !(*this == other); }
    bool operator!=(const char* text) const { return !(*this == text); }

    /// @{
    /// Byte by byte by the C library's toupper and tolower.
    void toUpperSelf();
    void toLowerSelf();
    /// @}

    /// @{
    /// Remove all characters of the set from the front, the back or both.
    MrvString& ltrim(const MrvString& set);
    MrvString& rtrim(const MrvString& set);
    MrvString& trim(const MrvString& set);
    /// @}

private:
    /// True for an address in this text or of its terminator.
    bool owns(const char* address) const { return address >= begin() && address <= end(); }
    bool equals(const char* text, size_t count) const
    {
        return count == size() && std::memcmp(c_str(), text, count) == 0;
    }
    int compare(const char* text, size_t count) const;

    PODArray<char> _data;
};

inline bool operator==(const char* a, const MrvString& b)
{
    return b == a;
}
inline bool operator!=(const char* a, const MrvString& b)
{
    return !(b == a);
}

/// Lexicographic on signed bytes, the shorter text first.
inline bool operator<(const MrvString& a, const MrvString& b)
{
    return a.compare(b) < 0;
}

MRV_CORE_API MrvString operator+(const MrvString& a, const MrvString& b);
MRV_CORE_API MrvString operator+(const MrvString& a, const char* b);
MRV_CORE_API MrvString operator+(const char* a, const MrvString& b);
MRV_CORE_API MrvString operator+(const MrvString& a, char b);
MRV_CORE_API MrvString operator+(char a, const MrvString& b);

/// Writes the characters as a standard stream writes text (width and fill are kept).
MRV_CORE_API std::ostream& operator<<(std::ostream& stream, const MrvString& text);

/// Skips white space, then reads up to the next white space. At the end of the stream the text stays and
/// the stream is at its end and failed.
MRV_CORE_API std::istream& operator>>(std::istream& stream, MrvString& text);

} // namespace mrv
