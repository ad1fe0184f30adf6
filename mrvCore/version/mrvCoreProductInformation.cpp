// mrvCore/version/mrvCoreProductInformation.cpp
#include "mrvCore/version/mrvCoreProductInformation.h"

#include "mrvCore/system/utils/mrvProductInformation.h"

namespace mrv {

const char* const CORE_PRODUCT_DESCRIPTION = "Core library for the persistent data of animated characters";

const ProductInformation& getCoreProductInformation()
{
    static const ProductInformation information("MaravoCore", CORE_PRODUCT_DESCRIPTION, 9, 3, 1, 0, "9.3.1",
                                                "2026/05/20");
    return information;
}

} // namespace mrv
