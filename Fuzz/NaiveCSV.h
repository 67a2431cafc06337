#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/Support/Text/Text.h"

namespace oakfen::fuzz {

/// The rows and cells of comma-separated text, one character after the other and with no thought of
/// speed: what the real scanner is compared with.
class NaiveCSV {
public:
    explicit NaiveCSV(std::string_view text) {
        forEachCharacter(text, [this](std::string_view character) { take(character); });
        if (!field_.empty() || !row_.empty()) {
            endField();
            rows.push_back(row_);
        }
    }

    std::vector<std::vector<std::string>> rows;

private:
    void take(std::string_view character) {
        if (inQuotes_ && afterQuote_) {
            afterQuote_ = false;
            if (character == "\"") {
                field_ += character;
                return;
            }
            inQuotes_ = false;
        } else if (inQuotes_) {
            if (character == "\"") {
                afterQuote_ = true;
            } else {
                field_ += character;
            }
            return;
        }
        takeUnquoted(character);
    }

    void takeUnquoted(std::string_view character) {
        if (character == "\"") {
            inQuotes_ = true;
        } else if (character == ",") {
            endField();
        } else if (character == "\n" || character == "\r" || character == "\r\n") {
            endLine();
        } else {
            field_ += character;
        }
    }

    void endField() {
        row_.emplace_back(trimmingWhitespaces(field_));
        rawIsEmpty_ = field_.empty();
        field_.clear();
    }

    void endLine() {
        endField();
        if (row_.size() > 1 || !rawIsEmpty_) {
            rows.push_back(row_);
        }
        row_.clear();
    }

    std::string field_;
    std::vector<std::string> row_;
    bool rawIsEmpty_ = true; // of the field that ended last, blanks included
    bool inQuotes_ = false;
    bool afterQuote_ = false;
};

} // namespace oakfen::fuzz
