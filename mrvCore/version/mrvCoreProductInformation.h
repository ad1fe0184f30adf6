// mrvCore/version/mrvCoreProductInformation.h
// Which version of the library this is.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class ProductInformation;

/// One line that says what the library is.
extern MRV_CORE_API const char* const CORE_PRODUCT_DESCRIPTION;

/// The library's own record. May be called at any time, also before the library starts.
MRV_CORE_API const ProductInformation& getCoreProductInformation();

} // namespace mrv
