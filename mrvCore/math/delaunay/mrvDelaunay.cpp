// mrvCore/math/delaunay/mrvDelaunay.cpp
#include "mrvCore/math/delaunay/mrvDelaunay.h"

#include "mrvCore/system/debug/mrvAssert.h"

#include <cstdlib>

namespace mrv {

Delaunay::Delaunay(int verticesCount, float epsilon, DelaunayQuery::Type::Values queryType)
    : _queryType(queryType)
    , _verticesCount(verticesCount)
    , _epsilon(epsilon)
{
    MRV_ASSERT(_verticesCount > 0 && _epsilon >= 0, "Invalid inputs\n");
}

Delaunay::~Delaunay()
{
    std::free(_indices);
    std::free(_adjacencies);
}

} // namespace mrv
