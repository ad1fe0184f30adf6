// tests/support/mrvSameItems.h
// Whether two trees of data items are the same to the last byte.
#pragma once

#include "mrvCore/system/dataItem/mrvDataItem.h"

#include <algorithm>

namespace mrv::test {

inline bool areSame(const DataItem& a, const DataItem& b)
{
    const internal::ItemTexts& textsOfA = a.getTexts();
    const internal::ItemTexts& textsOfB = b.getTexts();
    // Its name and what is behind it lie in one run of bytes.
    if (!std::equal(textsOfA.getName().c_str(), textsOfA.end(), textsOfB.getName().c_str(), textsOfB.end()) ||
        a.getChildrenCount() != b.getChildrenCount())
        return false;
    for (unsigned int i = 0; i < a.getChildrenCount(); ++i)
        if (!areSame(a.getChild(i), b.getChild(i)))
            return false;
    return true;
}

} // namespace mrv::test
