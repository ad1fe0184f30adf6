// mrvCore/animation/mrvMaravoCharacterInterface.cpp
#include "mrvCore/animation/mrvMaravoCharacterInterface.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterInterface, "MaravoCharacterInterface",
                            "bc8671fd-4173-454c-b5fe-a9abe4dbcf15")

void MaravoCharacterInterface::addAttributes() {}

MaravoCharacterInterface::~MaravoCharacterInterface() = default;

} // namespace mrv
