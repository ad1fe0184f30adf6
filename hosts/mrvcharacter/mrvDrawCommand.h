// hosts/mrvcharacter/mrvDrawCommand.h
// mrvcharacter draw: a picture of a skeleton and its mapping.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` if all went well, else 1.
void addDrawCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
