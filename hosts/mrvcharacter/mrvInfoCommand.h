// hosts/mrvcharacter/mrvInfoCommand.h
// mrvcharacter info: what characters are made of.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` if all went well, else 1.
void addInfoCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
