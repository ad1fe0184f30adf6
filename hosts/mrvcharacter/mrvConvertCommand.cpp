// hosts/mrvcharacter/mrvConvertCommand.cpp
#include "hosts/mrvcharacter/mrvConvertCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvMappingFiles.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"

#include <CLI/App.hpp>

#include <memory>
#include <string>

namespace mrvcharacter {

namespace {

bool convert(const std::string& source, const std::string& target)
{
    if (!isMappingFile(source))
    {
        const auto character = std::make_unique<mrv::MaravoCharacterV24>();
        return loadCharacter(source, *character) &&
               (isMappingFile(target) ? saveMapping(target, character->getConverterMapping())
                                      : saveCharacter(target, *character));
    }
    if (!isMappingFile(target))
    {
        reportError(target, "a mapping alone is written to .mvsm (binary) or .mvsm.xml (XML)");
        return false;
    }
    mrv::GenericSpecificConverterMappingV8 mapping;
    int version = -1;
    return loadMapping(source, mapping, version) && saveMapping(target, mapping);
}

} // namespace

void addConvertCommand(CLI::App& app, int& exitCode)
{
    struct Options
    {
        std::string source;
        std::string target;
    };
    CLI::App* command = app.add_subcommand(
        "convert", "Writes a character or a mapping anew, in the current version of the file format");
    command->footer(
        "Paths of assets stay as they are stored, also where the new file lies in another folder. Of a\n"
        "character that goes into a mapping file the mapping is left.");
    const auto options = std::make_shared<Options>();
    command->add_option("IN", options->source, "Character or mapping file of any version")->required();
    command
        ->add_option("OUT", options->target,
                     "NAME.mvcf for XML, NAME.mvc for binary; of a mapping NAME.mvsm.xml and NAME.mvsm")
        ->required();
    command->callback([options, &exitCode] { exitCode = convert(options->source, options->target) ? 0 : 1; });
}

} // namespace mrvcharacter
