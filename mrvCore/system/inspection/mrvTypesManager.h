// mrvCore/system/inspection/mrvTypesManager.h
// Names that a host gives to its own types.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/genericPatterns/mrvSingleton.h"
#include "mrvCore/system/thread/mrvSpinLock.h"

#include <cstddef>

namespace mrv {

/// What is known of one type of a host.
struct TypeInfo
{
    MrvString _typeName;
};

/// The types of the host by the host's own numbers. The library adds none itself.
class MRV_CORE_API TypesManager
{
public:
    TypesManager();
    virtual ~TypesManager();

    /// The entry of a type, or one named "[unknown]". Lives as long as the manager. Any thread.
    const TypeInfo& getType(size_t id) const;

private:
    MrvMap<unsigned long, TypeInfo> _registeredTypes;
    mutable SpinLock _typesLock;
    TypeInfo _defaultTypeInfo;
};

/// The manager, which lives from the start of the library to its stop.
MRV_CORE_API TypesManager& getTypesManagerSingleton();

} // namespace mrv

MRV_DECLARE_SINGLETON(mrv::TypesManager)
