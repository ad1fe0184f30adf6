// mrvCore/system/inspection/mrvAbstractAttribute.h
// Persistent description of one member of a class, as the object streams see it.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstddef>

namespace mrv {

class BinaryStream;
class DataItem;
class RTTI;
class XMLStream;

/// A named, typed member of a persistent class. The list of a class's attributes is its file format.
///
/// Holds no state of an instance: one attribute serves all instances and, once registered, any thread.
/// Owned by the record of the class that declares it.
class MRV_CORE_API AbstractAttribute
{
public:
    /// Form of the attribute's type: T, T*, const T*, T& or const T&.
    struct AttributeType
    {
        enum Value { VALUE, POINTER, CONST_POINTER, REFERENCE, CONST_REFERENCE, END };
    };

    virtual ~AbstractAttribute() = default;

    /// Record of the attribute's type.
    virtual const RTTI& getAttributeRTTI() const = 0;

    /// Record of the class that declares the attribute.
    virtual const RTTI& getOwnerRTTI() const { return *_ownerRTTI; }

    /// Writes the attribute of `object`, an instance of the owner's class.
    virtual void pack(BinaryStream& stream, const void* object) const = 0;

    /// Reads the attribute into `object`, an instance of the owner's class.
    virtual void unpack(BinaryStream& stream, void* object) const = 0;

    /// The least number of bytes that the attribute takes in a binary stream.
    virtual size_t getMinimumBinarySize() const { return 0; }

    /// Writes the attribute of `object` into its element `item`.
    virtual void pack(XMLStream& stream, DataItem& item, const void* object) const = 0;

    /// Reads the attribute from its element `item` into `object`.
    virtual void unpack(XMLStream& stream, const DataItem& item, void* object) const = 0;

    /// Deletes a value that the attribute left waiting between the two passes of a stream. Only attributes
    /// that leave values there have such.
    virtual void deleteValue(void* value) const;

    /// Name in files: the declared name made an identifier. Lives until the library stops.
    const char* getName() const { return _name; }

    AttributeType::Value getAttributeType() const { return _attributeType; }

protected:
    /// `name` may hold any characters; `owner` is the record of the declaring class.
    AbstractAttribute(const char* name, const RTTI& owner);

    /// The fatal end of an operation that the attribute's leaf does not define.
    [[noreturn]] void endNotImplemented() const;

    AttributeType::Value _attributeType = AttributeType::VALUE;

private:
    const char* _name;
    const RTTI* _ownerRTTI;
};

} // namespace mrv
