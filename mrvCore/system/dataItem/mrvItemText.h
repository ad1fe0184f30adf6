// mrvCore/system/dataItem/mrvItemText.h
// The texts inside a data item tree.
#pragma once

#include "mrvCore/system/memory/mrvMemoryBlock.h"

#include <cstring>
#include <utility>

namespace mrv::internal {

/// A text that lies in the object itself up to 31 bytes, which names and numbers never exceed, and in a block
/// of its own beyond. A tree with these makes and frees a quarter of the blocks that it would with MrvString.
class ItemText
{
public:
    ItemText() noexcept { setLength(0); }
    ItemText(const char* text) : ItemText(text, std::strlen(text)) {}
    ItemText(const char* text, size_t length)
    {
        char* to = _bytes;
        if (length <= longestInline)
            setLength(length);
        else
        {
            to = static_cast<char*>(allocateBlock(length + 1, 1));
            std::memcpy(_bytes, &to, sizeof(to));
            std::memcpy(_bytes + sizeof(to), &length, sizeof(length));
            _bytes[longestInline] = outside;
        }
        std::memcpy(to, text, length);
        to[length] = '\0';
    }
    ItemText(const ItemText& other) : ItemText(other.c_str(), other.size()) {}
    ItemText(ItemText&& other) noexcept : ItemText() { swap(other); }
    ~ItemText()
    {
        if (isOutside())
            freeBlock(const_cast<char*>(c_str()));
    }
    ItemText& operator=(ItemText other) noexcept
    {
        swap(other);
        return *this;
    }
    void swap(ItemText& other) noexcept { std::swap(_bytes, other._bytes); }

    const char* c_str() const
    {
        const char* text = _bytes;
        if (isOutside())
            std::memcpy(&text, _bytes, sizeof(text));
        return text;
    }
    size_t size() const
    {
        size_t length = longestInline - static_cast<unsigned char>(_bytes[longestInline]);
        if (isOutside())
            std::memcpy(&length, _bytes + sizeof(char*), sizeof(length));
        return length;
    }
    bool empty() const { return size() == 0; }

private:
    static constexpr size_t longestInline = 31;
    static constexpr char outside = 127; ///< no count of free bytes

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

} // namespace mrv::internal
