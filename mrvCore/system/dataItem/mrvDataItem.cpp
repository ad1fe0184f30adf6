// mrvCore/system/dataItem/mrvDataItem.cpp
// A document tree in memory.
#include "mrvCore/system/dataItem/mrvDataItem.h"

#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/utils/mrvNumberText.h"

#include <algorithm>
#include <cstring>

#include <strings.h>

namespace mrv {

namespace {

unsigned int lengthOf(size_t size)
{
    return static_cast<unsigned int>(size);
}

/// Moves the elements to a block of exactly `capacity`. They keep what they own, where the array by itself
/// would copy whole subtrees.
template <class T>
void moveToCapacity(Array<T>& array, size_t capacity)
{
    Array<T> moved(array.getMemoryStatId());
    moved.set_capacity(capacity);
    moved.resize(array.size());
    std::move(array.begin(), array.end(), moved.begin());
    array.swap(moved);
}

/// One more element. The first block is small, since most items have one or two of a kind.
template <class T>
T& addOneTo(Array<T>& array)
{
    if (array.size() == array.capacity())
        moveToCapacity(array, array.empty() ? 2 : 2 * array.size());
    return array.addOne();
}

template <class T>
void reserveExactly(Array<T>& array, size_t count)
{
    if (count > array.capacity())
        moveToCapacity(array, count);
}

/// The element of that name, null if there is none.
template <class T, class Text>
const T* findNamed(const Array<T>& array, Text T::*name, const char* wanted)
{
    const size_t length = std::strlen(wanted);
    for (const T& element : array)
        if ((element.*name).equals(wanted, length))
            return &element;
    return nullptr;
}

template <class Item>
void collectNamed(Item& parent, const char* name, bool recursive, Array<Item*>& found)
{
    const unsigned int count = parent.getChildrenCount();
    for (unsigned int i = 0; i < count; ++i)
    {
        Item* child = nullptr;
        if constexpr (std::is_const_v<Item>)
            child = &parent.getChild(i);
        else
            child = &parent.touchChild(i);
        if (std::strcmp(child->getName(), name) == 0)
            found.push_back(child);
        if (recursive)
            collectNamed(*child, name, recursive, found);
    }
}

/// The value of an attribute, null for one that is absent.
const char* textOf(const DataItem::AttributeItem* attribute)
{
    return attribute == nullptr ? nullptr : attribute->_value.c_str();
}

/// False, with the best there is in `value`, for a text that is no T.
template <class T>
bool fromText(const internal::ItemText& text, T& value)
{
    if constexpr (std::is_same_v<T, MrvString>)
    {
        value = MrvString(text.c_str(), text.size());
        return true;
    }
    else
        return parseNumber(text.c_str(), text.size(), value);
}

/// The value of an attribute that may be absent, as the typed readers without a default give it.
template <class T>
T valueOf(const DataItem::AttributeItem* attribute)
{
    if constexpr (std::is_same_v<T, bool>)
        return stringToBool(textOf(attribute), false);
    else
    {
        T value = T();
        if (attribute != nullptr)
            fromText(attribute->_value, value);
        return value;
    }
}

} // namespace

const DataItem* DataItem::getChild(const char* name) const
{
    return findNamed(_children, &DataItem::_name, name);
}

DataItem* DataItem::touchChild(const char* name)
{
    return const_cast<DataItem*>(getChild(name));
}

Array<const DataItem*> DataItem::getChildren(const char* name, bool recursive) const
{
    Array<const DataItem*> found;
    collectNamed(*this, name, recursive, found);
    return found;
}

Array<DataItem*> DataItem::touchChildren(const char* name, bool recursive)
{
    Array<DataItem*> found;
    collectNamed(*this, name, recursive, found);
    return found;
}

void DataItem::addChild(const DataItem& child)
{
    DataItem copy(child); // the child may lie in this tree
    addChild() = std::move(copy);
}

DataItem& DataItem::addChild()
{
    return addOneTo(_children);
}

void DataItem::addChildren(size_t count)
{
    const size_t size = _children.size() + count;
    reserveChildrenSpace(size);
    _children.resize(size);
}

void DataItem::reserveChildrenSpace(size_t count)
{
    reserveExactly(_children, count);
}

const DataItem::AttributeItem* DataItem::findAttribute(const char* name) const
{
    return findNamed(_attributes, &AttributeItem::_name, name);
}

const char* DataItem::getAttribute(const char* name) const
{
    return textOf(findAttribute(name));
}

std::pair<const char*, const char*> DataItem::getAttribute(unsigned int index) const
{
    if (index >= _attributes.size())
        return { nullptr, nullptr };
    return { _attributes[index]._name.c_str(), _attributes[index]._value.c_str() };
}

void DataItem::setAttribute(const char* name, const char* value)
{
    const AttributeItem* const attribute = findAttribute(name);
    if (attribute == nullptr)
        addAttribute(name, value);
    else
        const_cast<AttributeItem*>(attribute)->_value = value;
}

void DataItem::addAttribute(const char* name, const char* value)
{
    addAttribute(name, lengthOf(std::strlen(name)), value, lengthOf(std::strlen(value)));
}

void DataItem::addAttribute(const char* name, unsigned int nameLength, const char* value,
                            unsigned int valueLength)
{
    if (_attributes.size() == _attributes.capacity())
    {
        const AttributeItem made{ { name, nameLength }, { value, valueLength } }; // the texts may lie in here
        addOneTo(_attributes) = made;
        return;
    }
    AttributeItem& attribute = _attributes.addOne();
    attribute._name.assignToEmpty(name, nameLength);
    attribute._value.assignToEmpty(value, valueLength);
}

void DataItem::reserveAttributesSpace(size_t count)
{
    reserveExactly(_attributes, count);
}

template <class T>
T DataItem::getAttribute(const char* name) const
{
    const AttributeItem* const attribute = findAttribute(name);
    if constexpr (std::is_same_v<T, MrvString>)
        MRV_ASSERT(attribute != NULL, "no attribute of name : %s", name);
    return valueOf<T>(attribute);
}

template <class T>
T DataItem::getAttribute(unsigned int index) const
{
    return valueOf<T>(index < _attributes.size() ? &_attributes[index] : nullptr);
}

template <class T, class>
T DataItem::getAttribute(const char* name, const T& defaultValue) const
{
    const AttributeItem* const attribute = findAttribute(name);
    if constexpr (std::is_same_v<T, bool>)
        return stringToBool(textOf(attribute), defaultValue);
    else
    {
        T value = T();
        return attribute != nullptr && fromText(attribute->_value, value) ? value : defaultValue;
    }
}

template <class T, class>
void DataItem::addAttribute(const char* name, const T& value)
{
    if constexpr (std::is_same_v<T, MrvString>)
        addAttribute(name, lengthOf(std::strlen(name)), value.c_str(), lengthOf(value.size()));
    else
    {
        const NumberText text(value);
        addAttribute(name, lengthOf(std::strlen(name)), text.c_str(), lengthOf(text.size()));
    }
}

template <class T>
T DataItem::getContent() const
{
    if constexpr (std::is_same_v<T, bool>)
        return stringToBool(_content.empty() ? nullptr : _content.c_str(), false);
    else
        return MrvString(_content.c_str(), _content.size());
}

template <class T, class>
T DataItem::getContent(const T& defaultValue) const
{
    if (_content.empty())
        return defaultValue;
    if constexpr (std::is_same_v<T, bool>)
        return stringToBool(_content.c_str(), defaultValue);
    else
        return MrvString(_content.c_str(), _content.size());
}

MrvString DataItem::traceDataItems(MrvString& indent) const
{
    MrvString text;
    trace(text, indent);
    return text;
}

void DataItem::trace(MrvString& out, MrvString& indent) const
{
    out += indent;
    out += _name.c_str();
    if (!_content.empty())
    {
        out += '[';
        out += _content.c_str();
        out += ']';
    }
    for (const AttributeItem& attribute : _attributes)
    {
        out += ' ';
        out += attribute._name.c_str();
        out += '=';
        out += attribute._value.c_str();
    }
    out += '\n';

    const size_t indentSize = indent.size();
    indent += "   ";
    for (const DataItem& child : _children)
        child.trace(out, indent);
    indent.resize(indentSize);
}

bool stringToBool(const char* text, bool defaultValue)
{
    MRV_ASSERT(text != nullptr, "no text to read a bool from");
    if (std::strcmp(text, "0") == 0 || strcasecmp(text, "false") == 0)
        return false;
    if (std::strcmp(text, "1") == 0 || strcasecmp(text, "true") == 0)
        return true;
    return defaultValue;
}

#define MRV_DATA_ITEM_TYPE(Type)                                                                             \
    template MRV_CORE_API Type DataItem::getAttribute<Type>(const char*) const;                              \
    template MRV_CORE_API Type DataItem::getAttribute<Type>(unsigned int) const;                             \
    template MRV_CORE_API Type DataItem::getAttribute<Type>(const char*, const Type&) const;                 \
    template MRV_CORE_API void DataItem::addAttribute<Type>(const char*, const Type&);

MRV_DATA_ITEM_TYPE(bool)
MRV_DATA_ITEM_TYPE(short)
MRV_DATA_ITEM_TYPE(unsigned short)
MRV_DATA_ITEM_TYPE(int)
MRV_DATA_ITEM_TYPE(unsigned int)
MRV_DATA_ITEM_TYPE(long)
MRV_DATA_ITEM_TYPE(unsigned long)
MRV_DATA_ITEM_TYPE(float)
MRV_DATA_ITEM_TYPE(double)
MRV_DATA_ITEM_TYPE(MrvString)

template MRV_CORE_API bool DataItem::getContent<bool>() const;
template MRV_CORE_API bool DataItem::getContent<bool>(const bool&) const;
template MRV_CORE_API MrvString DataItem::getContent<MrvString>() const;
template MRV_CORE_API MrvString DataItem::getContent<MrvString>(const MrvString&) const;

} // namespace mrv
