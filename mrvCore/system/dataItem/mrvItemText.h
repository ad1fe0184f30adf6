// mrvCore/system/dataItem/mrvItemText.h
// The texts inside a data item tree.
#pragma once

#include "mrvCore/system/memory/mrvMemoryBlock.h"

#include <cstring>
#include <utility>

namespace mrv::internal {

/// A text that lies in the object itself up to `longestInline` bytes, and in a block of its own beyond. A
/// tree with these makes and frees a quarter of the blocks that it would with MrvString.
template <size_t longestInline>
class InlineText
{
public:
    InlineText() noexcept { setLength(0); }
    InlineText(const char* text) : InlineText(text, std::strlen(text)) {}
    InlineText(const char* text, size_t length) { assignToEmpty(text, length); }
    InlineText(const InlineText& other) : InlineText(other.c_str(), other.size()) {}
    InlineText(InlineText&& other) noexcept : InlineText() { swap(other); }
    ~InlineText()
    {
        if (isOutside())
            freeBlock(const_cast<char*>(c_str()));
    }
    InlineText& operator=(InlineText other) noexcept
    {
        swap(other);
        return *this;
    }
    void swap(InlineText& other) noexcept { std::swap(_bytes, other._bytes); }

    /// In place of an empty text.
    void assignToEmpty(const char* text, size_t length)
    {
        char* to = _bytes;
        if (length <= longestInline)
            setLength(length);
        else
        {
            to = static_cast<char*>(allocateBlock(length + 1, 1));
            std::memcpy(_bytes, &to, sizeof(to));
            std::memcpy(_bytes + sizeof(to), &length, lengthBytes);
            _bytes[longestInline] = outside;
        }
        std::memcpy(to, text, length);
        to[length] = '\0';
    }

    const char* c_str() const
    {
        const char* text = _bytes;
        if (isOutside())
            std::memcpy(&text, _bytes, sizeof(text));
        return text;
    }
    size_t size() const
    {
        if (!isOutside())
            return longestInline - static_cast<unsigned char>(_bytes[longestInline]);
        size_t length = 0;
        std::memcpy(&length, _bytes + sizeof(char*), lengthBytes);
        return length;
    }
    bool empty() const { return size() == 0; }

    bool equals(const char* text, size_t length) const
    {
        return size() == length && std::memcmp(c_str(), text, length) == 0;
    }

private:
    static constexpr size_t lengthBytes = 7; ///< the mark takes the eighth one's place
    static constexpr char outside = 127;     ///< no count of free bytes

    bool isOutside() const { return _bytes[longestInline] == outside; }
    void setLength(size_t length)
    {
        _bytes[length] = '\0';
        // No free byte is left by the longest one, whose terminator this is.
        _bytes[longestInline] = static_cast<char>(longestInline - length);
    }

    /// The bytes and how many are free behind them; or an address, a length and the mark.
    char _bytes[longestInline + 1];
};

/// Names of elements, contents and numbers seldom exceed this one.
using ItemText = InlineText<31>;
/// Names of attributes seldom exceed this one.
using ItemShortText = InlineText<15>;

} // namespace mrv::internal
