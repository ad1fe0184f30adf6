// hosts/mrvcharacter/mrvDrawCommand.cpp
#include "hosts/mrvcharacter/mrvDrawCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvPicture.h"
#include "hosts/mrvcharacter/mrvPoseFile.h"
#include "hosts/mrvcharacter/mrvRunOptions.h"
#include "hosts/mrvcharacter/mrvSkeletonDrawing.h"

#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/animation/mrvSpecificPosture.h"

#include <CLI/App.hpp>

#include <memory>
#include <string>
#include <vector>

namespace mrvcharacter {

namespace {

struct DrawOptions
{
    std::vector<std::string> files; ///< the target last
    std::string pose;
    bool withBodies = false;
};

bool drawOne(const DrawOptions& options, const LoadedFile& loaded, const std::string& target)
{
    if (!reportFailure(loaded))
        return false;
    const auto& skeleton = *loaded.character->getConverterMapping().getSkeletonDescription();
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
    drawSkeleton(picture, *loaded.character, posture, options.withBodies);
    const bool isWritten = picture.write(target, failure);
    if (!isWritten)
        reportError(target, failure);
    return isWritten;
}

bool draw(const DrawOptions& options)
{
    const std::vector<std::string> sources(options.files.begin(), options.files.end() - 1);
    const std::vector<std::string> targets =
        getTargets(sources, options.files.back(), [](const std::string&) { return ".png"; });
    size_t index = 0;
    bool isAllDone = true;
    forEachCharacter(sources, [&](const LoadedFile& loaded) {
        const std::string& target = targets[index++];
        const bool isDone = !target.empty() && drawOne(options, loaded, target);
        isAllDone = isAllDone && isDone;
    });
    return isAllDone;
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
    const auto options = std::make_shared<DrawOptions>();
    command
        ->add_option("FILES", options->files,
                     "Character files, then OUT.png for the picture; or, for any number of files, a folder")
        ->required()
        ->expected(-2)
        ->option_text("FILE... OUT");
    command->add_option("--pose", options->pose, "Table of orientations (by default the bind pose)");
    command->add_flag("--ragdoll", options->withBodies,
                      "The outlines of the rigid bodies; one without offsets lies along its bone");
    addThreadsOption(*command);
    command->callback([options, &exitCode] { exitCode = draw(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
