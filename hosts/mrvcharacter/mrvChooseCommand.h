// hosts/mrvcharacter/mrvChooseCommand.h
// mrvcharacter choose: the meshes of a crowd, by the weights of a character.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` if all went well, else 1.
void addChooseCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
