// mrvCore/math/delaunay/mrvDelaunay.h
// What triangulations of every dimension hold.
#pragma once

#include "mrvCore/math/delaunay/mrvDelaunayQuery.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// The result of a triangulation: simplices by index, in flat arrays of three entries each.
///
/// Entry 3k + j of the indices is vertex j of simplex k, its place in the caller's points; the same entry of
/// the adjacencies is the simplex across the edge from vertex j to the next, or -1. Both arrays belong to the
/// object and are null without simplices.
class MRV_CORE_API Delaunay
{
public:
    virtual ~Delaunay();
    Delaunay(const Delaunay&) = delete;
    Delaunay& operator=(const Delaunay&) = delete;

    DelaunayQuery::Type::Values getQueryType() const { return _queryType; }
    int getVerticesCount() const { return _verticesCount; }
    float getEpsilon() const { return _epsilon; }
    /// 0 if all points fall together, 1 if they lie on one line, else 2.
    int getDimension() const { return _dimension; }
    int getSimplicesCount() const { return _simplicesCount; }
    const int* getIndices() const { return _indices; }
    const int* getAdjacencies() const { return _adjacencies; }

protected:
    /// No vertices, or an epsilon below 0, are fatal.
    Delaunay(int verticesCount, float epsilon, DelaunayQuery::Type::Values queryType);

    DelaunayQuery::Type::Values _queryType;
    int _verticesCount;
    int _dimension = 0;
    int _simplicesCount = 0;
    int* _indices = nullptr;
    int* _adjacencies = nullptr;
    float _epsilon;
};

} // namespace mrv
