// hosts/mrvcharacter/mrvRagdollCommand.h
// mrvcharacter ragdoll: gives the bones of a character rigid bodies.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` if all went well, else 1.
void addRagdollCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
