// hosts/mrvcharacter/mrvValidateCommand.cpp
#include "hosts/mrvcharacter/mrvValidateCommand.h"

#include "hosts/mrvcharacter/mrvErrorCodeNames.h"
#include "hosts/mrvcharacter/mrvJson.h"
#include "hosts/mrvcharacter/mrvLogMessages.h"
#include "hosts/mrvcharacter/mrvMappingFiles.h"
#include "hosts/mrvcharacter/mrvProgressCounter.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"

#include <CLI/App.hpp>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace mrvcharacter {

namespace {

struct Options
{
    std::vector<std::string> files;
    bool asJson = false;
};

struct Verdict
{
    std::string file;
    const char* kind;
    int version;
    const char* result; ///< name of the error code
    std::vector<std::string> messages;
    bool isGood;
};

Verdict validateCharacter(const std::string& file)
{
    const LogMessages messages;
    const auto character = std::make_unique<mrv::MaravoCharacterV24>();
    // Of a file that is not even opened nothing is known.
    character->_fileVersion = -1;
    const mrv::LoadCharacterFileErrorCode::Value result = character->loadCharacterFile(file, false);
    return { file,
             "character",
             character->_fileVersion,
             getLoadCharacterFileErrorCodeName(result),
             messages.get(),
             result == mrv::LoadCharacterFileErrorCode::SUCCESS };
}

Verdict validateMapping(const std::string& file)
{
    const LogMessages messages;
    mrv::GenericSpecificConverterMappingV8 mapping;
    int version = -1;
    const mrv::LoadSkeletonMappingErrorCode::Value result = readMapping(file, mapping, version);
    return { file,           "mapping",
             version,        getLoadSkeletonMappingErrorCodeName(result),
             messages.get(), result == mrv::LoadSkeletonMappingErrorCode::SUCCESS };
}

void printVerdict(const Verdict& verdict)
{
    std::ostream& stream = verdict.isGood ? std::cout : std::cerr;
    stream << verdict.file << ": " << verdict.result;
    if (verdict.version >= 0)
        stream << " (version " << verdict.version << ')';
    stream << '\n';
    for (const std::string& message : verdict.messages)
        stream << "    " << message << '\n';
}

void printVerdictAsJson(const Verdict& verdict)
{
    std::cout << toLine({ { "file", verdict.file },
                          { "kind", verdict.kind },
                          { "version", verdict.version },
                          { "result", verdict.result },
                          { "messages", verdict.messages } });
}

bool validate(const Options& options)
{
    bool isAllGood = true;
    ProgressCounter progress(options.files.size());
    for (const std::string& file : options.files)
    {
        progress.next(file);
        const Verdict verdict = isMappingFile(file) ? validateMapping(file) : validateCharacter(file);
        progress.clear();
        options.asJson ? printVerdictAsJson(verdict) : printVerdict(verdict);
        isAllGood = isAllGood && verdict.isGood;
    }
    return isAllGood;
}

} // namespace

void addValidateCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command =
        app.add_subcommand("validate", "Reads character and mapping files and tells what is wrong with them");
    command->footer("The version is that of the file, -1 where it could not be told.");
    const auto options = std::make_shared<Options>();
    command->add_option("FILES", options->files, "Character and mapping files")->required();
    command->add_flag("--json", options->asJson, "One JSON object a line and file");
    command->callback([options, &exitCode] { exitCode = validate(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
