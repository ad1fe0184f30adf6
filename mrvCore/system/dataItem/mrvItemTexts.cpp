#include "mrvCore/system/dataItem/mrvItemTexts.h"

#include "mrvCore/system/memory/mrvMemoryBlock.h"

#include <algorithm>
#include <climits>
#include <utility>

namespace mrv::internal {

ItemTexts::ItemTexts(const ItemTexts& other) : ItemTexts()
{
    *this = other.makeCopy(other._size);
}

void ItemTexts::swap(ItemTexts& other) noexcept
{
    // Whichever of the two forms they have, their bytes mean the same elsewhere.
    char former[sizeof(*this)];
    std::memcpy(former, static_cast<const void*>(this), sizeof(former));
    std::memcpy(static_cast<void*>(this), static_cast<const void*>(&other), sizeof(former));
    std::memcpy(static_cast<void*>(&other), former, sizeof(former));
}

void ItemTexts::freeOutside()
{
    freeBlock(begin());
}

void ItemTexts::allocateOutside(size_t capacity)
{
    // Lengths have 32 bits: what is beyond is no memory that an item can have.
    char* const block = static_cast<char*>(allocateBlock(capacity > UINT_MAX ? SIZE_MAX : capacity, 1));
    std::memcpy(_bytes, &block, sizeof(block));
    _capacity = static_cast<uint32_t>(capacity);
}

ItemTexts ItemTexts::makeCopy(size_t capacity) const
{
    ItemTexts copy;
    if (capacity > roomInside)
        copy.allocateOutside(capacity);
    std::memcpy(copy.begin(), begin(), _size);
    copy._size = _size;
    copy._attributesCount = _attributesCount;
    return copy;
}

void ItemTexts::start(const char* name, size_t nameSize, size_t added)
{
    constexpr size_t emptyContent = 2;
    const size_t size = ItemText::footprintOf(nameSize) + emptyContent;
    if (size + added > roomInside)
        allocateOutside(size + added);
    std::memset(ItemText::write(begin(), name, nameSize), 0, emptyContent);
    _size = static_cast<uint32_t>(size);
}

void ItemTexts::replace(const ItemText& former, const char* text, size_t size)
{
    const char* const place = former.behind() - ItemText::footprintOf(former.size());
    const size_t before = static_cast<size_t>(place - begin());
    const size_t behind = static_cast<size_t>(end() - former.behind());
    const size_t needed = before + ItemText::footprintOf(size) + behind;
    const bool isOwn = text >= begin() && text < end();
    if (isOwn || needed > _capacity)
    {
        ItemTexts changed = makeCopy(std::max<size_t>(needed, _size));
        char* const at = ItemText::write(changed.begin() + before, text, size);
        std::memcpy(at, former.behind(), behind);
        changed._size = static_cast<uint32_t>(needed);
        return swap(changed);
    }
    char* const at = begin() + before;
    std::memmove(at + ItemText::footprintOf(size), former.behind(), behind);
    ItemText::write(at, text, size);
    _size = static_cast<uint32_t>(needed);
}

void ItemTexts::addAttributeGrowing(const char* name, size_t nameSize, const char* value, size_t valueSize)
{
    const size_t needed = _size + ItemText::footprintOf(nameSize) + ItemText::footprintOf(valueSize);
    ItemTexts grown = makeCopy(std::max<size_t>(needed, std::min<size_t>(2 * size_t(_capacity), UINT_MAX)));
    grown.addAttribute(name, nameSize, value, valueSize);
    swap(grown);
}

} // namespace mrv::internal
