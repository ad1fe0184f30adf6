// mrvCore/math/delaunay/mrvTriangleGrid.cpp
#include "mrvCore/math/delaunay/mrvTriangleGrid.h"

#include "mrvCore/system/memory/mrvLargePages.h"

namespace mrv::internal {

void TriangleGrid::refine()
{
    if (_side == _longestSide)
        return;
    const size_t side = static_cast<size_t>(_side);
    PODArray<uint32_t> finer(4 * _triangles.size());
    adviseLargePages(finer.begin(), finer.size() * sizeof(uint32_t));
    uint32_t* out = finer.begin();
    for (size_t y = 0; y < 2 * side; ++y)
        for (size_t x = 0; x < 2 * side; ++x)
            *out++ = _triangles[y / 2 * side + x / 2];
    _triangles.swap(finer);
    _side *= 2;
}

} // namespace mrv::internal
