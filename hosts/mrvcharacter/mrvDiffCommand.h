// hosts/mrvcharacter/mrvDiffCommand.h
// mrvcharacter diff: what differs between two characters.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` for equal characters, 1 for different ones
/// and 2 for trouble.
void addDiffCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
