// mrvCore/math/geometry3/mrvVolume.cpp
#include "mrvCore/math/geometry3/mrvVolume.h"

namespace mrv {

Volume::~Volume() = default;

} // namespace mrv
