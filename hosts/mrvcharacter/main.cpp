// hosts/mrvcharacter/main.cpp
// The batch host: starts the library, runs one sub-command, stops the library.
#include "hosts/mrvcharacter/mrvAboutCommand.h"
#include "hosts/mrvcharacter/mrvClassesCommand.h"

#include "mrvCore/mrvCore.h"

#include <CLI/CLI.hpp>

namespace {

int runCommandLine(int argc, char** argv)
{
    CLI::App app("Works on character files.", "mrvcharacter");
    app.require_subcommand(1);

    int exitCode = 0;
    mrvcharacter::addAboutCommand(app, exitCode);
    mrvcharacter::addClassesCommand(app, exitCode);

    CLI11_PARSE(app, argc, argv);
    return exitCode;
}

} // namespace

int main(int argc, char** argv)
{
    mrv::initCore();
    const int exitCode = runCommandLine(argc, argv);
    mrv::finishCore(true);
    return exitCode;
}
