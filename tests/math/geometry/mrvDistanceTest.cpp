// tests/math/geometry/mrvDistanceTest.cpp
#include "mrvCore/math/geometry/mrvDistance.h"

#include "mrvCore/math/geometry2/mrvBox2.h"
#include "mrvCore/math/geometry2/mrvSegment2.h"
#include "mrvCore/math/geometry2/mrvTriangle2.h"
#include "mrvCore/math/geometry3/mrvSegment3.h"
#include "mrvCore/math/geometry3/mrvTriangle3.h"
#include "tests/math/types/mrvMathTesting.h"

#include <algorithm>
#include <array>

namespace mrv {

namespace {

struct Double3
{
    double x = 0.0, y = 0.0, z = 0.0;

    Double3() = default;
    Double3(double valueX, double valueY, double valueZ) : x(valueX), y(valueY), z(valueZ) {}
    explicit Double3(const Vector3& v) : Double3(double(v.x), double(v.y), double(v.z)) {}
    Double3 operator+(const Double3& o) const { return { x + o.x, y + o.y, z + o.z }; }
    Double3 operator-(const Double3& o) const { return { x - o.x, y - o.y, z - o.z }; }
    Double3 operator*(double s) const { return { x * s, y * s, z * s }; }
    double dot(const Double3& o) const { return x * o.x + y * o.y + z * o.z; }
};

/// A point, line, segment, rectangle or box: a centre and up to three directions at right angles.
struct Shape
{
    Vector3 centre;
    int count;
    Vector3 directions[3];
    float extents[3];

    Double3 closest(const Double3& point) const
    {
        Double3 result(centre);
        for (int i = 0; i < count; ++i)
        {
            const Double3 d(directions[i]);
            const double s = (point - Double3(centre)).dot(d) / d.dot(d);
            result = result + d * std::clamp(s, -double(extents[i]), double(extents[i]));
        }
        return result;
    }

    Line toLine() const { return { centre, directions[0] }; }
    CenteredSegment toSegment() const { return { centre, directions[0], extents[0] }; }
    CenteredRectangle toRectangle() const
    {
        return { centre, { directions[0], directions[1] }, { extents[0], extents[1] } };
    }
    CenteredBox toBox() const
    {
        return { centre,
                 { directions[0], directions[1], directions[2] },
                 Vector3(extents[0], extents[1], extents[2]) };
    }
};

enum class Kind { POINT, LINE, SEGMENT, RECTANGLE, BOX };

/// Along the axes every other time, where directions are parallel, and coordinates are whole numbers.
Shape makeShape(Kind kind, bool isAligned, RandomNumberGenerator& rng)
{
    Shape shape = { randomVector(rng) * 2.0f, 0, {}, { 0, 0, 0 } };
    const Quaternion rotation = randomRotation(rng);
    const Vector3 turned[3] = { rotation.getColumnX(), rotation.getColumnY(), rotation.getColumnZ() };
    const unsigned int first = rng.rand() % 3;
    for (unsigned int i = 0; i < 3; ++i)
    {
        Vector3 axis;
        axis[(first + i) % 3] = 1.0f;
        shape.directions[i] = isAligned ? axis : turned[i];
        shape.extents[i] = isAligned ? 1.0f : rng.frand(0.1f, 3.0f);
        if (isAligned)
            shape.centre[i] = std::round(shape.centre[i]);
    }
    shape.count = kind == Kind::POINT ? 0 : kind == Kind::BOX ? 3 : kind == Kind::RECTANGLE ? 2 : 1;
    if (kind == Kind::LINE)
        shape.extents[0] = infinity;
    return shape;
}

/// By projecting to and fro, which converges on the closest pair of two convex shapes (Cheney and Goldstein,
/// 1959).
double alternatingDistance(const Shape& a, const Shape& b)
{
    Double3 onA = a.closest(Double3(b.centre));
    Double3 between;
    double former = -1.0;
    for (int step = 0; step < 20000; ++step)
    {
        const Double3 onB = b.closest(onA);
        onA = a.closest(onB);
        between = onA - onB;
        const double measure = between.dot(between);
        if (step % 64 == 63 && std::abs(measure - former) < 1e-13)
            break;
        former = step % 64 == 63 ? measure : former;
    }
    return std::sqrt(between.dot(between));
}

struct PairCase
{
    const char* name;
    Kind a, b;
    float (*measure)(const Shape& a, const Shape& b);
};

constexpr float parallel = 1e-6f;

const PairCase pairCases[] = {
    { "PointLine", Kind::POINT, Kind::LINE,
      [](const Shape& a, const Shape& b) { return distance2(a.centre, b.toLine()); } },
    { "PointRectangle", Kind::POINT, Kind::RECTANGLE,
      [](const Shape& a, const Shape& b) { return distance2(a.centre, b.toRectangle()); } },
    { "PointBox", Kind::POINT, Kind::BOX,
      [](const Shape& a, const Shape& b) { return distance2(a.centre, b.toBox()); } },
    { "LineLine", Kind::LINE, Kind::LINE,
      [](const Shape& a, const Shape& b) { return distance2(a.toLine(), b.toLine(), parallel); } },
    { "LineSegment", Kind::LINE, Kind::SEGMENT,
      [](const Shape& a, const Shape& b) { return distance2(a.toLine(), b.toSegment(), parallel); } },
    { "SegmentSegment", Kind::SEGMENT, Kind::SEGMENT,
      [](const Shape& a, const Shape& b) { return distance2(a.toSegment(), b.toSegment()); } },
    { "LineRectangle", Kind::LINE, Kind::RECTANGLE,
      [](const Shape& a, const Shape& b) { return distance2(a.toLine(), b.toRectangle(), parallel); } },
    { "SegmentRectangle", Kind::SEGMENT, Kind::RECTANGLE,
      [](const Shape& a, const Shape& b) { return distance2(a.toSegment(), b.toRectangle(), parallel); } },
    { "RectangleRectangle", Kind::RECTANGLE, Kind::RECTANGLE,
      [](const Shape& a, const Shape& b) { return distance2(a.toRectangle(), b.toRectangle(), parallel); } },
    { "LineBox", Kind::LINE, Kind::BOX,
      [](const Shape& a, const Shape& b) { return distance2(a.toLine(), b.toBox()); } },
    { "SegmentBox", Kind::SEGMENT, Kind::BOX,
      [](const Shape& a, const Shape& b) { return distance2(a.toSegment(), b.toBox()); } },
    { "RectangleBox", Kind::RECTANGLE, Kind::BOX,
      [](const Shape& a, const Shape& b) { return distance2(a.toRectangle(), b.toBox(), parallel); } },
    { "BoxBox", Kind::BOX, Kind::BOX,
      [](const Shape& a, const Shape& b) { return distance2(a.toBox(), b.toBox()); } },
};

class CenteredPairs : public testing::TestWithParam<PairCase>
{};

/// The least distance of points on a fine grid of each: too great by less than the steps.
float sampledDistance(const Triangle3& a, const Triangle3& b, int steps)
{
    const auto sample = [steps](const Triangle3& t) {
        std::vector<Vector3> points;
        for (int i = 0; i <= steps; ++i)
            for (int j = 0; i + j <= steps; ++j)
                points.push_back(t.computePositionFromUV(float(i) / float(steps), float(j) / float(steps)));
        return points;
    };
    float least = infinity;
    for (const Vector3& p : sample(a))
        for (const Vector3& q : sample(b))
            least = std::min(least, (p - q).norm2());
    return std::sqrt(least);
}

} // namespace

TEST_P(CenteredPairs, agreeWithProjectingToAndFro)
{
    RandomNumberGenerator rng;
    for (int round = 0; round < 400; ++round)
    {
        const Shape a = makeShape(GetParam().a, round % 2 == 1, rng);
        const Shape b = makeShape(GetParam().b, round % 4 == 1, rng);
        const float measure = GetParam().measure(a, b);
        EXPECT_NEAR(std::sqrt(measure), alternatingDistance(a, b), 2e-3) << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Table, CenteredPairs, testing::ValuesIn(pairCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(DistanceTest, planeByClosedForm)
{
    const Segment2 level({ 0, 0 }, { 4, 0 });
    EXPECT_EQ(distance2({ 2, 3 }, level), 9.0f);
    EXPECT_EQ(distance2({ 7, 4 }, level), 25.0f);
    EXPECT_EQ(distance2({ 3, 4 }, Segment2()), 25.0f);
    struct Case
    {
        const char* name;
        Segment2 segment;
        float expected;
    };
    const Case cases[] = {
        { "crosses", { { 1, -1 }, { 1, 1 } }, 0.0f },   { "above", { { 1, 2 }, { 9, 9 } }, 4.0f },
        { "beyond", { { 7, 4 }, { 7, 9 } }, 25.0f },    { "onOneLine", { { 6, 0 }, { 9, 0 } }, 4.0f },
        { "parallel", { { -2, 3 }, { 9, 3 } }, 9.0f },  { "point", { { 7, 4 }, { 7, 4 } }, 25.0f },
        { "levelPoint", { { 7, 0 }, { 7, 0 } }, 9.0f },
    };
    for (const Case& c : cases)
    {
        EXPECT_EQ(distance2(level, c.segment), c.expected) << c.name;
        EXPECT_EQ(distance2(c.segment, level), c.expected) << c.name;
    }

    const Box2 box({ 4, 2 }, { 1, 0 }, HALF_PI_ANGLE); // x from -1 to 1, y from 0 to 4
    EXPECT_NEAR(distance2({ 0, 2 }, box), 0.0f, 1e-5f);
    EXPECT_NEAR(distance2({ 4, 8 }, box), 25.0f, 1e-4f);
    EXPECT_NEAR(distance2({ -3, 2 }, box), 4.0f, 1e-5f);

    const Triangle2 triangle({ 0, 0 }, { 4, 0 }, { 0, 4 });
    EXPECT_EQ(distance(triangle, { 1, 1 }), 0.0f);
    EXPECT_EQ(distance(triangle, { 1, -2 }), 2.0f);
    EXPECT_NEAR(distance(triangle, { 4, 4 }), 2.8284271f, 1e-6f);
    EXPECT_EQ(distance(Triangle2::getNullTriangle(), { 3, 4 }), 5.0f);
}

TEST(DistanceTest, directionsLeadFromTheFirstShapeToTheSecond)
{
    Vector3 direction, closest;
    const Segment3 segment({ 0, 0, 0 }, { 4, 0, 0 });
    EXPECT_EQ(distance2(segment, Segment3({ 2, 3, -1 }, { 2, 3, 1 }), direction), 9.0f);
    EXPECT_TRUE(isNear(direction, Vector3(0, 3, 0)));
    EXPECT_EQ(distance2(Vector3(6, 0, 2), segment, direction), 8.0f);
    EXPECT_TRUE(isNear(direction, Vector3(-2, 0, -2)));
    EXPECT_EQ(distance2ClosestPoint(Vector3(1, 2, 2), segment, closest), 8.0f);
    EXPECT_TRUE(isNear(closest, Vector3(1, 0, 0)));

    const Triangle3 triangle({ 0, 0, 0 }, { 4, 0, 0 }, { 0, 4, 0 });
    EXPECT_EQ(distance2(triangle, Segment3({ 1, 1, 2 }, { 1, 1, 5 }), direction), 4.0f);
    EXPECT_TRUE(isNear(direction, Vector3(0, 0, 2)));
    EXPECT_EQ(distance2(triangle, Vector3(-3, 0, 4), closest), 25.0f);
    EXPECT_TRUE(isNear(closest, Vector3(0, 0, 0)));
    EXPECT_EQ(distance2Optimized(triangle, triangle + Vector3(0, 0, -3), direction), 9.0f);
    EXPECT_TRUE(isNear(direction, Vector3(0, 0, -3)));
}

// A hundredth of the size that the ray test still takes for a triangle.
TEST(DistanceTest, smallTrianglesAreCrossedToo)
{
    constexpr float size = 1e-4f;
    const Triangle3 triangle({ 0, 0, 0 }, { size, 0, 0 }, { 0, size, 0 });
    const Segment3 through({ size / 4, size / 4, -1 }, { size / 4, size / 4, 1 });
    EXPECT_EQ(distance2(triangle, through), 0.0f);
    EXPECT_NEAR(distance2(triangle, through + Vector3(size * 2, 0, 0)), 1.625e-8f, 1e-12f);
}

TEST(DistanceTest, trianglesOfSpaceAgreeWithSamples)
{
    RandomNumberGenerator rng;
    constexpr int steps = 12;
    for (int round = 0; round < 300; ++round)
    {
        Triangle3 a(randomVector(rng), randomVector(rng), randomVector(rng));
        const Vector3 offset = randomVector(rng);
        const Triangle3 b = Triangle3(randomVector(rng), randomVector(rng), randomVector(rng)) + offset;
        if (round % 10 == 0)
            a.setPoints(a[0], a[1], (a[0] + a[1]) * 0.5f); // a segment
        Vector3 direction;
        const float measure = std::sqrt(distance2Optimized(a, b, direction));
        EXPECT_EQ(measure, std::sqrt(distance2Optimized(a, b)));
        EXPECT_NEAR(direction.norm(), measure, 1e-5f);
        const float sampled = sampledDistance(a, b, steps);
        EXPECT_LE(measure, sampled + 1e-5f) << "round " << round;
        EXPECT_GE(measure, sampled - 1.2f) << "round " << round; // a step is up to 0.87 long on each
        // The pair is one of closest points: moving one shape along the direction makes them touch.
        EXPECT_NEAR(distance2Optimized(a + direction, b), 0.0f, 1e-6f) << "round " << round;
    }
}

} // namespace mrv
