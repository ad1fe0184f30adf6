// tests/math/geometry3/mrvMeshInputs.h
// Meshes that the tests of the pin mesh share.
#pragma once

#include "mrvCore/math/geometry3/mrvPinMesh.h"
#include "tests/math/types/mrvMathTesting.h"

#include <array>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace mrv {

struct MeshInput
{
    std::vector<Vector3> points;
    std::vector<std::array<int, 3>> triangles;
};

/// n x n squares of size 1 at height(x, y), two triangles each, counterclockwise from above.
template <class Height>
MeshInput makeGrid(int n, Height height)
{
    MeshInput input;
    for (int y = 0; y <= n; ++y)
        for (int x = 0; x <= n; ++x)
            input.points.push_back(Vector3(float(x), float(y), height(float(x), float(y))));
    for (int y = 0; y < n; ++y)
        for (int x = 0; x < n; ++x)
        {
            const int v = y * (n + 1) + x;
            input.triangles.push_back({ v, v + 1, v + n + 1 });
            input.triangles.push_back({ v + 1, v + n + 2, v + n + 1 });
        }
    return input;
}

inline MeshInput makeGround(int n, float height = 0.0f)
{
    return makeGrid(n, [height](float, float) { return height; });
}

/// The lines "v x y z" and "f a b c" of an OBJ file; empty if there is no such file.
inline MeshInput readObj(const std::string& file)
{
    MeshInput input;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);)
    {
        std::istringstream words(line);
        std::string kind;
        Vector3 point;
        std::array<int, 3> corners;
        if (!(words >> kind))
            continue;
        if (kind == "v" && words >> point.x >> point.y >> point.z)
            input.points.push_back(point);
        if (kind == "f" && words >> corners[0] >> corners[1] >> corners[2])
            input.triangles.push_back({ corners[0] - 1, corners[1] - 1, corners[2] - 1 });
    }
    return input;
}

inline void fill(PinMesh& mesh, const MeshInput& input)
{
    mesh.initialize(static_cast<int>(input.triangles.size()));
    MrvMap<PairValue, PairValue> edges;
    for (int t = 0; t < mesh.getTotalTriangleCount(); ++t)
        for (int k = 0; k < 3; ++k)
        {
            RayCastVertex& vertex = mesh.touchMeshVertices()[3 * t + k];
            vertex._position = input.points[size_t(input.triangles[size_t(t)][size_t(k)])];
            vertex._faceIndex = t;
        }
    for (int t = 0; t < mesh.getTotalTriangleCount(); ++t)
    {
        mesh.computeFaceNormals(t);
        mesh.computeEdgeNormals(t);
        for (int k = 0; k < 3; ++k)
        {
            mesh.touchMeshVertices()[3 * t + k]._normal = mesh.getFaceNormal(t);
            mesh.fillEdgeInfo(edges, t, k, input.triangles[size_t(t)].data());
        }
    }
    mesh.computeSurfaces();
    mesh.finalize();
}

} // namespace mrv
