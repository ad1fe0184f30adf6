// mrvCore/math/delaunay/mrvDelaunayQuery.h
// What the geometric predicates of every dimension have in common.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Base of the predicate objects.
///
/// A predicate sorts the indices that it is given and corrects the sign by the parity of the permutation:
/// so its answer about an edge or a triangle does not depend on the order in which that is presented.
class MRV_CORE_API DelaunayQuery
{
public:
    /// The arithmetic of the predicates. Room is kept for exact ones: only REAL, plain float, has any.
    struct Type
    {
        enum Values { INT64 = 0, INTEGER = 1, RATIONAL = 2, REAL = 3, FILTERED = 4, END = 5 };
    };

    virtual ~DelaunayQuery();
    virtual Type::Values getType() const = 0;

    /// Each puts the values in ascending order and returns true for an even permutation; false for an odd
    /// one, and when two of them are equal.
    static bool sort(int& v0, int& v1)
    {
        const bool even = v0 < v1;
        const int low = even ? v0 : v1;
        v1 = even ? v1 : v0;
        v0 = low;
        return even;
    }
    static bool sort(int& v0, int& v1, int& v2)
    {
        const bool first = sort(v0, v1);
        const bool second = sort(v1, v2);
        const bool third = sort(v0, v1);
        // Without equal values each step that moved nothing was even.
        return (first ^ second ^ third) & (v0 < v1) & (v1 < v2);
    }
    static bool sort(int& v0, int& v1, int& v2, int& v3);
};

} // namespace mrv
