// hosts/mrvcharacter/mrvJson.cpp
#include "hosts/mrvcharacter/mrvJson.h"

#include <charconv>

namespace mrvcharacter {

double toJsonNumber(float value)
{
    char text[32];
    double number = value;
    std::from_chars(text, std::to_chars(text, text + sizeof(text), value).ptr, number);
    return number;
}

} // namespace mrvcharacter
