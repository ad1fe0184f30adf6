// hosts/mrvcharacter/mrvValidateCommand.h
// mrvcharacter validate: whether character files can be read.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` if all went well, else 1.
void addValidateCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
