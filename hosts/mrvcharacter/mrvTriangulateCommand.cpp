// hosts/mrvcharacter/mrvTriangulateCommand.cpp
#include "hosts/mrvcharacter/mrvTriangulateCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvLogMessages.h"
#include "hosts/mrvcharacter/mrvPointTable.h"
#include "hosts/mrvcharacter/mrvTriangulationDrawing.h"

#include "mrvCore/math/delaunay/mrvDelaunay2.h"

#include <CLI/App.hpp>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace mrvcharacter {

namespace {

struct TriangulateOptions
{
    std::string source;
    std::string target;
    std::string picture;
};

/// A failure leaves what the file was before.
bool writeTriangles(const mrv::Delaunay2& triangulation, const std::string& file)
{
    const std::string temporary = file + ".part";
    std::ofstream stream(temporary, std::ios::binary);
    stream << "i,j,k\n";
    const int* index = triangulation.getIndices();
    for (int k = 0; k < triangulation.getSimplicesCount(); ++k, index += 3)
        stream << std::to_string(index[0]) << ',' << std::to_string(index[1]) << ','
               << std::to_string(index[2]) << '\n';
    stream.close();
    if (!stream.fail() && std::rename(temporary.c_str(), file.c_str()) == 0)
        return true;
    std::remove(temporary.c_str());
    return false;
}

bool triangulate(const TriangulateOptions& options)
{
    std::string failure;
    std::vector<mrv::Vector2> points;
    if (!readPointTable(options.source, points, failure))
    {
        reportError(options.source, failure);
        return false;
    }

    const LogMessages messages;
    auto* const vertices = new mrv::Vector2[points.size()]; // becomes the triangulation's
    std::copy(points.begin(), points.end(), vertices);
    constexpr float epsilon = 1e-6f;
    const mrv::Delaunay2 triangulation(static_cast<unsigned int>(points.size()), vertices, epsilon,
                                       mrv::DelaunayQuery::Type::REAL);
    for (const std::string& message : messages.get())
        reportError(options.source, message);
    if (triangulation.getSimplicesCount() == 0)
    {
        reportError(options.source, triangulation.getDimension() == 0
                                        ? "there are no triangles: the points all fall together"
                                        : "there are no triangles: the points lie on one line");
        return false;
    }
    if (!writeTriangles(triangulation, options.target))
    {
        reportError(options.target, "the file cannot be written");
        return false;
    }
    if (options.picture.empty() || drawTriangulation(triangulation, options.picture, failure))
        return true;
    reportError(options.picture, failure);
    return false;
}

} // namespace

void addTriangulateCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command = app.add_subcommand("triangulate", "Makes Delaunay triangles of points of the plane");
    command->footer(
        "POINTS.csv has lines x,y with or without a heading. OUT.csv gets the heading i,j,k and a line for\n"
        "each triangle: the positions of its corners among the points, from 0, counterclockwise. Repeated\n"
        "points go by the first of them. Coordinates are rounded to float, and to about 24 bits of the\n"
        "range of all.");
    const auto options = std::make_shared<TriangulateOptions>();
    command->add_option("POINTS.csv", options->source, "Table of points")->required();
    command->add_option("OUT.csv", options->target, "Table of triangles")->required();
    command->add_option("--png", options->picture, "A picture of the triangles");
    command->callback([options, &exitCode] { exitCode = triangulate(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
