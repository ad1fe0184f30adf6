// hosts/mrvsamples/main.cpp
// Writes the characters of the folder samples, each in both forms: mrvsamples FOLDER.
#include "hosts/mrvsamples/mrvSampleCharacters.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/mrvCore.h"

#include <cstdio>
#include <memory>
#include <string>

namespace {

struct Sample
{
    const char* name;
    void (*build)(mrv::MaravoCharacterV24& character);
};

constexpr Sample samples[] = {
    { "courier", &mrvsamples::buildCourier },
    { "hound", &mrvsamples::buildHound },
};

bool writeSamples(const std::string& folder)
{
    for (const Sample& sample : samples)
    {
        const auto character = std::make_unique<mrv::MaravoCharacterV24>();
        sample.build(*character);
        for (const char* extension : { ".mvcf", ".mvc" })
        {
            const std::string file = folder + '/' + sample.name + extension;
            if (character->saveCharacterFile(file) == mrv::SaveCharacterFileErrorCode::SUCCESS)
                continue;
            std::fprintf(stderr, "%s: cannot be written\n", file.c_str());
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "usage: mrvsamples FOLDER\n");
        return 2;
    }
    mrv::initCore();
    const bool isDone = writeSamples(argv[1]);
    mrv::finishCore(true);
    return isDone ? 0 : 1;
}
