// hosts/mrvcharacter/mrvDiffCommand.cpp
#include "hosts/mrvcharacter/mrvDiffCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFacts.h"
#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvJson.h"

#include <CLI/App.hpp>

#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace mrvcharacter {

namespace {

enum ExitCode { EQUAL, DIFFERENT, TROUBLE };

struct DiffOptions
{
    std::string a;
    std::string b;
    bool asJson = false;
};

/// A path whose values are not equal; nothing stands for a path that a character does not have.
struct Difference
{
    std::string path;
    std::optional<std::string> a;
    std::optional<std::string> b;
};

/// In the order of a, followed by what only b has.
std::vector<Difference> compare(const std::vector<Fact>& a, const std::vector<Fact>& b)
{
    std::unordered_map<std::string, const Fact*> onlyInB;
    for (const Fact& fact : b)
        onlyInB.emplace(fact.path, &fact);
    std::vector<Difference> differences;
    for (const Fact& fact : a)
    {
        const auto found = onlyInB.find(fact.path);
        if (found == onlyInB.end())
        {
            differences.push_back({ fact.path, fact.value, std::nullopt });
            continue;
        }
        if (found->second->value != fact.value)
            differences.push_back({ fact.path, fact.value, found->second->value });
        onlyInB.erase(found);
    }
    for (const Fact& fact : b)
        if (onlyInB.count(fact.path) != 0)
            differences.push_back({ fact.path, std::nullopt, fact.value });
    return differences;
}

Json toJson(const std::optional<std::string>& value)
{
    return value ? Json(*value) : Json(nullptr);
}

void printAsJson(const DiffOptions& options, const std::vector<Difference>& differences)
{
    Json list = Json::array();
    for (const Difference& difference : differences)
        list.push_back(
            { { "path", difference.path }, { "a", toJson(difference.a) }, { "b", toJson(difference.b) } });
    std::cout << toLine({ { "a", options.a },
                          { "b", options.b },
                          { "equal", differences.empty() },
                          { "differences", list } });
}

void print(const std::vector<Difference>& differences)
{
    const auto show = [](const std::optional<std::string>& value) {
        return value ? '"' + *value + '"' : std::string("nothing");
    };
    for (const Difference& difference : differences)
        std::cout << difference.path << ": " << show(difference.a) << " -> " << show(difference.b) << '\n';
}

ExitCode printDifferences(const DiffOptions& options)
{
    std::vector<Fact> facts[2];
    const std::string* const files[2] = { &options.a, &options.b };
    for (int i = 0; i < 2; ++i)
    {
        const LoadedFile loaded = loadCharacter(*files[i]);
        if (!reportFailure(loaded))
            return TROUBLE;
        facts[i] = listFacts(*loaded.character);
    }
    const std::vector<Difference> differences = compare(facts[0], facts[1]);
    options.asJson ? printAsJson(options, differences) : print(differences);
    return differences.empty() ? EQUAL : DIFFERENT;
}

} // namespace

void addDiffCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command = app.add_subcommand("diff", "Lists what differs between two characters");
    command->footer("Compares what the characters are, whatever the form and version of their files: all\n"
                    "attributes, bones by name, entries of arrays by index.\n"
                    "Exit code: 0 for equal characters, 1 for different ones, 2 for trouble.");
    const auto options = std::make_shared<DiffOptions>();
    command->add_option("A", options->a, "Character file")->required();
    command->add_option("B", options->b, "Character file")->required();
    command->add_flag("--json", options->asJson, "One JSON object");
    command->callback([options, &exitCode] { exitCode = printDifferences(*options); });
}

} // namespace mrvcharacter
