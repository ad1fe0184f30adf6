// tests/system/utils/mrvIdsFilterTest.cpp
#include "mrvCore/system/utils/mrvIdsFilter.h"

#include "mrvCore/mrvCore.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/log/mrvILogger.h"

#include <gtest/gtest.h>

#include <string>

using namespace mrv;

namespace {

struct Warnings : ILogger
{
    void trace(Log::Module module, Log::Severity severity, const char* message, const char*, int,
               const char*) override
    {
        if (module == Log::SDK && severity == Log::LOG_WARNING)
            text += std::string(message) + '\n';
    }
    std::string text;
};

std::string warning(const std::string& expression, const std::string& rest)
{
    return "Unable to parse printer page style expression: '" + expression + "'. '" + rest + "!\n";
}

TEST(IdsFilter, holdsWhatTheExpressionLists)
{
    struct Row
    {
        const char* expression;
        const char* ids; // of -2 to 12
        const char* complaint;
    };
    const Row rows[] = {
        { "", "", "" },
        { " \t\r\n", "", "" },
        { " * ", "-2 -1 0 1 2 3 4 5 6 7 8 9 10 11 12 ", "" },
        { "1-10-3", "1 4 7 10 ", "" },
        { "5 , 7", "5 7 ", "" },
        { ",,3 -\t4,", "3 4 ", "" },
        { "9-3,0", "0 ", "" },
        { "1-3-4-x", "1 ", "" },
        { "2-6-1", "2 3 4 5 6 ", "" },
        { "1-3,x,7", "1 2 3 7 ", "x' is not an integer" },
        { "-2,8", "8 ", "' is not an integer" },
        { "3-,8", "8 ", "' is not an integer" },
        { "1x,8", "8 ", "1x' is not an integer" },
        { "*,8", "8 ", "*' is not an integer" },
        { "1-10-0", "", "0' is not a valid step value" },
        { "1-10-x,8", "8 ", "x' is not a valid step value" },
        { "99999999999999999999,8", "8 ", "99999999999999999999' is not an integer" },
    };
    initCore();
    for (const Row& row : rows)
    {
        Warnings warnings;
        const IdsFilter filter(row.expression);
        std::string ids;
        for (int id = -2; id <= 12; ++id)
            if (filter(id))
                ids += std::to_string(id) + ' ';
        EXPECT_EQ(ids, row.ids) << row.expression;
        EXPECT_EQ(warnings.text, *row.complaint == '\0' ? "" : warning(row.expression, row.complaint));
    }
    EXPECT_TRUE(IdsFilter("*")(INT64_MIN));
    EXPECT_TRUE(IdsFilter("0-9223372036854775807-2")(INT64_MAX - 1));
    EXPECT_FALSE(IdsFilter("0-9223372036854775807-2")(INT64_MAX));
    finishCore(true);
}

} // namespace
