// hosts/mrvcharacter/mrvClassesCommand.cpp
#include "hosts/mrvcharacter/mrvClassesCommand.h"

#include "hosts/mrvcharacter/mrvClassesMarkdown.h"
#include "hosts/mrvcharacter/mrvTextTable.h"

#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvRTTI.h"

#include <CLI/App.hpp>

#include <iostream>
#include <memory>
#include <set>
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

/// What files rely on, a line for each type that is no composite of others, sorted by name.
void printAttributes()
{
    std::set<std::string> lines;
    for (const mrv::RTTI* record : mrv::RTTI::getRTTIs())
    {
        const std::string name = record->getTypeName();
        if (name.find_first_of("<*") != std::string::npos)
            continue;
        std::string line = name + " " + record->getTypeID().getString().c_str();
        if (record->getBaseClassesCount() != 0)
            line += " : " + joinBaseNames(*record);
        for (unsigned int i = 0; i < record->getAttributesCount(); ++i)
        {
            const mrv::AbstractAttribute& attribute = *record->getAttribute(i);
            line += std::string(i == 0 ? ": " : ", ") + attribute.getName() + " " +
                    attribute.getAttributeRTTI().getTypeName();
        }
        lines.insert(line);
    }
    for (const std::string& line : lines)
        std::cout << line << '\n';
}

} // namespace

void addClassesCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command = app.add_subcommand("classes", "Lists every registered type, ordered by TypeID");
    auto showsAttributes = std::make_shared<bool>(false);
    auto asMarkdown = std::make_shared<bool>(false);
    CLI::Option* attributes =
        command->add_flag("--attributes", *showsAttributes,
                          "Lists the attributes of each class with their types instead, ordered by name");
    command
        ->add_flag(
            "--markdown", *asMarkdown,
            "Prints the attributes of each persistent class as a section of Markdown instead, those of "
            "today's files first")
        ->excludes(attributes);
    command->callback([&exitCode, showsAttributes, asMarkdown] {
        if (*asMarkdown)
            printClassesAsMarkdown(std::cout);
        else
            *showsAttributes ? printAttributes() : printClasses();
        exitCode = 0;
    });
}

} // namespace mrvcharacter
