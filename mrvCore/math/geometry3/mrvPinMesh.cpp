// mrvCore/math/geometry3/mrvPinMesh.cpp
// How the mesh is made and moved; rays are in mrvPinMeshRays.cpp, the rest in mrvPinMeshSurface.cpp.
#include "mrvCore/math/geometry3/mrvPinMesh.h"

#include "mrvCore/math/geometry3/mrvRayCastTree.h"
#include "mrvCore/math/geometry3/mrvTriangle3.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/memory/mrvLargePages.h"
#include "mrvCore/system/thread/mrvScopedLock.h"

#include <algorithm>
#include <new>

namespace mrv {

PinMesh::PinMesh() : _tree(new internal::RayCastTree) {}

PinMesh::~PinMesh()
{
    release();
    delete _tree;
}

void PinMesh::release()
{
    delete[] _orthoFaceNormals;
    delete[] _edgePlaneNormals;
    delete[] _meshVertices;
    delete[] _previousMeshVertices;
    delete[] _faceNeighbors;
    delete[] _rayCastToMeshIndices;
    _orthoFaceNormals = nullptr;
    _edgePlaneNormals = nullptr;
    _meshVertices = nullptr;
    _previousMeshVertices = nullptr;
    _faceNeighbors = nullptr;
    _rayCastToMeshIndices = nullptr;
    _cumulativeFaceSurface.clear();
    _totalMeshSurface = 0.0f;
    _totalTriangleCount = 0;
}

void PinMesh::clear()
{
    // Callers that fill a mesh in more than one go count on their arrays staying until finalize().
    if (_initialized)
        release();
    _AABB.clear();
    _tree->clear();
    _initialized = false;
}

void PinMesh::initialize(int triangleCount)
{
    if (triangleCount < 0)
        throw std::bad_array_new_length();
    clear();
    release();
    const size_t count = static_cast<size_t>(triangleCount);
    _orthoFaceNormals = new Vector3[count];
    _edgePlaneNormals = new Vector3[3 * count];
    _meshVertices = new RayCastVertex[3 * count];
    if (_deformed)
        _previousMeshVertices = new RayCastVertex[3 * count];
    _faceNeighbors = new int[count][3];
    _rayCastToMeshIndices = new int[3 * count];
    std::fill_n(&_faceNeighbors[0][0], 3 * count, -1);
    for (size_t i = 0; i < 3 * count; ++i)
        _rayCastToMeshIndices[i] = static_cast<int>(i);
    _totalTriangleCount = triangleCount;
}

void PinMesh::finalize()
{
    computeRaycastAABBHierarchy();
    if (_previousMeshVertices != nullptr)
        std::copy_n(_meshVertices, getVertexCount(), _previousMeshVertices);
    _initialized = true;
}

void PinMesh::computeRaycastAABBHierarchy()
{
    _AABB.clear();
    _tree->clear();
    if (_totalTriangleCount <= 0 || _meshVertices == nullptr)
        return;
    PODArray<internal::AABBTriangle> triangles;
    triangles.reserve(static_cast<size_t>(_totalTriangleCount));
    internal::adviseLargePages(triangles.begin(), triangles.capacity() * sizeof(internal::AABBTriangle));
    for (int i = 0; i < getVertexCount(); i += 3)
        triangles.push_back(internal::gatherAABBTriangle(_meshVertices, _rayCastToMeshIndices + i));

    Vector3 min = _meshVertices[0]._position;
    Vector3 max = min;
    for (int i = 1; i < getVertexCount(); ++i)
    {
        min.minSelf(_meshVertices[i]._position);
        max.maxSelf(_meshVertices[i]._position);
    }
    _AABB.reserve(triangles.size() / 4 + 1);
    computeAABBHierarchy(triangles.begin(), 0, getVertexCount(), 0, _AABB, min, max);

    int* out = _rayCastToMeshIndices;
    for (const internal::AABBTriangle& triangle : triangles)
        for (const int index : { triangle.index0, triangle.index1, triangle.index2 })
            *out++ = index;
    _tree->build(_meshVertices, triangles);
}

void PinMesh::checkTriangle(int triangle) const
{
    MRV_ASSERT(triangle >= 0 && triangle < _totalTriangleCount, "There is no triangle %d in the pin mesh",
               triangle);
}

Vector3 PinMesh::getPosition(int triangle, int corner) const
{
    return _meshVertices[3 * triangle + corner]._position;
}

void PinMesh::computeFaceNormals(int triangle)
{
    checkTriangle(triangle);
    const Vector3 p1 = getPosition(triangle, 1);
    _orthoFaceNormals[triangle] =
        (p1 - getPosition(triangle, 0)).cross(getPosition(triangle, 2) - p1).computeNormalize();
}

void PinMesh::computeEdgeNormals(int triangle)
{
    checkTriangle(triangle);
    for (int edge = 0; edge < 3; ++edge)
    {
        const Vector3 along = getPosition(triangle, (edge + 1) % 3) - getPosition(triangle, edge);
        _edgePlaneNormals[3 * triangle + edge] = _orthoFaceNormals[triangle].cross(along / along.norm());
    }
}

void PinMesh::fillEdgeInfo(MrvMap<PairValue, PairValue>& map, int triangle, int edge, const int* indices)
{
    checkTriangle(triangle);
    const auto [low, high] = std::minmax(indices[edge], indices[(edge + 1) % 3]);
    const auto found = map.find({ low, high });
    if (found == map.end())
    {
        map.insert({ low, high }, { triangle, edge });
        return;
    }
    const PairValue& other = found.getValue();
    _faceNeighbors[triangle][edge] = other._value0;
    _faceNeighbors[other._value0][other._value1] = triangle;
}

void PinMesh::computeSurfaces()
{
    _cumulativeFaceSurface.clear();
    _totalMeshSurface = 0.0f;
    for (int t = 0; t < _totalTriangleCount; ++t)
    {
        _cumulativeFaceSurface.push_back(_totalMeshSurface);
        _totalMeshSurface += Triangle3(getPosition(t, 0), getPosition(t, 1), getPosition(t, 2)).getSurface();
    }
}

void PinMesh::setWorldMatrix(const Matrix4& matrix)
{
    ScopedLock<SpinLock> lock(_setWorldMatrixLock);
    _previousMeshWorldMatrix = _meshWorldMatrix;
    _matrixChangedLastFrame = _meshWorldMatrix != matrix;
    if (!_matrixChangedLastFrame)
    {
        _meshWorldMatrixDeltaFromLastFrame = Matrix4::identity;
        _meshWorldMatrixDeltaFromLastFrameInverse = Matrix4::identity;
        return;
    }
    _meshWorldMatrix = matrix;
    _meshWorldMatrixDeltaFromLastFrame = _meshWorldMatrixInverse * matrix;
    _meshWorldMatrixDeltaFromLastFrameInverse.inverse(_meshWorldMatrixDeltaFromLastFrame, false);
    _meshWorldMatrixInverse.inverse(matrix, false);
    _meshWorldMatrixForNormals.transpose(_meshWorldMatrixInverse);
}

void PinMesh::getAABBox(Vector3& min, Vector3& max) const
{
    min.setNull();
    max.setNull();
    if (_totalTriangleCount <= 0 || _meshVertices == nullptr)
    {
        MRV_LOG_LIMITED(ORVEL, LOG_WARNING, "An error occured in PinMesh::getAABBox : mesh is empty.");
        return;
    }
    min = max = transformPoint(_meshVertices[0]._position, _meshWorldMatrix);
    for (int i = 1; i < getVertexCount(); ++i)
    {
        const Vector3 point = transformPoint(_meshVertices[i]._position, _meshWorldMatrix);
        min.minSelf(point);
        max.maxSelf(point);
    }
}

} // namespace mrv
