// hosts/mrvcharacter/mrvRunOptions.h
// Options that say how a sub-command runs, rather than what it does.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// --threads N: how many threads load files.
void addThreadsOption(CLI::App& command);

/// --events HOST:PORT: sends the performance events of the command to a server.
void addEventsOption(CLI::App& command);

/// Gives events that wait the time to leave; nothing where none are sent. Call it before the library stops.
void flushEvents();

} // namespace mrvcharacter
