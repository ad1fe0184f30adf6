// mrvCore/system/dataItem/mrvItemTexts.h
// The texts of one item of a data item tree.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/memory/mrvShortBytes.h"

#include <cstdint>
#include <cstring>

namespace mrv::internal {

/// A text of an item, as it lies among the others: its length, its bytes and a zero.
///
/// The length takes one byte, or that byte full and four more. A text is valid until its item changes.
class ItemText
{
public:
    explicit ItemText(const char* place) : _text(place + 1), _size(static_cast<unsigned char>(*place))
    {
        if (_size == longLength)
        {
            uint32_t size = 0;
            std::memcpy(&size, _text, sizeof(size));
            _text += sizeof(size);
            _size = size;
        }
    }

    const char* c_str() const { return _text; }
    size_t size() const { return _size; }
    bool empty() const { return _size == 0; }
    bool equals(const char* text, size_t size) const
    {
        return _size == size && areShortBytesEqual(_text, text, size);
    }
    /// The place behind it, where the next text lies.
    const char* behind() const { return _text + _size + 1; }

    /// The bytes that a text of this size takes.
    static size_t footprintOf(size_t size) { return size + (size < longLength ? 2 : 6); }
    /// Writes a text of less than 4 GiB and returns the place behind it.
    static char* write(char* place, const char* text, size_t size)
    {
        if (size < longLength)
            *place++ = static_cast<char>(size);
        else
            place = writeLongLength(place, static_cast<uint32_t>(size));
        copyShortBytes(place, text, size);
        place[size] = '\0';
        return place + size + 1;
    }

private:
    static constexpr size_t longLength = 255;

    static char* writeLongLength(char* place, uint32_t size)
    {
        *place = static_cast<char>(longLength);
        std::memcpy(place + 1, &size, sizeof(size));
        return place + 1 + sizeof(size);
    }

    const char* _text;
    size_t _size;
};

/// Name and value of an attribute, which lie one behind the other.
struct ItemAttribute
{
    explicit ItemAttribute(const char* place) : name(place), value(name.behind()) {}
    const char* behind() const { return value.behind(); }

    ItemText name;
    ItemText value;
};

/// All texts of an item one behind the other: name, content, then name and value of each attribute.
///
/// They lie in the object itself as long as they fit there, as those of five items in six do, and in one
/// block beyond. Texts given to an operation may be the item's own.
class MRV_CORE_API ItemTexts
{
public:
    ItemTexts() noexcept { reset(); }
    ItemTexts(const ItemTexts& other);
    ItemTexts(ItemTexts&& other) noexcept
    {
        std::memcpy(static_cast<void*>(this), static_cast<const void*>(&other), sizeof(*this));
        other.reset();
    }
    ~ItemTexts()
    {
        if (_capacity != roomInside)
            freeOutside();
    }
    ItemTexts& operator=(ItemTexts other) noexcept
    {
        swap(other);
        return *this;
    }
    void swap(ItemTexts& other) noexcept;

    ItemText getName() const { return ItemText(begin()); }
    ItemText getContent() const { return ItemText(getName().behind()); }

    unsigned int getAttributesCount() const { return _attributesCount; }
    /// The place of the first attribute, and that behind the last one.
    const char* attributesBegin() const { return getContent().behind(); }
    const char* end() const { return begin() + _size; }
    /// The place of the value of the first attribute of that name, null if there is none.
    const char* findValue(const char* name, size_t size) const
    {
        const char* const last = end();
        for (const char* place = attributesBegin(); place != last;)
        {
            const ItemAttribute attribute(place);
            if (attribute.name.equals(name, size))
                return attribute.name.behind();
            place = attribute.behind();
        }
        return nullptr;
    }

    /// Gives new texts their name, and room for so many further bytes as reserve() counts them.
    void start(const char* name, size_t nameSize, size_t added);
    void setName(const char* text, size_t size) { replace(getName(), text, size); }
    void setContent(const char* text, size_t size) { replace(getContent(), text, size); }
    /// Puts another text in the place of one of these.
    void replace(const ItemText& former, const char* text, size_t size);

    void addAttribute(const char* name, size_t nameSize, const char* value, size_t valueSize)
    {
        const size_t added = ItemText::footprintOf(nameSize) + ItemText::footprintOf(valueSize);
        if (added > _capacity - _size)
            return addAttributeGrowing(name, nameSize, value, valueSize);
        char* const place = ItemText::write(begin() + _size, name, nameSize);
        ItemText::write(place, value, valueSize);
        _size += static_cast<uint32_t>(added);
        ++_attributesCount;
    }
    /// Makes room for so many further bytes of texts, their lengths and their zeros.
    void reserve(size_t added)
    {
        if (added > _capacity - _size)
            *this = makeCopy(_size + added);
    }

private:
    /// With this the object takes 72 bytes.
    static constexpr uint32_t roomInside = 60;

    void reset()
    {
        _size = 4;
        _capacity = roomInside;
        _attributesCount = 0;
        std::memset(_bytes, 0, 4); // an empty name and an empty content
    }
    char* begin() { return const_cast<char*>(static_cast<const ItemTexts*>(this)->begin()); }
    const char* begin() const
    {
        const char* place = _bytes;
        if (_capacity != roomInside)
            std::memcpy(&place, _bytes, sizeof(place));
        return place;
    }
    void freeOutside();
    void allocateOutside(size_t capacity);
    ItemTexts makeCopy(size_t capacity) const;
    void addAttributeGrowing(const char* name, size_t nameSize, const char* value, size_t valueSize);

    uint32_t _size;
    uint32_t _capacity; ///< that of the object itself, or of a block, which is larger
    uint32_t _attributesCount;
    char _bytes[roomInside]; ///< the texts, or the address of the block
};

} // namespace mrv::internal
