// hosts/mrvcharacter/mrvClassesCommand.cpp
#include "hosts/mrvcharacter/mrvClassesCommand.h"

#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvRTTI.h"

#include <CLI/App.hpp>

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

namespace mrvcharacter {

namespace {

std::string joinBaseNames(const mrv::RTTI& record)
{
    std::string names;
    for (unsigned int i = 0; i < record.getBaseClassesCount(); ++i)
    {
        names += names.empty() ? "" : ", ";
        names += record.getBaseClassRTTI(i).getTypeName();
    }
    return names.empty() ? "-" : names;
}

struct Row
{
    std::string typeID, name, bases, attributes;
};

void printClasses()
{
    std::vector<Row> rows = { { "TypeID", "Name", "Bases", "Attributes" } };
    for (const mrv::RTTI* record : mrv::RTTI::getRTTIs())
    {
        rows.push_back({ record->getTypeID().getString().c_str(), record->getTypeName(),
                         joinBaseNames(*record), std::to_string(record->getAttributesCount()) });
    }
    size_t nameWidth = 0;
    size_t basesWidth = 0;
    for (const Row& row : rows)
    {
        nameWidth = std::max(nameWidth, row.name.size());
        basesWidth = std::max(basesWidth, row.bases.size());
    }
    for (const Row& row : rows)
    {
        std::cout << std::left << std::setw(36) << row.typeID << "  "
                  << std::setw(static_cast<int>(nameWidth)) << row.name << "  "
                  << std::setw(static_cast<int>(basesWidth)) << row.bases << "  " << std::right
                  << std::setw(10) << row.attributes << '\n';
    }
    std::cout << rows.size() - 1 << " registered types\n";
}

} // namespace

void addClassesCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command = app.add_subcommand("classes", "Lists every registered type, ordered by TypeID");
    command->callback([&exitCode] {
        printClasses();
        exitCode = 0;
    });
}

} // namespace mrvcharacter
