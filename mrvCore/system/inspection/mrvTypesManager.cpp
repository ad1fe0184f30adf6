// mrvCore/system/inspection/mrvTypesManager.cpp
#include "mrvCore/system/inspection/mrvTypesManager.h"

#include "mrvCore/system/thread/mrvScopedLock.h"

MRV_DEFINE_SINGLETON(mrv::TypesManager)

namespace mrv {

TypesManager::TypesManager() : _defaultTypeInfo{ "[unknown]" } {}

TypesManager::~TypesManager() = default;

const TypeInfo& TypesManager::getType(size_t id) const
{
    const ScopedLock<SpinLock> lock(_typesLock);
    const auto found = _registeredTypes.find(id);
    return found == _registeredTypes.end() ? _defaultTypeInfo : found.getValue();
}

TypesManager& getTypesManagerSingleton()
{
    return *Singleton<TypesManager>::getInstance();
}

} // namespace mrv
