// hosts/mrvcharacter/mrvTextTable.h
// A table for people.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace mrvcharacter {

/// Prints texts in columns that are as wide as their widest cell. Texts are UTF-8.
class TextTable
{
public:
    enum class Alignment { LEFT, RIGHT };
    struct Column
    {
        std::string heading;
        Alignment alignment = Alignment::LEFT;
    };

    explicit TextTable(std::vector<Column> columns);

    /// One cell a column.
    void addRow(std::vector<std::string> cells) { _rows.push_back(std::move(cells)); }

    void print(std::ostream& stream) const;

private:
    std::vector<Column> _columns;
    std::vector<std::vector<std::string>> _rows; ///< the headings first
};

} // namespace mrvcharacter
