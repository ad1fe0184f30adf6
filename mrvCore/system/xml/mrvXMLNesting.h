// mrvCore/system/xml/mrvXMLNesting.h
// Guards a recursive parser against texts that would exhaust its stack.
#pragma once

#include <cstddef>

namespace mrv {

/// The '<' of the first element with more than `limit` levels in a zero-ended XML text, its own level
/// counted; null if there is none before the end or the first syntax error.
///
/// Cuts the text into marks exactly as RapidXML does, its liberties included, so that no comment, quoted
/// value or odd name hides levels from it.
const char* findElementNestedDeeper(const char* text, size_t limit);

} // namespace mrv
