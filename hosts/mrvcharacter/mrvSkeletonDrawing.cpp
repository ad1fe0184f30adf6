// hosts/mrvcharacter/mrvSkeletonDrawing.cpp
#include "hosts/mrvcharacter/mrvSkeletonDrawing.h"

#include "hosts/mrvcharacter/mrvBodyOutlines.h"
#include "hosts/mrvcharacter/mrvBodyParts.h"
#include "hosts/mrvcharacter/mrvPartLabels.h"
#include "hosts/mrvcharacter/mrvPicture.h"
#include "hosts/mrvcharacter/mrvUprightPose.h"

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <vector>

namespace mrvcharacter {

namespace {

constexpr Colour ink = { 0.13, 0.16, 0.20 };
constexpr Colour softInk = { 0.42, 0.46, 0.52 };
constexpr Colour panelGround = { 0.965, 0.970, 0.978 };
constexpr Colour groundLine = { 0.72, 0.75, 0.79 };

struct PartStyle
{
    const char* label;
    Colour colour;
};

// The colours of Okabe and Ito (2008), which people with any kind of colour vision tell apart.
constexpr PartStyle partStyles[BodyPart::END] = {
    { "pelvis", { 0.835, 0.369, 0.000 } },        { "spine", { 0.000, 0.447, 0.698 } },
    { "leg", { 0.000, 0.620, 0.451 } },           { "grasper", { 0.902, 0.624, 0.000 } },
    { "generic limb", { 0.337, 0.706, 0.914 } },  { "effector", { 0.800, 0.475, 0.655 } },
    { "unmapped bone", { 0.608, 0.639, 0.686 } },
};

constexpr double margin = 48;
constexpr double gap = 24;
constexpr double headingHeight = 112;
constexpr double legendHeight = 64;
constexpr double titleHeight = 52;
constexpr double padding = 36;

/// A direction of view: which way a point goes to the right and up in the picture.
struct View
{
    const char* title;
    mrv::Vector3 right;
    mrv::Vector3 up;
    bool hasGround;
};

// The character looks along X. From the side it looks to the right; from above, up.
const View views[] = {
    { "Front", mrv::Vector3(0.0f, 1.0f, 0.0f), mrv::Vector3(0.0f, 0.0f, 1.0f), true },
    { "Side", mrv::Vector3(1.0f, 0.0f, 0.0f), mrv::Vector3(0.0f, 0.0f, 1.0f), true },
    { "Above", mrv::Vector3(0.0f, -1.0f, 0.0f), mrv::Vector3(1.0f, 0.0f, 0.0f), false },
};

struct Range
{
    double low = std::numeric_limits<double>::max();
    double high = std::numeric_limits<double>::lowest();

    double getSize() const { return high > low ? high - low : 0.0; }
    double getMiddle() const { return high >= low ? 0.5 * (low + high) : 0.0; }
};

Range getRange(const std::vector<mrv::Vector3>& pose, const mrv::Vector3& direction)
{
    Range range;
    for (const mrv::Vector3& position : pose)
    {
        const double value = static_cast<double>(direction.dot(position));
        range.low = std::min(range.low, value);
        range.high = std::max(range.high, value);
    }
    return range;
}

/// What the three panels share.
struct Skeleton
{
    std::vector<mrv::Vector3> pose;
    std::vector<int> fathers;
    BodyParts parts;
    std::vector<PartLabel> labels;
    std::vector<PlacedBody> bodies;
    double scale = 1.0;     ///< pixels for one unit
    double lineWidth = 1.0; ///< of a bone
};

int getFatherIndex(const mrv::HierarchicalBoneV1& bone)
{
    return bone.getFather() != nullptr ? bone.getFather()->getSpecificBoneIndex() : -1;
}

Skeleton makeSkeleton(const mrv::GenericSpecificConverterMappingV8& mapping,
                      const mrv::SpecificPosture& posture, bool withBodies)
{
    Skeleton skeleton;
    if (mapping.getSkeletonDescription() == nullptr)
        return skeleton;
    skeleton.pose = getUprightPose(mapping, posture);
    for (const mrv::HierarchicalBoneV1* bone : mapping.getSkeletonDescription()->getBones())
        skeleton.fathers.push_back(getFatherIndex(*bone));
    skeleton.parts = findBodyParts(mapping);
    skeleton.labels = findPartLabels(mapping);
    if (withBodies)
        skeleton.bodies = placeBodies(mapping, posture);
    return skeleton;
}

// The panels share the width by what they have to show, but none gets so little that its title has no room.
struct Layout
{
    double left[3];
    double width[3];
    double top;
    double height;
};

Layout makeLayout(const Picture& picture, Skeleton& skeleton)
{
    Layout layout = {};
    layout.top = headingHeight;
    layout.height = picture.getHeight() - headingHeight - legendHeight - margin / 2;
    const double room = picture.getWidth() - 2 * margin - 2 * gap;

    double needed[3];
    double tallest = 0.0;
    for (int i = 0; i < 3; ++i)
    {
        needed[i] = getRange(skeleton.pose, views[i].right).getSize();
        tallest = std::max(tallest, getRange(skeleton.pose, views[i].up).getSize());
    }
    // What stands upright like a pole does not share by its rounding errors.
    const double together = needed[0] + needed[1] + needed[2];
    const bool isPole = together < 0.01 * tallest || together == 0.0;
    const double least = 0.18 * room;
    const double shared = room - 3 * least;
    double left = margin;
    for (int i = 0; i < 3; ++i)
    {
        layout.left[i] = left;
        layout.width[i] = least + shared * (isPole ? 1.0 / 3.0 : needed[i] / together);
        left += layout.width[i] + gap;
    }
    // One scale for all, by the panel that is filled first.
    skeleton.scale = std::numeric_limits<double>::max();
    if (tallest > 0.0)
        skeleton.scale = (layout.height - titleHeight - 2 * padding) / tallest;
    for (int i = 0; i < 3; ++i)
        if (needed[i] > 0.0)
            skeleton.scale = std::min(skeleton.scale, (layout.width[i] - 2 * padding) / needed[i]);
    if (tallest == 0.0 && together == 0.0)
        skeleton.scale = 1.0;
    return layout;
}

/// In pixels, from the father to the bone; 0 for a root.
double getLength(const Skeleton& skeleton, size_t bone)
{
    if (skeleton.fathers[bone] < 0)
        return 0.0;
    const mrv::Vector3& father = skeleton.pose[static_cast<size_t>(skeleton.fathers[bone])];
    return static_cast<double>((skeleton.pose[bone] - father).norm()) * skeleton.scale;
}

// Lines as strong as most bones are long.
double chooseLineWidth(const Skeleton& skeleton)
{
    std::vector<double> lengths;
    for (size_t i = 0; i < skeleton.pose.size(); ++i)
        if (skeleton.fathers[i] >= 0)
            lengths.push_back(getLength(skeleton, i));
    if (lengths.empty())
        return 5.0;
    const auto middle = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
    std::nth_element(lengths.begin(), middle, lengths.end());
    return std::clamp(0.14 * *middle, 2.0, 6.0);
}

// Thinner where bones are short, so that a hand does not become a blot.
double getLineWidth(const Skeleton& skeleton, size_t bone)
{
    if (skeleton.fathers[bone] < 0)
        return skeleton.lineWidth;
    return std::clamp(0.25 * getLength(skeleton, bone), std::min(1.8, skeleton.lineWidth),
                      skeleton.lineWidth);
}

/// The places of the bones on the picture, in the middle of a panel, and the height of the ground there.
struct Projection
{
    const View& view;
    Point origin;
    double scale;
    double ground;
    std::vector<Point> points = {};

    Point place(const mrv::Vector3& position) const
    {
        return { origin.x + static_cast<double>(view.right.dot(position)) * scale,
                 origin.y - static_cast<double>(view.up.dot(position)) * scale };
    }
};

Projection project(const Skeleton& skeleton, const View& view, const Layout& layout, int panel)
{
    const Range across = getRange(skeleton.pose, view.right);
    const Range upwards = getRange(skeleton.pose, view.up);
    const double middle = layout.left[panel] + 0.5 * layout.width[panel];
    const double bottom = layout.top + layout.height - padding;
    const double centre = 0.5 * (layout.top + titleHeight + bottom);
    const double base = view.hasGround ? bottom : centre + 0.5 * upwards.getSize() * skeleton.scale;

    const double low = skeleton.pose.empty() ? 0.0 : upwards.low;
    Projection projection = { view,
                              { middle - across.getMiddle() * skeleton.scale, base + low * skeleton.scale },
                              skeleton.scale,
                              bottom };
    for (const mrv::Vector3& position : skeleton.pose)
        projection.points.push_back(projection.place(position));
    return projection;
}

/// Bones from the farthest to the nearest, those of no part first.
std::vector<size_t> getDrawingOrder(const Skeleton& skeleton, const View& view)
{
    const mrv::Vector3 toViewer = view.right.cross(view.up);
    std::vector<size_t> order(skeleton.pose.size());
    for (size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) {
        const bool isPartA = skeleton.parts.ofBone[a] != BodyPart::NONE;
        const bool isPartB = skeleton.parts.ofBone[b] != BodyPart::NONE;
        return isPartA != isPartB ? isPartB : toViewer.dot(skeleton.pose[a]) < toViewer.dot(skeleton.pose[b]);
    });
    return order;
}

void drawBones(Picture& picture, const Skeleton& skeleton, const View& view, const Projection& projection)
{
    const std::vector<size_t> order = getDrawingOrder(skeleton, view);
    for (const size_t i : order)
        if (skeleton.fathers[i] >= 0)
            picture.drawLine(projection.points[static_cast<size_t>(skeleton.fathers[i])],
                             projection.points[i], getLineWidth(skeleton, i),
                             partStyles[skeleton.parts.ofBone[i]].colour);
    for (const size_t i : order)
    {
        const bool isPelvis = skeleton.parts.ofBone[i] == BodyPart::PELVIS;
        const double width = isPelvis ? 1.8 * skeleton.lineWidth : getLineWidth(skeleton, i);
        const double radius = 1.05 * width;
        picture.fillDisc(projection.points[i], radius + 0.25 * width, panelGround);
        picture.fillDisc(projection.points[i], radius, partStyles[skeleton.parts.ofBone[i]].colour);
    }
}

double getTurn(const Point& a, const Point& b, const Point& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// The corners of the convex hull in order (Andrew, "Another efficient algorithm for convex hulls", 1979).
std::vector<Point> getHull(std::vector<Point> points)
{
    std::sort(points.begin(), points.end(),
              [](const Point& a, const Point& b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
    std::vector<Point> hull;
    for (const bool isBack : { false, true })
    {
        const size_t start = hull.size();
        for (const Point& point : points)
        {
            while (hull.size() >= start + 2 && getTurn(hull[hull.size() - 2], hull.back(), point) <= 0.0)
                hull.pop_back();
            hull.push_back(point);
        }
        hull.pop_back(); // begins the other side
        if (!isBack)
            std::reverse(points.begin(), points.end());
    }
    return hull;
}

void drawBodies(Picture& picture, const Skeleton& skeleton, const View& view, const Projection& projection)
{
    for (const PlacedBody& body : skeleton.bodies)
    {
        std::vector<Point> points;
        for (const mrv::Vector3& point : getOutlinePoints(body, view.right, view.up))
            points.push_back(projection.place(point));
        const std::vector<Point> hull = getHull(points);
        const Colour& colour = partStyles[skeleton.parts.ofBone[static_cast<size_t>(body.bone)]].colour;
        for (size_t i = 0; i < hull.size(); ++i)
            picture.drawLine(hull[i], hull[(i + 1) % hull.size()], 1.6, colour);
    }
}

void drawPanel(Picture& picture, const Skeleton& skeleton, const Layout& layout, int panel)
{
    const View& view = views[panel];
    const double left = layout.left[panel];
    const double right = left + layout.width[panel];
    picture.fillBox({ left, layout.top }, layout.width[panel], layout.height, 14, panelGround);
    picture.drawText(view.title, { left + 22, layout.top + 36 }, { 20, softInk, true });
    const Projection projection = project(skeleton, view, layout, panel);
    if (view.hasGround)
        picture.drawLine({ left + 22, projection.ground + 1 }, { right - 22, projection.ground + 1 }, 2,
                         groundLine);
    drawBones(picture, skeleton, view, projection);
    drawBodies(picture, skeleton, view, projection);
    const Box room = { left + 8, layout.top + 44, right - 8, layout.top + layout.height - 8 };
    drawPartLabels(picture, skeleton.labels, projection.points, skeleton.fathers, room, ink);
}

/// The largest of 1, 2 and 5 times a power of ten that is not above the value.
double roundDown(double value)
{
    const double power = std::pow(10.0, std::floor(std::log10(value)));
    for (const double step : { 5.0, 2.0 })
        if (step * power <= value)
            return step * power;
    return power;
}

// In the lower right corner of the last panel, which has no ground.
void drawScaleBar(Picture& picture, const Skeleton& skeleton, const Layout& layout)
{
    const double length = roundDown(0.45 * layout.width[2] / skeleton.scale);
    const double right = layout.left[2] + layout.width[2] - 22;
    const double y = layout.top + layout.height - 22;
    const double left = right - length * skeleton.scale;
    picture.drawLine({ left, y }, { right, y }, 2, softInk);
    picture.drawLine({ left, y - 5 }, { left, y + 5 }, 2, softInk);
    picture.drawLine({ right, y - 5 }, { right, y + 5 }, 2, softInk);
    char text[32];
    std::snprintf(text, sizeof(text), "%g", length);
    picture.drawText(text, { 0.5 * (left + right), y - 10 }, { 15, softInk, false, TextAnchor::CENTER });
}

std::string count(size_t number, const char* thing)
{
    return std::to_string(number) + ' ' + thing + (number == 1 ? "" : "s");
}

void drawHeading(Picture& picture, const Skeleton& skeleton, const std::string& name)
{
    picture.drawText(name, { margin, 68 }, { 38, ink, true });
    char height[48];
    std::snprintf(height, sizeof(height), ", %.4g high",
                  getRange(skeleton.pose, mrv::Vector3::getZUpVector()).getSize());
    picture.drawText(count(skeleton.pose.size(), "bone") + (skeleton.pose.empty() ? "" : height),
                     { picture.getWidth() - margin, 68 }, { 24, softInk, false, TextAnchor::RIGHT });
}

void drawLegend(Picture& picture, const Skeleton& skeleton)
{
    const TextStyle style = { 20, ink };
    const double y = picture.getHeight() - legendHeight + 24;
    double x = margin + 10;
    for (int part = 0; part < BodyPart::END; ++part)
    {
        const size_t number = skeleton.parts.counts[part];
        if (number == 0)
            continue;
        const std::string text =
            part == BodyPart::PELVIS ? partStyles[part].label : count(number, partStyles[part].label);
        picture.fillDisc({ x, y - 7 }, 9, partStyles[part].colour);
        picture.drawText(text, { x + 20, y }, style);
        x += 20 + picture.getTextWidth(text, style) + 36;
    }
}

} // namespace

void drawSkeleton(Picture& picture, const mrv::MaravoCharacterV24& character,
                  const mrv::SpecificPosture& posture, bool withBodies)
{
    Skeleton skeleton = makeSkeleton(character.getConverterMapping(), posture, withBodies);
    const Layout layout = makeLayout(picture, skeleton);
    skeleton.lineWidth = chooseLineWidth(skeleton);
    drawHeading(picture, skeleton, character._name.c_str());
    for (int panel = 0; panel < 3; ++panel)
        drawPanel(picture, skeleton, layout, panel);
    drawScaleBar(picture, skeleton, layout);
    drawLegend(picture, skeleton);
}

} // namespace mrvcharacter
