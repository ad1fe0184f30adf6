// hosts/mrvcharacter/mrvTriangulateCommand.h
// mrvcharacter triangulate: a table of points becomes one of triangles.
#pragma once

namespace CLI {
class App;
}

namespace mrvcharacter {

/// Adds the sub-command. When it runs it stores 0 in `exitCode` if all went well, else 1.
void addTriangulateCommand(CLI::App& app, int& exitCode);

} // namespace mrvcharacter
