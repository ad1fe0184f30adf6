// mrvCore/system/inspection/mrvUuid.h
// 128-bit identifier; as TypeID the permanent identity of a persistent class.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstdint>

namespace mrv {

class MrvString;

/// 128-bit identifier of 16 bytes, null (all zeros) by default.
///
/// Binary form: the 16 bytes of the fields as they stand in memory, integers little-endian. All
/// comparisons are of these bytes, so the low byte of the first group leads the order.
/// Text form: 36 characters in groups of 8-4-4-4-12 lower-case hexadecimal digits.
/// Threads: a plain value.
class MRV_CORE_API Uuid
{
public:
    Uuid() = default;

    /// Parses the text form, in either case. What cannot be read stays zero.
    explicit Uuid(const char* text);

    bool operator==(const Uuid& rhs) const;
    bool operator!=(const Uuid& rhs) const { return !(*this == rhs); }
    bool operator<(const Uuid& rhs) const;
    bool operator>(const Uuid& rhs) const { return rhs < *this; }

    /// Identifier derived from two others, for the types built of other types. Not symmetric: the
    /// integer groups double the right operand, the bytes double the left one. Identifiers in files
    /// depend on it.
    Uuid operator+(const Uuid& rhs) const;

    /// A copy whose first group is greater by `number`.
    Uuid operator+(unsigned int number) const;

    /// Becomes a fresh random identifier (version 4), drawn from the system's entropy; null when the
    /// system gives none.
    void createUuid();

    bool isNull() const;

    /// The text form.
    MrvString getString() const;

private:
    uint32_t _data0 = 0;
    uint16_t _data1 = 0;
    uint16_t _data2 = 0;
    unsigned char _data3[8] = {};
};

static_assert(sizeof(Uuid) == 16, "the fields are the binary form");

/// Permanent identity of a registered type.
using TypeID = Uuid;

} // namespace mrv
