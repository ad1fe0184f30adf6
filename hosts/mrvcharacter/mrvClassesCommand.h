// hosts/mrvcharacter/mrvClassesCommand.h
// mrvcharacter classes: what the class registry holds.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode`.
void addClassesCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
