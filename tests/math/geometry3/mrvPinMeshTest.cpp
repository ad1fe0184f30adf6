// tests/math/geometry3/mrvPinMeshTest.cpp
#include "tests/math/geometry3/mrvMeshInputs.h"

#include <new>

namespace mrv {
namespace {

const Vector3 up(0.0f, 0.0f, 1.0f);

/// A ground of 8 x 8 at height 0, and under its whole right half another one at -3.
MeshInput makeTwoFloors()
{
    MeshInput input = makeGround(8);
    const MeshInput lower = makeGround(4, -3.0f);
    const int first = static_cast<int>(input.points.size());
    for (const Vector3& point : lower.points)
        input.points.push_back(point + Vector3(4.0f, 0.0f, 0.0f));
    for (const std::array<int, 3>& t : lower.triangles)
        input.triangles.push_back({ t[0] + first, t[1] + first, t[2] + first });
    return input;
}

class TwoFloors : public testing::Test
{
protected:
    TwoFloors() { fill(mesh, makeTwoFloors()); }
    PinMesh mesh;
};

struct PinCase
{
    const char* name;
    Vector3 position;
    bool isPinned;
    float height;
};

TEST_F(TwoFloors, pinnedToTheNearestGroundAboveOrBelow)
{
    const PinCase cases[] = {
        { "on it", Vector3(1.25f, 2.5f, 0.0f), true, 0.0f },
        { "above", Vector3(1.25f, 2.5f, 7.0f), true, 0.0f },
        { "below", Vector3(1.25f, 2.5f, -7.0f), true, 0.0f },
        { "between, nearer to the lower", Vector3(5.25f, 2.5f, -2.0f), true, -3.0f },
        { "between, nearer to the upper", Vector3(5.25f, 2.5f, -1.0f), true, 0.0f },
        { "beside", Vector3(9.0f, 2.0f, 0.0f), false, 0.0f },
        { "no number", Vector3(notANumber, 2.0f, 0.0f), false, 0.0f },
    };
    for (const PinCase& row : cases)
    {
        Vector3 position = row.position;
        Vector3 normal = up;
        int triangle = 5;
        ASSERT_EQ(mesh.pinPosition(position, normal, triangle), row.isPinned) << row.name;
        if (row.isPinned)
        {
            EXPECT_TRUE(isNear(position, Vector3(row.position.x, row.position.y, row.height), 1e-5f))
                << row.name;
            EXPECT_TRUE(isNear(normal, up)) << row.name;
            EXPECT_EQ(triangle >= 128, row.height < 0.0f) << row.name;
        }
        else
        {
            EXPECT_TRUE(std::memcmp(&position, &row.position, sizeof(position)) == 0) << row.name;
            EXPECT_EQ(triangle, -1) << row.name;
        }
    }
}

TEST_F(TwoFloors, raysReachTwiceTheirLengthAndAllIntersectionsOnce)
{
    struct Case
    {
        float height, length;
        bool both;
        float nearest; ///< height of the hit, 9 for none
        size_t all;
    };
    const Case cases[] = {
        { 15.0f, 10.0f, false, 0.0f, 0 },  { 15.0f, 7.5f, false, 9.0f, 0 },
        { 10.0f, 10.5f, false, 0.0f, 1 },  { 10.0f, 13.5f, false, 0.0f, 2 },
        { 10.0f, 13.0f, false, 0.0f, 1 }, // 0 <= t < 1
        { -1.0f, 10.0f, false, -3.0f, 1 }, { -1.0f, 10.0f, true, 0.0f, 2 },
        { -2.0f, 10.0f, true, -3.0f, 2 },  { -10.0f, 20.0f, false, 9.0f, 0 },
        { -10.0f, 20.0f, true, -3.0f, 2 },
    };
    const Vector3 down(0.0f, 0.0f, -1.0f);
    for (const Case& row : cases)
    {
        const Vector3 origin(5.25f, 2.5f, row.height);
        Vector3 hit(9.0f);
        int triangle = 5;
        EXPECT_EQ(mesh.raycast(origin, down, hit, triangle, row.length, row.both), row.nearest != 9.0f);
        EXPECT_NEAR(hit.z, row.nearest, 1e-5f) << row.height << ' ' << row.length;
        EXPECT_EQ(triangle >= 0, row.nearest != 9.0f);
        Array<Vector3> hits(3, Vector3());
        PODArray<int> triangles;
        EXPECT_EQ(mesh.allIntersections(origin, down, hits, triangles, row.length, row.both), row.all > 0);
        EXPECT_EQ(hits.size(), row.all) << row.height << ' ' << row.length;
        EXPECT_EQ(triangles.size(), row.all);
    }
}

// The ray is cast where the mesh is, from where the caller is.
TEST(PinMesh, matricesLeadFromTheCallerToTheMeshAndBack)
{
    RandomNumberGenerator rng(21);
    const auto height = [](float x, float y) { return std::sin(x) + 0.3f * y; };
    PinMesh still, moved;
    fill(still, makeGrid(10, height));
    fill(moved, makeGrid(10, height));
    for (int i = 0; i < 50; ++i)
    {
        Matrix4 world, toMesh, fromMesh;
        world.rotationAxis(randomVector(rng), rng.frand(0.0f, 6.0f));
        world.addScale(Vector3(rng.frand(0.5f, 2.0f)));
        world.setPosition(randomVector(rng));
        toMesh.rotationAxis(randomVector(rng), rng.frand(0.0f, 6.0f));
        fromMesh.inverse(toMesh, true);
        moved.setWorldMatrix(world);
        Matrix4 toCaller = world * fromMesh;

        const Vector3 origin(rng.frand(0.0f, 10.0f), rng.frand(0.0f, 10.0f), 9.0f);
        const Vector3 end(rng.frand(0.0f, 10.0f), rng.frand(0.0f, 10.0f), -9.0f);
        Vector3 expected, hit;
        int expectedTriangle = -1;
        int triangle = -1;
        const Vector3 from = transformPoint(origin, toCaller);
        const Vector3 along = transformPoint(end, toCaller) - from;
        const bool isHit = still.raycast(origin, end - origin, expected, expectedTriangle, 1.0f, false);
        ASSERT_EQ(moved.raycast(from, along, hit, triangle, 1.0f, false, &toMesh, &fromMesh), isHit);
        if (!isHit)
            continue;
        EXPECT_EQ(triangle, expectedTriangle);
        EXPECT_TRUE(isNear(hit, transformPoint(expected, toCaller), 1e-3f));

        Vector3 weights;
        moved.getBarycentricCoordinates(triangle, hit, weights, &toMesh, &fromMesh);
        EXPECT_NEAR(weights.x + weights.y + weights.z, 1.0f, 1e-5f);
        EXPECT_TRUE(isNear(moved.getBarycentricPosition(triangle, weights, &toMesh, &fromMesh), hit, 1e-3f));
        const Vector3 normal = moved.getOrthoTriangleNormal(triangle, &toMesh, &fromMesh);
        EXPECT_TRUE(isNear(moved.getSmoothedTriangleNormal(triangle, weights, &toMesh, &fromMesh), normal));
        // A unit, and at right angles to the edges.
        EXPECT_NEAR(normal.norm(), 1.0f, 1e-5f);
        for (int k = 0; k < 2; ++k)
        {
            const RayCastVertex* const corners = moved.getMeshVertices() + 3 * triangle + k;
            const Vector3 edge = transformPoint(corners[1]._position, toCaller) -
                                 transformPoint(corners[0]._position, toCaller);
            EXPECT_NEAR(edge.dot(normal), 0.0f, 1e-3f);
        }
    }
}

TEST(PinMesh, theFrameDeltaLeadsFromTheFormerPlaceToTheNew)
{
    RandomNumberGenerator rng(4);
    for (const bool isDeformed : { false, true })
    {
        PinMesh mesh;
        mesh.setDeformed(isDeformed);
        fill(mesh, makeGround(4));
        const Vector3 weights(0.5f, 0.2f, 0.3f);
        Matrix4 first, second, delta;
        first.rotationAxis(up, 0.5f);
        first.setPosition(Vector3(1.0f, 2.0f, 3.0f));
        second.rotationAxis(Vector3(1.0f, 1.0f, 0.0f), 1.0f);
        mesh.setWorldMatrix(first);
        const Vector3 before = mesh.getBarycentricPosition(5, weights);
        const Vector3 normalBefore = mesh.getOrthoTriangleNormal(5);
        if (isDeformed)
            for (int i = 0; i < mesh.getVertexCount(); ++i)
                mesh.touchMeshVertices()[i]._position.z += 2.0f;
        mesh.setWorldMatrix(second);
        EXPECT_TRUE(mesh.hasMatrixChangedLastFrame());
        mesh.getWorldMatrixFrameDelta(delta, 5, weights);
        EXPECT_TRUE(isNear(transformPoint(before, delta), mesh.getBarycentricPosition(5, weights), 1e-4f));
        EXPECT_TRUE(isNear(transformPoint(before + normalBefore, delta) - transformPoint(before, delta),
                           mesh.getOrthoTriangleNormal(5), 1e-4f));
        mesh.setWorldMatrix(second);
        EXPECT_FALSE(mesh.hasMatrixChangedLastFrame());
        EXPECT_TRUE(mesh.getWorldMatrixFrameDelta() == Matrix4::identity);
    }
    Matrix4 turn;
    turn.rotationAxis(up, 0.75f);
    Quaternion orientation = randomRotation(rng);
    const Vector3 y = orientation.mulByUnitVectorY();
    PinMesh::applyTransformationToOrientationQuat(orientation, turn);
    EXPECT_TRUE(isNear(orientation.mulByUnitVectorY(), transformPoint(y, turn), 1e-5f));
}

TEST(PinMesh, walksOnAPlaneLeadWhereTheyPoint)
{
    RandomNumberGenerator rng(9);
    PinMesh mesh;
    fill(mesh, makeGround(10));
    Matrix4 world;
    world.rotationAxis(Vector3(1.0f, 2.0f, 3.0f), 1.0f);
    world.addScale(Vector3(2.0f));
    mesh.setWorldMatrix(world);
    const Vector3 normal = mesh.getOrthoTriangleNormal(0);
    int borders = 0;
    int stuck = 0;
    for (int i = 0; i < 2000; ++i)
    {
        // Every fourth one begins on a corner, and every third one runs along the lines.
        Vector3 start(rng.frand(0.5f, 9.5f), rng.frand(0.5f, 9.5f), 0.0f);
        if (i % 4 == 0)
            start = Vector3(float(1 + i % 9), float(1 + i % 7), 0.0f);
        Vector3 way(rng.frand(-6.0f, 6.0f), rng.frand(-6.0f, 6.0f), 0.0f);
        if (i % 3 == 0)
            way[unsigned(i) % 2] = 0.0f;
        const Vector3 end = start + way;
        const int square = int(start.y) * 10 + int(start.x);
        const int from = 2 * square + (start.x - std::floor(start.x) + start.y - std::floor(start.y) > 1.0f);
        const Vector3 target = transformPoint(end, world) + normal * 0.5f;
        Vector3 position = target;
        Vector3 newNormal(7.0f);
        int triangle = 77777;
        const bool isOn = end.x > 0.01f && end.x < 9.99f && end.y > 0.01f && end.y < 9.99f;
        const bool isOff = end.x < -0.01f || end.x > 10.01f || end.y < -0.01f || end.y > 10.01f;
        const bool isWalked = mesh.pinFromPreviousPosition(transformPoint(start, world), from, normal,
                                                           position, newNormal, triangle);
        // A walk that meets a corner may get stuck there, but does not go astray.
        const bool meetsCorners = i % 4 == 0 || i % 3 == 0;
        EXPECT_TRUE(isWalked ? !isOff : !isOn || meetsCorners) << i;
        stuck += !isWalked && isOn ? 1 : 0;
        borders += isWalked ? 0 : 1;
        if (isWalked)
        {
            EXPECT_TRUE(isNear(position, transformPoint(end, world), 1e-3f)) << i;
            EXPECT_TRUE(isNear(newNormal, normal, 1e-4f));
            Vector3 weights;
            mesh.getBarycentricCoordinates(triangle, position, weights);
            EXPECT_GT(std::min({ weights.x, weights.y, weights.z }), -1e-3f) << i;
        }
        else
        {
            EXPECT_TRUE(isSame(position, target));
            EXPECT_TRUE(isSame(newNormal, Vector3(7.0f)));
            EXPECT_EQ(triangle, 77777);
        }
    }
    EXPECT_GT(borders, 200);
    EXPECT_LT(stuck, 100);
    Vector3 position(1.0f), newNormal;
    int triangle = 3;
    for (const int none : { -1, 200 })
        EXPECT_FALSE(mesh.pinFromPreviousPosition(Vector3(), none, normal, position, newNormal, triangle));
    position.fill(notANumber);
    EXPECT_FALSE(mesh.pinFromPreviousPosition(Vector3(), 0, normal, position, newNormal, triangle));
}

TEST(PinMesh, walksFollowTheSlope)
{
    // A roof with its ridge at x = 5: 45 degrees up, then down.
    PinMesh mesh;
    fill(mesh, makeGrid(10, [](float x, float) { return 5.0f - std::abs(x - 5.0f); }));
    const float root = std::sqrt(0.5f);
    Vector3 position = Vector3(3.25f, 4.5f, 3.25f) + Vector3(root, 0.0f, root) * 5.0f;
    Vector3 normal;
    int triangle = -1;
    const int from = 2 * 43; // the lower triangle of the square at (3, 4)
    ASSERT_TRUE(mesh.pinFromPreviousPosition(Vector3(3.25f, 4.5f, 3.25f), from, mesh.getFaceNormal(from),
                                             position, normal, triangle));
    // 5 along the surface: 1.75 sqrt(2) to the ridge, the rest behind it.
    const float behind = (5.0f - 1.75f / root) * root;
    EXPECT_TRUE(isNear(position, Vector3(5.0f + behind, 4.5f, 5.0f - behind), 1e-4f));
    EXPECT_TRUE(isNear(normal, Vector3(root, 0.0f, root), 1e-5f));
    EXPECT_TRUE(isNear(mesh.getFaceNormal(triangle), normal, 1e-5f));
}

TEST(PinMesh, randomPointsAreSpreadByArea)
{
    PinMesh mesh;
    MeshInput input;
    input.points = { Vector3(), Vector3(1.0f, 0.0f, 0.0f), Vector3(0.0f, 1.0f, 0.0f),
                     Vector3(-3.0f, 0.0f, 0.0f) };
    input.triangles = { { 0, 1, 2 }, { 0, 2, 3 }, { 0, 1, 1 } };
    RandomNumberGenerator rng(8);
    Vector3 position, normal;
    int triangle = -1;
    EXPECT_FALSE(mesh.getRandomSurfacePoint(rng, position, normal, triangle));
    fill(mesh, input);
    EXPECT_FLOAT_EQ(mesh.getTotalSurface(), 2.0f);
    constexpr int count = 20000;
    int counts[3] = {};
    Vector3 sum;
    for (int i = 0; i < count; ++i)
    {
        ASSERT_TRUE(mesh.getRandomSurfacePoint(rng, position, normal, triangle));
        ++counts[triangle];
        sum += position;
        EXPECT_GE(position.y, 0.0f);
        EXPECT_LE(position.x + position.y, 1.00001f);
        EXPECT_TRUE(isNear(normal, up));
    }
    EXPECT_NEAR(counts[0], count / 4, 300); // five standard deviations
    EXPECT_EQ(counts[2], 0);
    EXPECT_TRUE(isNear(sum / float(count), Vector3((0.25f - 3.0f * 0.75f) / 3.0f, 1.0f / 3.0f, 0.0f), 0.03f));
}

TEST(PinMesh, arraysLiveFromInitializeToClear)
{
    PinMesh mesh;
    EXPECT_THROW(mesh.initialize(-1), std::bad_array_new_length);
    Vector3 min(1.0f), max(1.0f);
    mesh.getAABBox(min, max);
    EXPECT_TRUE(isSame(min, Vector3()));
    EXPECT_TRUE(isSame(max, Vector3()));
    mesh.initialize(2);
    const RayCastVertex* const vertices = mesh.getMeshVertices();
    EXPECT_EQ(vertices[5]._faceIndex, -1);
    mesh.clear(); // not finalized: all stays
    EXPECT_EQ(mesh.getMeshVertices(), vertices);
    EXPECT_EQ(mesh.getVertexCount(), 6);
    mesh.finalize();
    mesh.clear();
    EXPECT_EQ(mesh.getMeshVertices(), nullptr);
    EXPECT_EQ(mesh.getTotalTriangleCount(), 0);
    fill(mesh, makeGround(2, 3.0f));
    mesh.getAABBox(min, max);
    EXPECT_TRUE(isSame(min, Vector3(0.0f, 0.0f, 3.0f)));
    EXPECT_TRUE(isSame(max, Vector3(2.0f, 2.0f, 3.0f)));
    EXPECT_DEATH(mesh.getOrthoTriangleNormal(8), "There is no triangle 8");
}

// The order of the indices is lasting: ties between equal hits, and the order of all hits, hang on it.
TEST(PinMeshHierarchy, partsTheTrianglesRoundTheCentre)
{
    struct Case
    {
        std::vector<float> centroids;
        std::vector<int> order;
        int front;
    };
    const Case cases[] = {
        { { 0, 9, 1, 8, 2 }, { 0, 4, 2, 3, 1 }, 9 },
        { { 0, 1 }, { 0, 1 }, 3 }, // the last one met is not looked at
        { { 9, 9, 9 }, { 1, 2, 0 }, 0 },
        { { 5, 1, 1 }, { 2, 1, 0 }, 3 }, // the centre itself is not below
    };
    for (const Case& row : cases)
    {
        PODArray<internal::AABBTriangle> triangles;
        for (size_t i = 0; i < row.centroids.size(); ++i)
        {
            RayCastVertex corners[3];
            for (RayCastVertex& corner : corners)
                corner._position = Vector3(0.0f, row.centroids[i], 0.0f);
            const int indices[] = { 0, 1, 2 };
            triangles.push_back(internal::gatherAABBTriangle(corners, indices));
            triangles[i].index0 = static_cast<int>(i);
        }
        const int count = static_cast<int>(3 * triangles.size());
        EXPECT_EQ(splitIndices(triangles.begin(), count, 1, Vector3(), Vector3(10.0f)), row.front);
        for (size_t i = 0; i < row.order.size(); ++i)
            EXPECT_EQ(triangles[i].index0, row.order[i]);
    }
}

TEST(PinMeshHierarchy, nodesCoverTheIndicesInOrderWithTheRootLast)
{
    PinMesh mesh;
    fill(mesh, makeGrid(40, [](float x, float y) { return std::sin(x * y); }));
    std::vector<int> indices(size_t(mesh.getVertexCount()));
    for (size_t i = 0; i < indices.size(); ++i)
        indices[i] = static_cast<int>(i);
    Vector3 min, max;
    mesh.getAABBox(min, max);
    Array<AABB<Vector3>> nodes;
    const int count = mesh.getVertexCount();
    const int root =
        computeAABBHierarchy(mesh.getMeshVertices(), indices.data(), 0, count, 0, nodes, min, max);
    ASSERT_EQ(root, static_cast<int>(nodes.size()) - 1);
    EXPECT_TRUE(std::equal(indices.begin(), indices.end(), mesh.getRayCastToMeshIndices()));
    int next = 0;
    for (const AABB<Vector3>& node : nodes)
    {
        if (node._left >= 0 || node._right >= 0)
            continue;
        EXPECT_EQ(node._firstIndex, next);
        EXPECT_LT(node._indexCount, 48);
        next += node._indexCount;
    }
    EXPECT_EQ(next, count);
    // Its own search finds the same, but for rays that graze a box.
    RandomNumberGenerator rng(2);
    for (int i = 0; i < 2000; ++i)
    {
        const Vector3 origin(rng.frand(1.0f, 39.0f), rng.frand(1.0f, 39.0f), 4.0f);
        const Vector3 direction(rng.frand(-3.0f, 3.0f), rng.frand(-3.0f, 3.0f), -4.0f);
        int index = -1;
        int slot = -1;
        float t = 2.0f;
        hierarchicalRaycast(origin, direction, index, t, root, nodes, mesh.getMeshVertices(), indices.data());
        Vector3 hit;
        mesh.rayCast(origin, direction, hit, slot);
        EXPECT_EQ(index, slot);
    }
    EXPECT_EQ(computeAABBHierarchy(mesh.getMeshVertices(), indices.data(), 0, 0, 0, nodes, min, max), -1);
}

} // namespace
} // namespace mrv
