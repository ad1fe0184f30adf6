// mrvCore/system/utils/mrvProductInformation.cpp
// Name, version and release of a product, as records that can be compared and printed.
#include "mrvCore/system/utils/mrvProductInformation.h"

#include "mrvCore/system/utils/mrvCharOperators.h"

#include <tuple>

namespace mrv {

bool ProductInformation::truncProductInformationLog = true;

ProductInformation::ProductInformation(const char* productName, const char* description,
                                       unsigned int majorVersion, unsigned int minorVersion,
                                       unsigned int patchVersion, unsigned int branchVersion,
                                       const char* versionLabel, const char* releaseDate)
    : _majorVersion(majorVersion)
    , _minorVersion(minorVersion)
    , _patchVersion(patchVersion)
    , _branchVersion(branchVersion)
{
    strcpySafe(_productName, sizeof(_productName), productName);
    strcpySafe(_description, sizeof(_description), description);
    strcpySafe(_versionLabel, sizeof(_versionLabel), versionLabel);
    strcpySafe(_releaseDate, sizeof(_releaseDate), releaseDate);

    const char* separator = _description[0] == '\0' ? "" : " - ";
    sprintfSafe(_fullInfo, sizeof(_fullInfo), "%s - %u.%u.%u.%u - Release %s of %s%s%s", _productName,
                _majorVersion, _minorVersion, _patchVersion, _branchVersion, _versionLabel, _releaseDate,
                separator, _description);
}

ProductInformation::~ProductInformation() = default;

const ProductInformation& ProductInformation::getDefaultUnknown()
{
    static const ProductInformation unknown("Unknown", "Unknown", 0, 0, 0, 0, "Unknown", "Unknown");
    return unknown;
}

bool ProductInformation::operator<(const ProductInformation& other) const
{
    return std::tie(_majorVersion, _minorVersion, _patchVersion, _branchVersion) <
           std::tie(other._majorVersion, other._minorVersion, other._patchVersion, other._branchVersion);
}

bool ProductInformation::operator==(const ProductInformation& other) const
{
    return !(*this < other) && !(other < *this);
}

} // namespace mrv
