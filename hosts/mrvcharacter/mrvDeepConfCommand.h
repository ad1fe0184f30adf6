// hosts/mrvcharacter/mrvDeepConfCommand.h
// mrvcharacter deepconf: shows and rewrites the configuration of a learned deformer.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` if all went well, else 1.
void addDeepConfCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
