// mrvCore/math/geometry3/mrvPinMeshSpaces.h
// Between the spaces of a pin mesh and its callers. Internal.
#pragma once

#include "mrvCore/math/types/mrvMatrix4.h"

namespace mrv::internal {

/// The vector times the upper three rows: a direction is not moved.
inline Vector3 transformVector(const Vector3& vector, const Matrix4& matrix)
{
    const Float4 v = load(&vector);
    return Vector3(clearLast(splat<0>(v) * load(&matrix[0]) + splat<1>(v) * load(&matrix[1]) +
                             splat<2>(v) * load(&matrix[2])));
}

/// Callers whose space is the world of the mesh give no matrix.
inline const Matrix4& orIdentity(const Matrix4* matrix)
{
    return matrix != nullptr ? *matrix : Matrix4::identity;
}

} // namespace mrv::internal
