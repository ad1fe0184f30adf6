// tests/system/log/mrvLoggersTest.cpp
#include "mrvCore/system/log/mrvCallbackLogger.h"
#include "mrvCore/system/log/mrvConsoleLogger.h"
#include "mrvCore/system/log/mrvFileLogger.h"

#include "tests/support/mrvCommaLocale.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace mrv {
namespace {

class LoggersTest : public testing::Test
{
protected:
    LoggersTest()
    {
        std::string name = (std::filesystem::temp_directory_path() / "mrvLoggersXXXXXX").string();
        EXPECT_NE(mkdtemp(name.data()), nullptr);
        _folder = name;
        path = (_folder / "log.txt").string();
        allocateLog();
    }
    ~LoggersTest() override
    {
        deallocateLog();
        std::filesystem::remove_all(_folder);
    }

    std::string content() const
    {
        std::ifstream file(path);
        return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }

    std::string path;

private:
    std::filesystem::path _folder;
};

void append(const char* text, void* target)
{
    *static_cast<std::string*>(target) += text;
}

struct LayoutCase
{
    Log::Severity severity;
    const char* message;
    const char* file;
    const char* function;
    const char* console;
    const char* fileText;
    const char* callback;
};

// The console adds a line feed to each text. Null texts end the line where they stand.
const LayoutCase layoutCases[] = {
    { Log::LOG_ERROR, "fell over", "a.cpp", "run", //
      "a.cpp(1234) : run\n\t[ERROR] - fell over\n\n", "a.cpp(1234) : run\n\tERROR: fell over\n",
      "Maravo [ERROR] - fell over\n" },
    { Log::LOG_WARNING, "50 % \n two", "a.cpp", "run", //
      "a.cpp(1234) : run\n\t[WARNING] - 50 % \n two\n\n", "a.cpp(1234) : run\n\tWARNING: 50 % \n two\n",
      "Maravo [WARNING] - 50 % \n two\n" },
    { Log::LOG_INFO, "", "", "", //
      "(1234) : \n\t[INFO] - \n\n", "(1234) : \n\tINFO: \n", "Maravo [INFO] - \n" },
    { Log::LOG_DEBUG, "x", "a.cpp", "run", //
      "a.cpp(1234) : run\n\t[DEBUG] - x\n\n", "a.cpp(1234) : run\n\tDEBUG: x\n", "Maravo [DEBUG] - x\n" },
    { Log::LOG_ERROR, nullptr, "a.cpp", "run", //
      "a.cpp(1234) : run\n\t[ERROR] - \n", "a.cpp(1234) : run\n\tERROR: ", "Maravo [ERROR] - " },
    { Log::LOG_ERROR, "x", "a.cpp", nullptr, //
      "a.cpp(1234) : \n", "a.cpp(1234) : ", "Maravo [ERROR] - x\n" },
    { Log::LOG_ERROR, "x", nullptr, "run", "\n", "", "Maravo [ERROR] - x\n" },
};

TEST_F(LoggersTest, eachWritesItsLayout)
{
    const CommaLocale commas;
    for (const LayoutCase& row : layoutCases)
    {
        SCOPED_TRACE(row.fileText);
        std::string toCallback;
        testing::internal::CaptureStderr();
        {
            ConsoleLogger console;
            FileLogger file(path.c_str(), FileLogger::TRUNC, FileLogger::NO_FLUSH);
            CallbackLogger callback;
            callback.registerCallback(append, &toCallback);
            CallbackLogger unregistered;
            getLog()->trace(Log::SDK, row.severity, row.message, row.file, 1234, row.function);
        }
        getLog()->trace(Log::SDK, row.severity, "late", "late", 0, "late");
        EXPECT_EQ(testing::internal::GetCapturedStderr(), row.console);
        EXPECT_EQ(content(), row.fileText);
        EXPECT_EQ(toCallback, row.callback);
    }
}

TEST_F(LoggersTest, aNullTextCostsAFileAllThatFollowsAndTheOthersOneLine)
{
    std::string toCallback;
    testing::internal::CaptureStderr();
    {
        ConsoleLogger console;
        FileLogger file(path.c_str(), FileLogger::TRUNC, FileLogger::FLUSH);
        CallbackLogger callback;
        callback.registerCallback(append, &toCallback);
        getLog()->trace(Log::SDK, Log::LOG_INFO, nullptr, "a", 1, "b");
        getLog()->trace(Log::SDK, Log::LOG_INFO, "c", "a", 1, "b");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "a(1) : b\n\t[INFO] - \na(1) : b\n\t[INFO] - c\n\n");
    EXPECT_EQ(toCallback, "Maravo [INFO] - Maravo [INFO] - c\n");
    EXPECT_EQ(content(), "a(1) : b\n\tINFO: ");
}

TEST_F(LoggersTest, aFileIsEmptiedOrContinuedAndFlushedOrNot)
{
    const auto write = [&](FileLogger::OutputMode outputMode, FileLogger::FlushMode flushMode) {
        FileLogger file(path.c_str(), outputMode, flushMode);
        getLog()->trace(Log::SDK, Log::LOG_INFO, "c", "a", 1, "b");
        return content();
    };
    const std::string line = "a(1) : b\n\tINFO: c\n";
    EXPECT_EQ(write(FileLogger::APP, FileLogger::FLUSH), line) << "a new file";
    EXPECT_EQ(write(FileLogger::APP, FileLogger::FLUSH), line + line);
    EXPECT_EQ(write(FileLogger::APP, FileLogger::NO_FLUSH), line + line) << "the third waits in the stream";
    EXPECT_EQ(content(), line + line + line);
    EXPECT_EQ(write(FileLogger::TRUNC, FileLogger::NO_FLUSH), "");
    EXPECT_EQ(write(FileLogger::TRUNC, FileLogger::FLUSH), line);
}

TEST_F(LoggersTest, aFileThatCannotBeOpenedIsSilent)
{
    std::string toCallback;
    FileLogger file((path + "/no/such/folder").c_str(), FileLogger::TRUNC, FileLogger::FLUSH);
    CallbackLogger callback;
    callback.registerCallback(append, &toCallback);
    getLog()->trace(Log::SDK, Log::LOG_INFO, "c", "a", 1, "b");
    EXPECT_EQ(toCallback, "Maravo [INFO] - c\n") << "the next logger is served";
    callback.registerCallback(nullptr, nullptr);
    getLog()->trace(Log::SDK, Log::LOG_INFO, "d", "a", 1, "b");
    EXPECT_EQ(toCallback, "Maravo [INFO] - c\n");
}

} // namespace
} // namespace mrv
