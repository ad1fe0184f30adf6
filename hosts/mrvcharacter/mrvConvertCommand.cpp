// hosts/mrvcharacter/mrvConvertCommand.cpp
#include "hosts/mrvcharacter/mrvConvertCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvMappingFiles.h"
#include "hosts/mrvcharacter/mrvRunOptions.h"

#include <CLI/App.hpp>

#include <memory>
#include <string>
#include <vector>

namespace mrvcharacter {

namespace {

struct ConvertOptions
{
    std::vector<std::string> files; ///< the target last
    bool isBinary = false;
};

/// A batch gives the shading groups what the whole character has; the new file is to hold what the old one
/// does.
bool isAsStored(const mrv::MaravoCharacterV24& character)
{
    return character._mainShaderAttributes.empty() || character._shadingGroups.empty();
}

/// Of a character that goes into a mapping file the mapping is left.
bool convertOne(LoadedFile& loaded, const std::string& target)
{
    if (!reportFailure(loaded))
        return false;
    if (isMappingFile(target))
        return saveMapping(target,
                           loaded.mapping != nullptr ? *loaded.mapping : loaded.character->_converterMapping);
    if (loaded.mapping != nullptr)
    {
        reportError(target, "a mapping alone is written to .mvsm (binary) or .mvsm.xml (XML)");
        return false;
    }
    if (!isAsStored(*loaded.character))
        loaded.character = loadCharacter(loaded.file).character;
    return loaded.character != nullptr && saveCharacter(target, *loaded.character);
}

/// In a folder each file stays what it is.
std::string getExtension(const std::string& source, bool isBinary)
{
    if (isMappingFile(source))
        return isBinary ? ".mvsm" : ".mvsm.xml";
    return isBinary ? ".mvc" : ".mvcf";
}

bool convert(const ConvertOptions& options)
{
    const std::vector<std::string> sources(options.files.begin(), options.files.end() - 1);
    const std::vector<std::string> targets =
        getTargets(sources, options.files.back(),
                   [&](const std::string& source) { return getExtension(source, options.isBinary); });
    size_t index = 0;
    bool isAllDone = true;
    forEachFile(sources, [&](LoadedFile& loaded) {
        const std::string& target = targets[index++];
        const bool isDone = !target.empty() && convertOne(loaded, target);
        isAllDone = isAllDone && isDone;
    });
    return isAllDone;
}

} // namespace

void addConvertCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command = app.add_subcommand(
        "convert", "Writes characters and mappings anew, in the current version of the file format");
    command->footer(
        "Paths of assets stay as they are stored, also where the new file lies in another folder. Of a\n"
        "character that goes into a mapping file the mapping is left.");
    const auto options = std::make_shared<ConvertOptions>();
    command
        ->add_option(
            "FILES", options->files,
            "Character or mapping files of any version, then NAME.mvcf for XML or NAME.mvc for "
            "binary, of a mapping NAME.mvsm.xml and NAME.mvsm; or, for any number of files, a folder")
        ->required()
        ->expected(-2)
        ->option_text("IN... OUT");
    command->add_flag("--binary", options->isBinary, "Binary files, not XML ones, in a folder");
    addThreadsOption(*command);
    command->callback([options, &exitCode] { exitCode = convert(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
