// hosts/mrvcharacter/mrvValidateCommand.cpp
#include "hosts/mrvcharacter/mrvValidateCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvJson.h"
#include "hosts/mrvcharacter/mrvMappingFiles.h"
#include "hosts/mrvcharacter/mrvRunOptions.h"

#include <CLI/App.hpp>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace mrvcharacter {

namespace {

struct ValidateOptions
{
    std::vector<std::string> files;
    bool asJson = false;
};

void printVerdict(const LoadedFile& loaded)
{
    std::ostream& stream = loaded.isGood() ? std::cout : std::cerr;
    stream << loaded.file << ": " << loaded.result;
    if (loaded.version >= 0)
        stream << " (version " << loaded.version << ')';
    stream << '\n';
    for (const std::string& message : loaded.messages)
        stream << "    " << message << '\n';
}

void printVerdictAsJson(const LoadedFile& loaded)
{
    std::cout << toLine({ { "file", loaded.file },
                          { "kind", isMappingFile(loaded.file) ? "mapping" : "character" },
                          { "version", loaded.version },
                          { "result", loaded.result },
                          { "messages", loaded.messages } });
}

bool validate(const ValidateOptions& options)
{
    bool isAllGood = true;
    forEachFile(options.files, [&](const LoadedFile& loaded) {
        options.asJson ? printVerdictAsJson(loaded) : printVerdict(loaded);
        isAllGood = isAllGood && loaded.isGood();
    });
    return isAllGood;
}

} // namespace

void addValidateCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command =
        app.add_subcommand("validate", "Reads character and mapping files and tells what is wrong with them");
    command->footer("The version is that of the file, -1 where it could not be told.");
    const auto options = std::make_shared<ValidateOptions>();
    command->add_option("FILES", options->files, "Character and mapping files")->required();
    command->add_flag("--json", options->asJson, "One JSON object a line and file");
    addThreadsOption(*command);
    command->callback([options, &exitCode] { exitCode = validate(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
