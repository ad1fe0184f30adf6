// hosts/mrvcharacter/mrvConvertCommand.h
// mrvcharacter convert: a character file in the other form or the current version.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` if all went well, else 1.
void addConvertCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
