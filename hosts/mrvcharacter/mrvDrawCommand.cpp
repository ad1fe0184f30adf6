// hosts/mrvcharacter/mrvDrawCommand.cpp
#include "hosts/mrvcharacter/mrvDrawCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvPicture.h"
#include "hosts/mrvcharacter/mrvPoseFile.h"
#include "hosts/mrvcharacter/mrvSkeletonDrawing.h"

#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/animation/mrvSpecificPosture.h"

#include <CLI/App.hpp>

#include <memory>
#include <string>

namespace mrvcharacter {

namespace {

struct Options
{
    std::string source;
    std::string target;
    std::string pose;
    bool withBodies = false;
};

bool draw(const Options& options)
{
    const auto character = std::make_unique<mrv::MaravoCharacterV24>();
    if (!loadCharacter(options.source, *character))
        return false;
    const auto& skeleton = *character->getConverterMapping().getSkeletonDescription();
    mrv::SpecificPosture posture;
    std::string failure;
    if (options.pose.empty())
        initBindPose(skeleton, posture);
    else if (!readPose(options.pose, skeleton, posture, failure))
    {
        reportError(options.pose, failure);
        return false;
    }
    Picture picture(1800, 960, { 1.0, 1.0, 1.0 });
    drawSkeleton(picture, *character, posture, options.withBodies);
    const bool isWritten = picture.write(options.target, failure);
    if (!isWritten)
        reportError(options.target, failure);
    return isWritten;
}

} // namespace

void addDrawCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command =
        app.add_subcommand("draw", "Draws a pose with the parts of the body from three sides");
    command->footer(
        "One scale for all panels; the bar in the last one is as long as it says, in the units of\n"
        "the skeleton. A pose is a table of one bone a row under the heading bone,qx,qy,qz,qw: its name or\n"
        "index, and its orientation relative to that of the bind pose.");
    const auto options = std::make_shared<Options>();
    command->add_option("FILE", options->source, "Character file")->required();
    command->add_option("OUT.png", options->target, "The picture")->required();
    command->add_option("--pose", options->pose, "Table of orientations (by default the bind pose)");
    command->add_flag("--ragdoll", options->withBodies,
                      "The outlines of the rigid bodies; one without offsets lies along its bone");
    command->callback([options, &exitCode] { exitCode = draw(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
