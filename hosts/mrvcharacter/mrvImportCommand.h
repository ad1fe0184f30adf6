// hosts/mrvcharacter/mrvImportCommand.h
// mrvcharacter import: a new character from a rig made elsewhere.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` if all went well, else 1.
void addImportCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
