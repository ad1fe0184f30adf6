// hosts/mrvcharacter/mrvPartLabels.cpp
#include "hosts/mrvcharacter/mrvPartLabels.h"

#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"

#include <algorithm>
#include <cmath>

namespace mrvcharacter {

namespace {

using Mapping = mrv::GenericSpecificConverterMappingV8;

/// The bone in the middle of both chains, or the last one.
void addLabel(const Mapping& mapping, const mrv::GenericSpecificConverterBoneV1& part,
              const mrv::MrvString& name, bool atMiddle, double size, std::vector<PartLabel>& labels)
{
    mrv::PODArray<const mrv::HierarchicalBoneV1*> bones;
    for (const int chain : { 1, 0 })
        Mapping::buildBoneChain(bones, mapping.getSkeletonDescription()->getBones(), part, chain, false);
    if (bones.empty() || name.empty())
        return;
    const mrv::HierarchicalBoneV1* bone = bones[atMiddle ? bones.size() / 2 : 0];
    labels.push_back({ name.c_str(), static_cast<size_t>(bone->getSpecificBoneIndex()), size });
}

bool overlap(const Box& a, const Box& b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool contains(const Box& outer, const Box& inner)
{
    return outer.left <= inner.left && inner.right <= outer.right && outer.top <= inner.top &&
           inner.bottom <= outer.bottom;
}

/// A box of the size of a label at a distance and a direction, counted in eighths of a turn, from its point.
Box placeBox(Point point, double width, double height, double distance, int direction)
{
    const double angle = direction * 0.25 * std::acos(-1.0);
    const double x = point.x + std::cos(angle) * (distance + 0.5 * width);
    const double y = point.y + std::sin(angle) * (distance + 0.5 * height);
    return { x - 0.5 * width, y - 0.5 * height, x + 0.5 * width, y + 0.5 * height };
}

/// Small boxes along the lines of the bones.
std::vector<Box> coverBones(const std::vector<Point>& bones, const std::vector<int>& fathers)
{
    constexpr double radius = 4;
    std::vector<Box> boxes;
    for (size_t i = 0; i < bones.size(); ++i)
    {
        const Point end = bones[i];
        const Point start = fathers[i] < 0 ? end : bones[static_cast<size_t>(fathers[i])];
        const int steps = 1 + static_cast<int>(std::hypot(end.x - start.x, end.y - start.y) / (2 * radius));
        for (int k = 1; k <= steps; ++k)
        {
            const double x = start.x + (end.x - start.x) * k / steps;
            const double y = start.y + (end.y - start.y) * k / steps;
            boxes.push_back({ x - radius, y - radius, x + radius, y + radius });
        }
    }
    return boxes;
}

bool isFree(const Box& box, const std::vector<Box>& taken)
{
    return std::none_of(taken.begin(), taken.end(), [&box](const Box& other) { return overlap(box, other); });
}

/// The nearest place for a label of this size; false if there is none.
bool findPlace(Point point, double width, double height, const Box& panel, const std::vector<Box>& bones,
               const std::vector<Box>& labels, Box& place)
{
    for (const bool mayCoverBones : { false, true })
        for (const double distance : { 6.0, 14.0, 24.0, 36.0 })
            for (int direction = 0; direction < 8; ++direction)
            {
                place = placeBox(point, width, height, distance, direction);
                if (contains(panel, place) && isFree(place, labels) &&
                    (mayCoverBones || isFree(place, bones)))
                    return true;
            }
    return false;
}

} // namespace

std::vector<PartLabel> findPartLabels(const Mapping& mapping)
{
    constexpr double limbSize = 15;
    constexpr double effectorSize = 11;
    std::vector<PartLabel> labels;
    if (mapping.getSkeletonDescription() == nullptr)
        return labels;
    mrv::MrvString name;
    for (size_t i = 0; i < mapping.getSpineBonesSize(); ++i)
    {
        mapping.getSpineBoneName(name, i);
        addLabel(mapping, mapping.getSpineBones()[i], name.empty() ? mrv::MrvString("spine") : name, true,
                 limbSize, labels);
    }
    for (size_t i = 0; i < mapping.getLimbBonesSize(); ++i)
    {
        mapping.getLimbBoneName(name, i);
        addLabel(mapping, mapping.getLimbBones()[i], name, true, limbSize, labels);
    }
    for (size_t i = 0; i < mapping.getEffectorBonesSize(); ++i)
    {
        mapping.getEffectorBoneName(name, i);
        addLabel(mapping, mapping.getEffectorBones()[i], name, false, effectorSize, labels);
    }
    return labels;
}

void drawPartLabels(Picture& picture, const std::vector<PartLabel>& labels, const std::vector<Point>& bones,
                    const std::vector<int>& fathers, const Box& panel, const Colour& colour)
{
    const std::vector<Box> covered = coverBones(bones, fathers);
    std::vector<Box> written;
    for (const PartLabel& label : labels)
    {
        if (label.bone >= bones.size())
            continue;
        const TextStyle style = { label.size, colour, false, TextAnchor::CENTER };
        const double width = picture.getTextWidth(label.text, style) + 4;
        Box place = {};
        if (!findPlace(bones[label.bone], width, 1.2 * label.size, panel, covered, written, place))
            continue;
        picture.drawText(label.text, { 0.5 * (place.left + place.right), place.bottom - 0.3 * label.size },
                         style);
        written.push_back(place);
    }
}

} // namespace mrvcharacter
