// tests/support/mrvItemPaths.cpp
#include "tests/support/mrvItemPaths.h"

#include "mrvCore/system/dataItem/mrvDataItem.h"

#include <cstring>
#include <sstream>
#include <vector>

namespace mrv::test {

namespace {

/// An attribute of an object, "[" and an index for an element.
using Step = std::string;

struct ParsedPath
{
    explicit ParsedPath(std::string path)
    {
        if (path.back() == '#')
        {
            path.pop_back();
            attribute = "pointerID";
        }
        std::istringstream parts(path);
        for (std::string part; std::getline(parts, part, '.');)
        {
            if (part.size() == 1 && std::strchr("xyzw", part[0]) != nullptr)
            {
                attribute = part;
                continue;
            }
            std::istringstream indices(part);
            for (std::string step; std::getline(indices, step, '[');)
                steps.push_back(step.back() == ']' ? "[" + step.substr(0, step.size() - 1) : step);
        }
    }

    std::vector<Step> steps;
    std::string attribute = "value";
};

/// The step that leads to a child. Entries of maps have no index but their place.
Step getStep(const DataItem& item, unsigned int child)
{
    const DataItem& to = item.getChild(child);
    if (std::strcmp(to.getName(), "element") != 0)
        return to.getName();
    const char* index = to.getAttribute("index");
    return "[" + (index != nullptr ? std::string(index) : std::to_string(child));
}

const DataItem* find(const DataItem& item, const Step& step)
{
    for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
        if (getStep(item, i) == step)
            return &item.getChild(i);
    return nullptr;
}

DataItem& touch(DataItem& item, const Step& step)
{
    if (const DataItem* found = find(item, step))
        return const_cast<DataItem&>(*found);
    DataItem& added = item.addChild();
    added.setName(step[0] == '[' ? "element" : step.c_str());
    if (step[0] == '[')
        added.addAttribute("index", step.c_str() + 1);
    return added;
}

void addPaths(std::set<std::string>& paths, const DataItem& item, const std::string& path)
{
    if (item.getChildrenCount() == 0 && item.getAttribute("x") == nullptr)
        paths.insert(item.getAttribute("pointerID") != nullptr ? path + "#" : path);
    for (const char* component : { "x", "y", "z", "w" })
        if (item.getAttribute(component) != nullptr)
            paths.insert(path + "." + component);
    for (unsigned int i = 0; i < item.getChildrenCount(); ++i)
    {
        const Step step = getStep(item, i);
        addPaths(paths, item.getChild(i), step[0] == '[' ? path + step + "]" : path + "." + step);
    }
}

} // namespace

void setItem(DataItem& object, const std::string& path, const std::string& value)
{
    const ParsedPath parsed(path);
    DataItem* item = &object;
    for (const Step& step : parsed.steps)
        item = &touch(*item, step);
    item->setAttribute(parsed.attribute.c_str(), value.c_str());
}

std::string getItem(const DataItem& object, const std::string& path)
{
    const ParsedPath parsed(path);
    const DataItem* item = &object;
    for (size_t i = 0; item != nullptr && i < parsed.steps.size(); ++i)
        item = find(*item, parsed.steps[i]);
    const char* value = item != nullptr ? item->getAttribute(parsed.attribute.c_str()) : nullptr;
    return value != nullptr ? value : "(none)";
}

std::set<std::string> getItemPaths(const DataItem& object)
{
    std::set<std::string> paths;
    for (unsigned int i = 0; i < object.getChildrenCount(); ++i)
        addPaths(paths, object.getChild(i), object.getChild(i).getName());
    return paths;
}

} // namespace mrv::test
