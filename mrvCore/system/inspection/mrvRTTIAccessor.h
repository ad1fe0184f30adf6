// mrvCore/system/inspection/mrvRTTIAccessor.h
// The one door through which generic code reaches the record of any type.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstdint>

namespace mrv {

class MrvString;
class Quaternion;
class RotationMatrix;
class RTTI;
class Uuid;
class Vector2;
class Vector3;
class Vector4;

/// Record of a type that the library itself registers at its start. The record lives as long as the
/// registry; its users are counted, but the last one does not delete it.
template <typename T>
class BaseTypeAccessor
{
public:
    /// @{
    /// Count and discount a user.
    static void createClassRTTI();
    static void destroyClassRTTI();
    static void releaseClassRTTI() { destroyClassRTTI(); }
    /// @}
    static const RTTI& getClassRTTI() { return *_rtti; }

    static void setRTTI(RTTI* rtti) { _rtti = rtti; }

    /// Forgets the record and returns it.
    static RTTI* unsetRTTI();

private:
    static RTTI* _rtti;
};

/// Reaches the record of T, here for a persistent class, to whose own operations it forwards.
///
/// createClassRTTI() makes sure that the record exists and counts one more user; releaseClassRTTI()
/// counts one user less, and the last one deletes the record; getClassRTTI() only looks.
/// Threads: as for RTTI.
template <typename T>
class RTTIAccessor
{
public:
    /// @{
    /// As told of the class.
    static void createClassRTTI() { T::createClassRTTI(false); }
    static void destroyClassRTTI() { T::destroyClassRTTI(false); }
    static void releaseClassRTTI() { destroyClassRTTI(); }
    static const RTTI& getClassRTTI() { return T::getClassRTTI(); }
    /// @}
};

/// The base types, in the order of their registration.
#define MRV_FOR_EACH_BASE_TYPE(X)                                                                            \
    X(bool)                                                                                                  \
    X(short)                                                                                                 \
    X(unsigned short)                                                                                        \
    X(int)                                                                                                   \
    X(unsigned int)                                                                                          \
    X(long)                                                                                                  \
    X(uint64_t)                                                                                              \
    X(float)                                                                                                 \
    X(double)                                                                                                \
    X(MrvString)                                                                                             \
    X(char)                                                                                                  \
    X(unsigned char)                                                                                         \
    X(Uuid)                                                                                                  \
    X(Vector2)                                                                                               \
    X(Vector3)                                                                                               \
    X(Vector4)                                                                                               \
    X(Quaternion)                                                                                            \
    X(RotationMatrix)

#define MRV_INTERNAL_DECLARE_BASE_TYPE(T)                                                                    \
    extern template class MRV_CORE_API BaseTypeAccessor<T>;                                                  \
    template <>                                                                                              \
    class RTTIAccessor<T> : public BaseTypeAccessor<T>                                                       \
    {};
MRV_FOR_EACH_BASE_TYPE(MRV_INTERNAL_DECLARE_BASE_TYPE)
#undef MRV_INTERNAL_DECLARE_BASE_TYPE

} // namespace mrv
