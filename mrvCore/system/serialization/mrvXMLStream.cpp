// mrvCore/system/serialization/mrvXMLStream.cpp
#include "mrvCore/system/serialization/mrvXMLStream.h"

#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/math/types/mrvVector4.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvAttributeIndex.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/utils/mrvStackSpace.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"
#include "mrvCore/system/xml/mrvXMLOutput.h"
#include "mrvCore/system/xml/mrvXMLPrinter.h"

#include <cstring>

namespace mrv {

const char* XMLStream::dimensionName[4] = { "x", "y", "z", "w" };

namespace {

constexpr unsigned int firstPointerId = 1000000;

// Which attributes of an object were read. Each is read once: a value that owns what it points at, stored
// twice, would give one object two owners.
class ReadAttributes
{
public:
    /// False for an attribute that was added before.
    bool add(unsigned int index)
    {
        const uint64_t bit = uint64_t(1) << (index % 64);
        if (index / 64 > _others.size())
            _others.resize(index / 64, 0);
        uint64_t& bits = index < 64 ? _first : _others[index / 64 - 1];
        const bool isNew = (bits & bit) == 0;
        bits |= bit;
        return isNew;
    }

private:
    uint64_t _first = 0;
    PODArray<uint64_t> _others;
};

} // namespace

XMLStream::XMLStream() : _configurationItem("XMLSerialization"), _firstPassElement("element")
{
    clear();
}

XMLStream::~XMLStream() = default;

void XMLStream::init()
{
    dimensionName[3] = "w";
}

void XMLStream::clear()
{
    _writtenIdentities.clear();
    _readIdentities.clear();
    _pointerId = firstPointerId;
    _firstPass = true;
}

void XMLStream::setFirstPass(bool firstPass)
{
    if (firstPass && !_firstPass)
        _readIdentities.finish();
    _firstPass = firstPass;
    // An element without an id gets the same one in both passes.
    _pointerId = firstPointerId;
}

SaveXMLDataFileErrorCode::Value XMLStream::exportTo(const char* fileName)
{
    return XMLDataFileParser().write(fileName, _configurationItem);
}

void XMLStream::importFrom(const char* fileName)
{
    _configurationItem.clear();
    XMLDataFileParser(fileName, _configurationItem);
}

template <typename T>
void XMLStream::doWriteAttribute(DataItem& item, T value, const char* name)
{
    if (_firstPass)
        return;
    if (isPrinted(item))
        _printer->addNumber(name, std::strlen(name), value);
    else
        item.addAttribute(name, value);
}

template <typename T>
void XMLStream::doReadAttribute(const DataItem& item, T& value, const char* name)
{
    value = item.getAttribute<T>(name);
}

// One line for each number that an attribute can hold.
#define MRV_INTERNAL_NUMBER(T)                                                                               \
    void XMLStream::write(DataItem& item, T value)                                                           \
    {                                                                                                        \
        doWriteAttribute(item, value);                                                                       \
    }                                                                                                        \
    void XMLStream::read(const DataItem& item, T& value)                                                     \
    {                                                                                                        \
        doReadAttribute(item, value);                                                                        \
    }                                                                                                        \
    template MRV_CORE_API void XMLStream::doWriteAttribute<T>(DataItem&, T, const char*);                    \
    template MRV_CORE_API void XMLStream::doReadAttribute<T>(const DataItem&, T&, const char*);

MRV_INTERNAL_NUMBER(short)
MRV_INTERNAL_NUMBER(unsigned short)
MRV_INTERNAL_NUMBER(int)
MRV_INTERNAL_NUMBER(unsigned int)
MRV_INTERNAL_NUMBER(long)
MRV_INTERNAL_NUMBER(uint64_t)
MRV_INTERNAL_NUMBER(float)
MRV_INTERNAL_NUMBER(double)

#undef MRV_INTERNAL_NUMBER

void XMLStream::writeText(DataItem& item, const char* name, size_t nameSize, const char* text, size_t size)
{
    if (_firstPass)
        return;
    if (isPrinted(item))
        _printer->addAttribute(name, nameSize, text, size);
    else
        item.touchTexts().addAttribute(name, nameSize, text, size);
}

void XMLStream::write(DataItem& item, bool value)
{
    write(item, value ? "1" : "0");
}

void XMLStream::read(const DataItem& item, bool& value)
{
    if (const char* text = item.getAttribute("value"))
        value = stringToBool(text, value);
    else
        MRV_LOG_LIMITED(SDK, LOG_WARNING,
                        "Attribute value missing on node " << item.getName() << ", which holds a bool");
}

void XMLStream::write(DataItem& item, char value)
{
    const char text[2] = { value, '\0' };
    write(item, text);
}

void XMLStream::read(const DataItem& item, char& value)
{
    const char* text = item.getAttribute("value");
    value = text != nullptr ? text[0] : '\0';
}

void XMLStream::write(DataItem& item, unsigned char value)
{
    write(item, static_cast<char>(value));
}

void XMLStream::read(const DataItem& item, unsigned char& value)
{
    char character = '\0';
    read(item, character);
    value = static_cast<unsigned char>(character);
}

void XMLStream::write(DataItem& item, const char* value)
{
    writeText(item, "value", 5, value, std::strlen(value));
}

void XMLStream::read(const DataItem& item, const char*& value)
{
    value = item.getAttribute("value");
}

void XMLStream::write(DataItem& item, const MrvString& value)
{
    writeText(item, "value", 5, value.c_str(), value.size());
}

void XMLStream::read(const DataItem& item, MrvString& value)
{
    const char* attribute = item.getAttribute("value");
    MRV_ASSERT(attribute != NULL, "no attribute of name : %s", "value");
    value = attribute;
}

template <size_t Count>
void XMLStream::writeComponents(DataItem& item, const float (&components)[Count])
{
    if (_firstPass)
        return;
    constexpr size_t longestUsual = 40; // a component of some 30 digits and what is around it
    if (!isPrinted(item))
        item.touchTexts().reserve(Count * longestUsual);
    for (size_t i = 0; i < Count; ++i)
        doWriteAttribute(item, components[i], dimensionName[i]);
}

// Older files have the components as children. There, what is not named stays as it was.
template <size_t Count>
void XMLStream::readComponents(const DataItem& item, float (&components)[Count])
{
    if (item.getChildrenCount() == 0)
    {
        for (size_t i = 0; i < Count; ++i)
            doReadAttribute(item, components[i], dimensionName[i]);
        return;
    }
    for (unsigned int child = 0; child < item.getChildrenCount(); ++child)
        for (size_t i = 0; i < Count; ++i)
            if (std::strcmp(item.getChild(child).getName(), dimensionName[i]) == 0)
                doReadAttribute(item.getChild(child), components[i]);
}

void XMLStream::write(DataItem& item, const Vector2& value)
{
    writeComponents(item, { value.x, value.y });
}

void XMLStream::write(DataItem& item, const Vector3& value)
{
    writeComponents(item, { value.x, value.y, value.z });
}

void XMLStream::write(DataItem& item, const Vector4& value)
{
    writeComponents(item, { value.x, value.y, value.z, value.w });
}

void XMLStream::write(DataItem& item, const Quaternion& value)
{
    writeComponents(item, { value.x, value.y, value.z, value.w });
}

void XMLStream::read(const DataItem& item, Vector2& value)
{
    float components[] = { value.x, value.y };
    readComponents(item, components);
    value = Vector2(components[0], components[1]);
}

void XMLStream::read(const DataItem& item, Vector3& value)
{
    float components[] = { value.x, value.y, value.z };
    readComponents(item, components);
    value = Vector3(components[0], components[1], components[2]);
}

void XMLStream::read(const DataItem& item, Vector4& value)
{
    float components[] = { value.x, value.y, value.z, value.w };
    readComponents(item, components);
    value = Vector4(components[0], components[1], components[2], components[3]);
}

void XMLStream::read(const DataItem& item, Quaternion& value)
{
    float components[] = { value.x, value.y, value.z, value.w };
    readComponents(item, components);
    value = Quaternion(components[0], components[1], components[2], components[3]);
}

DataItem& XMLStream::enterChild(DataItem& item, const char* name, unsigned int nameSize)
{
    if (_firstPass)
        return _firstPassElement;
    if (isPrinted(item))
    {
        printStrays();
        _printer->open(name, nameSize);
        return item;
    }
    DataItem& child = item.addChild();
    child.setName(name, nameSize);
    return child;
}

DataItem& XMLStream::enterElement(DataItem& item, size_t index)
{
    DataItem& element = enterElement(item);
    doWriteAttribute(element, static_cast<unsigned int>(index), "index");
    return element;
}

void XMLStream::leavePrintedChild()
{
    printStrays();
    _printer->close();
}

// What an attribute class of a host has put into the item that stands for the open element.
void XMLStream::printStrays()
{
    const bool isEmpty = _printedItem.getAttributesCount() == 0 && _printedItem.getChildrenCount() == 0 &&
                         _printedItem.getTexts().getContent().empty();
    if (isEmpty)
        return;
    _printer->printInside(_printedItem);
    _printedItem.clear();
}

XMLStream::Entry XMLStream::findEntry(const DataItem& item) const
{
    const DataItem* firstChild = item.getChildrenCount() > 0 ? &item.getChild(0u) : NULL;
    MRV_ASSERT(firstChild != NULL);
    const DataItem* secondChild = item.getChildrenCount() > 1 ? &item.getChild(1u) : nullptr;
    const bool isSwapped = firstChild->getAttribute<int>("index") != 0 && secondChild != nullptr;
    return isSwapped ? Entry{ secondChild, firstChild } : Entry{ firstChild, secondChild };
}

bool XMLStream::findIndex(const DataItem& element, unsigned int position, size_t size,
                          unsigned int& index) const
{
    index = element.getAttribute<unsigned int>("index", position);
    if (index < size)
        return true;
    MRV_LOG_LIMITED(SDK, LOG_WARNING, "Element " << index << " lies outside an array of " << size);
    return false;
}

const DataItem* XMLStream::findObject(const DataItem& item, const RTTI& type) const
{
    for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
    {
        const DataItem& child = item.getChild(i);
        const char* typeName = child.getAttribute("typeName");
        const RTTI* stored = typeName != nullptr ? RTTI::getRTTI(RTTI::getTypeID(typeName)) : &type;
        if (stored != nullptr && stored->isDerivedFrom(type))
            return &child;
    }
    return nullptr;
}

void XMLStream::finishPack(DataItem& item, const RTTI& rtti)
{
    if (item.getAttribute("typeName") == nullptr)
        item.addAttribute("typeName", rtti.getTypeName());
}

void XMLStream::writeTypeName(DataItem& item, const RTTI& rtti)
{
    writeText(item, "typeName", 8, rtti.getTypeName(), std::strlen(rtti.getTypeName()));
}

SaveXMLDataFileErrorCode::Value XMLStream::exportObject(const char* fileName, const DataItem& root,
                                                        const void* object, const RTTI& rtti)
{
    return printXMLFile(fileName, root.getName(),
                        [&](XMLPrinter& printer) { printObject(printer, root, object, rtti); });
}

void XMLStream::exportObject(std::ostream& stream, const DataItem& root, const void* object, const RTTI& rtti)
{
    printXMLText(stream, root.getName(),
                 [&](XMLPrinter& printer) { printObject(printer, root, object, rtti); });
}

void XMLStream::printObject(XMLPrinter& printer, const DataItem& root, const void* object, const RTTI& rtti)
{
    writeObject(_firstPassElement, object, rtti, false);
    setFirstPass(false);
    _printer = &printer;
    printer.open(root.getName(), std::strlen(root.getName()));
    printer.printInside(root);
    DataItem& child = enterChild(_printedItem, "maravoObject", 12);
    _writtenIdentities.takePending(object);
    doWriteAttribute(child, _writtenIdentities.getId(object), "pointerID");
    writeTypeName(child, rtti);
    packAttributes(child, object, rtti);
    leaveChild(child);
    printer.close();
    _printer = nullptr;
    setFirstPass(true);
}

void XMLStream::writeObject(DataItem& item, const void* object, const RTTI& rtti, bool isByValue)
{
    if (_firstPass)
    {
        _writtenIdentities.add(object);
        if (isByValue)
            _writtenIdentities.takePending(object);
    }
    else
    {
        _writtenIdentities.takePending(object);
        if (item.getAttribute("pointerID") == nullptr)
            doWriteAttribute(item, _writtenIdentities.getId(object), "pointerID");
    }
    packAttributes(item, object, rtti);
}

void XMLStream::packAttributes(DataItem& item, const void* object, const RTTI& rtti)
{
    if (!hasStackSpace())
    {
        MRV_LOG_LIMITED(SDK, LOG_ERROR,
                        "The objects of type " << rtti.getTypeName()
                                               << " are chained too deeply to be written");
        return;
    }
    const AttributeIndex& attributes = rtti.getAttributeIndex();
    if (_firstPass)
    {
        for (unsigned int i = 0; i < attributes.getCount(); ++i)
            attributes.get(i)->pack(*this, item, object);
        return;
    }
    reserveChildren(item, attributes.getCount());
    for (unsigned int i = 0; i < attributes.getCount(); ++i)
    {
        const char* const name = attributes.get(i)->getName();
        DataItem& child = enterChild(item, name, static_cast<unsigned int>(std::strlen(name)));
        attributes.get(i)->pack(*this, child, object);
        leaveChild(child);
    }
}

void XMLStream::writePointer(DataItem& item, const void* object, const RTTI& rtti, const RTTI& declared)
{
    if (_firstPass)
    {
        if (object == nullptr || !_writtenIdentities.add(object))
            return;
        _writtenIdentities.setPending(object, rtti);
        return packAttributes(item, object, rtti);
    }
    doWriteAttribute(item, _writtenIdentities.getId(object), "pointerID");
    if (object == nullptr || !_writtenIdentities.takePending(object))
        return;
    if (std::strcmp(rtti.getTypeName(), declared.getTypeName()) != 0)
        writeTypeName(item, rtti);
    packAttributes(item, object, rtti);
}

bool XMLStream::writePlainPointer(DataItem& item, const void* value, const RTTI& type)
{
    if (_firstPass)
    {
        if (value != nullptr && _writtenIdentities.add(value))
            _writtenIdentities.setPending(value, type);
        return false;
    }
    doWriteAttribute(item, _writtenIdentities.getId(value), "pointerID");
    return value != nullptr && _writtenIdentities.takePending(value);
}

void XMLStream::readObject(const DataItem& item, void* object, const RTTI& rtti)
{
    if (_firstPass && item.getAttribute("pointerID") != nullptr)
        _readIdentities.addValue(item.getAttribute<unsigned int>("pointerID"), object, rtti);
    readAttributes(item, object, rtti);
}

void XMLStream::readAttributes(const DataItem& item, void* object, const RTTI& rtti)
{
    if (!hasStackSpace())
    {
        MRV_LOG_LIMITED(SDK, LOG_ERROR, "Node " << item.getName() << " is nested too deeply to be read");
        return;
    }
    const AttributeIndex& attributes = rtti.getAttributeIndex();
    unsigned int expected = 0;
    ReadAttributes read;
    for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
    {
        const DataItem& child = item.getChild(i);
        const AbstractAttribute* const attribute = attributes.find(child.getName(), expected);
        if (attribute == nullptr)
            MRV_LOG_LIMITED(SDK, LOG_WARNING,
                            "Attribute named " << child.getName() << " unexpected on node "
                                               << item.getName());
        else if (read.add(expected - 1) || !attributes.hasUniqueNames())
            attribute->unpack(*this, child, object);
        else
            MRV_LOG_LIMITED(SDK, LOG_WARNING,
                            "Attribute named " << child.getName() << " stands twice on node "
                                               << item.getName());
    }
}

// Null's id 0 and ids that are not there count as well: an element without one gets a number of its own.
unsigned int XMLStream::readPointerId(const DataItem& item)
{
    const unsigned int fallback = _pointerId++;
    return item.getAttribute<unsigned int>("pointerID", fallback);
}

void* XMLStream::readPointer(const DataItem& item, const RTTI& declared)
{
    const unsigned int id = readPointerId(item);
    if (!_firstPass)
    {
        const internal::ReadIdentities::Found found = _readIdentities.find(id, declared);
        if (found.object != nullptr)
            readObject(item, found.object, *found.type);
        return found.object;
    }
    if (_readIdentities.contains(id))
        return nullptr; // the address comes in the second pass
    const char* typeName = item.getAttribute("typeName");
    const RTTI* rtti = typeName != nullptr ? RTTI::getRTTI(RTTI::getTypeID(typeName)) : &declared;
    const bool isFitting = rtti != nullptr && rtti->isDerivedFrom(declared);
    void* object = isFitting ? rtti->createInstance() : nullptr;
    const uint32_t number = _readIdentities.addCreated(id, object, rtti);
    if (object == nullptr)
    {
        MRV_LOG_LIMITED(SDK, LOG_WARNING,
                        (typeName != nullptr ? typeName : declared.getTypeName())
                            << " is not a registered inspectable type");
        return nullptr;
    }
    const uint32_t container = _readIdentities.enterCreated(number);
    readObject(item, object, *rtti);
    _readIdentities.leaveCreated(container);
    return object;
}

void* XMLStream::readPlainPointer(const DataItem& item, const RTTI& type, void* (*create)())
{
    const unsigned int id = readPointerId(item);
    if (!_firstPass)
        return _readIdentities.find(id, type).object;
    if (_readIdentities.contains(id))
        return nullptr;
    void* value = create();
    _readIdentities.addCreated(id, value, &type);
    return value;
}

} // namespace mrv
