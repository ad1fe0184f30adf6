// mrvCore/math/geometry3/mrvPinMesh.h
// The ground that characters stand and walk on.
#pragma once

#include "mrvCore/math/geometry3/mrvAABB.h"
#include "mrvCore/math/geometry3/mrvRayCastVertex.h"
#include "mrvCore/math/types/mrvMatrix4.h"
#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/genericPatterns/mrvReferenceCounter.h"
#include "mrvCore/system/thread/mrvSpinLock.h"

namespace mrv {

class Quaternion;
class RandomNumberGenerator;

namespace internal {
class RayCastTree;
struct RayHit;
} // namespace internal

/// An edge by its two vertices, or a triangle and the number of one of its edges.
struct PairValue
{
    int _value0 = 0;
    int _value1 = 0;

    bool operator<(const PairValue& other) const
    {
        return _value0 != other._value0 ? _value0 < other._value0 : _value1 < other._value1;
    }
    bool operator==(const PairValue& other) const
    {
        return _value0 == other._value0 && _value1 == other._value1;
    }
};

/// A walk over the surface, between two triangles; in the space of the mesh.
struct positionInTriangle
{
    int _currentTriangle = -1;
    float _remainingDistance = 0.0f;
    bool _reachedABorder = false;
    bool _normalChanged = false;
    int _previousTriangle = -1; ///< not gone back to
    Vector3 _currentPosition;
    Vector3 _currentDirection; ///< a unit along the triangle
};

/// A triangle mesh with a world matrix, which positions are pinned to.
///
/// Made in this order: initialize(), the arrays filled in, the compute...() operations, finalize(). What is
/// changed in the arrays later counts for rays from the next finalize() on.
/// Spaces: vertices and normals lie in the mesh's own space, `_meshWorldMatrix` leads to its world. The two
/// matrices at the end of each query, borrowed, lead from the caller's space to that world and back; null is
/// the identity.
/// Triangles are numbered as they are filled in; corner k of triangle t is vertex 3 t + k, and edge k runs
/// from corner k to the next. A number that is no triangle is fatal, but for the walk, where it fails.
/// Threads: queries may run at the same time, but not during anything that changes the mesh. setWorldMatrix()
/// may be called from several threads.
class MRV_CORE_API PinMesh : public ReferenceCounter
{
public:
    PinMesh();
    ~PinMesh() override;
    PinMesh(const PinMesh&) = delete;
    PinMesh& operator=(const PinMesh&) = delete;

    /// Drops the hierarchy, and the arrays if the mesh was finalized.
    virtual void clear();
    /// Clears, and makes arrays for so many triangles: null positions and normals, no neighbours, and indices
    /// in order. Throws std::bad_array_new_length for a negative count.
    virtual void initialize(int triangleCount);
    /// Builds the hierarchy and takes the vertices of a deformed mesh as those of the previous frame.
    virtual void finalize();

    /// Whether the vertices of the previous frame are kept; to be told before initialize().
    void setDeformed(bool deformed) { _deformed = deformed; }

    // Filling

    RayCastVertex* touchMeshVertices() { return _meshVertices; }
    const RayCastVertex* getMeshVertices() const { return _meshVertices; }
    int getVertexCount() const { return 3 * _totalTriangleCount; }
    int getTotalTriangleCount() const { return _totalTriangleCount; }
    /// For a mesh that turned out to have fewer triangles than it was initialized for.
    void setTotalTriangleCount(int count) { _totalTriangleCount = count; }
    /// Three a triangle, which finalize() permutes a triangle at a time. A ray finds the place in here.
    int* getRayCastToMeshIndices() { return _rayCastToMeshIndices; }
    const int* getRayCastToMeshIndices() const { return _rayCastToMeshIndices; }
    /// The triangles across the three edges, -1 for a border.
    int* getFaceNeighbors(int triangle) { return _faceNeighbors[triangle]; }
    const int* getFaceNeighbors(int triangle) const { return _faceNeighbors[triangle]; }

    /// The unit normal of a triangle, to the side from which it turns counterclockwise.
    void computeFaceNormals(int triangle);
    /// Inward for a counterclockwise triangle; NaN for an edge without length. Needs the face normal.
    void computeEdgeNormals(int triangle);
    /// Makes the triangle the neighbour of the one that put the same edge into the map before, else puts it
    /// in. `indices` are the numbers of the triangle's three corners among shared vertices.
    void fillEdgeInfo(MrvMap<PairValue, PairValue>& map, int triangle, int edge, const int* indices);
    /// Areas of all triangles and their sum.
    void computeSurfaces();

    /// In the mesh's own space.
    const Vector3& getFaceNormal(int triangle) const { return _orthoFaceNormals[triangle]; }
    const Vector3& getEdgeNormal(int edge) const { return _edgePlaneNormals[edge]; }
    float getTotalSurface() const { return _totalMeshSurface; }

    // Matrices

    /// To be called once a frame, since it also tells how the mesh moved since the last call.
    void setWorldMatrix(const Matrix4& matrix);
    const Matrix4& getWorldMatrix() const { return _meshWorldMatrix; }
    const Matrix4& getWorldMatrixInverse() const { return _meshWorldMatrixInverse; }
    Matrix4& touchWorldMatrix() { return _meshWorldMatrix; }
    Matrix4& touchWorldMatrixInverse() { return _meshWorldMatrixInverse; }
    bool hasMatrixChangedLastFrame() const { return _matrixChangedLastFrame; }

    /// From the place of the mesh before the last setWorldMatrix() to that after it.
    const Matrix4& getWorldMatrixFrameDelta() const { return _meshWorldMatrixDeltaFromLastFrame; }
    /// The same at a point on a triangle, which moves with the vertices of a deformed mesh; of one that is
    /// not deformed it is the above.
    void getWorldMatrixFrameDelta(Matrix4& out, int triangle, const Vector3& barycentric,
                                  const Matrix4* toMesh = nullptr, const Matrix4* fromMesh = nullptr) const;

    /// Bounds of all vertices in the world of the mesh. Of an empty mesh null vectors, and a warning.
    void getAABBox(Vector3& min, Vector3& max) const;

    // Rays. They may start and end in any triangle, and hit both sides; one that is not finite hits nothing.

    /// The nearest hit up to twice `length` directions away, forwards or, if asked for, also backwards.
    /// False, with a debug message and `triangle` -1, if there is none.
    bool raycast(const Vector3& origin, const Vector3& direction, Vector3& hit, int& triangle, float length,
                 bool bothDirections, const Matrix4* toMesh = nullptr,
                 const Matrix4* fromMesh = nullptr) const;
    /// All hits up to `length` directions away, forwards first, in the order of the hierarchy.
    bool allIntersections(const Vector3& origin, const Vector3& direction, Array<Vector3>& hits,
                          PODArray<int>& triangles, float length, bool bothDirections,
                          const Matrix4* toMesh = nullptr, const Matrix4* fromMesh = nullptr) const;
    /// Moves a position along the up vector, down or up, to the nearest ground, and makes the up vector its
    /// normal. False, with both as they were, if there is none.
    bool pinPosition(Vector3& position, Vector3& up, int& triangle, const Matrix4* toMesh = nullptr,
                     const Matrix4* fromMesh = nullptr) const;

    /// The nearest hit of a ray in the world of the mesh, up to twice the direction away. `triangleSlot` is
    /// the place of the triangle's first index. Allocates nothing.
    bool rayCast(const Vector3& origin, const Vector3& direction, Vector3& hit, int& triangleSlot) const;
    /// Appends all hits up to once the direction away, and their triangles.
    void rayCastAll(const Vector3& origin, const Vector3& direction, Array<Vector3>& hits,
                    PODArray<int>& triangles) const;

    // The surface

    /// Walks over the surface as far and in the direction that `position` is away along the ground, and puts
    /// it there. False, with the outputs as they were, if the walk comes to a border or gets stuck at a
    /// corner, which is for pinPosition() then.
    bool pinFromPreviousPosition(const Vector3& previousPosition, int previousTriangle,
                                 const Vector3& previousNormal, Vector3& position, Vector3& normal,
                                 int& triangle, const Matrix4* toMesh = nullptr,
                                 const Matrix4* fromMesh = nullptr) const;

    Vector3 getOrthoTriangleNormal(int triangle, const Matrix4* toMesh = nullptr,
                                   const Matrix4* fromMesh = nullptr) const;
    Vector3 getSmoothedTriangleNormal(int triangle, const Vector3& barycentric,
                                      const Matrix4* toMesh = nullptr,
                                      const Matrix4* fromMesh = nullptr) const;
    /// The weights of the corners at the point's foot on the triangle; thirds for one without a surface.
    void getBarycentricCoordinates(int triangle, const Vector3& point, Vector3& out,
                                   const Matrix4* toMesh = nullptr, const Matrix4* fromMesh = nullptr) const;
    Vector3 getBarycentricPosition(int triangle, const Vector3& barycentric, const Matrix4* toMesh = nullptr,
                                   const Matrix4* fromMesh = nullptr) const;

    /// A point drawn uniformly, with its normal and triangle; needs computeSurfaces(), else false.
    bool getRandomSurfacePoint(RandomNumberGenerator& rng, Vector3& position, Vector3& normal, int& triangle,
                               const Matrix4* toMesh = nullptr, const Matrix4* fromMesh = nullptr) const;

    /// Turns an orientation as the matrix turns its Z axis and, as near as that allows, its X axis.
    static void applyTransformationToOrientationQuat(Quaternion& orientation, const Matrix4& matrix);

protected:
    /// Builds the tree of boxes that rays are cast through.
    void computeRaycastAABBHierarchy();
    /// One triangle of a walk.
    void recursiveComputeTraversalMeshLocal(const positionInTriangle& in, positionInTriangle& out) const;
    /// True if the point is in the box of a and b, or at most 1e-5 outside on each side.
    static bool isInsideBounds(const Vector3& point, const Vector3& a, const Vector3& b);

private:
    void release();
    void checkTriangle(int triangle) const;
    Vector3 getPosition(int triangle, int corner) const;
    int getTriangleOfSlot(int slot) const;
    void hierarchicalRaycastAll(const Vector3& origin, const Vector3& direction,
                                PODArray<internal::RayHit>& hits) const;
    /// The nearest hit of rays in the world of the mesh.
    bool castNearest(const Vector3& origin, const Vector3* directions, int count, Vector3& hit,
                     int& triangle) const;
    int findCrossedEdge(const positionInTriangle& in, Vector3& hit) const;
    Vector3 turnDirection(int from, int to, const Vector3& direction, bool& normalChanged) const;

    Array<AABB<Vector3>> _AABB;
    SpinLock _setWorldMatrixLock;
    Matrix4 _meshWorldMatrixDeltaFromLastFrame;
    Matrix4 _meshWorldMatrixDeltaFromLastFrameInverse;
    Matrix4 _meshWorldMatrixInverse;
    Matrix4 _meshWorldMatrix;
    Matrix4 _previousMeshWorldMatrix;
    Matrix4 _meshWorldMatrixForNormals;
    PODArray<float> _cumulativeFaceSurface;
    float _totalMeshSurface = 0.0f;
    int _totalTriangleCount = 0;
    Vector3* _orthoFaceNormals = nullptr;
    Vector3* _edgePlaneNormals = nullptr;
    RayCastVertex* _meshVertices = nullptr;
    RayCastVertex* _previousMeshVertices = nullptr;
    int* _rayCastToMeshIndices = nullptr;
    int (*_faceNeighbors)[3] = nullptr;
    bool _deformed = false;
    bool _initialized = false;
    bool _matrixChangedLastFrame = false;
    internal::RayCastTree* _tree; ///< owned; what rays are answered from
};

} // namespace mrv
