// tool/text/Table.h - lines in columns.
#ifndef VEXPA_TOOL_TEXT_TABLE_H_
#define VEXPA_TOOL_TEXT_TABLE_H_

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "tool/text/Output.h"

namespace vexpa_tool {

// The widest that a column gets: a longer cell pushes its own line out, not all of them,
// so that one endless name cannot make every line endless.
inline constexpr std::size_t kWidestColumn = 64;

// `cell` and the blanks up to `width` columns.
std::string Padded(const std::string& cell, std::size_t width);
// The same with the blanks before it.
std::string PaddedLeft(const std::string& cell, std::size_t width);

// Cells are Printable text; an empty one shows as nothing.
class Table {
public:
    using Row = std::vector<std::string>;

    void AlignRight(std::size_t column) { rightColumns_.insert(column); }
    void Add(Row row);
    // A row of words that stand above columns.
    void AddHeading(Row words);

    // Each row with its columns aligned, two blanks between them, none at the end.
    std::vector<std::string> Lines() const;
    void WriteTo(Output& out) const;

private:
    std::vector<Row> rows_;
    std::vector<std::size_t> widths_;
    std::set<std::size_t> rightColumns_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_TEXT_TABLE_H_
