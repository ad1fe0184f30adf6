// mrvCore/math/geometry3/mrvVolume.h
// A region of space.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// What every volume answers.
class MRV_CORE_API Volume
{
public:
    virtual ~Volume();

    /// True if the point is inside, or outside by less than the tolerance.
    virtual bool contains(const Vector3& point, float tolerance) const = 0;
    /// The corners of the box around the volume.
    virtual void retrieveBoundingBox(Vector3& min, Vector3& max) const = 0;
    /// A copy that the caller deletes.
    virtual Volume* clone() const = 0;

protected:
    Volume() = default;
    Volume(const Volume&) = default;
    Volume& operator=(const Volume&) = default;
};

} // namespace mrv
