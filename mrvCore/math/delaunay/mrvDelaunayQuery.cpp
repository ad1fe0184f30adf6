// mrvCore/math/delaunay/mrvDelaunayQuery.cpp
#include "mrvCore/math/delaunay/mrvDelaunayQuery.h"

namespace mrv {

DelaunayQuery::~DelaunayQuery() = default;

bool DelaunayQuery::sort(int& v0, int& v1, int& v2, int& v3)
{
    // The greatest goes last in three steps; each odd step turns the parity.
    const bool first = sort(v0, v1);
    const bool second = sort(v1, v2);
    const bool third = sort(v2, v3);
    const bool rest = sort(v0, v1, v2);
    return (first == second) == (third == rest) && v0 < v1 && v1 < v2 && v2 < v3;
}

} // namespace mrv
