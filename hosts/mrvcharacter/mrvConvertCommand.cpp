// hosts/mrvcharacter/mrvConvertCommand.cpp
#include "hosts/mrvcharacter/mrvConvertCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"

#include <CLI/App.hpp>

#include <memory>
#include <string>

namespace mrvcharacter {

void addConvertCommand(CLI::App& app, int& exitCode)
{
    struct Options
    {
        std::string source;
        std::string target;
    };
    CLI::App* command =
        app.add_subcommand("convert", "Writes a character anew, in the current version of the file format");
    command->footer(
        "Paths of assets stay as they are stored, also where the new file lies in another folder.");
    const auto options = std::make_shared<Options>();
    command->add_option("IN", options->source, "Character file of any version")->required();
    command->add_option("OUT", options->target, "NAME.mvcf for XML, NAME.mvc for binary")->required();
    command->callback([options, &exitCode] {
        const auto character = std::make_unique<mrv::MaravoCharacterV24>();
        const bool isDone =
            loadCharacter(options->source, *character) && saveCharacter(options->target, *character);
        exitCode = isDone ? 0 : 1;
    });
}

} // namespace mrvcharacter
