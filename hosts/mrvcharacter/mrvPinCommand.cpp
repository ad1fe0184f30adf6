// hosts/mrvcharacter/mrvPinCommand.cpp
#include "hosts/mrvcharacter/mrvPinCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvMeshImporter.h"
#include "hosts/mrvcharacter/mrvPointTable.h"
#include "hosts/mrvcharacter/mrvTerrainDrawing.h"

#include "mrvCore/math/geometry3/mrvPinMesh.h"

#include <CLI/App.hpp>

#include <charconv>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace mrvcharacter {

namespace {

struct PinOptions
{
    std::string mesh;
    std::string source;
    std::string target;
    std::string picture;
};

/// The shortest text that reads as the same float, whatever the locale.
void append(std::string& row, float value)
{
    char text[32];
    const auto result = std::to_chars(text, text + sizeof(text), value);
    row.append(text, result.ptr).append(",");
}

std::string toRow(const PinnedPosition& pin)
{
    std::string row;
    for (const mrv::Vector3& vector : { pin.position, pin.normal })
        for (unsigned int axis = 0; axis < 3; ++axis)
            append(row, vector[axis]);
    return row + std::to_string(pin.triangle) + '\n';
}

/// A failure leaves what the file was before.
bool writePositions(const std::vector<PinnedPosition>& pins, const std::string& file)
{
    const std::string temporary = file + ".part";
    std::ofstream stream(temporary, std::ios::binary);
    stream << "x,y,z,nx,ny,nz,triangle\n";
    for (const PinnedPosition& pin : pins)
        stream << toRow(pin);
    stream.close();
    if (!stream.fail() && std::rename(temporary.c_str(), file.c_str()) == 0)
        return true;
    std::remove(temporary.c_str());
    return false;
}

std::vector<PinnedPosition> pinAll(const mrv::PinMesh& mesh, const std::vector<mrv::Vector3>& positions)
{
    std::vector<PinnedPosition> pins;
    for (const mrv::Vector3& position : positions)
    {
        PinnedPosition pin = { position, mrv::Vector3::getZUpVector(), -1 };
        if (!mesh.pinPosition(pin.position, pin.normal, pin.triangle))
            pin.normal.setNull();
        pins.push_back(pin);
    }
    return pins;
}

bool pin(const PinOptions& options)
{
    const auto fail = [](const std::string& file, const std::string& failure) {
        reportError(file, failure);
        return false;
    };
    std::string failure;
    mrv::PinMesh mesh;
    if (!readMesh(options.mesh, mesh, failure))
        return fail(options.mesh, failure);
    std::vector<mrv::Vector3> positions;
    if (!readPointTable(options.source, positions, failure))
        return fail(options.source, failure);
    const std::vector<PinnedPosition> pins = pinAll(mesh, positions);
    if (!writePositions(pins, options.target))
        return fail(options.target, "the file cannot be written");
    if (options.picture.empty() || drawTerrain(mesh, pins, options.picture, failure))
        return true;
    return fail(options.picture, failure);
}

} // namespace

void addPinCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command = app.add_subcommand("pin", "Puts positions on the ground");
    command->footer(
        "MESH is an OBJ file or any other that Assimp reads, taken with z upwards. POSITIONS.csv has lines\n"
        "x,y,z with or without a heading. Each position moves up or down to the nearest ground. OUT.csv "
        "gets\n"
        "a line for each: the position, the normal and the number of the triangle, from 0. With no ground\n"
        "above or below, the position stays, the normal is 0,0,0 and the triangle -1.");
    const auto options = std::make_shared<PinOptions>();
    command->add_option("MESH", options->mesh, "The ground")->required();
    command->add_option("POSITIONS.csv", options->source, "Table of positions")->required();
    command->add_option("OUT.csv", options->target, "Table of positions on the ground")->required();
    command->add_option("--png", options->picture, "A picture of the ground and the positions, from above");
    command->callback([options, &exitCode] { exitCode = pin(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
