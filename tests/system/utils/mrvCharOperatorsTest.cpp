// tests/system/utils/mrvCharOperatorsTest.cpp
#include "mrvCore/system/utils/mrvCharOperators.h"

#include "tests/support/mrvCommaLocale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstring>
#include <string>

namespace mrv {
namespace {

TEST(CharOperators, writeNothingBeyondTheSizeAndAlwaysTerminate)
{
    const char* const text = "hello";
    for (size_t size = 0; size < 9; ++size)
    {
        SCOPED_TRACE(size);
        char formatted[12];
        char copied[12];
        std::memset(formatted, '#', sizeof(formatted));
        std::memset(copied, '#', sizeof(copied));

        const int length = sprintfSafe(formatted, size, "%s", text);
        strcpySafe(copied, size, text);

        const size_t kept = size == 0 ? 0 : std::min(size - 1, std::strlen(text));
        EXPECT_EQ(size_t(length), kept);
        EXPECT_EQ(std::string(formatted, size == 0 ? 0 : kept + 1),
                  std::string(text, kept).append(size != 0, '\0'));
        EXPECT_EQ(std::string(copied, size), std::string(text, kept).append(size - kept, '\0'))
            << "zero-filled";
        EXPECT_EQ(std::string(formatted + size, sizeof(formatted) - size),
                  std::string(sizeof(formatted) - size, '#'));
        EXPECT_EQ(std::string(copied + size, sizeof(copied) - size), std::string(sizeof(copied) - size, '#'));
    }
}

TEST(CharOperators, aFormatThatFailsLeavesAnEmptyText)
{
    char buffer[8] = "former";
    EXPECT_EQ(sprintfSafe(buffer, sizeof(buffer), "%ls", L"\x4e2d"), 0);
    EXPECT_STREQ(buffer, "");
}

TEST(CharOperators, formattedNumbersIgnoreTheLocaleOfTheHost)
{
    const CommaLocale locale;
    char buffer[16];
    EXPECT_EQ(sprintfSafe(buffer, sizeof(buffer), "%.2f", 1234.5), 7);
    EXPECT_STREQ(buffer, "1234.50");
    char host[16];
    std::snprintf(host, sizeof(host), "%.1f", 1.5);
    EXPECT_EQ(host[1], *std::localeconv()->decimal_point) << "the host's locale must be back in place";
}

TEST(CharOperators, replaceGoesOnBehindTheTerminatorUpToTheSize)
{
    char buffer[] = { 'a', '\0', 'a', 'a' };
    strReplaceCharSafe(buffer, 3, 'a', 'b');
    EXPECT_EQ(std::string(buffer, 4), std::string("b\0ba", 4));
}

} // namespace
} // namespace mrv
