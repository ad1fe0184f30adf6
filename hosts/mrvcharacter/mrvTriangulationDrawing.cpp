// hosts/mrvcharacter/mrvTriangulationDrawing.cpp
#include "hosts/mrvcharacter/mrvTriangulationDrawing.h"

#include "hosts/mrvcharacter/mrvPicture.h"

#include "mrvCore/math/delaunay/mrvDelaunay2.h"

#include <algorithm>
#include <cmath>

namespace mrvcharacter {

namespace {

constexpr Colour white = { 1.0, 1.0, 1.0 };
constexpr Colour ink = { 0.15, 0.17, 0.2 };
constexpr Colour edgeColour = { 0.35, 0.55, 0.8 };
constexpr Colour hullColour = { 0.85, 0.35, 0.1 };
constexpr double longerSide = 1200.0;
constexpr double shortestSide = 200.0; // also for points in one row
constexpr double margin = 40.0;
constexpr double headingHeight = 30.0;

/// From the points to the picture.
class Frame
{
public:
    explicit Frame(const mrv::Delaunay2& triangulation)
    {
        mrv::Delaunay2::Information info;
        mrv::Delaunay2::getInformation(static_cast<unsigned int>(triangulation.getVerticesCount()),
                                       triangulation.getVertices(), 0.0f, info);
        _left = info._min[0];
        _bottom = info._min[1];
        _scale = longerSide / info._maxRange;
        _width = (double(info._max[0]) - _left) * _scale;
        _height = (double(info._max[1]) - _bottom) * _scale;
    }

    int getWidth() const { return static_cast<int>(std::max(_width, shortestSide) + 2.0 * margin); }
    int getHeight() const { return static_cast<int>(_height + 2.0 * margin + headingHeight); }
    Point toPicture(const mrv::Vector2& point) const
    {
        return { margin + (double(point.x) - _left) * _scale,
                 headingHeight + margin + _height - (double(point.y) - _bottom) * _scale };
    }

private:
    double _left;
    double _bottom;
    double _scale;
    double _width;
    double _height;
};

/// The inner edges once each, then the hull above them.
void drawEdges(Picture& picture, const Frame& frame, const mrv::Delaunay2& triangulation, double width)
{
    const int* const indices = triangulation.getIndices();
    const int* const adjacencies = triangulation.getAdjacencies();
    for (const bool isHull : { false, true })
        for (int entry = 0; entry < 3 * triangulation.getSimplicesCount(); ++entry)
        {
            const int neighbour = adjacencies[entry];
            if ((neighbour == -1) != isHull || (!isHull && neighbour < entry / 3))
                continue;
            const int next = entry % 3 == 2 ? entry - 2 : entry + 1;
            picture.drawLine(frame.toPicture(triangulation.getVertices()[indices[entry]]),
                             frame.toPicture(triangulation.getVertices()[indices[next]]),
                             isHull ? 2.0 * width : width, isHull ? hullColour : edgeColour);
        }
}

} // namespace

bool drawTriangulation(const mrv::Delaunay2& triangulation, const std::string& file, std::string& failure)
{
    const Frame frame(triangulation);
    Picture picture(frame.getWidth(), frame.getHeight(), white);
    const int count = triangulation.getVerticesCount();
    // Finer lines and smaller points for more of them.
    const double spacing = longerSide / std::sqrt(static_cast<double>(count));
    drawEdges(picture, frame, triangulation, std::clamp(spacing / 30.0, 0.3, 1.5));
    for (int i = 0; i < count; ++i)
        picture.fillDisc(frame.toPicture(triangulation.getVertices()[i]),
                         std::clamp(spacing / 16.0, 0.5, 4.0), ink);
    picture.drawText(std::to_string(count) + " points, " + std::to_string(triangulation.getSimplicesCount()) +
                         " triangles",
                     { margin, headingHeight }, { 18.0, ink });
    return picture.write(file, failure);
}

} // namespace mrvcharacter
