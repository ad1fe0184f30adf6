// mrvCore/system/inspection/mrvAttributeIndex.h
// All attributes of a class in one table, found by index and by name without a walk over the bases.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvPODArray.h"

namespace mrv {

class AbstractAttribute;
class RTTI;

/// What a record computes from its own attributes and those of its bases at the first look-up.
/// Threads: immutable after construction.
class MRV_CORE_API AttributeIndex
{
public:
    explicit AttributeIndex(const RTTI& record);

    unsigned int getCount() const { return static_cast<unsigned int>(_attributes.size()); }

    /// The attributes in the persistent order: those of the bases first.
    const AbstractAttribute* get(unsigned int index) const { return _attributes[index]; }

    /// The attribute of that name, which is made an identifier first; own attributes hide those of the
    /// bases. Null if there is none. `hint` is the index that the caller expects, such as the one behind
    /// the last find; it is moved behind the attribute found.
    const AbstractAttribute* find(const char* name, unsigned int& hint) const;

    /// False if an attribute hides one of a base.
    bool hasUniqueNames() const { return _hasUniqueNames; }

private:
    const AbstractAttribute* findByHash(const char* identifier, unsigned int& hint) const;
    void insert(unsigned int index);

    static constexpr unsigned int _none = ~0u;

    PODArray<const AbstractAttribute*> _attributes;
    PODArray<unsigned char> _isFoundByName; ///< per attribute: a look-up of its stored name gives it
    PODArray<unsigned int> _slots;          ///< open hash table of indices by name
    bool _hasUniqueNames = true;
};

} // namespace mrv
