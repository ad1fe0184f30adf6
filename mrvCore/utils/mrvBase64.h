// mrvCore/utils/mrvBase64.h
// Bytes as text that survives every text format.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvString.h"

namespace mrv {

// The standard alphabet with "=" as padding, without line breaks (RFC 4648, section 4). No state.

/// The text of `count` bytes.
MRV_CORE_API MrvString base64_encode(const unsigned char* bytes, unsigned int count);

/// The bytes of a text of `count` characters, zeros included.
///
/// Reading ends at the first "=" and at the first character that is not of the alphabet. What stands
/// before it counts, and so does an incomplete last group as far as it makes whole bytes.
MRV_CORE_API MrvString base64_decode(const unsigned char* text, unsigned int count);

} // namespace mrv
