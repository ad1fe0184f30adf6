// tests/support/mrvTriangulationChecker.h
// Judges a triangulation by geometry alone, whoever made it.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace mrv {

/// Triangles by index, counterclockwise, and their neighbours across the edges from corner j to the next; -1
/// is none.
struct Triangulation
{
    std::vector<Vector2> points;
    std::vector<int> indices;
    std::vector<int> adjacencies;
};

/// Succeeds for a triangulation of the convex hull of all points, as far as coordinates of 24 bits over the
/// range of the points can tell:
/// - neighbours agree on their edge, and the triangles are one piece without a hole;
/// - every point is a corner or as good as one;
/// - no triangle turns clockwise, and together they cover the hull: so none overlap.
testing::AssertionResult isTriangulation(const Triangulation& triangulation);

/// The same where, besides, no circumcircle holds the far corner of a neighbour: so none holds any point.
testing::AssertionResult isDelaunayTriangulation(const Triangulation& triangulation);

/// How many corners the triangles have in all.
size_t countCorners(const Triangulation& triangulation);

} // namespace mrv
