// benchmarks/mrvCharacterBenchmark.cpp
// Whole character files: saving and loading in both forms, beside RapidXML on the same text and a plain read
// of the same bytes.
#include "benchmarks/mrvBenchmarkReport.h"
#include "benchmarks/mrvGeneratedCharacter.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/mrvCore.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <rapidxml/rapidxml.hpp>

namespace mrvBenchmark {
namespace {

namespace fs = std::filesystem;

std::vector<char> readFile(const std::string& path)
{
    std::vector<char> bytes(fs::file_size(path));
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr || std::fread(bytes.data(), 1, bytes.size(), file) != bytes.size())
        std::abort();
    std::fclose(file);
    return bytes;
}

void report(State& state, const std::string& path, size_t objects)
{
    rate(state, static_cast<double>(fs::file_size(path)) / 1e6, "MB/s");
    if (objects != 0) // the peers only know bytes
        rate(state, static_cast<double>(objects), "objects/s");
}

/// One size in one form.
void addForm(const fs::path& folder, const std::string& caseName, const CharacterSize& size,
             const char* extension)
{
    const std::string path = (folder / (caseName + extension)).string();
    const std::string form = std::string(extension) == ".mvcf" ? "xml" : "binary";
    const auto save = [=](mrv::MaravoCharacterV24& character) {
        if (character.saveCharacterFile(path.c_str()) != mrv::SaveCharacterFileErrorCode::SUCCESS)
            std::abort();
    };
    mrv::MaravoCharacterV24 written; // the peers read it too, in whatever order the benchmarks run
    fillCharacter(written, size);
    save(written);
    add("character/mrvCore/" + form + "_save_" + caseName, [=](State& state) {
        mrv::MaravoCharacterV24 character;
        const size_t objects = fillCharacter(character, size);
        for (auto _ : state)
            save(character);
        report(state, path, objects);
    });
    add("character/mrvCore/" + form + "_load_" + caseName, [=](State& state) {
        mrv::MaravoCharacterV24 character;
        const size_t objects = fillCharacter(character, size);
        std::unique_ptr<mrv::MaravoCharacterV24> loaded;
        for (auto _ : state)
        {
            state.PauseTiming();
            loaded = std::make_unique<mrv::MaravoCharacterV24>();
            state.ResumeTiming();
            if (loaded->loadCharacterFile(path.c_str(), false) != mrv::LoadCharacterFileErrorCode::SUCCESS)
                state.SkipWithError("not loaded");
        }
        report(state, path, objects);
    });
}

void addPeers(const fs::path& folder, const std::string& caseName)
{
    const std::string xml = (folder / (caseName + ".mvcf")).string();
    const std::string binary = (folder / (caseName + ".mvc")).string();
    add("character/rapidxml/xml_load_" + caseName, [=](State& state) {
        std::vector<char> text = readFile(xml);
        text.push_back('\0');
        std::vector<char> copy(text.size());
        std::unique_ptr<rapidxml::xml_document<>> document;
        for (auto _ : state)
        {
            state.PauseTiming();
            copy = text;
            document.reset();
            state.ResumeTiming();
            document = std::make_unique<rapidxml::xml_document<>>();
            document->parse<rapidxml::parse_no_data_nodes>(copy.data());
        }
        report(state, xml, 0);
    });
    add("character/fread/binary_load_" + caseName, [=](State& state) {
        for (auto _ : state)
            benchmark::DoNotOptimize(readFile(binary).data());
        report(state, binary, 0);
    });
}

void addLoad(const std::string& caseName, const std::string& path)
{
    add("character/mrvCore/" + caseName, [=](State& state) {
        for (auto _ : state)
        {
            mrv::MaravoCharacterV24 loaded;
            if (loaded.loadCharacterFile(path.c_str(), false) != mrv::LoadCharacterFileErrorCode::SUCCESS)
                state.SkipWithError("not loaded");
        }
        time(state);
    });
}

/// What the steps to the current version cost: one character as several versions held it, and a small one of
/// each old version.
void addVersions(const char* extension)
{
    const std::string folder = MRV_STORED_CHARACTERS;
    const std::string caseName = std::string(extension + 1) + "_load_of_";
    for (const char* version : { "0", "4", "5", "12", "20", "23", "24" })
        addLoad(caseName + "version_" + version, folder + "/characters/biped_v" + version + extension);
    for (int version = 0; version < MRV_MVC_VERSION; ++version)
        addLoad(caseName + "small_version_" + std::to_string(version),
                folder + "/versions/character_v" + std::to_string(version) + extension);
}

} // namespace
} // namespace mrvBenchmark

int main(int argc, char** argv)
{
    using namespace mrvBenchmark;
    mrv::initCore();
    char pattern[] = "/tmp/mrvCharacterBenchmarkXXXXXX";
    const fs::path folder = mkdtemp(pattern);

    // The middle one is a rich character of a production; the last one shows the curve.
    const CharacterSize sizes[] = { { 300, 400, 60, 50 },
                                    { 1000, 4000, 600, 50 },
                                    { 3000, 20000, 3000, 50 } };
    for (const CharacterSize& size : sizes)
    {
        const std::string caseName = std::to_string(size.bones) + "_bones";
        addForm(folder, caseName, size, ".mvcf");
        addForm(folder, caseName, size, ".mvc");
        addPeers(folder, caseName);
    }
    addVersions(".mvcf");
    addVersions(".mvc");
    const int result = run(argc, argv);

    fs::remove_all(folder);
    mrv::finishCore(true);
    return result;
}
