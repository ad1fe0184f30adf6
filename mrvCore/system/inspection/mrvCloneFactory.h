// mrvCore/system/inspection/mrvCloneFactory.h
// What one run of cloning knows of the objects cloned so far.
#pragma once

#include "mrvCore/system/containers/mrvMap.h"

namespace mrv {

/// Map from an original to its clone, handed from clone to clone during one run. Owns neither.
class CloneFactory
{
public:
    CloneFactory() = default;
    ~CloneFactory() = default;

private:
    MrvMap<const void*, void*> _clonesMap;
};

} // namespace mrv
