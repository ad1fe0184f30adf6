// tests/support/mrvItemPaths.h
// The values of a packed object by their paths, such as "meshAssets[1].halfExtents.x".
#pragma once

#include <set>
#include <string>

namespace mrv {

class DataItem;

namespace test {

// A path names attributes, and elements of arrays by their index; the element of a map has the key as its
// element 0 and the value as its element 1. It ends at a plain value, at a component of a vector, x to w, or
// with "#" at the id of a pointer.

/// Sets a value, with all that leads to it.
void setItem(DataItem& object, const std::string& path, const std::string& value);

/// A value, "(none)" where there is none.
std::string getItem(const DataItem& object, const std::string& path);

/// The paths of all values and of all that is empty, ids of objects aside.
std::set<std::string> getItemPaths(const DataItem& object);

} // namespace test
} // namespace mrv
