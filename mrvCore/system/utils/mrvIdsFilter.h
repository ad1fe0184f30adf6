// mrvCore/system/utils/mrvIdsFilter.h
// Picks identifiers by an expression in the style of a printer's page dialog.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"

#include <cstdint>

namespace mrv {

class MrvString;

/// A set of identifiers, written as pieces between commas: "5", "1-10", or "1-10-3" for 1, 4, 7 and 10.
/// "*" alone stands for all of them.
///
/// Blanks, tabs and line ends around pieces and numbers do not count. Negative numbers cannot be written,
/// since the sign separates; a range that falls holds nothing; what follows a third number is ignored.
/// A piece that cannot be read is left out with a warning in the log, and the others stay.
/// Threads: read-only after construction.
class MRV_CORE_API IdsFilter
{
public:
    /// Both ends belong to the range.
    struct IdsRange
    {
        int64_t _min;
        int64_t _max;
        int64_t _step;
    };

    explicit IdsFilter(const MrvString& expression);

    /// Whether any range holds the identifier; false for all of them if the expression was empty.
    bool operator()(int64_t id) const;

private:
    void addPiece(const MrvString& expression, const MrvString& piece);

    Array<IdsRange> _ranges;
};

} // namespace mrv
