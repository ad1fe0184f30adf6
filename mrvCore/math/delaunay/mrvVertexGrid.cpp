// mrvCore/math/delaunay/mrvVertexGrid.cpp
#include "mrvCore/math/delaunay/mrvVertexGrid.h"

namespace mrv::internal {

void VertexGrid::refine()
{
    if (_side == _longestSide)
        return;
    const size_t side = static_cast<size_t>(_side);
    PODArray<int> finer(4 * _vertices.size());
    int* out = finer.begin();
    for (size_t y = 0; y < 2 * side; ++y)
        for (size_t x = 0; x < 2 * side; ++x)
            *out++ = _vertices[y / 2 * side + x / 2];
    _vertices.swap(finer);
    _side *= 2;
}

} // namespace mrv::internal
