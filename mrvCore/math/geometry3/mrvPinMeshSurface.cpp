// mrvCore/math/geometry3/mrvPinMeshSurface.cpp
// Normals, weights, random points and walks on the surface of a pin mesh.
#include "mrvCore/math/conversions/mrvAxisConversions.h"
#include "mrvCore/math/geometry3/mrvPinMesh.h"
#include "mrvCore/math/geometry3/mrvPinMeshSpaces.h"
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "mrvCore/math/rotations/mrvAngleUtils.h"

#include <algorithm>
#include <cmath>

namespace mrv {

using internal::orIdentity;
using internal::transformVector;

namespace {

/// A place with axes: Z along the normal, X as near to the edge as that allows.
Matrix4 makeFrame(const Vector3& position, const Vector3& normal, const Vector3& edge)
{
    const Quaternion axes = Axis_Zx_toQuaternion(normal, edge);
    const Vector3 x = axes.mulByUnitVectorX();
    const Vector3 y = axes.mulByUnitVectorY();
    const Vector3 z = axes.mulByUnitVectorZ();
    return Matrix4(x.x, x.y, x.z, 0.0f, y.x, y.y, y.z, 0.0f, z.x, z.y, z.z, 0.0f, position.x, position.y,
                   position.z, 1.0f);
}

Matrix4 makeFrame(const RayCastVertex* corners, const Vector3& weights, const Matrix4& matrix,
                  const Matrix4& matrixForNormals)
{
    const auto weigh = [&weights](const Vector3& a, const Vector3& b, const Vector3& c) {
        return a * weights.x + b * weights.y + c * weights.z;
    };
    const Vector3 position = weigh(corners[0]._position, corners[1]._position, corners[2]._position);
    const Vector3 normal = weigh(corners[0]._normal, corners[1]._normal, corners[2]._normal);
    return makeFrame(transformPoint(position, matrix),
                     transformVector(normal, matrixForNormals).computeNormalize(),
                     transformVector(corners[1]._position - corners[0]._position, matrix).computeNormalize());
}

Matrix4 matrixForNormals(const Matrix4& matrix)
{
    Matrix4 inverse;
    inverse.inverse(matrix, false);
    inverse.transpose();
    return inverse;
}

bool rayPlaneCollision(const Vector3& point, const Vector3& normal, const Vector3& origin,
                       const Vector3& direction, Vector3& hit, float& t)
{
    constexpr float parallel = 0.0001f;
    const float slope = direction.dot(normal);
    if (std::abs(slope) < parallel)
        return false;
    t = normal.dot(point - origin) / slope;
    hit = origin + direction * t;
    return true;
}

bool areNear(const Vector3& a, const Vector3& b)
{
    constexpr float tolerance = 1e-5f;
    return std::abs(a.x - b.x) <= tolerance && std::abs(a.y - b.y) <= tolerance &&
           std::abs(a.z - b.z) <= tolerance;
}

/// Turns the plane of one unit normal into that of the other, about the line that they share.
Quaternion rotationBetween(const Vector3& from, const Vector3& to)
{
    if (areNear(from, -to))
    {
        Vector3 axis = Vector3(1.0f, 0.0f, 0.0f).cross(from);
        if (axis.norm2() < 1e-12f)
            axis = Vector3(0.0f, 1.0f, 0.0f).cross(from);
        return Quaternion(PI_ANGLE, axis.computeNormalize());
    }
    const Vector3 axis = from.cross(to);
    return Quaternion(axis.x, axis.y, axis.z, 1.0f + from.dot(to)).computeNormalize();
}

} // namespace

Vector3 PinMesh::getOrthoTriangleNormal(int triangle, const Matrix4*, const Matrix4* fromMesh) const
{
    checkTriangle(triangle);
    return transformVector(_orthoFaceNormals[triangle], _meshWorldMatrixForNormals * orIdentity(fromMesh))
        .computeNormalize();
}

Vector3 PinMesh::getSmoothedTriangleNormal(int triangle, const Vector3& barycentric, const Matrix4*,
                                           const Matrix4* fromMesh) const
{
    checkTriangle(triangle);
    const RayCastVertex* const corners = _meshVertices + 3 * triangle;
    const Vector3 normal = corners[0]._normal * barycentric.x + corners[1]._normal * barycentric.y +
                           corners[2]._normal * barycentric.z;
    return transformVector(normal, _meshWorldMatrixForNormals * orIdentity(fromMesh)).computeNormalize();
}

Vector3 PinMesh::getBarycentricPosition(int triangle, const Vector3& barycentric, const Matrix4*,
                                        const Matrix4* fromMesh) const
{
    checkTriangle(triangle);
    const Vector3 position = getPosition(triangle, 0) * barycentric.x +
                             getPosition(triangle, 1) * barycentric.y +
                             getPosition(triangle, 2) * barycentric.z;
    return transformPoint(position, _meshWorldMatrix * orIdentity(fromMesh));
}

void PinMesh::getBarycentricCoordinates(int triangle, const Vector3& point, Vector3& out,
                                        const Matrix4* toMesh, const Matrix4*) const
{
    checkTriangle(triangle);
    const Vector3 a = transformPoint(getPosition(triangle, 0), _meshWorldMatrix);
    const Vector3 u = transformPoint(getPosition(triangle, 1), _meshWorldMatrix) - a;
    const Vector3 v = transformPoint(getPosition(triangle, 2), _meshWorldMatrix) - a;
    const Vector3 w = transformPoint(point, orIdentity(toMesh)) - a;
    const Vector3 normal = u.cross(v);
    const float whole = normal.norm2();
    out.fill(1.0f / 3.0f);
    if (!(whole > 0.0f))
        return;
    out.y = w.cross(v).dot(normal) / whole;
    out.z = u.cross(w).dot(normal) / whole;
    out.x = 1.0f - out.y - out.z;
}

bool PinMesh::getRandomSurfacePoint(RandomNumberGenerator& rng, Vector3& position, Vector3& normal,
                                    int& triangle, const Matrix4* toMesh, const Matrix4* fromMesh) const
{
    if (_cumulativeFaceSurface.empty())
        return false;
    const float r = rng.frand() * _totalMeshSurface;
    size_t low = 0;
    size_t high = _cumulativeFaceSurface.size() - 1;
    while (low + 1 < high)
    {
        const size_t middle = (low + high) / 2;
        (r > _cumulativeFaceSurface[middle] ? low : high) = middle;
    }
    triangle = static_cast<int>(low);
    float a = rng.frand();
    float b = rng.frand();
    if (a + b > 1.0f)
    {
        a = 1.0f - a;
        b = 1.0f - b;
    }
    const Vector3 point = a * getPosition(triangle, 0) + b * getPosition(triangle, 1) +
                          (1.0f - a - b) * getPosition(triangle, 2);
    // Forwards through `toMesh`, as callers expect.
    position = transformPoint(point, _meshWorldMatrix * orIdentity(toMesh));
    normal = getOrthoTriangleNormal(triangle, toMesh, fromMesh);
    return true;
}

void PinMesh::getWorldMatrixFrameDelta(Matrix4& out, int triangle, const Vector3& barycentric, const Matrix4*,
                                       const Matrix4* fromMesh) const
{
    if (_previousMeshVertices == nullptr)
    {
        out = _meshWorldMatrixDeltaFromLastFrame;
        return;
    }
    checkTriangle(triangle);
    const Matrix4& from = orIdentity(fromMesh);
    const Matrix4 before =
        makeFrame(_previousMeshVertices + 3 * triangle, barycentric, _previousMeshWorldMatrix * from,
                  matrixForNormals(_previousMeshWorldMatrix) * from);
    const Matrix4 after = makeFrame(_meshVertices + 3 * triangle, barycentric, _meshWorldMatrix * from,
                                    _meshWorldMatrixForNormals * from);
    Matrix4 toIdentity;
    toIdentity.inverse(before, true);
    out = toIdentity * after;
}

void PinMesh::applyTransformationToOrientationQuat(Quaternion& orientation, const Matrix4& matrix)
{
    orientation = Axis_Zx_toQuaternion(transformVector(orientation.mulByUnitVectorZ(), matrix),
                                       transformVector(orientation.mulByUnitVectorX(), matrix));
}

bool PinMesh::isInsideBounds(const Vector3& point, const Vector3& a, const Vector3& b)
{
    constexpr float tolerance = 1e-5f;
    for (unsigned int axis = 0; axis < 3; ++axis)
    {
        const auto [low, high] = std::minmax(a[axis], b[axis]);
        if (!(low - tolerance <= point[axis] && point[axis] <= high + tolerance))
            return false;
    }
    return true;
}

/// The edge through which the walk leaves its triangle, and where; -1 if there is none.
int PinMesh::findCrossedEdge(const positionInTriangle& in, Vector3& hit) const
{
    constexpr float nearby = -0.0001f; // so that a walk that begins on an edge leaves by it
    const int triangle = in._currentTriangle;
    int found = -1;
    bool isForward = false;
    float least = 0.0f;
    for (int edge = 0; edge < 3; ++edge)
    {
        const int neighbour = _faceNeighbors[triangle][edge];
        const Vector3& normal = _edgePlaneNormals[3 * triangle + edge];
        if ((neighbour != -1 && neighbour == in._previousTriangle) || normal.isNull())
            continue;
        const Vector3 start = getPosition(triangle, edge);
        Vector3 candidate;
        float t = 0.0f;
        if (!rayPlaneCollision(start, normal, in._currentPosition, in._currentDirection, candidate, t) ||
            !(t > nearby) || !isInsideBounds(candidate, start, getPosition(triangle, (edge + 1) % 3)))
            continue;
        const float distance = (candidate - in._currentPosition).norm2();
        const bool isBetter = (t > 0.0f) != isForward ? t > 0.0f : distance < least;
        if (found >= 0 && !isBetter)
            continue;
        found = edge;
        isForward = t > 0.0f;
        least = distance;
        hit = candidate;
    }
    return found;
}

Vector3 PinMesh::turnDirection(int from, int to, const Vector3& direction, bool& normalChanged) const
{
    const Vector3& n0 = _orthoFaceNormals[from];
    const Vector3& n1 = _orthoFaceNormals[to];
    if (areNear(n0, n1))
        return direction;
    normalChanged = true;
    return rotationBetween(n0, n1) * direction;
}

void PinMesh::recursiveComputeTraversalMeshLocal(const positionInTriangle& in, positionInTriangle& out) const
{
    out = in;
    Vector3 hit;
    const int edge = findCrossedEdge(in, hit);
    if (edge < 0)
    {
        out._reachedABorder = true;
        return;
    }
    const int triangle = in._currentTriangle;
    const int neighbour = _faceNeighbors[triangle][edge];
    const float distance2 = (hit - in._currentPosition).norm2();
    out._previousTriangle = triangle;
    out._reachedABorder = false;
    if (distance2 >= in._remainingDistance * in._remainingDistance)
    {
        out._currentPosition = in._currentPosition + in._currentDirection * in._remainingDistance;
        out._remainingDistance = 0.0f;
        return;
    }
    out._currentPosition = hit;
    if (neighbour < 0 || neighbour >= _totalTriangleCount)
    {
        out._remainingDistance = 0.0f;
        out._reachedABorder = true;
        return;
    }
    out._currentTriangle = neighbour;
    out._currentDirection = turnDirection(triangle, neighbour, in._currentDirection, out._normalChanged);
    out._remainingDistance = in._remainingDistance - std::sqrt(distance2);
}

bool PinMesh::pinFromPreviousPosition(const Vector3& previousPosition, int previousTriangle,
                                      const Vector3& previousNormal, Vector3& position, Vector3& normal,
                                      int& triangle, const Matrix4* toMesh, const Matrix4* fromMesh) const
{
    if (previousTriangle < 0 || previousTriangle >= _totalTriangleCount)
        return false;
    const Vector3 delta = (position - previousPosition).projectAlong(previousNormal);
    const Vector3 n =
        transformVector(_orthoFaceNormals[previousTriangle], _meshWorldMatrix).computeNormalize();
    const Vector3 turned = Quaternion::getRotationBetweenUnitVectors(previousNormal, n) * delta;

    positionInTriangle state;
    state._currentTriangle = previousTriangle;
    state._remainingDistance = transformVector(delta, _meshWorldMatrixInverse).norm();
    state._currentPosition = transformPoint(previousPosition, _meshWorldMatrixInverse);
    state._currentDirection = transformVector(turned, _meshWorldMatrixInverse).computeNormalize();
    if (!std::isfinite(state._remainingDistance) || !state._currentPosition.isFinite())
        return false;
    // At a corner, rounding can lead a walk round and round by steps of next to no length.
    constexpr int mostStepsOnSpot = 256;
    for (int stepsOnSpot = 0; state._remainingDistance > 0.0f;)
    {
        const positionInTriangle before = state;
        recursiveComputeTraversalMeshLocal(before, state);
        if (state._reachedABorder && state._remainingDistance > 0.0f)
            return false;
        const float walked = before._remainingDistance - state._remainingDistance;
        stepsOnSpot = walked > std::max(1e-4f, 1e-6f * state._currentPosition.norm()) ? 0 : stepsOnSpot + 1;
        if (stepsOnSpot > mostStepsOnSpot)
            return false;
    }
    if (state._reachedABorder)
        return false;
    triangle = state._currentTriangle;
    position = transformPoint(state._currentPosition, _meshWorldMatrix);
    normal = getOrthoTriangleNormal(triangle, toMesh, fromMesh);
    return true;
}

} // namespace mrv
