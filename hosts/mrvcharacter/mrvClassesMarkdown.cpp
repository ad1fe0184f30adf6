// hosts/mrvcharacter/mrvClassesMarkdown.cpp
#include "hosts/mrvcharacter/mrvClassesMarkdown.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/assetManagement/mrvAssetAssociations.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvAbstractAttribute.h"
#include "mrvCore/system/inspection/mrvRTTI.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace mrvcharacter {

namespace {

using Records = std::vector<const mrv::RTTI*>;
using RecordsByName = std::map<std::string, const mrv::RTTI*>;

/// The records with attributes, with bases or with others that derive from them: no plain type has these.
RecordsByName findPersistentClasses()
{
    RecordsByName classes;
    for (const mrv::RTTI* record : mrv::RTTI::getRTTIs())
    {
        if (record->getAttributesCount() != 0 || record->getBaseClassesCount() != 0)
            classes[record->getTypeName()] = record;
        for (unsigned int i = 0; i < record->getBaseClassesCount(); ++i)
            classes[record->getBaseClassRTTI(i).getTypeName()] = &record->getBaseClassRTTI(i);
    }
    return classes;
}

/// The classes that the name of a type mentions: "Array<const X*>" mentions X.
Records findMentioned(const std::string& typeName, const RecordsByName& classes)
{
    Records found;
    const char* const separators = "<>,*& ";
    for (size_t begin = typeName.find_first_not_of(separators); begin != std::string::npos;)
    {
        const size_t end = typeName.find_first_of(separators, begin);
        const auto mentioned = classes.find(typeName.substr(begin, end - begin));
        if (mentioned != classes.end())
            found.push_back(mentioned->second);
        begin = typeName.find_first_not_of(separators, end);
    }
    return found;
}

/// The classes of what files begin with, and of all that these lead to.
std::set<const mrv::RTTI*> findCurrent(const RecordsByName& classes)
{
    std::set<const mrv::RTTI*> current;
    Records pending = { &mrv::MaravoCharacterV24::getClassRTTI(), &mrv::AssetAssociationsV0::getClassRTTI() };
    while (!pending.empty())
    {
        const mrv::RTTI& record = *pending.back();
        pending.pop_back();
        if (!current.insert(&record).second)
            continue;
        for (unsigned int i = 0; i < record.getBaseClassesCount(); ++i)
            pending.push_back(&record.getBaseClassRTTI(i));
        for (unsigned int i = 0; i < record.getAttributesCount(); ++i)
            for (const mrv::RTTI* mentioned :
                 findMentioned(record.getAttribute(i)->getAttributeRTTI().getTypeName(), classes))
                pending.push_back(mentioned);
    }
    return current;
}

/// Orders by the name without its namespace, then by the version as a number.
std::tuple<std::string, int, std::string> getOrder(const mrv::RTTI* record)
{
    const std::string name = record->getTypeName();
    const std::string bare = name.substr(name.rfind(':') + 1);
    const size_t digits = bare.find_last_not_of("0123456789") + 1;
    return { bare.substr(0, digits), std::atoi(bare.c_str() + digits), name };
}

void printClass(std::ostream& out, const mrv::RTTI& record)
{
    const unsigned int count = record.getAttributesCount();
    out << "\n#### `" << record.getTypeName() << "`\n\n"
        << "Type id `" << record.getTypeID().getString().c_str() << "`, " << count
        << (count == 1 ? " attribute" : " attributes");
    for (unsigned int i = 0; i < record.getBaseClassesCount(); ++i)
        out << (i == 0 ? ", derived from `" : ", `") << record.getBaseClassRTTI(i).getTypeName() << '`';
    out << ".\n";
    if (count == 0)
        return;
    out << "\n| # | name | type |\n|---|---|---|\n";
    for (unsigned int i = 0; i < count; ++i)
    {
        const mrv::AbstractAttribute& attribute = *record.getAttribute(i);
        out << "| " << i << " | `" << attribute.getName() << "` | `"
            << attribute.getAttributeRTTI().getTypeName() << "` |\n";
    }
}

} // namespace

void printClassesAsMarkdown(std::ostream& out)
{
    const RecordsByName classes = findPersistentClasses();
    const std::set<const mrv::RTTI*> current = findCurrent(classes);
    Records records;
    for (const auto& [name, record] : classes)
        records.push_back(record);
    std::sort(records.begin(), records.end(),
              [](const mrv::RTTI* a, const mrv::RTTI* b) { return getOrder(a) < getOrder(b); });

    for (const bool isCurrent : { true, false })
    {
        out << (isCurrent ? "### Current classes\n" : "\n### Frozen classes\n");
        for (const mrv::RTTI* record : records)
            if ((current.count(record) != 0) == isCurrent)
                printClass(out, *record);
    }
}

} // namespace mrvcharacter
