// mrvCore/system/utils/mrvProductInformation.h
// Name, version and release of a product, as records that can be compared and printed.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// What a product says about itself. Immutable after construction, but for assignment as a whole.
///
/// Texts are held by value and cut at the capacity of their field, terminator included.
/// Comparison is by the four version numbers alone, major first: it tells which of two releases of a
/// product is the older one; texts play no part.
class MRV_CORE_API ProductInformation
{
public:
    /// Declared switch for the log's users; nothing in the library reads it.
    static bool truncProductInformationLog;

    /// No text may be null; the description may be empty.
    ProductInformation(const char* productName, const char* description, unsigned int majorVersion,
                       unsigned int minorVersion, unsigned int patchVersion, unsigned int branchVersion,
                       const char* versionLabel, const char* releaseDate);
    ProductInformation(const ProductInformation&) = default;
    ProductInformation& operator=(const ProductInformation&) = default;
    virtual ~ProductInformation();

    /// A record whose four texts are "Unknown" and whose four numbers are 0. Lives until the process ends.
    static const ProductInformation& getDefaultUnknown();

    const char* getProductName() const { return _productName; }
    const char* getDescription() const { return _description; }
    unsigned int getMajorVersion() const { return _majorVersion; }
    unsigned int getMinorVersion() const { return _minorVersion; }
    unsigned int getPatchVersion() const { return _patchVersion; }
    unsigned int getBranchVersion() const { return _branchVersion; }
    const char* getVersionLabel() const { return _versionLabel; }
    const char* getReleaseDate() const { return _releaseDate; }

    /// The whole record in one line: "name - 1.2.3.4 - Release label of date", and " - description"
    /// if there is one. Owned by this object.
    const char* getCString() const { return _fullInfo; }

    bool operator<(const ProductInformation& other) const;
    bool operator==(const ProductInformation& other) const;
    bool operator!=(const ProductInformation& other) const { return !(*this == other); }

private:
    static constexpr unsigned int _partialInfoLengthMax = 256;
    static constexpr unsigned int _fullInfoLengthMax = 1024;

    char _productName[_partialInfoLengthMax];
    char _description[_partialInfoLengthMax];
    unsigned int _majorVersion;
    unsigned int _minorVersion;
    unsigned int _patchVersion;
    unsigned int _branchVersion;
    char _versionLabel[_partialInfoLengthMax];
    char _releaseDate[_partialInfoLengthMax];
    char _fullInfo[_fullInfoLengthMax];
};

} // namespace mrv
