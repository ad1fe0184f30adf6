// hosts/mrvcharacter/mrvClassesCommand.cpp
#include "hosts/mrvcharacter/mrvClassesCommand.h"

#include "hosts/mrvcharacter/mrvTextTable.h"

#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvRTTI.h"

#include <CLI/App.hpp>

#include <iostream>
#include <string>

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

void printClasses()
{
    TextTable table({ { "TypeID" }, { "Name" }, { "Bases" }, { "Attributes", TextTable::Alignment::RIGHT } });
    const mrv::PODArray<const mrv::RTTI*> records = mrv::RTTI::getRTTIs();
    for (const mrv::RTTI* record : records)
        table.addRow({ record->getTypeID().getString().c_str(), record->getTypeName(), joinBaseNames(*record),
                       std::to_string(record->getAttributesCount()) });
    table.print(std::cout);
    std::cout << records.size() << " registered types\n";
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
