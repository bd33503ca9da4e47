#include "tool/text/Table.h"

#include <algorithm>
#include <utility>

#include "tool/text/Appearance.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

std::string Blanks(const std::string& cell, std::size_t width) {
    const std::size_t columns = DisplayWidth(cell);
    return std::string(columns < width ? width - columns : 0, ' ');
}

}  // namespace

std::string Padded(const std::string& cell, std::size_t width) {
    return cell + Blanks(cell, width);
}

std::string PaddedLeft(const std::string& cell, std::size_t width) {
    return Blanks(cell, width) + cell;
}

void Table::Add(Row row) {
    if (widths_.size() < row.size()) widths_.resize(row.size());
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::size_t width = std::min(DisplayWidth(row[i]), kWidestColumn);
        widths_[i] = std::max(widths_[i], width);
    }
    rows_.push_back(std::move(row));
}

void Table::AddHeading(Row words) {
    for (std::string& word : words) word = Inked(Ink::Strong, word);
    Add(std::move(words));
}

std::vector<std::string> Table::Lines() const {
    std::vector<std::string> lines;
    lines.reserve(rows_.size());
    for (const Row& row : rows_) {
        std::string line;
        std::size_t end = 0;  // of the last cell with text: no blanks after it
        for (std::size_t i = 0; i < row.size(); ++i) {
            const bool isRight = rightColumns_.contains(i);
            line += isRight ? PaddedLeft(row[i], widths_[i]) : row[i];
            if (!row[i].empty()) end = line.size();
            line += (isRight ? "" : Blanks(row[i], widths_[i])) + "  ";
        }
        line.resize(end);
        lines.push_back(std::move(line));
    }
    return lines;
}

void Table::WriteTo(Output& out) const {
    for (const std::string& line : Lines()) out.WriteLine(line);
}

}  // namespace vexpa_tool
