// hosts/mrvcharacter/mrvAboutCommand.h
// mrvcharacter about: which library this is.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode`.
void addAboutCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
