// hosts/mrvcharacter/mrvListenCommand.h
// mrvcharacter listen: a small server for performance events.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` if it could listen, else 1.
void addListenCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
