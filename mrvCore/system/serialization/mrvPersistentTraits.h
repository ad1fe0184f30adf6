// mrvCore/system/serialization/mrvPersistentTraits.h
// What the streams ask of a type at compile time.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

namespace mrv {

template <typename T>
class Array;
template <typename T>
class PODArray;
template <typename K, typename V>
class MrvMap;
class MrvString;

namespace internal {

/// True for a class that carries a persistent class's members.
template <typename T, typename = void>
struct IsPersistentClass : std::false_type
{};
template <typename T>
struct IsPersistentClass<T, std::void_t<decltype(T::persistentClass())>> : std::true_type
{};

/// True for a type of which `Test` is true, and for all that is made of such.
template <template <typename> class Test, typename T>
struct ConsistsOf : Test<T>
{};
template <template <typename> class Test, typename T>
struct ConsistsOf<Test, Array<T>> : ConsistsOf<Test, T>
{};
template <template <typename> class Test, typename T>
struct ConsistsOf<Test, PODArray<T>> : ConsistsOf<Test, T>
{};
template <template <typename> class Test, typename K, typename V>
struct ConsistsOf<Test, std::pair<K, V>> : std::disjunction<ConsistsOf<Test, K>, ConsistsOf<Test, V>>
{};
template <template <typename> class Test, typename K, typename V>
struct ConsistsOf<Test, MrvMap<K, V>> : ConsistsOf<Test, std::pair<K, V>>
{};

template <typename T>
struct IsObject : IsPersistentClass<T>
{};
template <typename T>
struct IsObjectOrPointer : std::disjunction<IsPersistentClass<T>, std::is_pointer<T>>
{};

/// True for a type that carries objects by value: reading one registers addresses inside it.
template <typename T>
using HoldsObjects = ConsistsOf<IsObject, T>;

/// True for a type whose writing gives ids.
template <typename T>
using HasIdentities = ConsistsOf<IsObjectOrPointer, T>;

/// Id and attribute count.
constexpr size_t minimumObjectSize = 8;

/// The least number of bytes that a value takes in a binary stream. A count that a file claims is held
/// against it before anything is allocated.
template <typename T>
struct MinimumBinarySize
{
    static constexpr size_t value = IsPersistentClass<T>::value ? minimumObjectSize
                                    : sizeof(T) < 8             ? sizeof(T)
                                                                : 8; // a vector's floats
};
template <typename T>
struct MinimumBinarySize<T*>
{
    static constexpr size_t value = 4;
};
template <>
struct MinimumBinarySize<MrvString>
{
    static constexpr size_t value = 4;
};
template <typename T>
struct MinimumBinarySize<Array<T>>
{
    static constexpr size_t value = 4;
};
template <typename T>
struct MinimumBinarySize<PODArray<T>>
{
    static constexpr size_t value = 4;
};
template <typename K, typename V>
struct MinimumBinarySize<MrvMap<K, V>>
{
    static constexpr size_t value = 4;
};
template <typename K, typename V>
struct MinimumBinarySize<std::pair<K, V>>
{
    static constexpr size_t value = MinimumBinarySize<K>::value + MinimumBinarySize<V>::value;
};

/// True for a type whose bytes in memory are its bytes in a binary stream.
template <typename T>
constexpr bool isStoredAsBytes = std::is_arithmetic_v<T> && !std::is_same_v<T, bool>;

} // namespace internal
} // namespace mrv
