// mrvCore/system/dataItem/mrvDataItem.h
// A document tree in memory with the shape of XML elements.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/dataItem/mrvItemChildren.h"
#include "mrvCore/system/dataItem/mrvItemTexts.h"

#include <cstring>
#include <type_traits>
#include <utility>

namespace mrv {

namespace internal {

/// Keeps the typed operations from taking what is a plain text.
template <class T>
using EnableIfNoText = std::enable_if_t<!std::is_pointer_v<std::decay_t<T>>>;

} // namespace internal

/// One element: a name, a text content, attributes in order, and children in order, owned by value.
///
/// Values are always text; numbers are converted as streams do it in the classic locale, see mrvNumberText.h.
/// Copying an item copies its whole subtree. A pointer or reference to a child, and a text that an operation
/// returned, stay valid until the item that holds it changes.
/// A `const char*` given to an operation must not be null. Operations that walk a subtree, the destructor
/// included, take stack by its depth; trees that come from files have at most
/// XMLDataFileParser::maximumNesting levels.
/// Threads: a tree belongs to one thread at a time.
class MRV_CORE_API DataItem
{
public:
    DataItem() = default;
    DataItem(const char* name) { setName(name); }
    DataItem(const DataItem&) = default;
    DataItem(DataItem&&) noexcept = default;
    virtual ~DataItem() = default;
    DataItem& operator=(const DataItem&) = default;
    DataItem& operator=(DataItem&&) noexcept = default;

    const char* getName() const { return _texts.getName().c_str(); }
    void setName(const char* name) { _texts.setName(name, std::strlen(name)); }
    void setName(const char* name, unsigned int length) { _texts.setName(name, length); }

    unsigned int getChildrenCount() const { return _children.size(); }
    /// `index` is below getChildrenCount().
    const DataItem& getChild(unsigned int index) const
    {
        MRV_CONTAINER_CHECK(index < getChildrenCount());
        return _children.begin()[index];
    }
    DataItem& touchChild(unsigned int index)
    {
        MRV_CONTAINER_CHECK(index < getChildrenCount());
        return _children.begin()[index];
    }
    /// The first child of that name, null if there is none.
    const DataItem* getChild(const char* name) const;
    DataItem* touchChild(const char* name);

    /// All children of that name in order. With `recursive` those inside each child, whatever its name is,
    /// follow right behind it: depth first, parents before their descendants.
    Array<const DataItem*> getChildren(const char* name, bool recursive) const;
    Array<DataItem*> touchChildren(const char* name, bool recursive);

    /// Appends a copy, also of an item of this tree.
    void addChild(const DataItem& child);
    /// Appends an empty child.
    DataItem& addChild() { return _children.add(); }
    /// Appends `count` empty children in one step.
    void addChildren(size_t count) { _children.add(count); }
    /// Room for `count` children in all and no more; what is reserved is not moved when it is filled.
    void reserveChildrenSpace(size_t count) { _children.reserve(count); }

    unsigned int getAttributesCount() const { return _texts.getAttributesCount(); }
    /// The value of the first attribute of that name, null if there is none. Names need not be unique; all
    /// but the first are reached by index only.
    const char* getAttribute(const char* name) const
    {
        const char* const place = _texts.findValue(name, std::strlen(name));
        return place == nullptr ? nullptr : internal::ItemText(place).c_str();
    }
    /// Name and value, both null from getAttributesCount() on. Walks over those before.
    std::pair<const char*, const char*> getAttribute(unsigned int index) const;

    /// Changes the first attribute of that name, or appends it.
    void setAttribute(const char* name, const char* value);
    /// Appends, also where the name exists.
    void addAttribute(const char* name, const char* value)
    {
        _texts.addAttribute(name, std::strlen(name), value, std::strlen(value));
    }
    void addAttribute(const char* name, unsigned int nameLength, const char* value, unsigned int valueLength)
    {
        _texts.addAttribute(name, nameLength, value, valueLength);
    }

    /// A value as T: `bool`, MrvString, or a number of the types of parseNumber.
    ///
    /// Numbers: an absent attribute and a text that is no number give 0. MrvString: an absent attribute is
    /// fatal by name, empty by index. `bool`: stringToBool with false as default, so that an absent
    /// attribute is fatal.
    template <class T>
    T getAttribute(const char* name) const;
    template <class T>
    T getAttribute(unsigned int index) const;
    /// The default stands in for an absent attribute and a text that is no T; for a `bool` the attribute must
    /// exist all the same.
    template <class T, class = internal::EnableIfNoText<T>>
    T getAttribute(const char* name, const T& defaultValue) const;

    /// Appends a value as text; numbers as NumberText writes them.
    template <class T, class = internal::EnableIfNoText<T>>
    void addAttribute(const char* name, const T& value);

    const char* getContent() const { return _texts.getContent().c_str(); }
    /// The given text in place of an empty content.
    const char* getContent(const char* defaultText) const
    {
        const internal::ItemText content = _texts.getContent();
        return content.empty() ? defaultText : content.c_str();
    }
    void setContent(const char* content) { _texts.setContent(content, std::strlen(content)); }
    void setContent(const char* content, unsigned int length) { _texts.setContent(content, length); }

    /// The content as `bool` or MrvString. Without a default an empty content is fatal for a `bool`.
    template <class T>
    T getContent() const;
    template <class T, class = internal::EnableIfNoText<T>>
    T getContent(const T& defaultValue) const;

    /// Leaves the state of a new item without a name.
    void clear() { *this = DataItem(); }

    /// The subtree for a person to read, one line an item: indent, name, [content], attributes. Children are
    /// indented by three blanks more; `indent` comes back as it was.
    MrvString traceDataItems(MrvString& indent) const;

    /// @{
    /// Name, content and attributes, and the children, for code that walks whole trees.
    const internal::ItemTexts& getTexts() const { return _texts; }
    internal::ItemTexts& touchTexts() { return _texts; }
    internal::ItemChildren& touchChildren() { return _children; }
    /// @}

private:
    void trace(MrvString& out, MrvString& indent) const;

    internal::ItemTexts _texts;
    internal::ItemChildren _children;
};

/// "0" and "false" are false, "1" and "true" are true, the words in any case; all else is the default.
/// A null text is fatal.
MRV_CORE_API bool stringToBool(const char* text, bool defaultValue);

} // namespace mrv
