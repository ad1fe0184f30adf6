// tests/support/mrvCommaLocale.h
// A host that writes 1,5 and 1.000.000: the locale under which numbers must come out all the same.
#pragma once

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <locale>
#include <string>

namespace mrv {

/// Sets a comma locale for the streams, and for the C library where one can be made, and takes both back at
/// its end. Tests that begin with it fail if a number depends on the locale.
class CommaLocale
{
public:
    CommaLocale()
        : _formerStreamLocale(std::locale::global(std::locale(std::locale::classic(), new Commas)))
        , _formerCLocale(std::setlocale(LC_NUMERIC, nullptr))
    {
        if (!setCLocale())
            std::cout << "No C locale with a comma can be made here: only the streams have one\n";
        else
            EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    }
    ~CommaLocale()
    {
        std::setlocale(LC_NUMERIC, _formerCLocale.c_str());
        std::locale::global(_formerStreamLocale);
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    struct Commas : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    /// Few machines have such a locale, so it is made anew: 20 milliseconds for this one category.
    static bool setCLocale()
    {
        std::string folder = (std::filesystem::temp_directory_path() / "mrvLocaleXXXXXX").string();
        if (mkdtemp(folder.data()) == nullptr)
            return false;
        std::ofstream(folder + "/source")
            << "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\ngrouping 3;3\nEND LC_NUMERIC\n";
        const std::string command =
            "localedef -c -i " + folder + "/source " + folder + "/comma >/dev/null 2>&1";
        const int ignored = std::system(command.c_str()); // not 0 either way, since categories are missing
        static_cast<void>(ignored);
        setenv("LOCPATH", folder.c_str(), 1);
        const bool isSet = std::setlocale(LC_NUMERIC, "comma") != nullptr;
        unsetenv("LOCPATH");
        std::filesystem::remove_all(folder);
        return isSet;
    }

    std::locale _formerStreamLocale;
    std::string _formerCLocale;
};

} // namespace mrv
