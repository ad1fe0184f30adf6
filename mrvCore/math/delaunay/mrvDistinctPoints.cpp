// mrvCore/math/delaunay/mrvDistinctPoints.cpp
#include "mrvCore/math/delaunay/mrvDistinctPoints.h"

#include "mrvCore/system/memory/mrvLargePages.h"

#include <cstdint>
#include <cstring>

namespace mrv::internal {

namespace {

constexpr uint64_t emptyPlace = ~uint64_t(0); // two NaNs, which no finite point is

/// Equal for equal points only: the sum turns the two zeros into one.
uint64_t keyOf(const Vector2& point)
{
    const float values[2] = { point.x + 0.0f, point.y + 0.0f };
    uint64_t key;
    static_assert(sizeof(values) == sizeof(key), "two floats are a key");
    std::memcpy(&key, values, sizeof(key));
    return key;
}

/// The bits of the result all depend on all bits of the key.
uint64_t mix(uint64_t key)
{
    key ^= key >> 32;
    key *= 0xd6e8feb86659fd93u;
    key ^= key >> 32;
    key *= 0xd6e8feb86659fd93u;
    return key ^ (key >> 32);
}

/// Keys in a table of open addressing, at most half full.
class KeySet
{
public:
    explicit KeySet(size_t count)
    {
        size_t size = 16;
        while (size < 2 * count)
            size *= 2;
        _mask = size - 1;
        _places.set_capacity(size);
        adviseLargePages(_places.begin(), size * sizeof(uint64_t));
        _places.resize(size, emptyPlace);
    }

    /// False if the key is there already.
    bool insert(uint64_t key)
    {
        size_t place = mix(key) & _mask;
        while (_places[place] != emptyPlace && _places[place] != key)
            place = (place + 1) & _mask;
        const bool isNew = _places[place] == emptyPlace;
        _places[place] = key;
        return isNew;
    }

private:
    PODArray<uint64_t> _places;
    size_t _mask;
};

} // namespace

PODArray<int> findDistinctPoints(const Vector2* points, int count, int& notFinite)
{
    KeySet seen(static_cast<size_t>(count));
    PODArray<int> distinct;
    distinct.set_capacity(static_cast<size_t>(count));
    adviseLargePages(distinct.begin(), distinct.capacity() * sizeof(int));
    notFinite = 0;
    for (int i = 0; i < count; ++i)
    {
        if (!__builtin_isfinite(points[i].x) || !__builtin_isfinite(points[i].y))
            ++notFinite;
        else if (seen.insert(keyOf(points[i])))
            distinct.push_back(i);
    }
    return distinct;
}

} // namespace mrv::internal
