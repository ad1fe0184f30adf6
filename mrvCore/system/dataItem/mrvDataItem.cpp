// mrvCore/system/dataItem/mrvDataItem.cpp
// A document tree in memory.
#include "mrvCore/system/dataItem/mrvDataItem.h"

#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/utils/mrvNumberText.h"

#include <cstring>

#include <strings.h>

namespace mrv {

namespace {

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

/// The text at the place of an attribute's value, null for one that is absent.
const char* textAt(const char* place)
{
    return place == nullptr ? nullptr : internal::ItemText(place).c_str();
}

/// The place of an attribute, null from their count on.
const char* findByIndex(const internal::ItemTexts& texts, unsigned int index)
{
    if (index >= texts.getAttributesCount())
        return nullptr;
    const char* place = texts.attributesBegin();
    for (; index > 0; --index)
        place = internal::ItemAttribute(place).behind();
    return place;
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

/// The value at its place, which may be absent, as the typed readers without a default give it.
template <class T>
T valueAt(const char* place)
{
    if constexpr (std::is_same_v<T, bool>)
        return stringToBool(textAt(place), false);
    else
    {
        T value = T();
        if (place != nullptr)
            fromText(internal::ItemText(place), value);
        return value;
    }
}

} // namespace

const DataItem* DataItem::getChild(const char* name) const
{
    const size_t length = std::strlen(name);
    for (unsigned int i = 0; i < getChildrenCount(); ++i)
        if (getChild(i)._texts.getName().equals(name, length))
            return &getChild(i);
    return nullptr;
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

std::pair<const char*, const char*> DataItem::getAttribute(unsigned int index) const
{
    const char* const place = findByIndex(_texts, index);
    if (place == nullptr)
        return { nullptr, nullptr };
    const internal::ItemAttribute attribute(place);
    return { attribute.name.c_str(), attribute.value.c_str() };
}

void DataItem::setAttribute(const char* name, const char* value)
{
    const char* const place = _texts.findValue(name, std::strlen(name));
    if (place == nullptr)
        addAttribute(name, value);
    else
        _texts.replace(internal::ItemText(place), value, std::strlen(value));
}

template <class T>
T DataItem::getAttribute(const char* name) const
{
    const char* const attribute = _texts.findValue(name, std::strlen(name));
    if constexpr (std::is_same_v<T, MrvString>)
        MRV_ASSERT(attribute != NULL, "no attribute of name : %s", name);
    return valueAt<T>(attribute);
}

template <class T>
T DataItem::getAttribute(unsigned int index) const
{
    const char* const place = findByIndex(_texts, index);
    return valueAt<T>(place == nullptr ? nullptr : internal::ItemText(place).behind());
}

template <class T, class>
T DataItem::getAttribute(const char* name, const T& defaultValue) const
{
    const char* const place = _texts.findValue(name, std::strlen(name));
    if constexpr (std::is_same_v<T, bool>)
        return stringToBool(textAt(place), defaultValue);
    else
    {
        T value = T();
        return place != nullptr && fromText(internal::ItemText(place), value) ? value : defaultValue;
    }
}

template <class T, class>
void DataItem::addAttribute(const char* name, const T& value)
{
    if constexpr (std::is_same_v<T, MrvString>)
        _texts.addAttribute(name, std::strlen(name), value.c_str(), value.size());
    else
    {
        const NumberText text(value);
        _texts.addAttribute(name, std::strlen(name), text.c_str(), text.size());
    }
}

template <class T>
T DataItem::getContent() const
{
    const internal::ItemText content = _texts.getContent();
    if constexpr (std::is_same_v<T, bool>)
        return stringToBool(content.empty() ? nullptr : content.c_str(), false);
    else
        return MrvString(content.c_str(), content.size());
}

template <class T, class>
T DataItem::getContent(const T& defaultValue) const
{
    const internal::ItemText content = _texts.getContent();
    if (content.empty())
        return defaultValue;
    if constexpr (std::is_same_v<T, bool>)
        return stringToBool(content.c_str(), defaultValue);
    else
        return MrvString(content.c_str(), content.size());
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
    out += getName();
    if (!_texts.getContent().empty())
    {
        out += '[';
        out += getContent();
        out += ']';
    }
    for (const char* place = _texts.attributesBegin(); place != _texts.end();)
    {
        const internal::ItemAttribute attribute(place);
        out += ' ';
        out += attribute.name.c_str();
        out += '=';
        out += attribute.value.c_str();
        place = attribute.behind();
    }
    out += '\n';

    const size_t indentSize = indent.size();
    indent += "   ";
    for (unsigned int i = 0; i < getChildrenCount(); ++i)
        getChild(i).trace(out, indent);
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
