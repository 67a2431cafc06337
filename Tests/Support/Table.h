#pragma once

#include <charconv>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "OakfenCore/Support/Text/Text.h"

namespace oakfen::testing {

/// The bytes of a file that a test needs.
inline std::string contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("can't read " + path);
    }
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

/// A line of a table and its cells, which tabs separate.
struct TableRow {
    std::size_t line = 0;
    std::vector<std::string> cells;

    [[nodiscard]] const std::string& operator[](std::size_t index) const { return cells.at(index); }
};

/// The lines of a file of cases.
inline std::vector<TableRow> readTable(const std::string& path) {
    std::istringstream text(contentsOf(path));
    std::vector<TableRow> rows;
    std::string line;
    while (std::getline(text, line)) {
        const auto cells = split(line, '\t');
        rows.push_back({rows.size() + 1, {cells.begin(), cells.end()}});
    }
    return rows;
}

/// The number in a cell, which has a point in every locale.
inline double doubleIn(const std::string& cell) {
    double number = 0;
    const char* const end = cell.data() + cell.size();
    if (std::from_chars(cell.data(), end, number).ptr != end) {
        throw std::runtime_error("no number: " + cell);
    }
    return number;
}

} // namespace oakfen::testing
