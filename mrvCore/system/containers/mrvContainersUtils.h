// mrvCore/system/containers/mrvContainersUtils.h
// Sort and search on ranges of random-access iterators.
#pragma once

#include <cstdint>
#include <utility>

namespace mrv {

/// Puts the elements less than the first one in front of it and the others behind it; returns its new
/// place. The range is not empty.
template <class Iterator>
Iterator mrvPartition(Iterator first, Iterator last)
{
    using std::swap;
    Iterator store = first;
    for (Iterator it = first + 1; it != last; ++it)
    {
        if (*it < *first)
        {
            ++store;
            swap(*store, *it);
        }
    }
    swap(*first, *store);
    return store;
}

/// Sorts in place by `operator<`; equal elements may change their order.
///
/// The pivot is the first element, so that time grows with the square of the size on a sorted range. The
/// recursion takes the smaller part and is at most log2(size) deep on any input.
template <class Iterator>
void mrvQuickSort(Iterator first, Iterator last)
{
    while (last - first > 1)
    {
        const Iterator pivot = mrvPartition(first, last);
        if (pivot - first < last - pivot)
        {
            mrvQuickSort(first, pivot);
            first = pivot + 1;
        }
        else
        {
            mrvQuickSort(pivot + 1, last);
            last = pivot;
        }
    }
}

/// An element equal to `value` in a sorted range of at most 2^31 - 1 elements; `last` where there is none.
/// Of several equal ones it is the first that halving meets.
template <class Iterator, class T>
Iterator mrvBinarySearch(Iterator first, Iterator last, const T& value)
{
    int32_t low = 0;
    int32_t high = static_cast<int32_t>(last - first) - 1;
    while (low <= high)
    {
        const int32_t middle =
            static_cast<int32_t>((static_cast<uint32_t>(low) + static_cast<uint32_t>(high)) >> 1);
        const Iterator it = first + middle;
        if (*it == value)
            return it;
        if (*it < value)
            low = middle + 1;
        else
            high = middle - 1;
    }
    return last;
}

/// Moves the first of each run of equal elements down; returns the end of the kept ones. The caller then
/// shrinks the container.
template <class Iterator>
Iterator mrvUnique(Iterator first, Iterator last)
{
    if (first == last)
        return last;
    Iterator kept = first;
    for (Iterator it = first + 1; it != last; ++it)
    {
        if (*kept == *it)
            continue;
        ++kept;
        if (kept != it)
            *kept = *it;
    }
    return kept + 1;
}

} // namespace mrv
