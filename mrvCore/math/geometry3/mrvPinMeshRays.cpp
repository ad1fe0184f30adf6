// mrvCore/math/geometry3/mrvPinMeshRays.cpp
// The rays of a pin mesh.
#include "mrvCore/math/geometry3/mrvPinMesh.h"

#include "mrvCore/math/geometry3/mrvPinMeshSpaces.h"
#include "mrvCore/math/geometry3/mrvRayCastTree.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/thread/mrvScopedLock.h"

#include <algorithm>

namespace mrv {

using internal::orIdentity;
using internal::transformVector;

int PinMesh::getTriangleOfSlot(int slot) const
{
    return _meshVertices[_rayCastToMeshIndices[slot]]._faceIndex;
}

bool PinMesh::rayCast(const Vector3& origin, const Vector3& direction, Vector3& hit, int& triangleSlot) const
{
    // Callers size the direction by this.
    constexpr float reach = 2.0f;
    if (_meshVertices == nullptr || _totalTriangleCount <= 0)
        return false;
    const Vector3 along = transformVector(direction, _meshWorldMatrixInverse);
    const Vector3 from = transformPoint(origin, _meshWorldMatrixInverse);
    if (!from.isFinite() || !along.isFinite())
        return false;
    internal::RayHit best = { reach, -1 };
    if (!_tree->findNearest(from, along, _meshVertices, _rayCastToMeshIndices, best))
        return false;
    hit = transformPoint(from + best.t * along, _meshWorldMatrix);
    triangleSlot = best.slot;
    return true;
}

void PinMesh::hierarchicalRaycastAll(const Vector3& origin, const Vector3& direction,
                                     PODArray<internal::RayHit>& hits) const
{
    constexpr float reach = 1.0f; // half of that of rayCast(); callers rely on both
    if (!origin.isFinite() || !direction.isFinite())
        return;
    _tree->findAll(origin, direction, _meshVertices, _rayCastToMeshIndices, reach, hits);
    std::sort(hits.begin(), hits.end(),
              [](const internal::RayHit& a, const internal::RayHit& b) { return a.slot < b.slot; });
}

void PinMesh::rayCastAll(const Vector3& origin, const Vector3& direction, Array<Vector3>& hits,
                         PODArray<int>& triangles) const
{
    if (_meshVertices == nullptr || _totalTriangleCount <= 0)
        return;
    const Vector3 along = transformVector(direction, _meshWorldMatrixInverse);
    const Vector3 from = transformPoint(origin, _meshWorldMatrixInverse);
    PODArray<internal::RayHit> found;
    SpinLock foundLock; // for the day when parts of the tree are searched in parallel
    {
        ScopedLock<SpinLock> lock(foundLock);
        hierarchicalRaycastAll(from, along, found);
    }
    for (const internal::RayHit& hit : found)
    {
        hits.push_back(transformPoint(from + hit.t * along, _meshWorldMatrix));
        triangles.push_back(getTriangleOfSlot(hit.slot));
    }
}

bool PinMesh::castNearest(const Vector3& origin, const Vector3* directions, int count, Vector3& hit,
                          int& triangle) const
{
    bool isHit = false;
    float least = 0.0f;
    for (int i = 0; i < count; ++i)
    {
        Vector3 candidate;
        int slot = -1;
        if (!rayCast(origin, directions[i], candidate, slot))
            continue;
        const float distance = (candidate - origin).norm2();
        if (isHit && !(distance < least))
            continue;
        isHit = true;
        least = distance;
        hit = candidate;
        triangle = getTriangleOfSlot(slot);
    }
    return isHit;
}

bool PinMesh::raycast(const Vector3& origin, const Vector3& direction, Vector3& hit, int& triangle,
                      float length, bool bothDirections, const Matrix4* toMesh, const Matrix4* fromMesh) const
{
    triangle = -1;
    const Vector3 p = transformPoint(origin, orIdentity(toMesh));
    const Vector3 d = transformVector(direction, orIdentity(toMesh)) * length;
    const Vector3 directions[] = { d, -d };
    Vector3 best;
    if (!castNearest(p, directions, bothDirections ? 2 : 1, best, triangle))
    {
        MRV_LOG_LIMITED(ORVEL, LOG_DEBUG,
                        "Did not hit mesh while raycasting on ground from position "
                            << origin << ", direction " << direction.x << " .");
        return false;
    }
    hit = transformPoint(best, orIdentity(fromMesh));
    return true;
}

bool PinMesh::allIntersections(const Vector3& origin, const Vector3& direction, Array<Vector3>& hits,
                               PODArray<int>& triangles, float length, bool bothDirections,
                               const Matrix4* toMesh, const Matrix4* fromMesh) const
{
    hits.clear();
    triangles.clear();
    const Vector3 p = transformPoint(origin, orIdentity(toMesh));
    const Vector3 d = transformVector(direction, orIdentity(toMesh)) * length;
    rayCastAll(p, d, hits, triangles);
    if (bothDirections)
        rayCastAll(p, -d, hits, triangles);
    if (hits.empty())
    {
        MRV_LOG_LIMITED(ORVEL, LOG_DEBUG,
                        "Did not hit mesh while raycasting on Zell Ground from position "
                            << origin << ", direction " << direction);
        return false;
    }
    for (Vector3& hit : hits)
        hit = transformPoint(hit, orIdentity(fromMesh));
    return true;
}

bool PinMesh::pinPosition(Vector3& position, Vector3& up, int& triangle, const Matrix4* toMesh,
                          const Matrix4* fromMesh) const
{
    constexpr float farAway = 1e8f;
    triangle = -1;
    const Vector3 p = transformPoint(position, orIdentity(toMesh));
    const Vector3 u = transformVector(up, orIdentity(toMesh));
    const Vector3 directions[] = { u * -farAway, u * farAway };
    Vector3 best;
    if (!castNearest(p, directions, 2, best, triangle))
    {
        MRV_LOG_LIMITED(ORVEL, LOG_DEBUG,
                        "Did not hit mesh while raycasting on Zell Ground from position "
                            << position << ", directions were " << directions[0] << " and " << directions[0]
                            << " .");
        return false;
    }
    checkTriangle(triangle);
    position = transformPoint(best, orIdentity(fromMesh));
    // By the matrix of positions, unlike getOrthoTriangleNormal(): callers rely on each as it is.
    up = transformVector(_orthoFaceNormals[triangle], _meshWorldMatrix * orIdentity(fromMesh))
             .computeNormalize();
    return true;
}

} // namespace mrv
