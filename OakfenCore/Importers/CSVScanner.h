#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace oakfen {

/// Walks comma-separated text row by row and cell by cell, without keeping what it has passed: the
/// memory in use is that of the longest quoted cell. Lines without any text are no rows.
class CSVScanner {
public:
    /// The text must outlive the scanner.
    explicit CSVScanner(std::string_view text) : text_(text) {}

    /// Goes to the next row; false at the end of the text.
    bool nextRow();

    /// The next cell of the row without the blanks around it, good until the next call; nothing
    /// after the last one.
    std::optional<std::string_view> nextCell();

private:
    enum class Ending { comma, line, text };

    std::string_view scanField();
    std::size_t scanQuoted();
    Ending scanEnding();

    std::string_view text_;
    std::size_t position_ = 0;
    std::string unquoted_;   // the field, when it isn't a plain piece of the text
    std::string_view field_; // the next cell, while there is one
    bool hasField_ = false;
    Ending ending_ = Ending::line; // what stood behind the field
};

} // namespace oakfen
