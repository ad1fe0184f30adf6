// hosts/mrvcharacter/mrvTextTable.cpp
#include "hosts/mrvcharacter/mrvTextTable.h"

#include <algorithm>
#include <ostream>

namespace mrvcharacter {

namespace {

// Characters and not bytes, so that the columns stand straight under names with accents.
size_t getWidth(const std::string& text)
{
    return static_cast<size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

} // namespace

TextTable::TextTable(std::vector<Column> columns) : _columns(std::move(columns))
{
    std::vector<std::string> headings;
    for (const Column& column : _columns)
        headings.push_back(column.heading);
    addRow(std::move(headings));
}

void TextTable::print(std::ostream& stream) const
{
    std::vector<size_t> widths(_columns.size(), 0);
    for (const std::vector<std::string>& row : _rows)
        for (size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], getWidth(row[i]));

    for (const std::vector<std::string>& row : _rows)
    {
        std::string line;
        for (size_t i = 0; i < widths.size(); ++i)
        {
            const std::string gap(widths[i] - getWidth(row[i]), ' ');
            line += i == 0 ? "" : "  ";
            line += _columns[i].alignment == Alignment::RIGHT ? gap + row[i] : row[i] + gap;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        stream << line << '\n';
    }
}

} // namespace mrvcharacter
