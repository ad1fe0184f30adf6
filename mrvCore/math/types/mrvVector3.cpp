// mrvCore/math/types/mrvVector3.cpp
#include "mrvCore/math/types/mrvVector3.h"

#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/utils/mrvCharOperators.h"

#include <istream>
#include <locale>
#include <ostream>
#include <sstream>
#include <string>

namespace mrv {

namespace {

// The number that a part of a word begins with, as a stream reads it; true if there is one.
bool readPart(const std::string& part, float& value)
{
    std::istringstream stream(part);
    stream.imbue(std::locale::classic());
    return static_cast<bool>(stream >> value);
}

void readWord(std::string word, Vector3& vector)
{
    constexpr size_t shortestWord = 5; // "1,2,3"; one as short must hold nothing but its three numbers
    const size_t length = word.length();
    if (length < shortestWord)
        return;
    if (word.front() == '(')
        word.erase(0, 1);
    if (word.back() == ')')
        word.pop_back();

    const size_t first = word.find(',');
    const size_t second = first == std::string::npos ? first : word.find(',', first + 1);
    if (second == std::string::npos || word.find(',', second + 1) != std::string::npos)
        return;

    Vector3 read;
    const bool readX = readPart(word.substr(0, first), read.x);
    const bool readY = readPart(word.substr(first + 1, second - first - 1), read.y);
    const bool readZ = readPart(word.substr(second + 1), read.z);
    if (length > shortestWord || (readX && readY && readZ))
        vector = read;
}

} // namespace

Vector2 Vector3::project(Axis::Value axis) const
{
    switch (axis)
    {
    case Axis::X:
        return Vector2(y, z);
    case Axis::Y:
        return Vector2(x, z);
    case Axis::Z:
        return Vector2(x, y);
    default:
        MRV_UNREACHABLE("Unknown axis given");
    }
}

const char* toString(const Vector3& vector, char* buffer, size_t size)
{
    const int length = sprintfSafe(buffer, size, "(%f,%f,%f)", static_cast<double>(vector.x),
                                   static_cast<double>(vector.y), static_cast<double>(vector.z));
    return length < 1 ? "" : buffer;
}

std::ostream& operator<<(std::ostream& stream, const Vector3& vector)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.flags(stream.flags());
    text.precision(stream.precision());
    text << '(' << vector.x << ',' << vector.y << ',' << vector.z << ')';
    return stream << text.str();
}

std::istream& operator>>(std::istream& stream, Vector3& vector)
{
    std::string word;
    if (stream >> word)
        readWord(word, vector);
    return stream;
}

template <>
bool fromString<Vector3>(const MrvString& text, Vector3& value)
{
    std::istringstream stream(text.c_str());
    stream.imbue(std::locale::classic());
    return static_cast<bool>(stream >> value);
}

} // namespace mrv
