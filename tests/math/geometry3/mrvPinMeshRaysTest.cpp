// tests/math/geometry3/mrvPinMeshRaysTest.cpp
// Every ray finds what a loop over all triangles finds.
#include "tests/math/geometry3/mrvMeshInputs.h"

#include <atomic>
#include <cstdlib>

namespace {
std::atomic<long> allocationCount(0);
}

// The sanitizers bring a heap of their own, which does not count.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#    define MRV_COUNTS_ALLOCATIONS 0
#else
#    define MRV_COUNTS_ALLOCATIONS 1
extern "C" void* __libc_malloc(size_t size);
extern "C" __attribute__((visibility("default"))) void* malloc(size_t size)
{
    ++allocationCount;
    return __libc_malloc(size);
}
#endif

namespace mrv {
namespace {

const std::string meshFolder = MRV_EXTRA_DATA "/data/meshes/";

template <class T>
struct Parameters
{
    T determinant, t, u, v;

    bool isInside(T margin = 0) const
    {
        return u >= -margin && u <= 1 + margin && v >= -margin && u + v <= 1 + margin;
    }
};

/// Möller and Trumbore's test without a library type. What is far outside ends early.
template <class T>
Parameters<T> testTriangle(const Vector3& o, const Vector3& d, const Vector3* corners)
{
    const Vector3& a = corners[0];
    const T e1[3] = { T(corners[1].x) - T(a.x), T(corners[1].y) - T(a.y), T(corners[1].z) - T(a.z) };
    const T e2[3] = { T(corners[2].x) - T(a.x), T(corners[2].y) - T(a.y), T(corners[2].z) - T(a.z) };
    const T s[3] = { T(o.x) - T(a.x), T(o.y) - T(a.y), T(o.z) - T(a.z) };
    const T way[3] = { T(d.x), T(d.y), T(d.z) };
    const T p[3] = { way[1] * e2[2] - way[2] * e2[1], way[2] * e2[0] - way[0] * e2[2],
                     way[0] * e2[1] - way[1] * e2[0] };
    const T determinant = e1[0] * p[0] + e1[1] * p[1] + e1[2] * p[2];
    const T u = (s[0] * p[0] + s[1] * p[1] + s[2] * p[2]) / determinant;
    if (u < T(-0.5) || u > T(1.5))
        return { determinant, T(-1), u, T(-1) };
    const T q[3] = { s[1] * e1[2] - s[2] * e1[1], s[2] * e1[0] - s[0] * e1[2], s[0] * e1[1] - s[1] * e1[0] };
    return { determinant, (e2[0] * q[0] + e2[1] * q[1] + e2[2] * q[2]) / determinant, u,
             (way[0] * q[0] + way[1] * q[1] + way[2] * q[2]) / determinant };
}

struct BruteHit
{
    float t = 2.0f;
    int slot = -1;
};

/// Corners in the order of the slots.
std::vector<Vector3> listCorners(const PinMesh& mesh)
{
    std::vector<Vector3> corners;
    for (int i = 0; i < mesh.getVertexCount(); ++i)
        corners.push_back(mesh.getMeshVertices()[mesh.getRayCastToMeshIndices()[i]]._position);
    return corners;
}

/// The first nearest hit. Inside is what float or an exact enough type calls so.
BruteHit castBrute(const std::vector<Vector3>& corners, const Vector3& origin, const Vector3& direction)
{
    BruteHit best;
    for (size_t slot = 0; slot < corners.size(); slot += 3)
    {
        const Parameters<float> hit = testTriangle<float>(origin, direction, &corners[slot]);
        if (std::abs(hit.determinant) < 1e-6f || !(hit.t >= 0.0f && hit.t < best.t))
            continue;
        if (hit.isInside() ||
            (hit.isInside(0.1f) && testTriangle<long double>(origin, direction, &corners[slot]).isInside()))
            best = { hit.t, static_cast<int>(slot) };
    }
    return best;
}

/// How many of the rays hit; each as the loop says.
int expectAsBrute(const PinMesh& mesh, int count, uint32_t seed)
{
    const std::vector<Vector3> corners = listCorners(mesh);
    Vector3 min, max;
    mesh.getAABBox(min, max);
    // Flat meshes are seen from outside of their plane too.
    const Vector3 thickness((max - min).norm() * 0.1f);
    min -= thickness;
    max += thickness;
    RandomNumberGenerator rng(seed);
    const auto draw = [&](float margin) {
        Vector3 point;
        for (unsigned int i = 0; i < 3; ++i)
            point[i] = min[i] + (max[i] - min[i]) * rng.frand(-margin, 1.0f + margin);
        return point;
    };
    int hitCount = 0;
    for (int i = 0; i < count; ++i)
    {
        const Vector3 origin = draw(0.5f);
        Vector3 direction = (draw(0.0f) - origin) * rng.frand(0.3f, 3.0f);
        if (i % 4 == 0)
            direction[unsigned(i / 4) % 3] = 0.0f;
        if (i % 20 == 0)
            direction[unsigned(i / 4 + 1) % 3] = 0.0f;
        const BruteHit expected = castBrute(corners, origin, direction);
        Vector3 hit;
        int slot = -1;
        const bool isHit = mesh.rayCast(origin, direction, hit, slot);
        EXPECT_EQ(slot, expected.slot) << "ray " << i;
        if (!isHit)
            continue;
        ++hitCount;
        EXPECT_TRUE(isSame(hit, origin + expected.t * direction)) << "ray " << i;
    }
    return hitCount;
}

struct RealMesh
{
    const char* name;
    int triangles;
};

const RealMesh realMeshes[] = {
    { "spot_cow", 5856 },
    { "human_body", 26756 },
    { "front_range_srtm", 68354 },
};

class PinMeshReal : public testing::TestWithParam<RealMesh>
{
protected:
    /// False if there are no such meshes here.
    bool load()
    {
        input = readObj(meshFolder + GetParam().name + ".obj");
        if (!input.triangles.empty())
            fill(mesh, input);
        return !input.triangles.empty();
    }

    MeshInput input;
    PinMesh mesh;
};

TEST_P(PinMeshReal, tenThousandRaysHitWhatALoopHits)
{
    if (!load())
        GTEST_SKIP() << "no meshes in " << meshFolder;
    EXPECT_EQ(mesh.getTotalTriangleCount(), GetParam().triangles);
    EXPECT_GT(expectAsBrute(mesh, 10000, 7), 1000);
}

TEST_P(PinMeshReal, noRaySlipsThroughASharedEdge)
{
    if (!load())
        GTEST_SKIP() << "no meshes in " << meshFolder;
    Vector3 min, max;
    mesh.getAABBox(min, max);
    const Vector3 origin((min.x + max.x) * 0.5f, (min.y + max.y) * 0.5f, min.z + (max.z - min.z) * 1.5f);
    int tried = 0;
    int lost = 0;
    for (int t = 0; t < mesh.getTotalTriangleCount(); ++t)
        for (int k = 0; k < 3; ++k)
        {
            const Vector3 a = mesh.getMeshVertices()[3 * t + k]._position;
            const Vector3 b = mesh.getMeshVertices()[3 * t + (k + 1) % 3]._position;
            const Vector3 target = a + (b - a) * (0.125f * float(t % 7 + 1));
            const Vector3 direction = (target - origin) * 100.0f;
            const auto slopeOf = [&](int triangle) {
                return mesh.getFaceNormal(triangle).dot(direction) / direction.norm();
            };
            // At an outline, and at a border, the ray may pass by.
            const int neighbour = mesh.getFaceNeighbors(t)[k];
            if (neighbour < 0 || slopeOf(t) * slopeOf(neighbour) < 1e-4f)
                continue;
            ++tried;
            Vector3 hit;
            int slot = -1;
            const float limit = (target - origin).norm() * 1.0001f;
            const bool isHit = mesh.rayCast(origin, direction, hit, slot);
            lost += isHit && (hit - origin).norm() <= limit ? 0 : 1;
        }
    EXPECT_EQ(lost, 0);
    EXPECT_GT(tried, mesh.getTotalTriangleCount());
}

INSTANTIATE_TEST_SUITE_P(Meshes, PinMeshReal, testing::ValuesIn(realMeshes),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(PinMeshRays, gridsFlatTurnedAndCrookedHitWhatALoopHits)
{
    for (const int n : { 1, 2, 5, 24 })
        for (const bool isFlat : { true, false })
            for (const bool isTurned : { false, true })
            {
                MeshInput input = makeGrid(n, [=](float x, float y) {
                    return isFlat ? 0.0f : std::sin(3.0f * x) * std::cos(2.0f * y);
                });
                RandomNumberGenerator rng(3);
                const Quaternion turn = randomRotation(rng);
                for (Vector3& point : input.points)
                    point = isTurned ? turn * point : point;
                PinMesh mesh;
                fill(mesh, input);
                EXPECT_GT(expectAsBrute(mesh, 2000, 11), 400);
            }
}

TEST(PinMeshRays, gridLinesAreTightInAllDirections)
{
    constexpr int n = 12;
    RandomNumberGenerator rng(5);
    for (int turnNumber = 0; turnNumber < 10; ++turnNumber)
    {
        const Quaternion turn = turnNumber == 0 ? Quaternion::getIdentity() : randomRotation(rng);
        MeshInput input = makeGround(n);
        for (Vector3& point : input.points)
            point = turn * (point * 0.37f);
        PinMesh mesh;
        fill(mesh, input);
        for (int i = 0; i < 5000; ++i)
        {
            // On a line of the grid or on a diagonal, sometimes on a corner, inside the outline.
            const float along = i % 3 == 0 ? float(1 + i % (n - 1)) : rng.frand(1.0f, float(n - 1));
            const float line = float(1 + i % (n - 2));
            const Vector3 kinds[] = { Vector3(along, line, 0.0f), Vector3(line, along, 0.0f),
                                      Vector3(along, n - along, 0.0f) };
            const Vector3 target = turn * (kinds[i % 3] * 0.37f);
            const Vector3 down(rng.frand(-1.0f, 1.0f), rng.frand(-1.0f, 1.0f), -1.0f);
            const Vector3 direction = turn * (i % 2 == 0 ? Vector3(0.0f, 0.0f, -1.0f) : down);
            Vector3 hit;
            int slot = -1;
            ASSERT_TRUE(mesh.rayCast(target - direction * 4.0f, direction * 8.0f, hit, slot))
                << "turn " << turnNumber << ", ray " << i;
        }
    }
}

TEST(PinMeshRays, uselessMeshesAndRaysMiss)
{
    Vector3 hit(5.0f);
    int slot = 7;
    const Vector3 down(0.0f, 0.0f, -8.0f);
    PinMesh empty;
    EXPECT_FALSE(empty.rayCast(Vector3(0.5f, 0.5f, 1.0f), down, hit, slot));
    fill(empty, MeshInput());
    EXPECT_FALSE(empty.rayCast(Vector3(0.5f, 0.5f, 1.0f), down, hit, slot));

    PinMesh degenerate;
    MeshInput input;
    input.points = { Vector3(), Vector3(1.0f, 0.0f, 0.0f), Vector3(2.0f, 0.0f, 0.0f), Vector3(notANumber),
                     Vector3(infinity) };
    input.triangles.assign(100, { 0, 1, 2 });
    for (const std::array<int, 3> triangle : { std::array<int, 3>{ 0, 0, 0 }, { 0, 1, 3 }, { 0, 1, 4 } })
        input.triangles.push_back(triangle);
    fill(degenerate, input);
    EXPECT_FALSE(degenerate.rayCast(Vector3(0.5f, 0.0f, 1.0f), down, hit, slot));

    PinMesh ground;
    fill(ground, makeGround(9));
    const Vector3 above(4.5f, 4.25f, 1.0f);
    for (unsigned int axis = 0; axis < 3; ++axis)
        for (const float value : { notANumber, infinity, -infinity })
        {
            Vector3 origin = above;
            Vector3 direction = down;
            origin[axis] = direction[axis] = value;
            EXPECT_FALSE(ground.rayCast(origin, down, hit, slot));
            EXPECT_FALSE(ground.rayCast(above, direction, hit, slot));
        }
    EXPECT_FALSE(ground.rayCast(above, Vector3(), hit, slot));
    EXPECT_FALSE(ground.rayCast(above, Vector3(8.0f, 0.0f, 0.0f), hit, slot));
    EXPECT_TRUE(isSame(hit, Vector3(5.0f)));
    EXPECT_EQ(slot, 7);
}

TEST(PinMeshRays, ofEqualHitsTheFirstSlotCounts)
{
    MeshInput input = makeGround(6);
    const auto once = input.triangles;
    for (int i = 0; i < 20; ++i)
        input.triangles.insert(input.triangles.end(), once.begin(), once.end());
    PinMesh mesh;
    fill(mesh, input);
    expectAsBrute(mesh, 500, 13);
    const std::vector<Vector3> corners = listCorners(mesh);
    RandomNumberGenerator rng(1);
    for (int i = 0; i < 200; ++i)
    {
        const Vector3 origin(rng.frand(0.0f, 6.0f), rng.frand(0.0f, 6.0f), 1.0f);
        const Vector3 down(0.0f, 0.0f, -1.0f);
        Vector3 hit;
        int slot = -1;
        ASSERT_TRUE(mesh.rayCast(origin, down, hit, slot));
        EXPECT_EQ(slot, castBrute(corners, origin, down).slot);
    }
}

TEST(PinMeshRays, castingAllocatesNothing)
{
    if (!MRV_COUNTS_ALLOCATIONS)
        GTEST_SKIP() << "allocations are counted without sanitizers only";
    PinMesh mesh;
    const long before = allocationCount;
    fill(mesh, makeGrid(50, [](float x, float y) { return std::sin(x + y); }));
    ASSERT_GT(allocationCount, before);
    const long filled = allocationCount;
    int hitCount = 0;
    for (int i = 0; i < 1000; ++i)
    {
        Vector3 hit;
        int slot = -1;
        hitCount += mesh.rayCast(Vector3(float(i % 60), 20.1f, 3.0f), Vector3(0.1f, 0.2f, -4.0f), hit, slot);
    }
    EXPECT_EQ(allocationCount, filled);
    EXPECT_GT(hitCount, 500);
}

} // namespace
} // namespace mrv
