// hosts/mrvcharacter/mrvAboutCommand.cpp
#include "hosts/mrvcharacter/mrvAboutCommand.h"

#include "mrvCore/system/utils/mrvProductInformation.h"
#include "mrvCore/version/mrvCoreProductInformation.h"

#include <CLI/App.hpp>

#include <iostream>

namespace mrvcharacter {

void addAboutCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command = app.add_subcommand("about", "Prints the name, version and release of the library");
    command->callback([&exitCode] {
        std::cout << mrv::getCoreProductInformation().getCString() << '\n';
        exitCode = 0;
    });
}

} // namespace mrvcharacter
