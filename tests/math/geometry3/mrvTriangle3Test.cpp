// tests/math/geometry3/mrvTriangle3Test.cpp
// Triangles, segments and planes of space.
#include "mrvCore/math/geometry3/mrvTriangle3.h"

#include "mrvCore/math/geometry3/mrvPlane3.h"
#include "mrvCore/math/geometry3/mrvRay3.h"
#include "mrvCore/math/geometry3/mrvSegment3.h"
#include "mrvCore/math/rotations/mrvAngleUtils.h"
#include "tests/math/types/mrvMathTesting.h"

#include <sstream>

namespace mrv {
namespace {

const Triangle3 triangle(Vector3(), Vector3(4.0f, 0.0f, 0.0f), Vector3(0.0f, 4.0f, 0.0f));
const Triangle3 flat(Vector3(), Vector3(1.0f), Vector3(3.0f));

TEST(Plane3, formsAgreeAndProject)
{
    const Vector3 a(1.0f, 0.0f, 2.0f), b(3.0f, 1.0f, 2.5f), c(0.0f, 2.0f, 1.0f);
    const Plane3 plane(a, b, c);
    for (const Vector3& point : { a, b, c })
        EXPECT_NEAR(plane.signedDistance(point), 0.0f, 1e-5f);
    const Plane3 same((b - a).cross(c - a) * 7.0f, b);
    EXPECT_TRUE(isNear(same.getNormal(), plane.getNormal()));
    EXPECT_NEAR(same.getConstant(), plane.getConstant(), 1e-5f);
    const Vector3 p(5.0f, -6.0f, 7.0f);
    EXPECT_NEAR(plane.signedDistance(plane.project(p)), 0.0f, 1e-5f);
    EXPECT_NEAR(plane.signedDistance(plane.project(p, Vector3(1.0f, 2.0f, 9.0f))), 0.0f, 1e-5f);
    EXPECT_TRUE(isNear(plane.zCoordinate(b.x, b.y), b, 1e-5f));
    EXPECT_TRUE(isNear(plane.yCoordinate(b.x, b.z), b, 1e-5f));
    EXPECT_TRUE(isNear(plane.xCoordinate(Vector2(b.y, b.z)), b, 1e-5f));
    const Plane3 ground;
    EXPECT_FALSE(ground.contains(Vector3(3.0f, 4.0f, 0.5f), 0.5f)); // strict
    EXPECT_TRUE(ground.contains(Vector3(3.0f, 4.0f, -0.5f), 0.50001f));
    EXPECT_TRUE(Plane3(Vector3(9.0f), -1.0f) < ground);
    EXPECT_TRUE(Plane3(Vector3(0.0f, 0.0f, 0.5f), 0.0f) < ground);
    EXPECT_FALSE(ground < ground);
    std::ostringstream text;
    text << ground;
    EXPECT_EQ(text.str(), "[(0,0,1),0]");
}

TEST(Segment3, pointsNearAndOnIt)
{
    const Segment3 segment(Vector3(1.0f, 0.0f, 0.0f), Vector3(5.0f, 0.0f, 0.0f));
    struct Case
    {
        Vector3 point, closest;
        bool projects;
    };
    const Case cases[] = {
        { Vector3(0.0f, 1.0f, 0.0f), Vector3(1.0f, 0.0f, 0.0f), false },
        { Vector3(1.0f, 1.0f, 0.0f), Vector3(1.0f, 0.0f, 0.0f), false }, // the first end is out
        { Vector3(2.5f, 1.0f, 7.0f), Vector3(2.5f, 0.0f, 0.0f), true },
        { Vector3(5.0f, 1.0f, 0.0f), Vector3(5.0f, 0.0f, 0.0f), true }, // and the last one in
        { Vector3(9.0f, 0.0f, 0.0f), Vector3(5.0f, 0.0f, 0.0f), false },
    };
    for (const Case& row : cases)
    {
        EXPECT_TRUE(isNear(segment.closestPoint(row.point), row.closest));
        EXPECT_EQ(segment.projectsOn(row.point), row.projects);
    }
    // 3-4-5: over the point the way is 2 longer, and that is inclusive.
    const Segment3 side(Vector3(), Vector3(4.0f, 0.0f, 0.0f));
    EXPECT_TRUE(side.contains(Vector3(4.0f, 3.0f, 0.0f), 4.0f));
    EXPECT_FALSE(side.contains(Vector3(4.0f, 3.0f, 0.0f), 3.999f));
    EXPECT_TRUE(side.isDegenerated(4.0f));
    EXPECT_FALSE(side.isDegenerated(3.9f));
    EXPECT_FALSE(side == Segment3(side._p2, side._p1));
    EXPECT_TRUE(side < side + Vector3(0.0f, 0.0f, 1.0f));
    EXPECT_TRUE(side.approxEqual(side + Vector3(0.5f), 0.5f));
}

// No pair of points on a fine grid of both is closer than the one that is found.
TEST(Segment3, noPairIsCloserThanTheClosest)
{
    RandomNumberGenerator rng(6);
    for (int i = 0; i < 300; ++i)
    {
        Segment3 p(randomVector(rng), randomVector(rng));
        Segment3 q(randomVector(rng), randomVector(rng));
        if (i % 5 == 0)
            q = Segment3(p._p1, p._p2) + randomVector(rng); // parallel
        if (i % 7 == 0)
            p._p2 = p._p1;
        if (i % 11 == 0)
            q._p2 = q._p1;
        float s = -1.0f, t = -1.0f;
        Vector3 a, b;
        Segment3::closestPoints(p, q, s, t, a, b);
        EXPECT_TRUE(s >= 0.0f && s <= 1.0f && t >= 0.0f && t <= 1.0f);
        EXPECT_TRUE(isNear(a, p._p1 + p.getVector() * s, 1e-5f));
        float least = 1e9f;
        for (int k = 0; k <= 100; ++k)
        {
            const Vector3 onP = p._p1 + p.getVector() * (float(k) / 100.0f);
            least = std::min(least, (q.closestPoint(onP) - onP).norm());
        }
        EXPECT_LE((a - b).norm(), least + 1e-4f) << i;
    }
}

TEST(Triangle3, whatIsKeptBesideThePoints)
{
    EXPECT_EQ(triangle.getSurface(), 8.0f);
    EXPECT_TRUE(isSame(triangle.getNormal(), Vector3(0.0f, 0.0f, 1.0f)));
    EXPECT_TRUE(isSame(triangle.getNormal(Vector3(0.0f, 1.0f, -1.0f)), Vector3(0.0f, 0.0f, -1.0f)));
    EXPECT_EQ(flat.getSurface(), 0.0f);
    EXPECT_TRUE(isSame(flat.getNormal(), Vector3(0.0f, 0.0f, 1.0f)));
    EXPECT_TRUE(isSame(triangle.computePositionFromUV(0.5f, 0.25f), Vector3(2.0f, 1.0f, 0.0f)));
    EXPECT_TRUE(isNear(triangle.getBarycenter(true), Vector3(4.0f / 3.0f, 4.0f / 3.0f, 0.0f)));
    EXPECT_TRUE(triangle.getEdge(2) == Segment3(triangle[2], triangle[0]));
    EXPECT_FALSE(triangle.isDegenerated(3.9f));
    EXPECT_TRUE(triangle.isDegenerated(4.0f)); // inclusive
    EXPECT_FLOAT_EQ(triangle.xyAngle(), HALF_PI_ANGLE);
    const Triangle3 slope(Vector3(), Vector3(0.0f, 1.0f, 0.0f), Vector3(1.0f, 0.0f, 1.0f)); // normal downward
    EXPECT_NEAR(slope.xyAngle(), HALF_PI_ANGLE / 2.0f, 1e-3f);
    EXPECT_TRUE(triangle.vertexInCommon(triangle + Vector3(4.0f, 0.25f, 0.0f), 0.25f));
    EXPECT_FALSE(triangle.vertexInCommon(triangle + Vector3(4.0f, 0.25f, 0.0f), 0.2f));
    RandomNumberGenerator rng(5), same(5);
    const Vector3 point = triangle.getRandomPoint(rng);
    const float first = same.frand();
    const float second = same.frand() * (1.0f - first);
    EXPECT_TRUE(isNear(point, Vector3(4.0f * second, 4.0f * (1.0f - first - second), 0.0f), 1e-5f));
}

TEST(Triangle3, raysAndSegmentsHitIt)
{
    struct Case
    {
        const char* name;
        Vector3 source, direction;
        bool isHit, isSegmentHit;
    };
    const Vector3 down(0.0f, 0.0f, -1.0f);
    const Case cases[] = {
        { "inside", Vector3(1.0f, 1.0f, 1.0f), down, true, true },
        { "from below", Vector3(1.0f, 1.0f, -1.0f), -down, true, true },
        { "a corner", Vector3(4.0f, 0.0f, 0.5f), down, true, true },
        { "the slanted edge", Vector3(2.0f, 2.0f, 0.5f), down, true, true },
        { "behind the slanted edge", Vector3(2.001f, 2.0f, 0.5f), down, false, false },
        { "beyond the segment's end", Vector3(1.0f, 1.0f, 1.5f), down, true, false },
        { "behind the source", Vector3(1.0f, 1.0f, -0.5f), down, false, false },
        { "in the plane", Vector3(-1.0f, 1.0f, 0.0f), Vector3(9.0f, 0.0f, 0.0f), false, false },
        { "too short a direction", Vector3(1.0f, 1.0f, 0.0f), down * 6e-7f, false, false },
    };
    for (const Case& row : cases)
    {
        float t, u, v;
        const Ray3 ray(row.source, row.direction);
        const bool isHit = triangle.intersection(ray, t, u, v);
        EXPECT_EQ(isHit, row.isHit) << row.name;
        EXPECT_TRUE(!isHit || isNear(triangle.computePositionFromUV(u, v), ray.value(t), 1e-5f)) << row.name;
        Vector3 point;
        EXPECT_EQ(triangle.intersection(Segment3(row.source, row.source + row.direction), point),
                  row.isSegmentHit)
            << row.name;
    }
    float t, u, v;
    EXPECT_TRUE(triangle.generalIntersection(Ray3(Vector3(-4.0f, 8.0f, -3.0f), down), t, u, v));
    EXPECT_EQ(t, -3.0f);
    EXPECT_EQ(u, -1.0f);
    EXPECT_EQ(v, 2.0f);
}

TEST(Triangle3, containsWithinTolerances)
{
    struct Case
    {
        const char* name;
        const Triangle3& triangle;
        Vector3 point;
        float tolerance;
        bool isFast, isIn;
    };
    const Case cases[] = {
        { "inside", triangle, Vector3(1.0f, 1.0f, 0.0f), 0.1f, true, true },
        { "above", triangle, Vector3(1.0f, 1.0f, 0.5f), 0.25f, true, false },
        { "at the tolerance above", triangle, Vector3(1.0f, 1.0f, 0.25f), 0.25f, true, false },
        { "at the tolerance beside", triangle, Vector3(-1.0f, 1.0f, 0.0f), 0.25f, true, true },
        { "beside", triangle, Vector3(-1.01f, 1.0f, 0.0f), 0.25f, false, false },
        { "the slanted edge", triangle, Vector3(2.0f, 2.0f, 0.0f), 0.0f, false, false },
        { "at its tolerance", triangle, Vector3(2.5f, 2.5f, 0.0f), 0.25f, false, false },
        { "on a degenerate one", flat, Vector3(2.0f), 1e-5f, false, true },
        { "beside a degenerate one", flat, Vector3(2.0f, 2.0f, 2.5f), 1e-5f, false, false },
    };
    for (const Case& row : cases)
    {
        EXPECT_EQ(row.triangle.containsFast(row.point, row.tolerance), row.isFast) << row.name;
        EXPECT_EQ(row.triangle.contains(row.point, row.tolerance), row.isIn) << row.name;
    }
    Vector3 foot;
    EXPECT_TRUE(triangle.projectOn(Vector3(1.0f, 2.0f, 9.0f), foot));
    EXPECT_TRUE(isNear(foot, Vector3(1.0f, 2.0f, 0.0f)));
    EXPECT_FALSE(triangle.projectOn(Vector3(3.0f, 2.0f, 9.0f), foot));
}

} // namespace
} // namespace mrv
