// hosts/mrvcharacter/main.cpp
// The batch host: starts the library, runs one sub-command, stops the library.
#include "hosts/mrvcharacter/mrvAboutCommand.h"
#include "hosts/mrvcharacter/mrvChooseCommand.h"
#include "hosts/mrvcharacter/mrvClassesCommand.h"
#include "hosts/mrvcharacter/mrvConvertCommand.h"
#include "hosts/mrvcharacter/mrvDeepConfCommand.h"
#include "hosts/mrvcharacter/mrvDiffCommand.h"
#include "hosts/mrvcharacter/mrvDrawCommand.h"
#include "hosts/mrvcharacter/mrvImportCommand.h"
#include "hosts/mrvcharacter/mrvInfoCommand.h"
#include "hosts/mrvcharacter/mrvListenCommand.h"
#include "hosts/mrvcharacter/mrvMapCommand.h"
#include "hosts/mrvcharacter/mrvPinCommand.h"
#include "hosts/mrvcharacter/mrvRagdollCommand.h"
#include "hosts/mrvcharacter/mrvRunOptions.h"
#include "hosts/mrvcharacter/mrvTriangulateCommand.h"
#include "hosts/mrvcharacter/mrvValidateCommand.h"

#include "mrvCore/mrvCore.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>

namespace {

// In the order in which --help lists them.
constexpr void (*addCommands[])(CLI::App&, int&) = {
    &mrvcharacter::addAboutCommand,    &mrvcharacter::addClassesCommand,
    &mrvcharacter::addInfoCommand,     &mrvcharacter::addValidateCommand,
    &mrvcharacter::addConvertCommand,  &mrvcharacter::addImportCommand,
    &mrvcharacter::addMapCommand,      &mrvcharacter::addRagdollCommand,
    &mrvcharacter::addDrawCommand,     &mrvcharacter::addDiffCommand,
    &mrvcharacter::addChooseCommand,   &mrvcharacter::addListenCommand,
    &mrvcharacter::addPinCommand,      &mrvcharacter::addTriangulateCommand,
    &mrvcharacter::addDeepConfCommand,
};

void addCommandsTo(CLI::App& app, int& exitCode)
{
    app.require_subcommand(1);
    for (const auto addCommand : addCommands)
        addCommand(app, exitCode);
    for (CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
        if (command->get_name() != "listen")
            mrvcharacter::addEventsOption(*command);
}

int parse(CLI::App& app, int argc, char** argv, const int& exitCode)
{
    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError& error)
    {
        // A call for help comes this way too.
        return app.exit(error) == 0 ? 0 : 2;
    }
    return exitCode; // of the command, which has run
}

int runCommandLine(int argc, char** argv)
{
    try
    {
        CLI::App app("Works on character files.", "mrvcharacter");
        int exitCode = 0;
        addCommandsTo(app, exitCode);
        return parse(app, argc, argv, exitCode);
    }
    catch (const std::exception& exception)
    {
        std::cerr << "mrvcharacter: " << exception.what() << '\n';
        return 2;
    }
}

} // namespace

int main(int argc, char** argv)
{
    mrv::initCore();
    const int exitCode = runCommandLine(argc, argv);
    mrvcharacter::flushEvents();
    mrv::finishCore(true);
    return exitCode;
}
