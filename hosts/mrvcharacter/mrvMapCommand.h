// hosts/mrvcharacter/mrvMapCommand.h
// mrvcharacter map: finds the parts of a character's body.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` if all went well, else 1.
void addMapCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
