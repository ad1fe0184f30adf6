// hosts/mrvcharacter/mrvClassesMarkdown.h
// The attribute lists of the persistent classes as a part of the documents.
#pragma once

#include <iosfwd>

namespace mrvcharacter {

/// Prints a section for each persistent class: its name, identity, bases and the table of its attributes in
/// their permanent order, those of the bases first. The classes that files of today can hold come first, the
/// frozen ones that only older files hold behind them; each part goes by name and version.
void printClassesAsMarkdown(std::ostream& out);

} // namespace mrvcharacter
