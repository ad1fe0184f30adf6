// hosts/mrvcharacter/mrvTerrainDrawing.cpp
#include "hosts/mrvcharacter/mrvTerrainDrawing.h"

#include "hosts/mrvcharacter/mrvPicture.h"

#include "mrvCore/math/geometry3/mrvPinMesh.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace mrvcharacter {

namespace {

constexpr Colour white = { 1.0, 1.0, 1.0 };
constexpr Colour ink = { 0.15, 0.17, 0.2 };
constexpr Colour pinnedColour = { 0.85, 0.1, 0.1 };
constexpr Colour looseColour = { 0.45, 0.45, 0.45 };
constexpr double longerSide = 1200.0;
constexpr double margin = 40.0;
constexpr double headingHeight = 60.0;

/// From low to high.
constexpr Colour heights[] = { { 0.22, 0.45, 0.35 },
                               { 0.50, 0.65, 0.38 },
                               { 0.87, 0.80, 0.55 },
                               { 0.65, 0.48, 0.36 },
                               { 0.97, 0.96, 0.95 } };

Colour scale(const Colour& colour, double factor)
{
    return { std::min(colour.red * factor, 1.0), std::min(colour.green * factor, 1.0),
             std::min(colour.blue * factor, 1.0) };
}

Colour colourOfHeight(double share)
{
    constexpr int last = static_cast<int>(std::size(heights)) - 1;
    const double place = std::clamp(share, 0.0, 1.0) * last;
    const int lower = std::min(static_cast<int>(place), last - 1);
    const double part = place - lower;
    const Colour& a = heights[lower];
    const Colour& b = heights[lower + 1];
    return { a.red + (b.red - a.red) * part, a.green + (b.green - a.green) * part,
             a.blue + (b.blue - a.blue) * part };
}

/// From the world to the picture, seen from above.
class Frame
{
public:
    explicit Frame(const mrv::PinMesh& mesh)
    {
        mesh.getAABBox(_min, _max);
        const double width = double(_max.x) - double(_min.x);
        const double height = double(_max.y) - double(_min.y);
        const double longer = std::max(width, height);
        _scale = longer > 0.0 ? longerSide / longer : 1.0;
        _width = std::max(width * _scale, 1.0);
        _height = std::max(height * _scale, 1.0);
    }

    int getWidth() const { return static_cast<int>(std::max(_width, longerSide / 2.0) + 2.0 * margin); }
    int getHeight() const { return static_cast<int>(_height + 2.0 * margin + headingHeight); }
    Point toPicture(const mrv::Vector3& position) const
    {
        return { margin + (double(position.x) - double(_min.x)) * _scale,
                 headingHeight + margin + _height - (double(position.y) - double(_min.y)) * _scale };
    }
    /// Of the middle of a pixel, above all.
    mrv::Vector3 toWorld(int x, int y) const
    {
        return mrv::Vector3(
            static_cast<float>(double(_min.x) + (x + 0.5 - margin) / _scale),
            static_cast<float>(double(_min.y) + (headingHeight + margin + _height - y - 0.5) / _scale),
            _max.z + (_max.z - _min.z) + 1.0f);
    }
    double shareOfHeight(float z) const
    {
        const double range = double(_max.z) - double(_min.z);
        return range > 0.0 ? (double(z) - double(_min.z)) / range : 0.5;
    }
    float getLowest() const { return _min.z; }
    float getHighest() const { return _max.z; }

private:
    mrv::Vector3 _min;
    mrv::Vector3 _max;
    double _scale;
    double _width;
    double _height;
};

void drawGround(Picture& picture, const Frame& frame, const mrv::PinMesh& mesh)
{
    const mrv::Vector3 light = mrv::Vector3(-1.0f, 1.0f, 1.2f).computeNormalize();
    const mrv::Vector3 down(0.0f, 0.0f, -1.0f);
    constexpr float length = 1e8f; // so that no triangle is too small for a ray
    for (int y = static_cast<int>(headingHeight + margin); y < picture.getHeight(); ++y)
        for (int x = 0; x < picture.getWidth(); ++x)
        {
            mrv::Vector3 hit;
            int triangle = -1;
            if (!mesh.raycast(frame.toWorld(x, y), down, hit, triangle, length, false))
                continue;
            mrv::Vector3 normal = mesh.getFaceNormal(triangle);
            if (normal.z < 0.0f)
                normal = -normal;
            const double brightness = 0.45 + 0.75 * std::max(0.0, double(normal.dot(light)));
            picture.setPixel(x, y, scale(colourOfHeight(frame.shareOfHeight(hit.z)), brightness));
        }
}

void drawHeading(Picture& picture, const Frame& frame, const mrv::PinMesh& mesh, size_t pinned, size_t count)
{
    char text[200];
    std::snprintf(text, sizeof(text), "%d triangles, %zu of %zu positions on the ground",
                  mesh.getTotalTriangleCount(), pinned, count);
    picture.drawText(text, { margin, headingHeight / 2.0 }, { 18.0, ink });
    constexpr int barLength = 200;
    const int top = static_cast<int>(headingHeight / 2.0) + 14;
    for (int i = 0; i < barLength; ++i)
        for (int y = top; y < top + 14; ++y)
            picture.setPixel(static_cast<int>(margin) + i, y, colourOfHeight(double(i) / barLength));
    std::snprintf(text, sizeof(text), "z from %g to %g", double(frame.getLowest()),
                  double(frame.getHighest()));
    picture.drawText(text, { margin + barLength + 12.0, top + 12.0 }, { 14.0, ink });
}

} // namespace

bool drawTerrain(const mrv::PinMesh& mesh, const std::vector<PinnedPosition>& positions,
                 const std::string& file, std::string& failure)
{
    const Frame frame(mesh);
    Picture picture(frame.getWidth(), frame.getHeight(), white);
    drawGround(picture, frame, mesh);
    const double radius =
        std::clamp(longerSide / 8.0 / std::sqrt(static_cast<double>(positions.size()) + 1.0), 1.5, 6.0);
    size_t pinned = 0;
    for (const PinnedPosition& pin : positions)
    {
        const bool isPinned = pin.triangle >= 0;
        pinned += isPinned ? 1 : 0;
        picture.fillDisc(frame.toPicture(pin.position), radius + 1.0, white);
        picture.fillDisc(frame.toPicture(pin.position), radius, isPinned ? pinnedColour : looseColour);
    }
    drawHeading(picture, frame, mesh, pinned, positions.size());
    return picture.write(file, failure);
}

} // namespace mrvcharacter
