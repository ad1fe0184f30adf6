// hosts/mrvcharacter/mrvDrawCommand.cpp
#include "hosts/mrvcharacter/mrvDrawCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvPicture.h"
#include "hosts/mrvcharacter/mrvSkeletonDrawing.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"

#include <CLI/App.hpp>

#include <memory>
#include <string>

namespace mrvcharacter {

namespace {

struct Options
{
    std::string source;
    std::string target;
};

bool draw(const Options& options)
{
    const auto character = std::make_unique<mrv::MaravoCharacterV24>();
    if (!loadCharacter(options.source, *character))
        return false;
    Picture picture(1800, 960, { 1.0, 1.0, 1.0 });
    drawSkeleton(picture, *character);
    std::string failure;
    const bool isWritten = picture.write(options.target, failure);
    if (!isWritten)
        reportError(options.target, failure);
    return isWritten;
}

} // namespace

void addDrawCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command =
        app.add_subcommand("draw", "Draws the bind pose with the parts of the body from three sides");
    command->footer(
        "One scale for all panels; the bar in the last one is as long as it says, in the units of\n"
        "the skeleton.");
    const auto options = std::make_shared<Options>();
    command->add_option("FILE", options->source, "Character file")->required();
    command->add_option("OUT.png", options->target, "The picture")->required();
    command->callback([options, &exitCode] { exitCode = draw(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
