// benchmarks/mrvLoadMemory.cpp
// The most memory that the load of a character file takes beyond that of a character of one bone, whose load
// brings in the same code, over the size of the file. Prints lines as mrvBenchmarkReport.h tells them.
#include "benchmarks/mrvGeneratedCharacter.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/mrvCore.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

void write(const fs::path& file, const mrvBenchmark::CharacterSize& characterSize)
{
    mrv::MaravoCharacterV24 character;
    mrvBenchmark::fillCharacter(character, characterSize);
    if (character.saveCharacterFile(file.c_str()) != mrv::SaveCharacterFileErrorCode::SUCCESS)
        std::abort();
}

void load(const fs::path& file)
{
    mrv::MaravoCharacterV24 character;
    if (character.loadCharacterFile(file.c_str(), false) != mrv::LoadCharacterFileErrorCode::SUCCESS)
        std::abort();
}

/// Bytes that a process has had at most when it does no more than this.
template <class Action>
double peakOf(Action action)
{
    const pid_t child = fork();
    if (child == 0)
    {
        mrv::initCore();
        action();
        _exit(0);
    }
    int status = -1;
    rusage usage = {};
    if (wait4(child, &status, 0, &usage) != child || status != 0)
        std::abort();
    return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

} // namespace

int main()
{
    char pattern[] = "/tmp/mrvLoadMemoryXXXXXX";
    const fs::path folder = mkdtemp(pattern);
    for (const char* extension : { ".mvcf", ".mvc" })
    {
        const fs::path file = folder / ("character" + std::string(extension));
        const fs::path smallFile = folder / ("small" + std::string(extension));
        peakOf([&] { write(file, { 2000, 4500, 700, 50 }); });
        peakOf([&] { write(smallFile, { 1, 1, 1, 1 }); });
        const double size = static_cast<double>(fs::file_size(file) - fs::file_size(smallFile));
        const double peak = peakOf([&] { load(file); }) - peakOf([&] { load(smallFile); });
        std::printf("memory,mrvCore,load_of_%.1f_MB%s,%.3g,file sizes\n", size / 1e6, extension, peak / size);
    }
    fs::remove_all(folder);
}
