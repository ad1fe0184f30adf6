// hosts/mrvcharacter/mrvPinCommand.h
// mrvcharacter pin: positions are put on the ground.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` if all went well, else 1.
void addPinCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
