// hosts/mrvcharacter/mrvMeshImporter.cpp
#include "hosts/mrvcharacter/mrvMeshImporter.h"

#include "mrvCore/math/geometry3/mrvPinMesh.h"

#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <limits>
#include <vector>

namespace mrvcharacter {

namespace {

mrv::Vector3 toVector(const aiVector3D& point)
{
    return mrv::Vector3(static_cast<float>(point.x), static_cast<float>(point.y),
                        static_cast<float>(point.z));
}

/// Three corners a triangle.
std::vector<mrv::Vector3> listCorners(const aiScene& scene)
{
    std::vector<mrv::Vector3> corners;
    for (unsigned int m = 0; m < scene.mNumMeshes; ++m)
    {
        const aiMesh& mesh = *scene.mMeshes[m];
        for (unsigned int f = 0; f < mesh.mNumFaces; ++f)
        {
            const aiFace& face = mesh.mFaces[f];
            for (unsigned int k = 0; face.mNumIndices == 3 && k < 3; ++k)
                corners.push_back(toVector(mesh.mVertices[face.mIndices[k]]));
        }
    }
    return corners;
}

} // namespace

bool readMesh(const std::string& file, mrv::PinMesh& mesh, std::string& failure)
{
    Assimp::Importer importer;
    const aiScene* const scene =
        importer.ReadFile(file, aiProcess_Triangulate | aiProcess_PreTransformVertices);
    if (scene == nullptr)
    {
        failure = importer.GetErrorString();
        return false;
    }
    const std::vector<mrv::Vector3> corners = listCorners(*scene);
    if (corners.empty() || corners.size() > static_cast<size_t>(std::numeric_limits<int>::max()))
    {
        failure = corners.empty() ? "there are no triangles in the scene" : "there are too many triangles";
        return false;
    }
    mesh.initialize(static_cast<int>(corners.size() / 3));
    for (int i = 0; i < mesh.getVertexCount(); ++i)
    {
        mrv::RayCastVertex& vertex = mesh.touchMeshVertices()[i];
        vertex._position = corners[static_cast<size_t>(i)];
        vertex._faceIndex = i / 3;
        if (vertex._position.isFinite())
            continue;
        failure = "a vertex is not finite";
        return false;
    }
    for (int t = 0; t < mesh.getTotalTriangleCount(); ++t)
        mesh.computeFaceNormals(t);
    mesh.finalize();
    return true;
}

} // namespace mrvcharacter
