// mrvCore/system/genericPatterns/mrvSingleton.h
// The one instance of a class in the process.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Holder of the one `T`, owned from create() to destroy().
///
/// Threads: nothing is protected. Instances come and go only while the library starts and stops, under
/// its lock; a running library's instance does not change.
///
/// A template's static would exist once in the library and once in each host. Who owns `T` therefore
/// writes MRV_DECLARE_SINGLETON(T) in the header that declares `T` and MRV_DEFINE_SINGLETON(T) in its
/// source, both at global scope and after that class.
template <typename T>
class MRV_CORE_API Singleton
{
public:
    static bool hasInstance() { return _instance != nullptr; }

    /// Null outside a pair of create() and destroy().
    static T* getInstance() { return _instance; }

    /// Builds the instance with the default constructor, unless there is one already.
    static void create()
    {
        if (_instance == nullptr)
            _instance = new T;
    }

    /// Deletes the instance, if there is one.
    static void destroy()
    {
        delete _instance;
        _instance = nullptr;
    }

    /// Written directly only where the start builds an instance by another constructor.
    static T* _instance;
};

template <typename T>
T* Singleton<T>::_instance = nullptr;

} // namespace mrv

/// The instance pointer of `Type` (named with its namespace) lives in the library and nowhere else.
#define MRV_DECLARE_SINGLETON(Type) extern template Type* mrv::Singleton<Type>::_instance;
#define MRV_DEFINE_SINGLETON(Type) template MRV_CORE_API Type* mrv::Singleton<Type>::_instance;
