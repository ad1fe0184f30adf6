// mrvCore/utils/mrvHash.h
// Quick hashes of 32 bits, for tables and not for secrets.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstdint>

namespace mrv {

// The values do not depend on the machine and may be stored. No state.

/// Rotate and add (S. Barrett, stb, 2005); 0 for an empty text or null.
MRV_CORE_API uint32_t stb_hash(const char* text);

/// Over pairs of 16 bits, with `count` as the seed (S. Barrett, stb, after P. Hsieh's SuperFastHash, 2004).
/// 0 for null and for a count below 1. The bytes need no alignment.
MRV_CORE_API uint32_t stb_hash_fast(const void* bytes, int count);

/// Mixes the bits of a number (P. Hsieh, 2004, the end of the hash above); 0 stays 0.
MRV_CORE_API uint32_t stb_hash_number(unsigned int number);

/// The hash for a text, and the one for bytes.
MRV_CORE_API uint32_t getHashCode(const char* text);
MRV_CORE_API uint32_t getHashCode(const void* bytes, int count);

} // namespace mrv
