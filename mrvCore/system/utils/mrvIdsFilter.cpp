// mrvCore/system/utils/mrvIdsFilter.cpp
#include "mrvCore/system/utils/mrvIdsFilter.h"

#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

#include <limits>

namespace mrv {

namespace {

const char* const blanks = "\t\n\r ";

MrvString trimmed(MrvString text)
{
    return text.trim(blanks);
}

/// Stricter than a stream, which is content with the digits in front: nothing may follow the number.
bool parseInteger(const MrvString& part, int64_t& value)
{
    return part.find_first_not_of("0123456789") == MrvString::npos && fromString<long>(part, value);
}

} // namespace

IdsFilter::IdsFilter(const MrvString& expression)
{
    if (trimmed(expression) == "*")
    {
        _ranges.push_back({ std::numeric_limits<int64_t>::min(), std::numeric_limits<int64_t>::max(), 1 });
        return;
    }
    for (const MrvString& piece : stringToStringArray(expression, ","))
        if (piece.find_first_not_of(blanks) != MrvString::npos)
            addPiece(expression, piece);
}

void IdsFilter::addPiece(const MrvString& expression, const MrvString& piece)
{
    const Array<MrvString> parts = stringToStringArray(piece, "-");
    int64_t numbers[3] = { 0, 0, 1 };
    const size_t count = parts.size() < 3 ? parts.size() : 3;
    for (size_t i = 0; i < count; ++i)
    {
        const MrvString part = trimmed(parts[i]);
        const bool isStep = i == 2;
        if (parseInteger(part, numbers[i]) && !(isStep && numbers[i] == 0))
            continue;
        MRV_LOG(SDK, LOG_WARNING,
                "Unable to parse printer page style expression: '"
                    << expression << "'. '" << part
                    << (isStep ? "' is not a valid step value!" : "' is not an integer!"));
        return;
    }
    _ranges.push_back({ numbers[0], numbers[count == 1 ? 0 : 1], numbers[2] });
}

bool IdsFilter::operator()(int64_t id) const
{
    for (const IdsRange& range : _ranges)
        if (range._min <= id && id <= range._max && (range._step < 2 || (id - range._min) % range._step == 0))
            return true;
    return false;
}

} // namespace mrv
